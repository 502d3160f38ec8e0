/// Service registry of the host's plug-in framework.
#pragma once

#include <QJsonObject>
#include <string>

#include "kvcore.h"

/// The host's first-page plug-in. The service "firstPagePlugin" is a pointer to exactly this type.
class NEWPRO_HOST_API FirstPagePlugin {
  public:
    virtual ~FirstPagePlugin();
    /// @param newWork true when the question concerns a new project.
    /// @return whether the host is ready to open a new project now.
    virtual bool canStartNew(bool newWork) = 0;
    /// Shows the log-in of the cloud account and returns when it has closed.
    /// @param options reserved; an empty object.
    virtual void showLogin(const QJsonObject& options) = 0;
};

namespace osgi {

class NEWPRO_HOST_API ObjectHelper {
  public:
    /// @param name the name under which a plug-in registered its service.
    /// @return the service object, owned by its plug-in; null when there is none.
    static void* GetService(const std::string& name);
};

}  // namespace osgi

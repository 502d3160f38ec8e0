/// Core library of the host: the cloud account and the constants of the configuration folders.
#pragma once

#include <QString>

/// Marks what a host library exports. The host's own build defines it as Q_DECL_EXPORT.
#ifndef NEWPRO_HOST_API
#define NEWPRO_HOST_API Q_DECL_IMPORT
#endif

/// Configuration sub-folder below the installation folder; begins and ends with "/".
extern NEWPRO_HOST_API const QString GCSZDir;
/// Suffix of preliminary-estimate template files, dot included, without "*".
extern NEWPRO_HOST_API const QString GSMBSuffix;
/// Suffix of template project files, dot included (".MODX").
extern NEWPRO_HOST_API const QString TemplateProProfix;

/// The cloud account of the current user. Owned by the host.
class NEWPRO_HOST_API UserInfo {
  public:
    /// @return whether the account is logged in at this moment.
    bool IsLogin() const;
    /// @return the account's id; empty while nobody is logged in.
    QString UserID() const;
};

/// Access to the accounts of the host process.
class NEWPRO_HOST_API Users {
  public:
    static Users* Instance();
    /// @return the cloud account; never null, owned by the host.
    UserInfo* Kvy();
};

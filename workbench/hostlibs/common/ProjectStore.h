/// Turns creation requests into project files, as the real host and its plug-ins do.
#pragma once

#include <QObject>
#include <QVariant>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

struct CreationPlan;
struct CreationRequest;

/// While it lives it receives the host's messages. The program hands it the dialog's signals. Every
/// file made is journalled and stands at the head of the history list.
class WORKBENCH_API ProjectStore : public QObject {
    Q_OBJECT
  public:
    explicit ProjectStore(QObject* parent = nullptr);
    ~ProjectStore() override;

    /// Receives a message; see Host::Receiver. The main logic's code 44 makes no file: it is always
    /// followed by SignalCreateMB, which also knows the program type.
    void receiveMessage(int client, int code, const QVariant& payload);

  public Q_SLOTS:
    /// The arguments of NewProCfgDialog::SignalCreatePro.
    void createFromModel(int programType, int code, const QVariant& map);
    /// The arguments of NewProCfgDialog::SignalCreateMB.
    void createFromTemplate(int programType, int code, const QString& path);

  Q_SIGNALS:
    void created(const QString& path);
    /// No file could be made. @param text for the user.
    void failed(const QString& text);

  private:
    void create(const CreationRequest& request);
    /// @return path of the new file; empty when none could be made, and why is in `error`.
    QString writeProject(const CreationRequest& request, const CreationPlan& plan, QString& error);
};

/// @param title any text. @return it as part of a file name, fit for every file system and for the
///         history list: no separators, no control characters, at most 40 characters; empty if
///         nothing is left.
WORKBENCH_API QString safeFileName(const QString& title);

}  // namespace workbench

/// What a creation flow may do with the dialog that it runs in.
#pragma once

#include <QPointer>
#include <QVariant>
#include <QWidget>

class AppPluginManager;

namespace newpro {

/// The dialog as a flow sees it. Every function but `widget` may end in the dialog's deletion, and
/// so may whatever the host is asked: this object outlives the flow, and what it can do no more
/// without its dialog ends the flow; see Gone.
class CreationDialog {
  public:
    virtual ~CreationDialog() = default;

    /// @return the dialog's window; parent of file dialogs, and the sign of life of the dialog.
    virtual QWidget* widget() = 0;
    /// Closes the dialog with the accepted result.
    virtual void acceptDialog() = 0;
    /// Closes the dialog with QWidget::close, which leaves the rejected result.
    virtual void closeDialog() = 0;
    /// @param type set to the program type of the current application type; left alone for an
    ///        unknown one. @return true in every case.
    virtual bool programTypeOfAppType(int& type) = 0;
    /// @return the host's plug-in manager as stored by the dialog; may be null.
    virtual AppPluginManager* pluginManager() = 0;
    /// Emits SignalCreatePro(programType, 95, map).
    virtual void emitCreatePro(int programType, const QVariant& map) = 0;
    /// Emits SignalCreateMB(programType, 44, path).
    virtual void emitCreateMB(int programType, const QString& path) = 0;
    /// Creates a project from the data of a page, as the slot slotCreatePro does.
    virtual void createFromPage(const QVariantMap& values, int kind) = 0;
};

}  // namespace newpro

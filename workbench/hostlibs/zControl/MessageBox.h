/// The host's message box.
#pragma once

#include "workbench/base/WorkbenchApi.h"
#include "zControl.h"

namespace workbench {

/// Modal box with a picture, a text that wraps and can be selected, and buttons named "button0",
/// "button1" and so on, the first of which is pressed by Enter. Its object name is "messageBox".
class WORKBENCH_API MessageBox : public RoundedDialog {
    Q_OBJECT
  public:
    /// @param picture "info" or "critical".
    MessageBox(const QString& title, const QString& text, const QStringList& buttons,
               const char* picture, QWidget* parent);
    /// @return index of the chosen button; -1 when the box was closed.
    int chosen() const { return choice; }

  private:
    QLayout* makeMessage(const QString& text, const char* picture);
    QLayout* makeButtons(const QStringList& buttons, const QString& text);

    int choice = -1;
};

}  // namespace workbench

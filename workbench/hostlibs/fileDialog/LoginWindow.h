/// The log-in window of the cloud account.
#pragma once

#include "workbench/base/WorkbenchApi.h"
#include "zControl.h"

class QGridLayout;
class QLineEdit;

namespace workbench {

/// Asks for user id and password. The workbench has no accounts to check them against: any pair of
/// texts that are not empty is accepted. The object names of its widgets are "userField",
/// "passwordField", "errorLabel", "loginButton" and "cancelButton".
class WORKBENCH_API LoginWindow : public zTitleModal {
    Q_OBJECT
  public:
    explicit LoginWindow(QWidget* parent = nullptr);

    /// Shows the window until it closes, and logs the account in when it was accepted.
    /// @return whether it was accepted.
    static bool ask();

    QString userId() const;

  private:
    void addRow(QGridLayout* grid, int row, const QString& label, QLineEdit* field);
    void tryLogin();

    QLineEdit* user;
    QLineEdit* password;
    zBaseLabel* error;
};

}  // namespace workbench

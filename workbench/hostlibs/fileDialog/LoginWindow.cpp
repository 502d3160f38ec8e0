#include "workbench/hostlibs/fileDialog/LoginWindow.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/fileDialog/FieldStyle.h"
#include "workbench/hostlibs/osgi/LoginHook.h"
#include "workbench/hostlibs/zBaseControl/Style.h"

namespace workbench {

namespace {

// The first page and the file dialog know the hook only: they show whatever window is hung up.
[[maybe_unused]] const bool hungUp = [] {
    setLoginWindow(&LoginWindow::ask);
    return true;
}();

}  // namespace

LoginWindow::LoginWindow(QWidget* parent)
    : zTitleModal(parent),
      user(new QLineEdit(this)),
      password(new QLineEdit(this)),
      error(new zBaseLabel(this)) {
    SetCaption(QStringLiteral("登录云账号"));
    user->setObjectName(QStringLiteral("userField"));
    user->setText(Host::instance().switches().account.userId);
    password->setObjectName(QStringLiteral("passwordField"));
    password->setEchoMode(QLineEdit::Password);
    error->setObjectName(QStringLiteral("errorLabel"));
    error->setAccessibleName(QStringLiteral("提示"));

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(scaled(28), scaled(20), scaled(28), scaled(20));
    column->setSpacing(scaled(12));
    auto* grid = new QGridLayout;
    grid->setSpacing(scaled(12));
    addRow(grid, 0, QStringLiteral("账号"), user);
    addRow(grid, 1, QStringLiteral("密码"), password);
    column->addLayout(grid);
    column->addWidget(error);
    column->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(scaled(8));
    buttons->addStretch(1);
    auto* login = windowButton("loginButton", QStringLiteral("登录"),
                               QStringLiteral("用所填的账号登录云盘"), this);
    login->setControlType(DefaultActionType);
    login->setDefault(true);
    auto* cancel = windowButton("cancelButton", QStringLiteral("取消"),
                                QStringLiteral("不登录，关闭此窗口"), this);
    buttons->addWidget(login);
    buttons->addWidget(cancel);
    column->addLayout(buttons);

    connect(login, &QPushButton::clicked, this, &LoginWindow::tryLogin);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    setStyleSheet(fieldSheet());
    setFixedSize(roomOnScreen(*this, 360, 230));
    user->text().isEmpty() ? user->setFocus() : password->setFocus();
}

void LoginWindow::addRow(QGridLayout* grid, int row, const QString& label, QLineEdit* field) {
    auto* text = new zBaseLabel(label, this);
    text->setBuddy(field);
    field->setAccessibleName(label);
    field->setAccessibleDescription(QStringLiteral("云盘的") + label);
    field->setFixedHeight(roomFor(kControlHeight));
    grid->addWidget(text, row, 0);
    grid->addWidget(field, row, 1);
}

QString LoginWindow::userId() const {
    return user->text().trimmed();
}

void LoginWindow::tryLogin() {
    if (!userId().isEmpty() && !password->text().isEmpty()) return accept();
    QPalette palette = error->palette();
    palette.setColor(QPalette::WindowText, colour(Tint::Danger));
    error->setPalette(palette);
    error->setText(QStringLiteral("请输入账号和密码"));
    (userId().isEmpty() ? user : password)->setFocus();
}

bool LoginWindow::ask() {
    QWidget* over = QApplication::activeModalWidget();
    const QPointer<LoginWindow> window(
        new LoginWindow(over ? over : Host::instance().mainWindow()));
    const bool accepted = window->exec() == Accepted && window;
    if (accepted) {
        Account& account = Host::instance().switches().account;
        account.loggedIn = true;
        account.userId = window->userId();
    }
    delete window;
    return accepted;
}

}  // namespace workbench

#include "kvcore.h"

#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"

const QString GCSZDir = QStringLiteral("/GCSZ/");
const QString GSMBSuffix = QStringLiteral(".GSMB");
const QString TemplateProProfix = QStringLiteral(".MODX");

namespace {

const workbench::Account& account() {
    return workbench::Host::instance().switches().account;
}

}  // namespace

bool UserInfo::IsLogin() const {
    return workbench::journalled("UserInfo::IsLogin", {}, [] { return account().loggedIn; });
}

QString UserInfo::UserID() const {
    return workbench::journalled("UserInfo::UserID", {},
                                 [] { return account().loggedIn ? account().userId : QString(); });
}

Users* Users::Instance() {
    static Users users;
    return workbench::accessed("Users::Instance", &users);
}

UserInfo* Users::Kvy() {
    static UserInfo user;
    return workbench::accessed("Users::Kvy", &user);
}

#include "tests/support/UnprivilegedUser.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace testing_support {

#ifdef Q_OS_UNIX

namespace {
constexpr uid_t nobody = 65534;
}

UnprivilegedUser::UnprivilegedUser(const QString& folder) : user(geteuid()), group(getegid()) {
    if (user != 0) return;
    EXPECT_TRUE(QFile::setPermissions(
        folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup |
                    QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther));
    // The group first: without the administrator's user it could not be changed any more.
    EXPECT_EQ(setegid(nobody), 0);
    EXPECT_EQ(seteuid(nobody), 0);
}

UnprivilegedUser::~UnprivilegedUser() {
    if (geteuid() == user && getegid() == group) return;
    EXPECT_EQ(seteuid(user), 0);
    EXPECT_EQ(setegid(group), 0);
#ifdef Q_OS_LINUX
    // A change of user closes the process to others; a leak checker looks at it from outside.
    prctl(PR_SET_DUMPABLE, 1, 0, 0, 0);
#endif
}

#else

UnprivilegedUser::UnprivilegedUser(const QString&) {}
UnprivilegedUser::~UnprivilegedUser() = default;

#endif

}  // namespace testing_support

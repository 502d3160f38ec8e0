// nobody logged in has no user id
#include <kvcore.h>

QString UserInfo::UserID() const {
    return QStringLiteral("1001");
}

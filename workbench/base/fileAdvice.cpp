#include "workbench/base/fileAdvice.h"

#include <cerrno>

namespace workbench {

namespace {

struct Advice {
    int code;
    const char* text;
};

const Advice advices[] = {
    {ENOSPC, "磁盘已满，请腾出空间后再试一次。"},
    {EFBIG, "文件大小超过了允许的上限，请放宽限制或换一个位置后再试一次。"},
    {EROFS, "磁盘是只读的，请换一个可以写入的位置。"},
    {EACCES, "没有权限，请检查文件和文件夹的权限后再试一次。"},
    {ENAMETOOLONG, "名称太长，请改用较短的名称。"},
    {ENOENT, "文件或文件夹不存在，请检查是否已被移动或删除。"},
    {EIO, "磁盘读写出错，请检查磁盘。"},
#ifdef EDQUOT
    {EDQUOT, "磁盘配额已用完，请腾出空间后再试一次。"},
#endif
};

}  // namespace

QString nulReason() {
    return QStringLiteral("NUL character in the name");
}

QString withoutNul(QString path) {
    return path.replace(QChar::Null, QChar(0x2400));
}

const char* fileAdvice(const QString& reason) {
    if (reason.contains(nulReason())) return "名称中含有空字符（NUL），请改用不含空字符的名称。";
    for (const Advice& advice : advices)
        if (reason.contains(qt_error_string(advice.code))) return advice.text;
    return "";
}

}  // namespace workbench

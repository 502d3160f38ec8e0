#include <QFile>
#include <QStringList>

#include "conformance.h"

namespace conformance {

namespace {

/// What the dialog names, as docs/writing-a-host.md lists it.
const char* const pictures[] = {
    ":/Image/Home/DaoRuCJZXinJian1.4.svg",
    ":/Image/Home/ExcelDir.svg",
    ":/Image/Home/ExcelFile.svg",
    ":/Image/Home/LiuLan1.4.svg",
    ":/Image/Home/XiaLaJian.svg",
    ":/Image/Home/XiaLaYing.svg",
    ":/Image/Home/XiaLaZeng.svg",
    ":/Image/Home/drYfj.svg",
    ":/Image/Home/excelXJ.svg",
    ":/Image/Home/mb.svg",
    ":/Image/Home/select.svg",
    ":/Image/Home/unselect.svg",
    ":/Image/Home/xjXl.svg",
    ":/Image/Home/xjbjTc.svg",
    ":/Image/Home/ys.svg",
    ":/Image/Home/zcb.svg",
    ":/Image/TongYong/ProTree/branch-closed.png",
    ":/Image/TongYong/ProTree/branch-end_.png",
    ":/Image/TongYong/ProTree/branch-more_.png",
    ":/Image/TongYong/ProTree/branch-open.png",
    ":/Image/TongYong/ProTree/vline_.png",
};

}  // namespace

QStringList missingPictures() {
    QStringList missing;
    for (const char* name : pictures)
        if (!QFile::exists(QLatin1String(name))) missing += QLatin1String(name);
    return missing;
}

}  // namespace conformance

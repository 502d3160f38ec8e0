#include "workbench/hostlibs/fileDialog/CloudWait.h"

#include <QEventLoop>
#include <QPointer>
#include <QTimer>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"

namespace workbench {

namespace {

enum Ending { Answered, GivenUp };

}  // namespace

bool CloudWait::wait() {
    if (!Host::instance().switches().cloud.slow) return true;
    if (loop) return false;
    const QPointer<CloudWait> self(this);
    QEventLoop waiting;
    QTimer::singleShot(cloud::slowAnswerMs, Qt::PreciseTimer, &waiting,
                       [&waiting] { waiting.exit(Answered); });
    connect(this, &QObject::destroyed, &waiting, [&waiting] { waiting.exit(GivenUp); });
    loop = &waiting;
    Q_EMIT busyChanged(true);
    const int ending = waiting.exec();
    if (!self) return false;
    loop = nullptr;
    Q_EMIT busyChanged(false);
    return ending == Answered;
}

void CloudWait::giveUp() {
    if (loop) loop->exit(GivenUp);
}

}  // namespace workbench

#include "workbench/hostlibs/fileDialog/DownloadWindow.h"

#include <QEventLoop>
#include <QHBoxLayout>
#include <QLocale>
#include <QPointer>
#include <QProgressBar>
#include <QTimer>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"
#include "workbench/hostlibs/fileDialog/FieldStyle.h"
#include "workbench/hostlibs/zBaseControl/Style.h"

namespace workbench {

DownloadWindow::DownloadWindow(const QString& fileName, QWidget* parent)
    : RoundedDialog(parent), text(new zBaseLabel(this)), bar(makeProgressBar(this)) {
    setObjectName(QStringLiteral("downloadWindow"));
    setProperty(goesByItselfProperty, true);
    setWindowTitle(QStringLiteral("下载云盘文件"));
    setModal(true);
    auto* caption = new zBaseLabel(fileName, this);
    caption->setObjectName(QStringLiteral("downloadFile"));
    caption->setFont(TBaseTool::GetDefFont(roomFor(14), QFont::Bold));
    caption->setTextFormat(Qt::PlainText);  // names of files may look like markup
    caption->setMinimumWidth(roomOnScreen(*this, 360, 0).width() - scaled(40));
    for (zBaseLabel* label : {caption, text})
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    text->setObjectName(QStringLiteral("downloadText"));
    bar->setObjectName(QStringLiteral("downloadBar"));
    auto* cancel = windowButton("cancelDownload", QStringLiteral("取消"),
                                QStringLiteral("停止下载，不打开文件"), this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(scaled(20), scaled(16), scaled(20), scaled(16));
    column->setSpacing(scaled(12));
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(caption);
    column->addWidget(text);
    column->addWidget(bar);
    column->addLayout(buttons);
    setStyleSheet(progressBarSheet());
    running.start();
}

bool DownloadWindow::progress(qint64 bytes, qint64 total) {
    constexpr int patience = 400;  // milliseconds without a window
    const bool slow = Host::instance().switches().cloud.slow;
    if (!slow && running.elapsed() < patience) return true;
    bar->setRange(0, 1000);
    bar->setValue(int(1000 * bytes / total));
    text->setText(downloadText(bytes, total));
    show();
    const qint64 due = slow ? cloud::slowAnswerMs * bytes / total : 0;
    const QPointer<DownloadWindow> self(this);
    QEventLoop loop;
    connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    QTimer::singleShot(int(qMax(qint64(0), due - running.elapsed())), Qt::PreciseTimer, &loop,
                       &QEventLoop::quit);
    loop.exec();
    return self && !givenUp;
}

void DownloadWindow::done(int result) {
    givenUp = true;
    RoundedDialog::done(result);
}

QString downloadText(qint64 done, qint64 total) {
    const QLocale locale(QLocale::Chinese);
    return QStringLiteral("正在下载：%1 / %2，按“取消”停止")
        .arg(locale.formattedDataSize(done, 1, QLocale::DataSizeTraditionalFormat),
             locale.formattedDataSize(total, 1, QLocale::DataSizeTraditionalFormat));
}

}  // namespace workbench

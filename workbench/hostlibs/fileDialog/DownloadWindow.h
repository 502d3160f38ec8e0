/// A small window while a file of a cloud disk is on its way.
#pragma once

#include <QElapsedTimer>

#include "workbench/base/WorkbenchApi.h"
#include "zControl.h"

class QProgressBar;

namespace workbench {

/// Says how far a download is, and lets it be given up with its button, Esc or the end of its
/// parent. The object names of its widgets are "downloadText", "downloadBar" and "cancelDownload".
class WORKBENCH_API DownloadWindow : public RoundedDialog {
    Q_OBJECT
  public:
    DownloadWindow(const QString& fileName, QWidget* parent);

    /// Shows that `done` of `total` bytes are there, and lets the window live for a while. A slow
    /// disk spreads its time over the parts of the file.
    /// @return false when the user gave up, and when the window was deleted meanwhile.
    bool progress(qint64 done, qint64 total);
    void done(int result) override;

  private:
    zBaseLabel* text;
    QProgressBar* bar;
    QElapsedTimer running;
    bool givenUp = false;
};

/// @return how far a download is, in words.
QString downloadText(qint64 done, qint64 total);

}  // namespace workbench

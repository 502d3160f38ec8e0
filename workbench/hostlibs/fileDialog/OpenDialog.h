/// The window of the host's file dialog.
#pragma once

#include <QElapsedTimer>
#include <memory>

#include "workbench/base/WorkbenchApi.h"
#include "workbench/hostlibs/common/Switches.h"
#include "workbench/hostlibs/fileDialog/FileRequest.h"
#include "zControl.h"

class QEventLoop;

namespace workbench {

class FileLocation;
class OpenDialogView;

/// Shows local folders and, where the request allows it, both cloud disks. In folder mode the
/// folder selected is the choice, or the one shown when none is selected; cloud disks have only
/// files to choose.
class WORKBENCH_API OpenDialog : public zTitleModal {
    Q_OBJECT
  public:
    OpenDialog(QWidget* parent, const FileRequest& request);

    /// Shows the dialog until it closes. @return the choice; a cancelled one when the dialog was
    ///         deleted with its parent meanwhile.
    static FileAnswer ask(QWidget* parent, const FileRequest& request);

    const FileAnswer& choice() const { return chosen; }
    void done(int result) override;

  private:
    bool wait();
    bool progress(qint64 done, qint64 total);
    bool rest(int ms);
    void giveUp();
    void connectView();
    void start();
    template <typename Step>
    void go(Step&& step);
    void enter(const QString& name);
    void confirm();
    void confirmEmpty();
    void confirmLocal(const QString& name);
    void confirmCloud(const QString& name);
    void download(const QString& name);
    void choose(const FileAnswer& choice);

    const FileRequest request;
    FileAnswer chosen;
    QEventLoop* waiting = nullptr;           ///< While a cloud disk lets one wait.
    QElapsedTimer downloading;               ///< Since the first part of a download.
    std::shared_ptr<FileLocation> location;  ///< A step may outlive the dialog.
    OpenDialogView* view;
};

}  // namespace workbench

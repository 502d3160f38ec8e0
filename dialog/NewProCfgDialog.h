/// The new-project dialog "新建工程".
#pragma once

#include <QStringList>
#include <QVariant>
#include <memory>

#include "newProDialog_export.h"
#include "zControl.h"

class NewProCfgDialogPrivate;
class QAction;
class QTreeWidgetItem;

namespace ProjectSettingSpace {
struct TaxTemplateInfo;
}

/// Modal dialog in which the user picks what a new project starts from: a pricing model, a template
/// project, an existing project file, an Excel workbook or a tendering-data file. The dialog
/// creates nothing itself; it hands the request to the host by one of its signals or by a host
/// message, and closes. No exception leaves it: each is reported to the host's ProcExceptionNew.
class NEWPRO_EXPORT NewProCfgDialog : public zBaseModal {
    Q_OBJECT
  public:
    /// @param hostMode         kept for the host, not read by the dialog.
    /// @param showImportTender false hides the tendering-data import button at once. The button is
    ///        hidden in the end in every case; the import is reached through the ribbon.
    /// @param parent           window over which the dialog is modal; may be null.
    NewProCfgDialog(int hostMode, bool showImportTender, QWidget* parent = nullptr);
    ~NewProCfgDialog() override;

    /// Stores whether the host's first page is open; initially true.
    void SetIsFirstPageOpen(bool open);
    /// Hands over the recently used project files, most recent first, each an entry in one of the
    /// host's history formats, and refills the file lists from them.
    void SetLsjl(QStringList files);
    /// Takes the host's plug-in manager anew.
    void InitJcTx();

    /// Enable, show or check every ribbon entry whose dynamic property "name" equals `name`.
    void setGcButtonEnable(QString name, bool enabled);
    void setGcButtonVisible(QString name, bool visible);
    void setKJMRWZ(QString name, bool checked);

    /// Adds a ribbon entry and its page.
    /// @param page the page of the entry; a page that is already in the stack is added only once.
    /// @return the entry's action, owned by the ribbon; null after a reported exception, or where
    ///         the host made none.
    QAction* addXjPage(const RIBBON::CentralTab& tab, QWidget* page);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void showEvent(QShowEvent* event) override;

  Q_SIGNALS:
    // The first argument of the signals that are sent carries the program type and the second the
    // code, whatever the parameters are called.
    void SignalCreateCJZInt(int code, int intParm);
    void SignalCreateCJZString(int code, QString strParm);
    /// Create a project from the template project at `strPath`; the code is 44.
    void SignalCreateMB(int, int nProgramType, QString strPath);
    /// Create a project from the QVariantMap in `var`; the code is 95.
    void SignalCreatePro(int, int, QVariant var);

  private Q_SLOTS:
    void slotRibbonTriggered();
    void slotCalculationTaxClicked(int i);
    void slotCalculationTaxAnimationFinished(int i);
    void slotNewPro(const ProjectSettingSpace::TaxTemplateInfo& newProTaxInfo);
    void slotCreatePro(const QMap<QString, QVariant>& mapVar, int gcType);
    void slotImportExcelNewPro();
    void slotImportCJZPro();
    void xjgsButtonSlot();
    void xjjsButtonSlot();
    void xjshButtonSlot();
    void xjZcbButtonSlot();
    void slotScanXjgs();
    void slotScanXjjs();
    void slotScanXjsh();
    /// The audit browse under its second exported name.
    void slotScanXjsh_YN();
    void slotScanXjZcb();

  private:
    // The steps of the construction; each does its work once.
    Q_INVOKABLE void CreateUI();
    Q_INVOKABLE void InitWidgetDisplay();
    Q_INVOKABLE void initConnect();
    Q_INVOKABLE bool GetProgramType(int& type);
    Q_INVOKABLE void GetModelCfgAndInitData();
    Q_INVOKABLE void ClearProTaxModelListWidget();
    Q_INVOKABLE void LoadTemplateProInfo();
    Q_INVOKABLE void flushListWidget();
    Q_INVOKABLE void initGsMbData();
    Q_INVOKABLE void initXjXlData();
    Q_INVOKABLE void initLsjl(bool sh, bool zcb, bool js, bool gs);
    Q_INVOKABLE void initJsLsjlList();
    Q_INVOKABLE void initShLsjlList();
    Q_INVOKABLE void initZcbLsjlList();
    Q_INVOKABLE QWidget* addMoBanWidget();
    Q_INVOKABLE QWidget* addShXjWid();
    Q_INVOKABLE QWidget* addZcbXjWid();
    Q_INVOKABLE QTreeWidgetItem* addOneRowItem(QString text, QTreeWidgetItem* parent, bool isFile,
                                               QString path);
    Q_INVOKABLE QString setTreeStyleSheet();
    Q_INVOKABLE int getDkType(QString suffix);
    Q_INVOKABLE void getDirAndFiles(const QString& folder, QTreeWidgetItem* parent);
    Q_INVOKABLE bool loadYunPanPath(QString& localPath, const QString& cloudPath, bool select);

    void listenAgain();

    friend class NewProCfgDialogPrivate;
    std::shared_ptr<NewProCfgDialogPrivate> d;
};

/// The dialog that asks what to import from Excel.
#pragma once

#include <QPointer>
#include <QString>
#include <QTreeWidget>

#include "newProDialog_export.h"
#include "zControl.h"

class QHBoxLayout;
class QVBoxLayout;

/// Modal dialog: the user picks project type and pricing model, then one workbook or a folder of
/// workbooks. It imports nothing; after acceptance the getters tell the choice.
class NEWPRO_EXPORT importExcelSelFile : public zTitleModal {
    Q_OBJECT
  public:
    explicit importExcelSelFile(QWidget* parent);
    ~importExcelSelFile() override;

    /// @return "Kvys" or "Kvzcb"; empty where the host has no configuration.
    const QString& GetAppGc() const { return m_strAppGc; }
    /// @return 0 one workbook, 1 a folder of workbooks, -1 nothing chosen.
    const int& GetImportType() const { return m_nImportType; }
    /// @return the chosen workbook or folder.
    const QString& GetPath() const { return m_strPath; }
    /// @return the pricing model's text when the source was chosen; empty without models.
    const QString& GetJjms() const { return m_strJjms; }
    /// @return absolute path of the project template; empty as the dialog is laid out now.
    const QString& GetGcmb() const { return m_strGcmb; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // Reached through the meta-object by a later layout and by tests.
    Q_INVOKABLE void createUI(QWidget* parent);
    Q_INVOKABLE zBaseWidget* createImageTextLabel(const QString& iconPath, const QString& text);
    Q_INVOKABLE void loadJjms(const QString& appType);
    Q_INVOKABLE void loadGcmb(const QString& selectedPath);
    Q_INVOKABLE void updateModeSelection(const QString& appType);
    /// Takes the template chooser of a layout that has one; both widgets stay the layout's.
    Q_INVOKABLE void setTemplateChooser(zBaseComboxPopup* popup, QTreeWidget* tree);

    Q_SLOT void slotClickedSelExcelFile();
    Q_SLOT void slotClickedSelExcelDir();
    Q_SLOT void slotGcmbTreeItemClicked(QTreeWidgetItem* item, int column);

    void createTypeSection(QVBoxLayout* sections, const QFont& font, QWidget* parent);
    void addTiles(QHBoxLayout* row);
    void createSourceSection(QVBoxLayout* sections, const QFont& font, QWidget* parent);
    bool handleTileEvent(zBaseWidget* tile, const QEvent* event);
    void acceptSource(int importType, const QString& path);

    QString m_strAppGc;
    int m_nImportType = -1;
    QString m_strPath;
    QString m_strJjms;
    QString m_strGcmb;
    QPointer<zBaseCombox> m_pJjmsCombo;
    QPointer<zBaseComboxPopup> m_pGcmbPopup;  ///< The layout's, as is the tree.
    QPointer<QTreeWidget> m_pGcmbTree;
    QPointer<zBaseButton> m_pBtnSelFile;
    QPointer<zBaseButton> m_pBtnSelDir;
    QPointer<zBaseWidget> m_pYsTile;
    QPointer<zBaseWidget> m_pZcbTile;
    bool m_bYsSelected = true;
};

#include "import/importExcelSelFile.h"

#include <QFileInfo>
#include <QMouseEvent>
#include <QPointer>
#include <QTreeWidget>
#include <array>

#include "SharedInterface.h"
#include "core/fileDialogCodes.h"
#include "core/guard.h"
#include "core/hostContract.h"
#include "core/part.h"
#include "core/scale.h"
#include "core/taxMode.h"
#include "fileDialog.h"

namespace {

using newpro::guarded;
using newpro::guardedOr;
using newpro::Part;
using newpro::scaled;
using newpro::withEnd;
namespace applicationType = newpro::applicationType;

const char excelSource[] = "importExcelSelFile";

const int informationIcon = 1;

const int nameRole = Qt::UserRole;
const int entryPathRole = Qt::UserRole + 2;  // the one between them is the host's own

/// Icons of the pricing models by tax mode, in the order in which the modes are listed.
const std::array<QLatin1String, newpro::taxModeCount> taxModeIcons = {
    QLatin1String(":/Image/Home/XiaLaZeng.svg"), QLatin1String(":/Image/Home/XiaLaJian.svg"),
    QLatin1String(":/Image/Home/XiaLaYing.svg")};

void showBackground(zBaseWidget* tile, const QString& icon, bool fill) {
    if (!tile) return;
    tile->setBackgroundIcon(icon);
    tile->setAutoFillBackground(fill);
    tile->update();
}

void selectPath(QTreeWidget* tree, const QString& path) {
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        // Group rows have no path: an empty one must not select the first of them.
        const QString itemPath = (*it)->data(0, entryPathRole).toString();
        if (!itemPath.isEmpty() && itemPath == path) {
            tree->setCurrentItem(*it);
            return;
        }
    }
    tree->setCurrentItem(nullptr);
}

QTreeWidgetItem* addTemplate(QTreeWidgetItem* group, const QString& file) {
    const QFileInfo info(file);
    auto* item = new QTreeWidgetItem(group, {info.completeBaseName()});
    item->setData(0, nameRole, info.completeBaseName());
    item->setData(0, entryPathRole, info.absoluteFilePath());
    return item;
}

}  // namespace

importExcelSelFile::importExcelSelFile(QWidget* parent) : zTitleModal(parent) {
    guarded(excelSource, [this] {
        // Its choice is sent after it has closed: it must not end the application.
        setAttribute(Qt::WA_QuitOnClose, false);
        // Opened and never closed, deliberately: closing names no dialog, and would close the mode
        // of the new-project dialog, which may still be there and closes it itself.
        InterfaceAdaptation::getInstance()->openMaxDialogMode(580, 420);
        resize(scaled(580), scaled(420));
        SetCaption(QStringLiteral("导入Excel新建"));
        setWindowFlags(windowFlags() | Qt::Dialog | Qt::WindowCloseButtonHint);
        createUI(this);
        m_bYsSelected = true;
        // Ahead of what asks the host.
        if (m_pJjmsCombo) m_pJjmsCombo->setFocus(Qt::TabFocusReason);
        updateModeSelection(applicationType::budget);
    });
}

importExcelSelFile::~importExcelSelFile() = default;

bool importExcelSelFile::eventFilter(QObject* watched, QEvent* event) {
    return guardedOr(excelSource, false, [&] {
        // Of a tile that is being deleted only a plain widget is left when its children go.
        auto* tile = qobject_cast<zBaseWidget*>(watched);
        if (tile && (tile == m_pYsTile || tile == m_pZcbTile) && handleTileEvent(tile, event))
            return true;
        return RoundedDialog::eventFilter(watched, event);
    });
}

/// @return whether the event is done with; the others are the base class's.
bool importExcelSelFile::handleTileEvent(zBaseWidget* tile, const QEvent* event) {
    const bool budgetTile = tile == m_pYsTile;
    const bool selected = budgetTile == m_bYsSelected;
    switch (event->type()) {
        case QEvent::Enter:
            if (!selected) showBackground(tile, QStringLiteral(":/Image/Home/unselect.svg"), true);
            return true;
        case QEvent::Leave:
            if (!selected) showBackground(tile, QString(), false);
            return true;
        case QEvent::MouseButtonRelease:
            if (static_cast<const QMouseEvent*>(event)->button() != Qt::LeftButton) return false;
            if (!selected) {
                m_bYsSelected = budgetTile;
                updateModeSelection(budgetTile ? applicationType::budget
                                               : applicationType::contracting);
            }
            return true;
        default:
            return false;
    }
}

void importExcelSelFile::updateModeSelection(const QString& appType) {
    guarded(excelSource, [&] {
        const QString selected = QStringLiteral(":/Image/Home/select.svg");
        showBackground(m_pYsTile, m_bYsSelected ? selected : QString(), true);
        showBackground(m_pZcbTile, m_bYsSelected ? QString() : selected, true);
    });
    // Also after an exception: a tile that could not be painted must not cost the application type,
    // by which the importing plug-in is found.
    loadJjms(appType);
}

void importExcelSelFile::loadJjms(const QString& appType) {
    guarded(excelSource, [&] {
        const Part<zBaseCombox> combo(m_pJjmsCombo);
        ProjectSettingHelper* settings = nullptr;
        bool configured = true;
        withEnd(
            [&] {
                settings = ProjectSettingHelper::GetProjectSettingHelper();
                configured = settings != nullptr;
            },
            // The dialog goes with its combo box. Also after an exception: by the application type
            // the importing plug-in is found.
            [&] {
                if (combo && configured) m_strAppGc = appType;
            });
        if (!combo || !settings) return;
        combo->clear();

        // The empty tax mode is deliberate: hosts know this question by it. They read the first
        // argument alone.
        const QList<ProjectSettingSpace::ProTaxTemplateInfo> entries =
            settings->GetProTaxTemplateInfoList(appType, QStringLiteral(""));
        if (!combo) return;
        for (int mode = 0; mode < int(taxModeIcons.size()); ++mode) {
            if (mode == newpro::BusinessTax && appType == applicationType::contracting) continue;
            for (const auto& entry : entries) {
                if (entry.taxMode != mode) continue;
                for (const TaxTemplateInfo& model : entry.models) {
                    combo->addItemState(taxModeIcons[size_t(mode)], model.flag != 0, model.name,
                                        QVariant::fromValue(model));
                }
            }
        }
        if (combo->count() > 0) combo->setCurrentIndex(0);
    });
}

void importExcelSelFile::setTemplateChooser(zBaseComboxPopup* popup, QTreeWidget* tree) {
    guarded(excelSource, [&] {
        if (m_pGcmbTree) disconnect(m_pGcmbTree, nullptr, this, nullptr);
        m_pGcmbPopup = popup;
        m_pGcmbTree = tree;
        if (!tree) return;
        connect(tree, &QTreeWidget::itemClicked, this, &importExcelSelFile::slotGcmbTreeItemClicked,
                Qt::UniqueConnection);
    });
}

void importExcelSelFile::loadGcmb(const QString& selectedPath) {
    guarded(excelSource, [&] {
        const Part<importExcelSelFile> self(this);
        const Part<zBaseComboxPopup> popup(m_pGcmbPopup);
        const Part<QTreeWidget> tree(m_pGcmbTree);
        if (!popup || !tree) return;
        tree->clear();
        popup->setDisplayText(QString());
        ProjectSettingHelper* settings = ProjectSettingHelper::GetProjectSettingHelper();
        if (!settings) return;
        const auto groups = settings->getJiLinMoBanList();
        const QString folder = SharedInterface::GetAppPath() + QLatin1Char('/');
        for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
            auto* groupItem = new QTreeWidgetItem(tree.need(), {group.key()});
            for (const JLTaxTemplateInfo& record : group.value()) {
                QTreeWidgetItem* item = addTemplate(groupItem, folder + record.file);
                if (item->data(0, entryPathRole).toString() != selectedPath) continue;
                tree->setCurrentItem(item);
                self.need()->m_strGcmb = selectedPath;
                popup->setDisplayText(QFileInfo(selectedPath).completeBaseName());
            }
        }
        tree->expandAll();
    });
}

void importExcelSelFile::slotGcmbTreeItemClicked(QTreeWidgetItem* item, int /*column*/) {
    guarded(excelSource, [&] {
        const Part<zBaseComboxPopup> popup(m_pGcmbPopup);
        if (!item || !popup || !m_pGcmbTree) return;
        const QString path = item->data(0, entryPathRole).toString();
        if (!path.isEmpty()) {
            m_strGcmb = path;
            popup->setDisplayText(item->data(0, nameRole).toString());
            popup->hideDropDownPopup();
            return;
        }
        const QPointer<QTreeWidget> tree(m_pGcmbTree);
        const QString chosen = m_strGcmb;
        showInforByOneBtn(QStringLiteral("请选择工程模板！"), this, informationIcon);
        if (tree) selectPath(tree, chosen);
    });
}

void importExcelSelFile::slotClickedSelExcelFile() {
    guarded(excelSource, [this] {
        const Part<importExcelSelFile> self(this);
        QString folder = zFileDialog::getCurrentPath();
        if (folder.isEmpty()) folder = SharedInterface::GetAppPath();
        QStringList filter{QStringLiteral("Excel文件"), QStringLiteral("xls"),
                           QStringLiteral("xlsx")};
        const QString path = zFileDialog::getOpenFileName(
            self.need(), folder, &filter, newpro::LocalFolders, QStringLiteral("选择Excel文件"),
            true, QString(), true, OpenFile);
        if (!self || path.isEmpty()) return;
        if (LibXLExcel::Open(path)) {
            self->acceptSource(newpro::ImportWorkbook, path);
            return;
        }
        showInforByOneBtn(QStringLiteral("文件打开失败！\r\n①请检查excel文件是否被占用\r\n"
                                         "②请检查是否为正确的excel文件\r\n完成上述操作后重新打开。"
                                         "如果仍然提示该错误，请联系开发商协助解决问题"),
                          self.need(), informationIcon);
    });
}

void importExcelSelFile::slotClickedSelExcelDir() {
    guarded(excelSource, [this] {
        const Part<importExcelSelFile> self(this);
        QStringList noFilter;
        const QString folder = zFileDialog::getCurrentPath();
        const QString path = zFileDialog::getOpenFileName(
            self.need(), folder, &noFilter, newpro::LocalFolders, QStringLiteral("打开文件夹"),
            true, QString(), true, OpenFolder);
        if (!path.isEmpty()) self->acceptSource(newpro::ImportFolder, path);
    });
}

void importExcelSelFile::acceptSource(int importType, const QString& path) {
    m_nImportType = importType;
    m_strPath = path;
    m_strJjms = m_pJjmsCombo ? m_pJjmsCombo->currentText() : QString();
    accept();
}

/// The tree of template projects.
#include <QFileInfo>
#include <QHBoxLayout>
#include <QStyledItemDelegate>

#include "SharedInterface.h"
#include "core/ElidedLabel.h"
#include "core/guard.h"
#include "core/rowButtons.h"
#include "core/scale.h"
#include "core/styleCodes.h"
#include "dialog/NewProCfgDialogPrivate.h"
#include "dialog/TemplateTreeView.h"
#include "files/templateScan.h"
#include "import/templateProjects.h"

using newpro::guarded;
using newpro::scaled;
using Parts = NewProCfgDialogPrivate;

namespace {

constexpr int pathRole = Qt::UserRole + 1;

constexpr double buttonWidth = 70.0;  // design pixels; of a row's button, and of the second column

constexpr int darkBelow = 128;    // lightness, of 255, below which a background is dark
constexpr int rowLightness = 24;  // what is added to it for a row that is hovered or selected

QString treeStyle(int fontSize, int sectionHeight, const QString& branchColour) {
    return QStringLiteral(
               "QTreeWidget{border: 0px solid rgb(229,229,229);font-size:%1px;"
               "background-color:transparent;}"
               "QTreeWidget::item{selection-background-color:rgb(240,245,255); "
               "selection-color:rgb(0,0,0);font-size:%1px;}"
               "QTreeWidget::section{height:%2px;}"
               "QTreeWidget::item:hover{background-color:rgb(240,245,255);}"
               "QHeaderView::section:hover{background-color:rgb(205,232,255);}"
               "QHeaderView::section:pressed{background-color:#F0F5FD;}"
               "QTreeWidget::branch:has-siblings:!adjoins-item{"
               "border-image:url(:/Image/TongYong/ProTree/vline_.png) 0;}"
               "QTreeWidget::branch:has-siblings:adjoins-item{"
               "border-image:url(:/Image/TongYong/ProTree/branch-more_.png) 0;}"
               "QTreeWidget::branch:!has-children:!has-siblings:adjoins-item{"
               "border-image:url(:/Image/TongYong/ProTree/branch-end_.png) 0;}"
               "QTreeWidget::branch:has-children:!has-siblings:closed,"
               "QTreeWidget::branch:closed:has-children:has-siblings{border-image:none;"
               "image:url(:/Image/TongYong/ProTree/branch-closed.png);}"
               "QTreeWidget::branch:open:has-children:!has-siblings,"
               "QTreeWidget::branch:open:has-children:has-siblings{border-image:none;"
               "image:url(:/Image/TongYong/ProTree/branch-open.png);}"
               "QTreeWidget::branch{background: %3;}")
        .arg(fontSize)
        .arg(sectionHeight)
        .arg(branchColour);
}

/// Lets the rows, which stand in the first column, reach to the end of the second: their buttons
/// end where the page does.
class WholeRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void updateEditorGeometry(QWidget* row, const QStyleOptionViewItem& option,
                              const QModelIndex&) const override {
        QRect place = option.rect;
        place.setRight(row->parentWidget()->width() - 1);
        row->setGeometry(place);
    }
};

QColor rowBackground() {
    return zBaseWidget(nullptr, newpro::TransparentRow).normalBackColor();
}

/// @return rules behind the tree's own: its light tints of hovered and selected rows would hide the
///         light text of a dark skin. Empty for a light one.
QString darkRowStyle() {
    const QColor background = rowBackground();
    if (background.lightness() >= darkBelow) return QString();
    return QStringLiteral(
               "QTreeWidget::item:hover,QTreeWidget::item:selected{background-color:%1;}")
        .arg(QColor::fromHsl(background.hslHue(), background.hslSaturation(),
                             background.lightness() + rowLightness)
                 .name());
}

}  // namespace

QString NewProCfgDialog::setTreeStyleSheet() {
    return operateOr(d, QString(), [](Parts&) {
        return treeStyle(scaled(14), scaled(28), rowBackground().name());
    });
}

QWidget* NewProCfgDialog::addMoBanWidget() {
    const std::shared_ptr<Parts> held = d;
    operate(held, [](Parts& parts) {
        if (!parts.templateTree) parts.createTemplateTree();
        // A host that fails to name its skins costs no template.
        newpro::withEnd([&] { parts.followSkin(); }, [&] { parts.fillTemplateTree(); });
    });
    // Also after an exception: the pages behind the tree keep their numbers.
    return held->templateTree;
}

void NewProCfgDialogPrivate::createTemplateTree() {
    // The stack owns it; without one the window was not built so far.
    templateTree = new newpro::TemplateTreeView(taxPageStack.need());
    // Before the host is asked anything, so that it is a page whatever comes, and before it has its
    // sheet, which then waits until the page is shown.
    taxPageStack->addWidget(templateTree);
    templateTree->setAccessibleName(QStringLiteral("模板工程"));
    templateTree->setColumnCount(2);
    templateTree->setItemDelegate(new WholeRows(templateTree.need()));
    templateTree->setHeaderHidden(true);
    templateTree->setSelectionMode(QAbstractItemView::SingleSelection);
    templateTree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    templateTree->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    templateTree->installEventFilter(q);
    QObject::connect(
        templateTree.need(), &QTreeWidget::itemDoubleClicked, q.need(),
        [this](QTreeWidgetItem* item, int column) {
            operate({shared_from_this(), "addMoBanWidget"}, [&](Parts& parts) {
                if (column != 0) return;
                newpro::createFromTemplateTree(parts, item->data(0, pathRole).toString());
            });
        },
        Qt::DirectConnection);
}

void NewProCfgDialogPrivate::followSkin() {
    if (skin) return;
    const auto dress = [this] {
        guarded({dialogSource, "addMoBanWidget"},
                [this] { templateTree->setStyleSheet(q->setTreeStyleSheet() + darkRowStyle()); });
    };
    dress();
    skin = QObject::connect(SkinManager::instance(), &SkinManager::signalSkinChanged,
                            templateTree.need(), dress);
}

void NewProCfgDialogPrivate::fitTemplateTree() {
    // Before the host is asked, so that the columns end with the tree whatever it answers: wider
    // ones scroll it aside under a mouse that is pressed on a row's button.
    templateTree->setColumnWidth(0, templateTree->width() - templateTree->columnWidth(1));
    const int second = scaled(buttonWidth);
    templateTree->setColumnWidth(0, templateTree->width() - second);
    templateTree->setColumnWidth(1, second);
}

void NewProCfgDialogPrivate::clearTemplateTree() {
    if (templateTree) templateTree->clear();
    templateTreeHasFile = false;
}

void NewProCfgDialogPrivate::fillTemplateTree() {
    const QString folder = newpro::templateFolder(kind.appTypeKey);
    if (!QFileInfo(folder).isDir()) return;
    q->getDirAndFiles(folder, nullptr);
    templateTree->expandAll();
    showTemplateButton();
}

/// Shows the button of the template page as soon as there is a template, in every area: the page
/// could not be reached otherwise. Never hides it.
void NewProCfgDialogPrivate::showTemplateButton() {
    const bool any = templateTreeHasFile || (lswTemplateEng && lswTemplateEng->count() > 0);
    if (any && taxRow) taxRow->setShown(newpro::TemplatePage, true);
}

void NewProCfgDialog::getDirAndFiles(const QString& folder, QTreeWidgetItem* parent) {
    operate(d, [&](Parts& parts) {
        newpro::scanTemplateFolder(folder, parent,
                                   [&parts](const QString& text, QTreeWidgetItem* under,
                                            bool isFile, const QString& path) {
                                       return parts.q->addOneRowItem(text, under, isFile, path);
                                   });
    });
}

QTreeWidgetItem* NewProCfgDialog::addOneRowItem(QString text, QTreeWidgetItem* parent, bool isFile,
                                                QString path) {
    const auto addRow = [&](Parts& parts) {
        std::unique_ptr<QWidget> row = parts.templateRow(text, isFile, path);
        QTreeWidget* tree = parts.templateTree.need();
        auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(tree);
        if (isFile) {
            item->setData(0, pathRole, path);
            parts.templateTreeHasFile = true;
        }
        newpro::offerToTab(row.get(), false);
        tree->setItemWidget(item, 0, row.release());
        return item;
    };
    return operateOr<QTreeWidgetItem*>(d, nullptr, addRow);
}

std::unique_ptr<QWidget> NewProCfgDialogPrivate::templateRow(const QString& text, bool isFile,
                                                             const QString& path) {
    auto row = std::make_unique<zBaseWidget>(nullptr, newpro::TransparentRow);
    auto* layout = new QHBoxLayout(row.get());
    layout->setContentsMargins(0, scaled(2), 0, scaled(2));
    layout->addWidget(new newpro::ElidedLabel(text, Qt::ElideMiddle, row.get()), 1);
    layout->addStretch();
    if (!isFile) return row;

    auto* create = new zBaseButton(QStringLiteral("新建"), row.get());
    create->setControlType(newpro::NewButton);
    create->setAutoDefault(false);
    create->setFixedWidth(scaled(buttonWidth));
    create->setAccessibleName(QStringLiteral("新建：") + text);
    create->setAccessibleDescription(QStringLiteral("由此模板工程文件新建工程"));
    layout->addWidget(create);
    QObject::connect(create, &QAbstractButton::clicked, q.need(), [this, path] {
        operate({shared_from_this(), "addOneRowItem"},
                [&](Parts& parts) { newpro::createFromTemplateTree(parts, path); });
    });
    return row;
}

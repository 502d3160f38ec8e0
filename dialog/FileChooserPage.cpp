#include "dialog/FileChooserPage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

#include "core/guard.h"
#include "core/scale.h"
#include "core/styleCodes.h"

namespace newpro {

const FileChooserConfig auditPageConfig = {"auditPage", QStringLiteral("待审工程文件"),
                                           QStringLiteral("新建审核"), false, 16.0};
const FileChooserConfig contractingPageConfig = {"contractingPage", QStringLiteral("工程文件"),
                                                 QStringLiteral("新建总承包"), true, 0.0};

namespace {

constexpr double gapAboveButton = 140.0;

/// Editable before anything else is made: the field's place among the tab stops is where it was
/// made, and from behind the buttons Backtab would lead past them.
zBaseCombox* editableCombo(QWidget* parent) {
    auto* combo = new zBaseCombox(parent);
    combo->setEditable(true);
    return combo;
}

zBaseLabel* captionLabel(const QString& text, QWidget* page) {
    auto* caption = new zBaseLabel(text, page);
    caption->setObjectName(QStringLiteral("caption"));
    caption->setFont(TBaseTool::GetDefFont(scaled(12), QFont::Normal));
    caption->setFixedSize(scaled(76), scaled(17));
    return caption;
}

QHBoxLayout* atTheLeft(QWidget* widget) {
    auto* row = new QHBoxLayout;
    row->addWidget(widget);
    row->addStretch();
    return row;
}

QHBoxLayout* centred(QWidget* widget) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(widget);
    row->addStretch();
    return row;
}

}  // namespace

FileChooserPage::FileChooserPage(const FileChooserConfig& config, QWidget* parent)
    : zBaseWidget(parent, TransparentRow),
      panel(new zBaseWidget(this)),
      combo(editableCombo(panel)),
      browse(new zBaseButton(panel)),
      create(new zBaseButton(config.createText, this)) {
    setObjectName(QLatin1String(config.objectName));
    buildPathPanel();
    create->setObjectName(QStringLiteral("newButton"));
    create->setAutoDefault(false);
    create->setControlType(NewButton);
    create->setFixedSize(scaled(160), scaled(32));
    zBaseLabel* caption = captionLabel(config.caption, this);
    const int gap = scaled(gapAboveButton);
    // From here on nothing asks the host: a row without a layout around it would be lost.
    if (config.grid) {
        placeInGrid(atTheLeft(caption), centred(create), gap);
    } else {
        placeInColumn(atTheLeft(caption), centred(create), gap);
    }
    const int side = scaled(config.sideMargin);
    layout()->setContentsMargins(side, scaled(16), side, scaled(10));
    caption->setBuddy(combo);
    combo->setAccessibleName(config.caption);
    // Otherwise called by its placeholder.
    combo->lineEdit()->setAccessibleName(config.caption);
    combo->setAccessibleDescription(QStringLiteral("输入路径，或从最近的工程中选择"));
    browse->setAccessibleDescription(QStringLiteral("在文件窗口中选择") + config.caption);
    create->setAccessibleDescription(QStringLiteral("由所填的工程文件") + config.createText);
}

void FileChooserPage::keyPressEvent(QKeyEvent* event) {
    guarded("FileChooserPage", [&] {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!enter || !combo->hasFocus() || !combo->currentText().isEmpty())
            return zBaseWidget::keyPressEvent(event);
        event->accept();
        // Last: whoever is told may delete the page.
        if (!event->isAutoRepeat()) create->click();
    });
}

void FileChooserPage::buildPathPanel() {
    // At least, not exactly: the controls in it are 2 higher and would be cut.
    panel->setMinimumHeight(scaled(30));
    panel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    combo->setObjectName(QStringLiteral("fileCombo"));
    // What is typed stays text: it becomes an entry only through the history.
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->SetComboxShowIcon(true);
    combo->lineEdit()->setPlaceholderText(QStringLiteral("请选择或输入工程文件路径"));
    combo->setFixedSize(scaled(388), scaled(32));
    browse->setObjectName(QStringLiteral("browseButton"));
    browse->setAutoDefault(false);
    browse->setAccessibleName(QStringLiteral("浏览"));
    browse->setToolTip(QStringLiteral("浏览"));
    browse->setIcon(QStringLiteral(":/Image/Home/LiuLan1.4.svg"));
    browse->setIconSize(QSize(scaled(18), scaled(18)));
    browse->setCursor(Qt::PointingHandCursor);
    browse->setFixedSize(scaled(55), scaled(32));

    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    row->addSpacing(scaled(165));
    row->addWidget(combo);
    row->addWidget(browse);
    row->addStretch();
}

void FileChooserPage::placeInColumn(QLayout* captionRow, QLayout* buttonRow, int gap) {
    auto* column = new QVBoxLayout(this);
    column->addLayout(captionRow);
    column->addWidget(panel);
    column->addSpacing(gap);
    column->addLayout(buttonRow);
    column->addStretch();
}

void FileChooserPage::placeInGrid(QLayout* captionRow, QLayout* buttonRow, int gap) {
    auto* grid = new QGridLayout(this);
    grid->addLayout(captionRow, 0, 0);
    grid->addWidget(panel, 1, 0);
    grid->setRowMinimumHeight(2, gap);
    grid->addLayout(buttonRow, 3, 0);
    grid->setRowStretch(4, 1);
}

}  // namespace newpro

/// The layout of the dialog, top to bottom as on the screen.
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/guard.h"
#include "core/scale.h"
#include "core/styleCodes.h"
#include "import/importExcelSelFile.h"

namespace {

using newpro::guarded;
using newpro::scaled;

/// What one of the two source rows says.
struct SourceRow {
    QString icon;
    QString title;
    QString text;
    QString button;
};

zBaseLabel* picture(const QString& iconPath, int side) {
    auto* label = new zBaseLabel;
    label->setPixmap(iconPath, QSize(scaled(side), scaled(side)));
    label->setFixedSize(scaled(side), scaled(side));
    return label;
}

zBaseLabel* heading(const QString& text, const QFont& font) {
    auto* label = new zBaseLabel(text);
    label->setFont(font);
    return label;
}

QFont headingFont() {
    QFont font(zBaseLabel().font().family());
    font.setPointSize(scaled(10));
    font.setWeight(QFont::Bold);
    return font;
}

QVBoxLayout* sectionUnder(zBaseLabel* title) {
    auto* section = new QVBoxLayout;
    section->setSpacing(scaled(5));
    section->addWidget(title);
    return section;
}

zBaseButton* sourceButton(const SourceRow& source, const char* name) {
    auto* button = new zBaseButton(source.button);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(source.button);
    button->setAccessibleDescription(source.text);
    button->setFixedSize(scaled(100), scaled(27));
    button->setCursor(Qt::PointingHandCursor);
    button->setAutoDefault(false);
    return button;
}

QLayout* sourceRow(const SourceRow& source, zBaseButton* button) {
    auto* texts = new QVBoxLayout;
    texts->setSpacing(scaled(5));
    texts->addWidget(new zBaseLabel(source.title));
    auto* text = new zBaseLabel(source.text);
    text->setControlType(newpro::SecondaryText);
    text->setWordWrap(true);
    texts->addWidget(text);

    auto* row = new QHBoxLayout;
    row->setContentsMargins(scaled(25), scaled(5), scaled(35), scaled(5));
    row->setSpacing(scaled(10));
    row->addWidget(picture(source.icon, 32));
    row->addLayout(texts, 1);
    row->addWidget(button);
    return row;
}

}  // namespace

void importExcelSelFile::createUI(QWidget* parent) {
    guarded("importExcelSelFile", "importExcelSelFile::createUI", [&] {
        auto* sections = new QVBoxLayout(parent);
        sections->setContentsMargins(scaled(25), scaled(20), scaled(25), scaled(25));
        sections->setSpacing(scaled(20));
        // The row of the pricing models reaches 10 into the right margin. Without this, the layout
        // would widen the dialog for it.
        sections->setSizeConstraint(QLayout::SetNoConstraint);
        const QFont font = headingFont();
        sections->addLayout(createTypeSection(font));
        sections->addLayout(createSourceSection(font));
        sections->addStretch();
    });
}

QLayout* importExcelSelFile::createTypeSection(const QFont& font) {
    m_pYsTile =
        createImageTextLabel(QStringLiteral(":/Image/Home/ys.svg"), QStringLiteral("预算工程"));
    m_pYsTile->setObjectName(QStringLiteral("ysTile"));
    m_pYsTile->setBackgroundIcon(QStringLiteral(":/Image/Home/select.svg"));
    m_pYsTile->setAutoFillBackground(true);
    m_pYsTile->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_pZcbTile =
        createImageTextLabel(QStringLiteral(":/Image/Home/zcb.svg"), QStringLiteral("总承包工程"));
    m_pZcbTile->setObjectName(QStringLiteral("zcbTile"));
    // Deliberately out of reach: this dialog imports budget projects only.
    m_pZcbTile->hide();
    m_pYsTile->installEventFilter(this);
    m_pZcbTile->installEventFilter(this);
    auto* tiles = new QHBoxLayout;
    tiles->setSpacing(scaled(10));
    tiles->addWidget(m_pYsTile);
    tiles->addWidget(m_pZcbTile);
    tiles->addStretch();

    auto* comboRow = new zBaseWidget;
    comboRow->setFixedSize(scaled(540), scaled(62));
    m_pJjmsCombo = new zBaseCombox;
    m_pJjmsCombo->setObjectName(QStringLiteral("m_pJjmsCombo"));
    m_pJjmsCombo->setAccessibleName(QStringLiteral("计价模式"));
    m_pJjmsCombo->SetComboxShowIcon(true);
    m_pJjmsCombo->setFixedHeight(scaled(32));
    m_pJjmsCombo->setFixedWidth(scaled(490));
    auto* row = new QHBoxLayout(comboRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_pJjmsCombo);
    row->addStretch();

    QVBoxLayout* section = sectionUnder(heading(QStringLiteral("选择工程类型及计价模式"), font));
    section->addLayout(tiles);
    section->addWidget(comboRow);
    return section;
}

QLayout* importExcelSelFile::createSourceSection(const QFont& font) {
    const SourceRow file{QStringLiteral(":/Image/Home/ExcelFile.svg"), QStringLiteral("文件格式"),
                         QStringLiteral("以单个Excel文件形式存放的数据源，支持xls、xlsx格式"),
                         QStringLiteral("选择文件")};
    const SourceRow folder{
        QStringLiteral(":/Image/Home/ExcelDir.svg"), QStringLiteral("文件夹格式"),
        QStringLiteral("按工程树结构建立多层文件夹分别存放相应报表的多Excel文件数据源"),
        QStringLiteral("选择文件夹")};
    m_pBtnSelFile = sourceButton(file, "btnSelFile");
    m_pBtnSelDir = sourceButton(folder, "btnSelDir");
    connect(m_pBtnSelFile, &QPushButton::clicked, this,
            &importExcelSelFile::slotClickedSelExcelFile);
    connect(m_pBtnSelDir, &QPushButton::clicked, this, &importExcelSelFile::slotClickedSelExcelDir);

    QVBoxLayout* section = sectionUnder(heading(QStringLiteral("选择Excel数据源"), font));
    section->addLayout(sourceRow(file, m_pBtnSelFile));
    section->addLayout(sourceRow(folder, m_pBtnSelDir));
    return section;
}

zBaseWidget* importExcelSelFile::createImageTextLabel(const QString& iconPath,
                                                      const QString& text) {
    return newpro::guardedOr("importExcelSelFile", "importExcelSelFile::createImageTextLabel",
                             static_cast<zBaseWidget*>(nullptr), [&] {
                                 auto* tile = new zBaseWidget;
                                 tile->setFixedSize(scaled(140), scaled(36));
                                 tile->setAccessibleName(text);
                                 tile->setCursor(Qt::PointingHandCursor);
                                 auto* row = new QHBoxLayout(tile);
                                 row->setContentsMargins(scaled(25), 0, 0, 0);
                                 row->setSpacing(scaled(4));
                                 row->setAlignment(Qt::AlignCenter);
                                 row->addWidget(picture(iconPath, 16));
                                 row->addWidget(new zBaseLabel(text));
                                 return tile;
                             });
}

/// The layout of the dialog, top to bottom as on the screen.
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <memory>

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

zBaseLabel* picture(const QString& iconPath, int side, QWidget* parent) {
    auto* label = new zBaseLabel(parent);
    label->setPixmap(iconPath, QSize(scaled(side), scaled(side)));
    label->setFixedSize(scaled(side), scaled(side));
    return label;
}

QFont headingFont() {
    QFont font(zBaseLabel().font().family());
    font.setPointSize(scaled(10));
    font.setWeight(QFont::Bold);
    return font;
}

/// @return a new section at the end of `sections`, under its heading.
QVBoxLayout* addSection(QVBoxLayout* sections, const QString& title, const QFont& font,
                        QWidget* parent) {
    auto* section = new QVBoxLayout;
    sections->addLayout(section);
    section->setSpacing(scaled(5));
    auto* heading = new zBaseLabel(title, parent);
    heading->setFont(font);
    section->addWidget(heading);
    return section;
}

/// Asks the host for nothing more once the button is there: it is connected before anything can
/// fail.
zBaseButton* sourceButton(const SourceRow& source, const char* name, QWidget* parent) {
    auto* button = new zBaseButton(source.button, parent);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(source.button);
    button->setAccessibleDescription(source.text);
    button->setCursor(Qt::PointingHandCursor);
    button->setAutoDefault(false);
    return button;
}

void addSourceRow(QVBoxLayout* section, const SourceRow& source, zBaseButton* button) {
    button->setFixedSize(scaled(100), scaled(27));
    QWidget* parent = button->parentWidget();
    auto* row = new QHBoxLayout;
    section->addLayout(row);
    row->setContentsMargins(scaled(25), scaled(5), scaled(35), scaled(5));
    row->setSpacing(scaled(10));
    row->addWidget(picture(source.icon, 32, parent));

    auto* texts = new QVBoxLayout;
    row->addLayout(texts, 1);
    texts->setSpacing(scaled(5));
    texts->addWidget(new zBaseLabel(source.title, parent));
    auto* text = new zBaseLabel(source.text, parent);
    text->setControlType(newpro::SecondaryText);
    text->setWordWrap(true);
    texts->addWidget(text);

    row->addWidget(button);
}

}  // namespace

void importExcelSelFile::createUI(QWidget* parent) {
    guarded("importExcelSelFile", [&] {
        auto* sections = new QVBoxLayout(parent);
        sections->setContentsMargins(scaled(25), scaled(20), scaled(25), scaled(25));
        sections->setSpacing(scaled(20));
        // The row of the pricing models reaches 10 into the right margin. Without this, the layout
        // would widen the dialog for it.
        sections->setSizeConstraint(QLayout::SetNoConstraint);
        const QFont font = headingFont();
        createTypeSection(sections, font, parent);
        createSourceSection(sections, font, parent);
        sections->addStretch();
    });
}

void importExcelSelFile::createTypeSection(QVBoxLayout* sections, const QFont& font,
                                           QWidget* parent) {
    QVBoxLayout* section =
        addSection(sections, QStringLiteral("选择工程类型及计价模式"), font, parent);
    auto* tiles = new QHBoxLayout;
    section->addLayout(tiles);
    tiles->setSpacing(scaled(10));
    addTiles(tiles);
    tiles->addStretch();

    auto* comboRow = new zBaseWidget(parent);
    section->addWidget(comboRow);
    comboRow->setFixedSize(scaled(540), scaled(62));
    auto* row = new QHBoxLayout(comboRow);
    row->setContentsMargins(0, 0, 0, 0);
    m_pJjmsCombo = new zBaseCombox(comboRow);
    row->addWidget(m_pJjmsCombo);
    row->addStretch();
    m_pJjmsCombo->setObjectName(QStringLiteral("m_pJjmsCombo"));
    m_pJjmsCombo->setAccessibleName(QStringLiteral("计价模式"));
    m_pJjmsCombo->setAccessibleDescription(QStringLiteral("新建的工程所用的计价模式"));
    m_pJjmsCombo->SetComboxShowIcon(true);
    m_pJjmsCombo->setFixedHeight(scaled(32));
    m_pJjmsCombo->setFixedWidth(scaled(490));
}

/// A tile that the host kept from being made is missing in the row.
void importExcelSelFile::addTiles(QHBoxLayout* row) {
    m_pYsTile =
        createImageTextLabel(QStringLiteral(":/Image/Home/ys.svg"), QStringLiteral("预算工程"));
    if (m_pYsTile) {
        row->addWidget(m_pYsTile);
        m_pYsTile->setObjectName(QStringLiteral("ysTile"));
        m_pYsTile->installEventFilter(this);
        m_pYsTile->setBackgroundIcon(QStringLiteral(":/Image/Home/select.svg"));
        m_pYsTile->setAutoFillBackground(true);
        m_pYsTile->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    m_pZcbTile =
        createImageTextLabel(QStringLiteral(":/Image/Home/zcb.svg"), QStringLiteral("总承包工程"));
    if (m_pZcbTile) {
        row->addWidget(m_pZcbTile);
        m_pZcbTile->setObjectName(QStringLiteral("zcbTile"));
        m_pZcbTile->installEventFilter(this);
        // Deliberately out of reach: this dialog imports budget projects only. A click would send
        // the workbook to the general-contracting plug-in.
        m_pZcbTile->hide();
    }
}

void importExcelSelFile::createSourceSection(QVBoxLayout* sections, const QFont& font,
                                             QWidget* parent) {
    const SourceRow file{QStringLiteral(":/Image/Home/ExcelFile.svg"), QStringLiteral("文件格式"),
                         QStringLiteral("以单个Excel文件形式存放的数据源，支持xls、xlsx格式"),
                         QStringLiteral("选择文件")};
    const SourceRow folder{
        QStringLiteral(":/Image/Home/ExcelDir.svg"), QStringLiteral("文件夹格式"),
        QStringLiteral("按工程树结构建立多层文件夹分别存放相应报表的多Excel文件数据源"),
        QStringLiteral("选择文件夹")};
    QVBoxLayout* section = addSection(sections, QStringLiteral("选择Excel数据源"), font, parent);
    m_pBtnSelFile = sourceButton(file, "btnSelFile", parent);
    connect(m_pBtnSelFile, &QPushButton::clicked, this,
            &importExcelSelFile::slotClickedSelExcelFile);
    addSourceRow(section, file, m_pBtnSelFile);
    m_pBtnSelDir = sourceButton(folder, "btnSelDir", parent);
    connect(m_pBtnSelDir, &QPushButton::clicked, this, &importExcelSelFile::slotClickedSelExcelDir);
    addSourceRow(section, folder, m_pBtnSelDir);
}

zBaseWidget* importExcelSelFile::createImageTextLabel(const QString& iconPath,
                                                      const QString& text) {
    zBaseWidget* made = nullptr;
    guarded("importExcelSelFile", [&] {
        auto tile = std::make_unique<zBaseWidget>();
        tile->setFixedSize(scaled(140), scaled(36));
        tile->setAccessibleName(text);
        tile->setCursor(Qt::PointingHandCursor);
        auto* row = new QHBoxLayout(tile.get());
        row->setContentsMargins(scaled(25), 0, 0, 0);
        row->setSpacing(scaled(4));
        row->setAlignment(Qt::AlignCenter);
        row->addWidget(picture(iconPath, 16, tile.get()));
        row->addWidget(new zBaseLabel(text, tile.get()));
        made = tile.release();
    });
    return made;
}

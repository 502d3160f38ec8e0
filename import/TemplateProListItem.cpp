#include "import/TemplateProListItem.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPointer>
#include <QVBoxLayout>

#include "SharedInterface.h"
#include "core/ElidedLabel.h"
#include "core/guard.h"
#include "core/part.h"
#include "core/scale.h"
#include "core/styleCodes.h"
#include "zCpf.h"

namespace {

using newpro::ElidedLabel;
using newpro::guarded;
using newpro::Part;
using newpro::scaled;

const char templateCardSource[] = "TemplateProListItem";

const int titleFontSize = 13;

/// @return whether the host shows the dialog on its very first start.
bool isFirstOpening() {
    constexpr int firstOpening = 1;
    return SharedInterface::firstOpenClose == firstOpening;
}

/// A margin of -1 is the style's own and must stay so at every scale.
int scaledMargin(int margin) {
    return margin < 0 ? margin : scaled(margin);
}

void setMargins(QLayout* layout, int left, int top, int right, int bottom) {
    layout->setContentsMargins(scaledMargin(left), scaledMargin(top), scaledMargin(right),
                               scaledMargin(bottom));
}

ElidedLabel* addLine(QVBoxLayout* lines, const char* name, const QString& text, QWidget* parent) {
    auto* label = new ElidedLabel(text, Qt::ElideMiddle, parent);
    label->setObjectName(QLatin1String(name));
    lines->addWidget(label);
    return label;
}

/// Tool tips take anything that looks like markup for it, and file names may look like anything.
QString plainToolTip(const QString& text) {
    return QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

}  // namespace

struct TemplateProListItem::Form {
    QVBoxLayout* verticalLayout_3 = nullptr;
    QHBoxLayout* horizontalLayout_2 = nullptr;
    Part<ElidedLabel> lblTitle;
    Part<zBaseButton> btnNewProject;
    QVBoxLayout* verticalLayout_2 = nullptr;
    Part<ElidedLabel> lblDescription;
    Part<ElidedLabel> lblPath;
    Part<ElidedLabel> label_2;
    Part<ElidedLabel> label;

    void build(TemplateProListItem* card);
    void buildTitleRow(TemplateProListItem* card);
    void applySizes(QWidget* card);
    void dressFullCard();
    void dressPathCard();
    void dressForFirstOpening();
};

void TemplateProListItem::Form::build(TemplateProListItem* card) {
    card->setObjectName(QStringLiteral("TemplateProListItem"));
    card->setWindowTitle(QStringLiteral("Form"));
    verticalLayout_3 = new QVBoxLayout(card);
    verticalLayout_3->setObjectName(QStringLiteral("verticalLayout_3"));
    buildTitleRow(card);

    verticalLayout_2 = new QVBoxLayout;
    verticalLayout_2->setObjectName(QStringLiteral("verticalLayout_2"));
    verticalLayout_3->addLayout(verticalLayout_2);
    lblDescription = addLine(verticalLayout_2, "lblDescription", QStringLiteral("信息："), card);
    lblPath = addLine(verticalLayout_2, "lblPath", QStringLiteral("路径："), card);
    lblPath->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    // The placeholders of these two are deliberately crossed with what showFile() writes: they are
    // what a card shows whose file was never set.
    label_2 = addLine(verticalLayout_2, "label_2", QStringLiteral("文号："), card);
    label = addLine(verticalLayout_2, "label", QStringLiteral("说明："), card);
    applySizes(card);
}

void TemplateProListItem::Form::buildTitleRow(TemplateProListItem* card) {
    horizontalLayout_2 = new QHBoxLayout;
    horizontalLayout_2->setObjectName(QStringLiteral("horizontalLayout_2"));
    verticalLayout_3->addLayout(horizontalLayout_2);
    lblTitle = new ElidedLabel(QStringLiteral("13规范清单计价(15定额)一般计税模板工程"),
                               Qt::ElideMiddle, card);
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    lblTitle->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    btnNewProject = new zBaseButton(QStringLiteral("新建"), card);
    // Before anything else can fail: a card that cannot show its file still offers it.
    QObject::connect(btnNewProject.need(), &QPushButton::clicked, card,
                     &TemplateProListItem::slotNewProject);
    btnNewProject->setObjectName(QStringLiteral("btnNewProject"));
    btnNewProject->setAutoDefault(false);
    btnNewProject->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    horizontalLayout_2->addWidget(lblTitle);
    horizontalLayout_2->addWidget(btnNewProject);
}

void TemplateProListItem::Form::applySizes(QWidget* card) {
    card->resize(scaled(561), scaled(100));
    verticalLayout_3->setSpacing(scaled(6));
    setMargins(verticalLayout_3, 0, 5, 0, 10);
    setMargins(horizontalLayout_2, 8, -1, -1, -1);
    lblTitle->setMinimumSize(scaled(5), 0);
    btnNewProject->setMinimumWidth(scaled(50));
    btnNewProject->setMaximumWidth(scaled(50));
    verticalLayout_2->setSpacing(scaled(3));
    setMargins(verticalLayout_2, 8, -1, 8, -1);
}

void TemplateProListItem::Form::dressFullCard() {
    btnNewProject->setCursor(Qt::PointingHandCursor);
    for (ElidedLabel* text : {lblTitle, label, label_2, lblDescription, lblPath}) {
        text->setControlType(newpro::SecondaryText);
    }
    label->setFixedHeight(scaled(15));
    label_2->setFixedHeight(scaled(15));
    lblDescription->hide();
    lblPath->hide();
    QFont font = TBaseTool::GetDefFont(scaled(titleFontSize), QFont::Normal);
    font.setWeight(QFont::Bold);
    lblTitle->setFont(font);
}

void TemplateProListItem::Form::dressPathCard() {
    label->hide();
    label_2->hide();
    // The host is asked for the font, and it is deliberately not used: this card keeps the plain
    // font, cursor, types and heights, and would pass for the full card otherwise.
    TBaseTool::GetDefFont(scaled(titleFontSize), QFont::Normal);
}

void TemplateProListItem::Form::dressForFirstOpening() {
    btnNewProject->setFixedSize(scaled(70), scaled(28));
    auto* place = new QHBoxLayout;
    horizontalLayout_2->addLayout(place);  // before the host is asked for sizes, which may throw
    setMargins(place, 0, 9, 25, 0);
    horizontalLayout_2->removeWidget(btnNewProject);
    place->addWidget(btnNewProject);
    // In a low row the button reaches down beside the lines, which would catch its clicks.
    btnNewProject->raise();
}

TemplateProListItem::TemplateProListItem(const QString& file, const QString& basisNumber,
                                         const QString& description, QWidget* parent)
    : zBaseWidget(parent, newpro::CardWidget),
      m_strFile(file),
      m_strWh(basisNumber),
      m_strDescription(description),
      ui(std::make_unique<Form>()) {
    guarded(templateCardSource, [this] {
        ui->build(this);
        ui->dressFullCard();
        if (isFirstOpening()) ui->dressForFirstOpening();
        InitWidgetDisplay();
    });
}

TemplateProListItem::TemplateProListItem(const QString& file, QWidget* parent)
    : zBaseWidget(parent, newpro::CardWidget), m_strFile(file), ui(std::make_unique<Form>()) {
    guarded(templateCardSource, [this] {
        ui->build(this);
        ui->dressPathCard();
        if (isFirstOpening()) ui->dressForFirstOpening();
        InitWidgetDisplay();
    });
}

TemplateProListItem::~TemplateProListItem() = default;

void TemplateProListItem::InitWidgetDisplay() {
    guarded(templateCardSource, [this] {
        ui->btnNewProject->setAccessibleName(QStringLiteral("新建：") +
                                             QFileInfo(m_strFile).completeBaseName());
        ui->btnNewProject->setAccessibleDescription(QStringLiteral("由此模板工程文件新建工程"));
        if (QFileInfo::exists(m_strFile)) showFile();
    });
}

void TemplateProListItem::showFile() {
    const QFileInfo file(m_strFile);
    ui->lblTitle->setText(file.completeBaseName());
    ui->lblTitle->setToolTip(plainToolTip(file.fileName()));

    const bool jilin = CpfMain::GetInstance()
                           ->GetAreaConfigValue(QStringLiteral("AreaVer"))
                           .contains(QLatin1String("JL"));
    const QString information =
        jilin ? QStringLiteral("文件信息：%1kb %2") : QStringLiteral("信息：%1kb %2");
    const QString folder = jilin ? QStringLiteral("文件路径：") : QStringLiteral("路径：");
    ui->lblDescription->setText(
        information.arg(QString::number(file.size() / 1024),
                        file.lastModified().toString(QStringLiteral("yyyy-MM-dd hh:mm"))));
    ui->lblPath->setText(folder + file.absolutePath());
    ui->lblPath->setToolTip(plainToolTip(QDir::toNativeSeparators(file.absolutePath())));
    ui->label->setText(QStringLiteral("依据文号：") + m_strWh);
    ui->label_2->setText(QStringLiteral("说明文字：") + m_strDescription);
}

void TemplateProListItem::slotNewProject() {
    const QPointer<QWidget> button(ui->btnNewProject);
    guarded(templateCardSource, [this, &button] {
        if (button) button->setEnabled(false);
        Q_EMIT signalCreateProByTemaplte(m_strFile);
    });
    if (button) button->setEnabled(true);
}

void TemplateProListItem::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPointer<QWidget> self(this);
    guarded(templateCardSource, [this, event] {
        if (!(event->buttons() & Qt::LeftButton)) return;
        m_bEmitting = true;
        Q_EMIT signalCreateProByTemaplte(m_strFile);
    });
    if (!self) return;
    m_bEmitting = false;
    guarded(templateCardSource, [this, event] { zBaseWidget::mouseDoubleClickEvent(event); });
}

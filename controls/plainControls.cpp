// What the dialog is drawn with: Qt's own widgets under the names that the dialog knows.
#include <zControl.h>

#include <QHBoxLayout>
#include <QMessageBox>
#include <QPainter>
#include <QVBoxLayout>
#include <QWidgetAction>

// Screen and skin: everything at 100 %, one skin.
InterfaceAdaptation* InterfaceAdaptation::getInstance() {
    static InterfaceAdaptation all;
    return &all;
}
int InterfaceAdaptation::getResolutionRatioH(double designPixels) const {
    return qRound(designPixels);
}
void InterfaceAdaptation::openMaxDialogMode(int, int) {}
void InterfaceAdaptation::closeMaxDialogMode() {}

SkinManager::SkinManager() = default;
SkinManager* SkinManager::instance() {
    static SkinManager skins;
    return &skins;
}

QFont TBaseTool::GetDefFont(int size, int weight) {
    QFont font;
    font.setPixelSize(qMax(1, size));
    font.setWeight(QFont::Weight(weight));
    return font;
}

struct ComStyleOption::Style {
    QColor back = Qt::white;
    QString picture;
};

ComStyleOption::ComStyleOption() : look(new Style) {}
ComStyleOption::~ComStyleOption() = default;
QColor ComStyleOption::normalBackColor() const { return look->back; }
void ComStyleOption::setNormalBackColor(const QColor& color) { look->back = color; }

ButtonStyleOption::ButtonStyleOption() = default;
ButtonStyleOption::~ButtonStyleOption() = default;
void ButtonStyleOption::setTextAlignment(int) {}
void ButtonStyleOption::setIconAlignment(int) {}
void ButtonStyleOption::setCheckedBackColorEnabled(bool) {}

// Containers.
zBaseWidget::zBaseWidget(QWidget* parent, int) : QWidget(parent) {}
zBaseWidget::~zBaseWidget() = default;
void zBaseWidget::setBackgroundIcon(const QString& imagePath) {
    look->picture = imagePath;
    update();
}
QString zBaseWidget::backgroundIcon() const { return look->picture; }
void zBaseWidget::paintEvent(QPaintEvent*) {
    if (!look->picture.isEmpty()) QPainter(this).drawPixmap(rect(), QPixmap(look->picture));
}
zBasePanelH::zBasePanelH(QWidget* parent) : zBaseWidget(parent) { new QHBoxLayout(this); }
QHBoxLayout* zBasePanelH::panelLayout() const { return qobject_cast<QHBoxLayout*>(layout()); }
zBasePanelV::zBasePanelV(QWidget* parent) : zBaseWidget(parent) { new QVBoxLayout(this); }
QVBoxLayout* zBasePanelV::panelLayout() const { return qobject_cast<QVBoxLayout*>(layout()); }

// Label, button, menu.
zBaseLabel::zBaseLabel(QWidget* parent) : QLabel(parent) {}
zBaseLabel::zBaseLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {}
zBaseLabel::~zBaseLabel() = default;
void zBaseLabel::setControlType(int) {}
void zBaseLabel::setPixmap(const QString& path, const QSize& size) {
    setPixmap(QIcon(path).pixmap(size));
}
QSize zBaseLabel::minimumSizeHint() const { return QLabel::minimumSizeHint(); }
void zBaseLabel::paintEvent(QPaintEvent* event) { QLabel::paintEvent(event); }
bool zBaseLabel::event(QEvent* event) { return QLabel::event(event); }

zBaseButton::zBaseButton(QWidget* parent) : QPushButton(parent) {}
zBaseButton::zBaseButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {}
zBaseButton::~zBaseButton() = default;
void zBaseButton::SetText(const QString& text) { setText(text); }
void zBaseButton::setIcon(const QString& normal, const QString&, const QString&, const QString&) {
    QPushButton::setIcon(QIcon(normal));
}
void zBaseButton::setControlType(int) {}
QSize zBaseButton::sizeHint() const { return QPushButton::sizeHint(); }
QSize zBaseButton::minimumSizeHint() const { return QPushButton::minimumSizeHint(); }
void zBaseButton::paintEvent(QPaintEvent* event) { QPushButton::paintEvent(event); }
bool zBaseButton::event(QEvent* event) { return QPushButton::event(event); }

zBaseMenu::zBaseMenu(QWidget* parent) : QMenu(parent) {}
void zBaseMenu::paintEvent(QPaintEvent* event) { QMenu::paintEvent(event); }
void zBaseMenu::resizeEvent(QResizeEvent* event) { QMenu::resizeEvent(event); }

// Fields.
zBaseCombox::zBaseCombox(QWidget* parent) : QComboBox(parent) {}
zBaseCombox::~zBaseCombox() = default;
void zBaseCombox::addItem(const QString& text, const QVariant& data) {
    QComboBox::addItem(text, data);
}
void zBaseCombox::addItemState(const QString& icon, bool, const QString& text,
                               const QVariant& data) {
    QComboBox::addItem(QIcon(icon), text, data);
}
void zBaseCombox::SetComboxShowIcon(bool) {}
QSize zBaseCombox::sizeHint() const { return QComboBox::sizeHint(); }
void zBaseCombox::paintEvent(QPaintEvent* event) { QComboBox::paintEvent(event); }

struct zBaseComboxPopup::Popup {
    explicit Popup(QWidget* field)
        : window(new QFrame(field, Qt::Popup)), rows(new QVBoxLayout(window)) {}
    QFrame* window;
    QVBoxLayout* rows;
    QString text;
};

zBaseComboxPopup::zBaseComboxPopup(QWidget* parent) : zBaseWidget(parent), popup(new Popup(this)) {}
zBaseComboxPopup::~zBaseComboxPopup() = default;
void zBaseComboxPopup::setDisplayText(const QString& text) {
    popup->text = text;
    update();
}
QString zBaseComboxPopup::displayText() const { return popup->text; }
void zBaseComboxPopup::setPopupWidget(QWidget* widget) { popup->rows->addWidget(widget); }
void zBaseComboxPopup::showDropDownPopup() {
    popup->window->move(mapToGlobal(QPoint(0, height())));
    popup->window->show();
}
void zBaseComboxPopup::hideDropDownPopup() { popup->window->hide(); }
void zBaseComboxPopup::paintEvent(QPaintEvent*) {
    QPainter(this).drawText(rect(), Qt::AlignVCenter, popup->text);
}
void zBaseComboxPopup::mousePressEvent(QMouseEvent*) { showDropDownPopup(); }
void zBaseComboxPopup::keyPressEvent(QKeyEvent* event) { zBaseWidget::keyPressEvent(event); }

// Dialogs: the window manager's frame has the title and the close button.
FramelessDialog::FramelessDialog(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {}
FramelessDialog::~FramelessDialog() = default;
void FramelessDialog::mousePressEvent(QMouseEvent* event) { QDialog::mousePressEvent(event); }
void FramelessDialog::mouseMoveEvent(QMouseEvent* event) { QDialog::mouseMoveEvent(event); }

RoundedDialog::RoundedDialog(QWidget* parent) : FramelessDialog(parent) {}
bool RoundedDialog::eventFilter(QObject* watched, QEvent* event) {
    return QDialog::eventFilter(watched, event);
}
void RoundedDialog::paintEvent(QPaintEvent* event) { QDialog::paintEvent(event); }
void RoundedDialog::resizeEvent(QResizeEvent* event) { QDialog::resizeEvent(event); }

KVBaseDialog::KVBaseDialog(QWidget* parent) : RoundedDialog(parent) {}
KVBaseDialog::~KVBaseDialog() = default;
void KVBaseDialog::done(int result) { QDialog::done(result); }
void KVBaseDialog::showEvent(QShowEvent* event) { QDialog::showEvent(event); }

zBaseModal::zBaseModal(QWidget* parent) : KVBaseDialog(parent) {}
void zBaseModal::resizeEvent(QResizeEvent* event) { KVBaseDialog::resizeEvent(event); }
void zBaseModal::showEvent(QShowEvent* event) { KVBaseDialog::showEvent(event); }

zTitleModal::zTitleModal(QWidget* parent) : zBaseModal(parent) {}
void zTitleModal::SetCaption(const QString& caption) { setWindowTitle(caption); }
void zTitleModal::OnlyClose() {}
int zTitleModal::ShowModal() { return exec() == Accepted ? 0 : 1; }
void zTitleModal::resizeEvent(QResizeEvent* event) { zBaseModal::resizeEvent(event); }
void zTitleModal::changeEvent(QEvent* event) { zBaseModal::changeEvent(event); }

static int showBox(QMessageBox::Icon icon, const QString& title, QWidget* parent,
                   const QString& text, const QStringList& buttons) {
    QMessageBox box(icon, title, text, QMessageBox::NoButton, parent);
    for (const QString& button : buttons) box.addButton(button, QMessageBox::AcceptRole);
    box.exec();
    return box.buttons().indexOf(box.clickedButton());
}

int showInformation(const QString& title, QWidget* parent, const QString& text,
                    const QStringList& buttons) {
    return showBox(QMessageBox::Information, title, parent, text, buttons);
}

int showCritical(const QString& title, QWidget* parent, const QString& text,
                 const QStringList& buttons) {
    return showBox(QMessageBox::Critical, title, parent, text, buttons);
}

int showInforByOneBtn(const QString& text, QWidget* parent, int) {
    return showInformation(QStringLiteral("提示"), parent, text, {QStringLiteral("确定")});
}

// The ribbon.
RibbonTab::RibbonTab(const RIBBON::CentralTab& tab, QWidget* parent) : zBaseWidget(parent) {
    auto* button = new zBaseButton(tab.text, this);
    button->setIcon(tab.icon);
    button->setObjectName(QStringLiteral("curText"));
    button->setCheckable(true);
    auto* row = new QHBoxLayout(this);
    row->addWidget(button);
}

void RibbonTab::setChecked(bool checked) {
    findChild<zBaseButton*>(QStringLiteral("curText"))->setChecked(checked);
}

RibbonNavigationBar::RibbonNavigationBar(int, int, int, QWidget* parent) : zBasePanelH(parent) {}

QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab& tab) {
    auto* entry = new RibbonTab(tab);
    auto* action = new QWidgetAction(this);
    entry->setProperty("name", tab.text);
    action->setProperty("name", tab.text);
    action->setText(tab.text);
    action->setDefaultWidget(entry);  // hides the entry
    panelLayout()->addWidget(entry);
    entry->show();
    const auto* button = entry->findChild<zBaseButton*>(QStringLiteral("curText"));
    connect(button, &QPushButton::clicked, action, [this, entry, action] {
        for (RibbonTab* each : findChildren<RibbonTab*>()) each->setChecked(each == entry);
        action->trigger();
    });
    return action;
}

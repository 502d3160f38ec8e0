#include "tests/looks/Controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "workbench/app/MainWindow.h"
#include "workbench/app/ScaleLimit.h"
#include "workbench/app/clearAction.h"
#include "workbench/base/qtNames.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/fileDialog/LoginWindow.h"
#include "workbench/hostlibs/zBaseControl/Style.h"
#include "zControl.h"

namespace looks_tests {

void selectFirst(QAbstractItemView* view) {
    view->selectionModel()->select(view->model()->index(0, 0, view->rootIndex()),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

namespace {

/// Only what asked for it is told of the mouse.
void enterHover(QWidget* widget) {
    if (auto* menu = qobject_cast<QMenu*>(widget)) menu->setActiveAction(menu->actions().first());
    auto* view = qobject_cast<QAbstractItemView*>(widget);
    QWidget* under = view ? view->viewport() : widget;
    if (!under->testAttribute(Qt::WA_Hover)) return;
    under->setAttribute(Qt::WA_UnderMouse);
    const QPointF place = view ? QRectF(view->visualRect(view->model()->index(0, 0))).center()
                               : QRectF(widget->rect()).center();
    QHoverEvent over = workbench::hoverAt(place);
    QCoreApplication::sendEvent(under, &over);
}

void disable(QWidget* widget) {
    if (auto* menu = qobject_cast<QMenu*>(widget))
        menu->actions().first()->setEnabled(false);
    else
        widget->setEnabled(false);
}

void press(QWidget* widget) {
    enterHover(widget);
    qobject_cast<QAbstractButton*>(widget)->setDown(true);
}

bool canBeChecked(QWidget* widget) {
    const auto* button = qobject_cast<QAbstractButton*>(widget);
    const auto* menu = qobject_cast<QMenu*>(widget);
    return (button && button->isCheckable()) || (menu && menu->actions().first()->isCheckable());
}

void check(QWidget* widget) {
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) button->setChecked(true);
    if (auto* menu = qobject_cast<QMenu*>(widget)) menu->actions().first()->setChecked(true);
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) selectFirst(view);
}

}  // namespace

void enterFocus(QWidget* widget) {
    widget->activateWindow();
    widget->setFocus(Qt::TabFocusReason);
}

std::vector<State> statesOf(QWidget* widget) {
    std::vector<State> states = {{"normal", [](QWidget*) {}}};
    // Qt draws the buttons in a field alike under the mouse.
    const bool inField = qobject_cast<QLineEdit*>(widget->parentWidget());
    if (!inField) states.push_back({"hovered", enterHover});
    const bool focus = widget->focusPolicy() & Qt::TabFocus;
    if (focus) states.push_back({"focused", enterFocus});
    const bool always = widget->objectName() == QLatin1String("closeButton");
    if (!qobject_cast<QScrollBar*>(widget) && !always) states.push_back({"disabled", disable});
    if (qobject_cast<QAbstractButton*>(widget)) states.push_back({"pressed", press});
    const bool view = qobject_cast<QAbstractItemView*>(widget);
    if (!canBeChecked(widget) && !view) return states;
    const auto andChecked = [](void (*enter)(QWidget*)) {
        return [enter](QWidget* each) {
            check(each);
            enter(each);
        };
    };
    states.push_back({view ? "selected" : "checked", check});
    if (focus)
        states.push_back({view ? "selected, focused" : "checked, focused", andChecked(enterFocus)});
    states.push_back({view ? "selected, disabled" : "checked, disabled", andChecked(disable)});
    return states;
}

namespace {

template <int type, bool checkable = false>
zBaseButton* styledButton(QWidget* parent) {
    auto* button = new zBaseButton(QStringLiteral("新建"), parent);
    button->setCheckable(checkable);
    button->setCheckedBackColorEnabled(checkable && type == workbench::PlainType);
    button->setControlType(type);
    return button;
}

/// A part of a split button stands in another button.
QWidget* splitPart(QWidget* parent) {
    auto* whole = styledButton<workbench::NewButtonType>(parent);
    whole->SetText(QString());
    auto* layout = new QHBoxLayout(whole);
    layout->setContentsMargins(2, 2, 2, 2);
    auto* part = styledButton<workbench::SplitPartType>(whole);
    layout->addWidget(part);
    return part;
}

QWidget* ribbonEntry(QWidget* parent) {
    auto* entry = new RibbonTab(
        {QStringLiteral(":/Image/Home/excelXJ.svg"), QStringLiteral("新建"), 0}, parent);
    return entry->findChild<zBaseButton*>();
}

QWidget* pictureButton(QWidget* parent) {
    auto* button = new zBaseButton(parent);
    button->setIcon(QStringLiteral(":/Image/Home/LiuLan1.4.svg"));
    return button;
}

template <class Button>
Button* plainButton(QWidget* parent) {
    auto* button = new Button(parent);
    button->setText(QStringLiteral("清空"));
    return button;
}

QWidget* plainDefaultButton(QWidget* parent) {
    auto* button = plainButton<QPushButton>(parent);
    button->setDefault(true);
    return button;
}

template <class Combo>
Combo* listOfChoice(QWidget* parent) {
    auto* combo = new Combo(parent);
    combo->addItem(QStringLiteral("选择"));
    return combo;
}

QWidget* writtenListOfChoice(QWidget* parent) {
    auto* combo = new zBaseCombox(parent);
    combo->setEditable(true);
    combo->lineEdit()->setPlaceholderText(QStringLiteral("请选择或输入"));
    return combo;
}

/// @return what the main window gives its parts.
QString sheetOfParts() {
    const workbench::Host& host = workbench::Host::instance();
    static QHash<QString, QString> known;
    QString& sheet = known[host.skin() + QString::number(host.scale())];
    if (sheet.isEmpty()) {
        const workbench::MainWindow window;
        window.findChild<workbench::ScaleLimit*>()->fit(
            {7680, 4320});  // large enough for every scale
        sheet = window.centralWidget()->styleSheet();
    }
    return sheet;
}

QLineEdit* field(QWidget* parent, const QString& sheet) {
    auto* edit = new QLineEdit(parent);
    edit->setStyleSheet(sheet);
    edit->setText(QStringLiteral("工程"));
    return edit;
}

QWidget* emptyField(QWidget* parent) {
    auto* edit = field(parent, sheetOfParts());
    edit->clear();
    edit->setPlaceholderText(QStringLiteral("查找"));
    return edit;
}

QWidget* clearButton(QWidget* parent) {
    auto* edit = field(parent, sheetOfParts());
    workbench::addClearAction(edit);
    edit->clear();
    edit->setText(QStringLiteral("工程"));
    return edit->findChild<QToolButton*>();
}

QWidget* severalLines(QWidget* parent) {
    auto* edit = new QPlainTextEdit(QStringLiteral("创建请求"), parent);
    edit->setStyleSheet(sheetOfParts());
    edit->setFixedHeight(workbench::scaled(60));
    return edit;
}

QPixmap pictureOf(const char* name, int side) {
    return workbench::pixmapOf(QStringLiteral(":/Image/Workbench/%1.svg").arg(QLatin1String(name)),
                               {side, side}, 1);
}

QWidget* toolButton(QWidget* parent) {
    auto* button = plainButton<QToolButton>(parent);
    const int side = workbench::scaled(18);
    button->setIcon(pictureOf("refresh", side));
    button->setIconSize({side, side});
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setCheckable(true);
    button->setAutoRaise(true);
    return button;
}

template <class Menu, bool checkable>
QWidget* menuEntry(QWidget* parent) {
    auto* menu = new Menu(parent);
    menu->addAction(QStringLiteral("新建"))->setCheckable(checkable);
    QMetaObject::invokeMethod(menu, "aboutToShow");
    menu->setWindowFlags(Qt::Widget);
    return menu;
}

QWidget* row(QWidget* parent) {
    auto* list = new QTreeWidget(parent);
    list->setHeaderHidden(true);
    list->setRootIsDecorated(false);
    list->setAllColumnsShowFocus(true);
    const int side = workbench::scaled(18);
    list->setIconSize({side, side});
    list->addTopLevelItem(new QTreeWidgetItem({QStringLiteral("工程")}));
    list->topLevelItem(0)->setIcon(0, pictureOf("folder", side));
    list->setFixedHeight(workbench::scaled(32));
    return list;
}

QWidget* card(QWidget* parent) {
    auto* made = new zBaseWidget(parent, workbench::CardType);
    auto* layout = new QVBoxLayout(made);
    auto* title = new zBaseLabel(QStringLiteral("清单计价"), made);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    auto* line = new zBaseLabel(QStringLiteral("依据：国标"), made);
    for (zBaseLabel* label : {title, line}) {
        label->setControlType(workbench::CardTextType);
        layout->addWidget(label);
    }
    return made;
}

QWidget* dockButton(QWidget* parent) {
    auto* dock = new QDockWidget(QStringLiteral("日志"), parent);
    dock->setFeatures(QDockWidget::DockWidgetClosable);
    dock->setWidget(new QWidget);
    dock->setMinimumWidth(workbench::scaled(140));
    return dock->findChild<QAbstractButton*>(QStringLiteral("qt_dockwidget_closebutton"));
}

QWidget* closeButton(QWidget* parent) {
    auto* window = new zTitleModal(parent);
    window->setWindowFlags(Qt::Widget);
    window->setFixedSize(workbench::scaled(120), workbench::scaled(60));
    window->show();
    return window->findChild<QAbstractButton*>(QStringLiteral("closeButton"));
}

QWidget* scrollBar(QWidget* parent) {
    auto* bar = new QScrollBar(Qt::Horizontal, parent);
    bar->setRange(0, 300);
    bar->setPageStep(200);
    bar->setValue(150);
    return bar;
}

}  // namespace

const std::vector<Control>& controls() {
    static const std::vector<Control> all = {
        {"button", styledButton<workbench::PlainType>},
        {"button with a picture", pictureButton},
        {"switch of a row", styledButton<workbench::PlainType, true>},
        {"default button", styledButton<workbench::DefaultActionType>},
        {"\"新建\" button", styledButton<workbench::NewButtonType>},
        {"part of a split button", splitPart},
        {"ribbon entry", ribbonEntry},
        {"list of choice", listOfChoice<zBaseCombox>},
        {"list that is written in", writtenListOfChoice},
        {"plain button", plainButton<QPushButton>},
        {"plain default button", plainDefaultButton},
        {"plain list of choice", listOfChoice<QComboBox>},
        {"tick", [](QWidget* parent) { return new QCheckBox(QStringLiteral("已登录"), parent); }},
        {"field", [](QWidget* parent) { return field(parent, sheetOfParts()); }},
        {"empty field", emptyField},
        {"field of a dialog",
         [](QWidget* parent) { return field(parent, workbench::LoginWindow().styleSheet()); }},
        {"field of several lines", severalLines},
        {"clearing button", clearButton},
        {"tool button", toolButton},
        {"entry of a menu", menuEntry<zBaseMenu, false>},
        {"entry of a plain menu", menuEntry<QMenu, true>},
        {"row of a list", row},
        {"card", card},
        {"button of a dock", dockButton},
        {"close button", closeButton},
        {"scroll bar", scrollBar}};
    return all;
}

}  // namespace looks_tests

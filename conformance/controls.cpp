#include <zControl.h>

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWidgetAction>

#include "Check.h"
#include "HostWindows.h"

namespace conformance {

namespace {

void scaling() {
    const InterfaceAdaptation* screen = InterfaceAdaptation::getInstance();
    expect(screen, QStringLiteral("InterfaceAdaptation::getInstance is null"));
    expect(screen->getResolutionRatioH(0) == 0, QStringLiteral("the size 0 is not 0"));
    int before = 0;
    for (int size : {1, 10, 100, 880}) {
        const int scaled = screen->getResolutionRatioH(size);
        expect(scaled >= before && scaled > 0,
               QStringLiteral("the size %1 becomes %2").arg(size).arg(scaled));
        before = scaled;
    }
}

void fonts() {
    for (const int weight : {int(QFont::Normal), int(QFont::Bold)}) {
        const QFont font = TBaseTool::GetDefFont(20, weight);
        expect(font.pixelSize() == 20,
               QStringLiteral("a font of 20 pixels has %1").arg(font.pixelSize()));
        expect(font.weight() == weight,
               QStringLiteral("a font of weight %1 has %2").arg(weight).arg(font.weight()));
    }
}

void colours() {
    zBaseWidget widget;
    expect(widget.normalBackColor().isValid(), QStringLiteral("normalBackColor is no colour"));
    widget.setNormalBackColor(Qt::red);
    expect(widget.normalBackColor() == QColor(Qt::red),
           QStringLiteral("a colour that was set is not answered"));
}

void backgrounds() {
    zBaseWidget widget;
    for (const QString& picture : {QStringLiteral(":/no/such/picture.svg"), QString()}) {
        widget.setBackgroundIcon(picture);
        expect(widget.backgroundIcon() == picture,
               QStringLiteral("backgroundIcon does not answer what was set"));
    }
}

void skins() {
    const SkinManager* first = SkinManager::instance();
    expect(first && first == SkinManager::instance(),
           QStringLiteral("SkinManager::instance is null or another each time"));
}

void panels() {
    const zBasePanelH row;
    const zBasePanelV column;
    expect(row.panelLayout() && row.panelLayout() == row.layout(),
           QStringLiteral("panelLayout of zBasePanelH is not its layout"));
    expect(column.panelLayout() && column.panelLayout() == column.layout(),
           QStringLiteral("panelLayout of zBasePanelV is not its layout"));
}

void labels() {
    zBaseLabel label(QStringLiteral("text"));
    for (int type : {2, 13}) label.setControlType(type);
    expect(label.text() == QLatin1String("text"), QStringLiteral("a label loses its text"));
    label.setPixmap(QStringLiteral(":/no/such/picture.svg"), QSize(16, 16));
}

void buttons() {
    zBaseButton button(QStringLiteral("first"));
    for (int type : {0, 1, 18, 88}) button.setControlType(type);
    button.SetText(QStringLiteral("second"));
    expect(button.text() == QLatin1String("second"),
           QStringLiteral("SetText does not set the button's text"));
    button.setIcon(QStringLiteral(":/no/such/picture.svg"));
    int clicks = 0;
    QObject::connect(&button, &QAbstractButton::clicked, [&clicks] { ++clicks; });
    button.click();
    expect(clicks == 1, QStringLiteral("a click arrives %1 times").arg(clicks));
}

void combos() {
    zBaseCombox combo;
    combo.addItem(QStringLiteral("plain"), 1);
    combo.addItemState(QString(), true, QStringLiteral("marked"), 2);
    combo.SetComboxShowIcon(true);
    expect(combo.count() == 2, QStringLiteral("two entries make %1").arg(combo.count()));
    for (int i = 0; i < 2; ++i)
        expect(combo.itemData(i) == i + 1, QStringLiteral("an entry loses its data"));
    expect(
        combo.itemText(0) == QLatin1String("plain") && combo.itemText(1) == QLatin1String("marked"),
        QStringLiteral("an entry loses its text"));
}

void popups() {
    zBaseComboxPopup field;
    field.setDisplayText(QStringLiteral("shown"));
    expect(field.displayText() == QLatin1String("shown"),
           QStringLiteral("the text that was set is not answered"));
    auto* content = new QWidget;
    field.setPopupWidget(content);
    expect(content->parent(), QStringLiteral("the widget that drops down has no parent"));
    field.show();
    field.showDropDownPopup();
    settle();
    expect(content->isVisible(), QStringLiteral("showDropDownPopup shows nothing"));
    field.hideDropDownPopup();
    settle();
    expect(!content->isVisible(), QStringLiteral("hideDropDownPopup hides nothing"));
}

// The ribbon.

struct Ribbon {
    Ribbon() {
        for (const char* text : {"first", "second"})
            actions.append(bar.addTab({QString(), QLatin1String(text), 0}));
        if (actions.contains(nullptr))  // a host may leave entries out
            throw NotReached{QStringLiteral("addTab answers null: the ribbon has no entry")};
    }

    QWidget* entry(int i) const {
        const auto* action = qobject_cast<QWidgetAction*>(actions[i]);
        expect(action, QStringLiteral("addTab answers no QWidgetAction"));
        QWidget* widget = action->defaultWidget();
        expect(qobject_cast<RibbonTab*>(widget),
               QStringLiteral("the default widget of an entry is no RibbonTab"));
        return widget;
    }
    zBaseButton* button(int i) const {
        auto* found = entry(i)->findChild<zBaseButton*>(QStringLiteral("curText"));
        expect(found, QStringLiteral("an entry has no zBaseButton named curText"));
        return found;
    }

    RibbonNavigationBar bar{1, 1, 1};
    QVector<QAction*> actions;
};

void ribbonEntries() {
    const Ribbon ribbon;
    for (int i = 0; i < 2; ++i) {
        const QVariant name = QLatin1String(i == 0 ? "first" : "second");
        ribbon.button(i);
        expect(ribbon.actions[i]->text() == name,
               QStringLiteral("an action's text() is not that of its entry"));
        expect(ribbon.actions[i]->property("name") == name,
               QStringLiteral("an action's property \"name\" is not its text"));
        expect(ribbon.entry(i)->property("name") == name,
               QStringLiteral("an entry's property \"name\" is not its text"));
    }
}

void ribbonIsShown() {
    Ribbon ribbon;
    ribbon.bar.show();
    settle();
    expect(ribbon.entry(0)->isVisible() && ribbon.entry(0)->width() > 0,
           QStringLiteral("an entry stays hidden: QWidgetAction::setDefaultWidget hides it"));
}

void ribbonChecks() {
    const Ribbon ribbon;
    auto* entry = qobject_cast<RibbonTab*>(ribbon.entry(0));
    entry->setChecked(true);
    expect(ribbon.button(0)->isChecked(),
           QStringLiteral("RibbonTab::setChecked does not reach its button"));
    entry->setChecked(false);
    expect(!ribbon.button(0)->isChecked(),
           QStringLiteral("RibbonTab::setChecked(false) does not reach its button"));
}

void ribbonClicks() {
    const Ribbon ribbon;
    int triggered = 0;
    bool exclusive = false;
    QObject::connect(ribbon.actions[1], &QAction::triggered, [&] {
        ++triggered;
        exclusive = ribbon.button(1)->isChecked() && !ribbon.button(0)->isChecked();
    });
    ribbon.button(0)->click();
    ribbon.button(1)->click();
    expect(triggered == 1, QStringLiteral("a click triggers %1 times").arg(triggered));
    expect(exclusive, QStringLiteral("the action is triggered before its entry alone is checked"));
}

// Windows.

void closing() {
    zBaseModal dialog;
    int finished = -1;
    QObject::connect(&dialog, &QDialog::finished, [&finished](int result) { finished = result; });
    dialog.show();
    settle();
    dialog.accept();
    settle();
    expect(!dialog.isVisible(), QStringLiteral("an accepted dialog stays open"));
    expect(finished == QDialog::Accepted,
           QStringLiteral("an accepted dialog finishes with %1").arg(finished));
}

void closeButton() {
    zBaseModal dialog;
    if (!dialog.windowFlags().testFlag(Qt::FramelessWindowHint)) return;  // the frame has one
    dialog.resize(400, 300);
    dialog.show();
    settle();
    for (auto* button : dialog.findChildren<QAbstractButton*>()) {
        const QPoint centre = button->mapTo(&dialog, button->rect().center());
        if (!button->isVisible() || centre.x() < 300 || centre.y() > 60) continue;
        button->click();
        settle();
        expect(!dialog.isVisible(), QStringLiteral("the close button does not close"));
        return;
    }
    throw Differs{QStringLiteral("a dialog without frame has no button in its upper right corner")};
}

void modalAnswers() {
    for (const bool accept : {true, false}) {
        zTitleModal dialog;
        dialog.SetCaption(QStringLiteral("caption"));
        dialog.OnlyClose();
        QTimer::singleShot(10, &dialog, [&dialog, accept] { dialog.done(accept ? 1 : 0); });
        const int answer = dialog.ShowModal();
        expect(answer == (accept ? 0 : 1),
               QStringLiteral("ShowModal answers %1 to a dialog that was %2")
                   .arg(answer)
                   .arg(QLatin1String(accept ? "accepted" : "rejected")));
    }
}

/// In its frame, in a label, or painted.
void captions() {
    zTitleModal dialog;
    dialog.resize(400, 300);
    dialog.show();
    settle();
    const QImage before = dialog.grab().toImage();
    dialog.SetCaption(QStringLiteral("caption"));
    settle();
    const bool framed = !dialog.windowFlags().testFlag(Qt::FramelessWindowHint);
    const bool titled = framed && dialog.windowTitle() == QLatin1String("caption");
    expect(titled || dialog.grab().toImage() != before,
           QStringLiteral("SetCaption changes nothing that is seen"));
}

/// That of a frame lies outside of the dialog; else at least the close button is found.
void titleBars() {
    zTitleModal dialog;
    QWidget content;
    auto* column = new QVBoxLayout(&dialog);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(&content);
    dialog.resize(400, 300);
    dialog.show();
    settle();
    for (const auto* button : dialog.findChildren<QAbstractButton*>()) {
        const QRect place(button->mapTo(&dialog, QPoint()), button->size());
        expect(!button->isVisible() || !place.intersects(content.geometry()),
               QStringLiteral("a button of the title bar lies upon what is laid out"));
    }
}

/// What a user does with the mouse and the keyboard over a widget, and more that a filter sees.
void sendThrough(zBaseModal& filter, QWidget& watched) {
    const QPointF place(1, 1);
    const QPoint there = watched.mapToGlobal(place.toPoint());
    const auto passes = [&](QEvent&& event) {
        expect(!filter.eventFilter(&watched, &event),
               QStringLiteral("eventFilter keeps an event of type %1").arg(event.type()));
    };
    for (const auto type : {QEvent::ToolTip, QEvent::Enter, QEvent::Leave, QEvent::Show,
                            QEvent::Hide, QEvent::LayoutRequest, QEvent::FontChange})
        passes(QEvent(type));
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease, QEvent::ShortcutOverride})
        for (const int key : {int(Qt::Key_A), int(Qt::Key_Return), int(Qt::Key_Escape)})
            passes(QKeyEvent(type, key, Qt::NoModifier));
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                            QEvent::MouseButtonDblClick, QEvent::MouseMove})
        passes(QMouseEvent(type, place, there, Qt::LeftButton, Qt::NoButton, Qt::NoModifier));
    passes(QWheelEvent(place, there, QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                       Qt::NoScrollPhase, false));
    passes(QContextMenuEvent(QContextMenuEvent::Mouse, place.toPoint(), there));
    for (const auto type : {QEvent::FocusIn, QEvent::FocusOut}) passes(QFocusEvent(type));
    passes(QResizeEvent(QSize(20, 20), QSize(10, 10)));
}

void filters() {
    zBaseModal dialog;
    dialog.resize(400, 300);
    zBaseButton inside(QStringLiteral("button"), &dialog);
    inside.move(150, 150);  // far from what a host moves or sizes its windows by
    zBaseButton elsewhere;
    for (zBaseButton* watched : {&inside, &elsewhere}) sendThrough(dialog, *watched);
}

void boxes() {
    const QStringList choices{QStringLiteral("one"), QStringLiteral("two")};
    using Show = int (*)(const QString&, QWidget*, const QString&, const QStringList&);
    for (const Show show : {Show(showInformation), Show(showCritical)}) {
        {
            const Clicker second(choices[1]);
            const int answer = show(QStringLiteral("title"), nullptr, QStringLiteral("?"), choices);
            expect(answer == 1, QStringLiteral("the second button answers %1").arg(answer));
        }
        const Closer closer;
        const int answer = show(QStringLiteral("title"), nullptr, QStringLiteral("?"), choices);
        expect(answer == -1, QStringLiteral("a closed box answers %1").arg(answer));
    }
}

/// Presses the button with a text in each window that opens; closes those without.
class Presser : public Closer {
  public:
    explicit Presser(const QString& text) : text(text) {}
    bool pressed() const { return found; }

  protected:
    void meet(QWidget* window) override {
        for (auto* button : window->findChildren<QAbstractButton*>()) {
            if (button->text().remove(QLatin1Char('&')) != text || !button->isVisible()) continue;
            found = true;
            return button->click();
        }
        close(window);
    }

  private:
    const QString text;
    bool found = false;
};

void boxWithOneButton() {
    const int information = 1;
    {
        const Presser presser(QStringLiteral("确定"));
        showInforByOneBtn(QStringLiteral("?"), nullptr, information);
        expect(presser.pressed(), QStringLiteral("showInforByOneBtn shows no button 确定"));
    }
    const Closer closer;
    showInforByOneBtn(QStringLiteral("?"), nullptr, information);
}

}  // namespace

QVector<Promise> controls() {
    return {
        {QStringLiteral("sizes are scaled, and larger ones stay larger"), scaling},
        {QStringLiteral("fonts have the size and weight asked for"), fonts},
        {QStringLiteral("widgets have a colour and take one"), colours},
        {QStringLiteral("widgets take a picture as background"), backgrounds},
        {QStringLiteral("there is one skin manager"), skins},
        {QStringLiteral("panels are laid out by panelLayout"), panels},
        {QStringLiteral("labels keep their text and take pictures"), labels},
        {QStringLiteral("buttons take text, picture and clicks"), buttons},
        {QStringLiteral("combo boxes keep text and data"), combos},
        {QStringLiteral("pop-ups show and hide their widget"), popups},
        {QStringLiteral("ribbon entries are named and have their button"), ribbonEntries},
        {QStringLiteral("ribbon entries can be seen"), ribbonIsShown},
        {QStringLiteral("setChecked reaches the entry"), ribbonChecks},
        {QStringLiteral("a click checks one entry, then triggers"), ribbonClicks},
        {QStringLiteral("a dialog closes and tells its result"), closing},
        {QStringLiteral("a dialog can be closed by hand"), closeButton},
        {QStringLiteral("ShowModal answers 0 and 1"), modalAnswers},
        {QStringLiteral("a window shows its caption"), captions},
        {QStringLiteral("a layout stays clear of the title bar"), titleBars},
        {QStringLiteral("events of others pass through"), filters},
        {QStringLiteral("boxes answer the button's number, -1 when closed"), boxes},
        {QStringLiteral("a box with one button has 确定"), boxWithOneButton},
    };
}

}  // namespace conformance

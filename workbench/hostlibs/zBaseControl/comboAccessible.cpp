#include "workbench/hostlibs/zBaseControl/comboAccessible.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QSplitter>

namespace workbench {

namespace {

/// What is chosen in a field that cannot be written in, as a text to be read. Qt's bridge to AT-SPI
/// passes on no other value than a number.
class ChosenText : public QAccessibleTextInterface {
  public:
    explicit ChosenText(const QComboBox* of) : combo(of) {}

    QString text(int start, int end) const override {
        return combo->currentText().mid(start, end - start);
    }
    int characterCount() const override { return combo->currentText().size(); }
    // Nothing in it can be selected, and there is no cursor.
    int selectionCount() const override { return 0; }
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

  private:
    const QComboBox* combo;
};

/// Qt's own calls a field by what is chosen in it, and shows the entries of its closed list.
class ComboAccessible : public QAccessibleWidget {
  public:
    explicit ComboAccessible(QComboBox* of)
        : QAccessibleWidget(of, QAccessible::ComboBox), combo(of), chosen(of) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        // Of a field that can be written in the line in it is read.
        if (type == QAccessible::TextInterface && !combo->isEditable())
            return static_cast<QAccessibleTextInterface*>(&chosen);
        return QAccessibleWidget::interface_cast(type);
    }

    int childCount() const override { return parts().size(); }
    QAccessibleInterface* child(int number) const override {
        return QAccessible::queryAccessibleInterface(parts().value(number));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child ? parts().indexOf(qobject_cast<QWidget*>(child->object())) : -1;
    }

    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Value ? combo->currentText() : QAccessibleWidget::text(what);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        state.expanded = combo->view()->isVisible();
        state.collapsed = !state.expanded;
        state.editable = combo->isEditable();
        return state;
    }

    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == showMenuAction()) combo->showPopup();
        if (name == setFocusAction()) combo->setFocus(Qt::OtherFocusReason);
    }

  private:
    QVector<QWidget*> parts() const {
        QVector<QWidget*> found;
        if (combo->view()->isVisible()) found.append(combo->view());
        if (combo->lineEdit()) found.append(combo->lineEdit());
        return found;
    }

    QComboBox* combo;
    ChosenText chosen;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* line = qobject_cast<QSplitterHandle*>(object))
        return new QAccessibleWidget(line, QAccessible::Separator);
    auto* combo = qobject_cast<QComboBox*>(object);
    return combo ? new ComboAccessible(combo) : nullptr;
}

}  // namespace

void makeControlsAccessible() {
    static const struct Installed {
        Installed() { QAccessible::installFactory(makeInterface); }
        ~Installed() { QAccessible::removeFactory(makeInterface); }
    } installed;
    Q_UNUSED(installed)
}

void nameComboList(QWidget& widget) {
    const auto* view = qobject_cast<QAbstractItemView*>(&widget);
    const QWidget* around = view ? view->parentWidget() : nullptr;
    const auto* combo = around ? qobject_cast<QComboBox*>(around->parentWidget()) : nullptr;
    if (combo) widget.setAccessibleName(combo->accessibleName());
}

}  // namespace workbench

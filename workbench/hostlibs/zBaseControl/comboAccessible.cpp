#include "workbench/hostlibs/zBaseControl/comboAccessible.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>

namespace workbench {

namespace {

/// Qt's own calls a field by what is chosen in it, and shows the entries of its closed list.
class ComboAccessible : public QAccessibleWidget {
  public:
    explicit ComboAccessible(QComboBox* of)
        : QAccessibleWidget(of, QAccessible::ComboBox), combo(of) {}

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
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* combo = qobject_cast<QComboBox*>(object);
    return combo ? new ComboAccessible(combo) : nullptr;
}

}  // namespace

void makeCombosAccessible() {
    static const struct Installed {
        Installed() { QAccessible::installFactory(makeInterface); }
        ~Installed() { QAccessible::removeFactory(makeInterface); }
    } installed;
    Q_UNUSED(installed)
}

}  // namespace workbench

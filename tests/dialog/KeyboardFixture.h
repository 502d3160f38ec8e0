/// A dialog that is used by its keys.
#pragma once

#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>

#include "tests/dialog/DialogFixture.h"

namespace dialog_tests {

const QString wholeFee = QStringLiteral("整体计费");
const QString perUnitFee = QStringLiteral("单独计费");

/// Keeps a window open that is to close.
struct RefusesToClose : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Close) return false;
        event->ignore();
        return true;
    }
};

class Keyboard : public DialogTest {
  protected:
    void SetUp() override {
        QList<TaxTemplateInfo> models;
        for (int i = 0; i < 30; ++i) models << model(QStringLiteral("模型%1").arg(i));
        host.setModels(QStringLiteral("Kvys"), 0, models);
        host.configure(
            QStringLiteral("模型1"),
            testing_support::pricing(QStringLiteral("模型1"), {wholeFee, perUnitFee}, wholeFee));
        for (const char* name : {"甲.MODX", "夹/乙.MODX"})
            host.addTemplate(QStringLiteral("kvys"), QString::fromUtf8(name));
    }
    /// Presses a key where the focus is.
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focus = dialog->focusWidget();
        QTest::keyClick(focus ? focus : dialog.get(), code, modifiers);
        settle();
    }
    /// A key that is held: it comes again and again.
    void hold(Qt::Key code, int times) {
        for (int i = 0; i < times && dialog && dialog->focusWidget(); ++i) {
            QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier, QStringLiteral("\r"), i > 0);
            QApplication::sendEvent(dialog->focusWidget(), &event);
        }
        settle();
    }
    QListWidget* cards() { return list("lswGeneralTax"); }
    QScrollBar* bar() { return find<QScrollArea>("taxPageArea")->verticalScrollBar(); }
    QWidget* focused() { return dialog->focusWidget(); }
    /// @return the row in which the ring is seen; -1 where none is.
    int ringRow() {
        const auto rings = cards()->findChildren<QWidget*>(QStringLiteral("focusRing"));
        EXPECT_LE(rings.size(), 1);
        for (int row = 0; row < cards()->count(); ++row) {
            QWidget* shown = card("lswGeneralTax", row);
            if (rings.isEmpty() || rings[0]->parentWidget() != shown) continue;
            EXPECT_TRUE(rings[0]->isVisible());
            EXPECT_EQ(rings[0]->size(), shown->size());
            return row;
        }
        return -1;
    }
    void openTree() {
        open();
        click(button("templateButton"));
        settle();
        tree()->setFocus(Qt::TabFocusReason);
    }
    QWidget* treeRow(QTreeWidgetItem* item) { return tree()->itemWidget(item, 0); }
};

}  // namespace dialog_tests

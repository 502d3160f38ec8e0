#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QSignalSpy>

#include "dialog/xzGcLxDialog.h"
#include "tests/support/Looks.h"
#include "tests/support/StyleOf.h"
#include "tests/support/TestSupport.h"
#include "zBaseControl.h"

namespace {

using namespace testing_support;

struct TypeChooser : testing::Test {
    TemporaryInstallation installation;
    xzGcLxDialog dialog{nullptr};

    zBaseButton* button(const char* name) { return child<zBaseButton>(&dialog, name); }
    /// @return what exec() answers when `drive` ran in it.
    int answer(std::function<void(xzGcLxDialog*)> drive) {
        const auto driver = whenModal<xzGcLxDialog>(std::move(drive));
        return dialog.exec();
    }
};

TEST_F(TypeChooser, offers_its_buttons_from_top_to_bottom) {
    const struct {
        const char* name;
        const char* text;
        int minimumWidth;
    } table[] = {{"BtnYs", "预算工程", 200},
                 {"BtnZcb", "总承包工程", 200},
                 {"BtnGs", "概     算", 0},
                 {"BtnQx", "取     消", 200}};
    dialog.show();
    int above = 0;
    for (const auto& row : table) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(button(row.name)->text(), QString::fromUtf8(row.text));
        EXPECT_EQ(button(row.name)->minimumWidth(), row.minimumWidth);
        EXPECT_FALSE(button(row.name)->accessibleName().isEmpty());
        if (!button(row.name)->isVisible()) continue;
        EXPECT_GT(button(row.name)->y(), above);
        EXPECT_TRUE(dialog.rect().contains(button(row.name)->geometry()));
        above = button(row.name)->y();
    }
    EXPECT_EQ(dialog.layout()->spacing(), 10);
}

TEST_F(TypeChooser, answers_with_the_program_type_of_the_button) {
    const struct {
        const char* name;
        int result;
    } table[] = {{"BtnYs", 4}, {"BtnZcb", 16}, {"BtnQx", 0}};
    for (const auto& row : table) {
        clearJournal();
        const QSignalSpy finished(&dialog, &QDialog::finished);
        EXPECT_EQ(answer([&](xzGcLxDialog*) { click(button(row.name)); }), row.result) << row.name;
        EXPECT_EQ(finished.count(), 1) << row.name;
        EXPECT_EQ(journalLines({"xzGcLxDialog"}),
                  Lines({"dialog xzGcLxDialog opened",
                         "dialog xzGcLxDialog done " + std::to_string(row.result)}));
    }
}

TEST_F(TypeChooser, ends_no_application_as_its_last_window) {
    const QSignalSpy ended(qApp, &QGuiApplication::lastWindowClosed);
    // Only an application that runs tells of its last window.
    QTimer::singleShot(0, &dialog, [&] {
        for (const char* name : {"BtnYs", "BtnZcb", "BtnQx"}) {
            dialog.show();
            click(button(name));
            EXPECT_FALSE(dialog.isVisible()) << name;
        }
        dialog.show();
        dialog.close();
        QCoreApplication::exit();
    });
    QApplication::exec();
    EXPECT_EQ(ended.count(), 0);
}

TEST_F(TypeChooser, answers_every_slot_through_the_meta_object) {
    const struct {
        const char* slot;
        int result;
    } table[] = {{"on_BtnYs_clicked", 4},
                 {"on_BtnZcb_clicked", 16},
                 {"on_BtnGs_clicked", 6},
                 {"on_BtnQx_clicked", 0}};
    for (const auto& row : table) {
        EXPECT_EQ(answer([&](xzGcLxDialog* shown) {
                      EXPECT_TRUE(QMetaObject::invokeMethod(shown, row.slot));
                  }),
                  row.result);
    }
}

TEST_F(TypeChooser, answers_0_when_its_window_is_closed) {
    dialog.setResult(4);
    EXPECT_EQ(answer([](xzGcLxDialog* shown) { shown->close(); }), 0);
    EXPECT_EQ(
        answer([](xzGcLxDialog* shown) { click(child<QAbstractButton>(shown, "closeButton")); }),
        0);
    EXPECT_EQ(answer([](xzGcLxDialog* shown) { QTest::keyClick(shown, Qt::Key_Escape); }), 0);
    EXPECT_EQ(countOf("exception"), 0);
}

TEST_F(TypeChooser, answers_0_when_it_is_deleted_while_it_is_open) {
    using Delete = std::function<void(xzGcLxDialog*, QWidget*)>;
    const std::pair<const char*, Delete> table[] = {
        {"the chooser", [](xzGcLxDialog* chooser, QWidget*) { delete chooser; }},
        {"its parent", [](xzGcLxDialog*, QWidget* parent) { delete parent; }},
        {"the chooser as it closes",
         [](xzGcLxDialog* chooser, QWidget*) {
             QObject::connect(chooser, &QDialog::finished, [chooser] { delete chooser; });
             click(child<zBaseButton>(chooser, "BtnYs"));
         }},
        {"its parent as it closes", [](xzGcLxDialog* chooser, QWidget* parent) {
             QObject::connect(chooser, &QDialog::finished, [parent] { delete parent; });
             chooser->close();
         }}};
    for (const auto& [what, deleteIt] : table) {
        SCOPED_TRACE(what);
        const QPointer<QWidget> parent(new QWidget);
        const QPointer<xzGcLxDialog> chooser(new xzGcLxDialog(parent));
        const auto driver = whenModal<xzGcLxDialog>(
            [&, &act = deleteIt](xzGcLxDialog* open) { act(open, parent); });
        EXPECT_EQ(chooser->exec(), 0);
        EXPECT_FALSE(chooser);
        EXPECT_EQ(countOf("exception"), 0);
        delete parent;
    }
}

TEST_F(TypeChooser, tells_that_it_has_finished_when_its_window_is_closed) {
    QSignalSpy finished(&dialog, &QDialog::finished);
    dialog.show();
    dialog.close();
    ASSERT_EQ(finished.count(), 1);
    EXPECT_EQ(finished[0][0], 0);
}

TEST_F(TypeChooser, never_shows_the_estimate_button) {
    dialog.show();
    settle();
    EXPECT_FALSE(button("BtnGs")->isVisible());
    ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, "CreateUI"));
    ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, "InitUI"));
    dialog.hide();
    dialog.show();
    EXPECT_FALSE(button("BtnGs")->isVisible());
    EXPECT_EQ(dialog.findChildren<zBaseButton*>().size(), 4);
}

TEST_F(TypeChooser, has_a_fixed_size_and_shows_all_of_it_at_every_scale) {
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        workbench::Host::instance().setScale(scale);
        xzGcLxDialog scaledDialog(nullptr);
        scaledDialog.show();
        settle();
        EXPECT_EQ(scaledDialog.size(), QSize(qRound(280 * scale), qRound(240 * scale)));
        EXPECT_EQ(scaledDialog.minimumSize(), scaledDialog.maximumSize());
        EXPECT_EQ(scaledDialog.windowTitle(), QStringLiteral("新建"));
        bool captionSeen = false;
        for (const QLabel* label : scaledDialog.findChildren<QLabel*>()) {
            if (label->text() != QStringLiteral("选择工程类型:")) continue;
            captionSeen = true;
            EXPECT_EQ(label->height(), qRound(21 * scale));
            EXPECT_GE(label->height(), label->fontMetrics().height());
            EXPECT_GE(label->width(), label->sizeHint().width());
        }
        EXPECT_TRUE(captionSeen);
        for (const auto* each : scaledDialog.findChildren<zBaseButton*>()) {
            if (!each->isVisible()) continue;
            EXPECT_TRUE(scaledDialog.rect().contains(each->geometry()));
            EXPECT_GE(each->width(), qRound(200 * scale));
            EXPECT_GE(each->height(), each->sizeHint().height());
        }
    }
}

/// Everything that a host or a user may do with a chooser, whole or not.
void useEverything(xzGcLxDialog& chooser) {
    const Lines reported = journalLines({"exception"});
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].rfind("exception xzGcLxDialog::", 0), 0u) << reported[0];
    for (const char* function : {"CreateUI", "InitUI"})
        EXPECT_TRUE(QMetaObject::invokeMethod(&chooser, function));
    for (const auto& [name, result] : {std::pair("BtnYs", 4), std::pair("BtnZcb", 16)}) {
        chooser.show();
        settle();
        EXPECT_FALSE(chooser.grab().isNull());
        click(child<zBaseButton>(&chooser, name));
        EXPECT_EQ(chooser.result(), result);
    }
    EXPECT_EQ(countOf("exception"), 1);
}

TEST_F(TypeChooser, stays_usable_whichever_question_for_a_size_throws) {
    for (const char* call : scalingCalls) {
        std::unique_ptr<xzGcLxDialog> made;
        const auto make = [&] {
            clearJournal();
            made = std::make_unique<xzGcLxDialog>(nullptr);
        };
        EXPECT_GT(withEveryCallThrowing(call, make, [&] { useEverything(*made); }), 10);
    }
}

/// Throws when the estimate's button is hidden.
struct FailingHide : QObject {
    FailingHide() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::HideToParent &&
            watched->objectName() == QLatin1String("BtnGs"))
            throw QStringLiteral("event");
        return false;
    }
};

TEST_F(TypeChooser, stays_usable_without_its_last_button) {
    clearJournal();
    auto failing = std::make_unique<FailingHide>();
    xzGcLxDialog made(nullptr);
    failing.reset();
    EXPECT_FALSE(made.findChild<zBaseButton*>(QStringLiteral("BtnQx")));
    useEverything(made);
}

TEST_F(TypeChooser, has_its_caption_over_a_divider_over_the_buttons) {
    const QLayout* outer = dialog.layout();
    const QLayout* heading = outer->itemAt(0)->layout();
    const QLayout* buttons = outer->itemAt(1)->layout();
    ASSERT_TRUE(heading && buttons);
    ASSERT_EQ(heading->count(), 2);
    EXPECT_EQ(heading->spacing(), 5);
    auto* caption = qobject_cast<zBaseLabel*>(heading->itemAt(0)->widget());
    auto* divider = qobject_cast<zBaseLabel*>(heading->itemAt(1)->widget());
    ASSERT_TRUE(caption && divider);
    EXPECT_EQ(caption->text(), QStringLiteral("选择工程类型:"));
    EXPECT_EQ(caption->minimumHeight(), 21);
    EXPECT_EQ(caption->maximumHeight(), 21);
    EXPECT_EQ(StyleOf::widget(divider).type, 13);
    EXPECT_EQ(divider->text(), QString());
    EXPECT_EQ(buttons->spacing(), 10);
    EXPECT_EQ(buttons->count(), 4);
}

TEST_F(TypeChooser, has_only_a_close_button_in_its_title_bar) {
    dialog.show();
    settle();
    auto* bar = child<QWidget>(&dialog, "titleBar");
    EXPECT_TRUE(bar->isVisible());
    EXPECT_TRUE(child<QAbstractButton>(&dialog, "closeButton")->isVisible());
    // And what the window is called.
    const QWidgetList inBar = bar->findChildren<QWidget*>();
    ASSERT_EQ(inBar.size(), 1);
    EXPECT_EQ(qobject_cast<QLabel*>(inBar.first())->text(), QStringLiteral("新建"));
    EXPECT_TRUE(inBar.first()->isVisible());
}

class TypeChooserLooks : public testing::TestWithParam<Look> {
  protected:
    TemporaryInstallation installation;
};

TEST_P(TypeChooserLooks, show_every_text_whole) {
    wear(GetParam());
    xzGcLxDialog dialog(nullptr);
    dialog.show();
    expectLooksRight(&dialog, "type-chooser", GetParam());
}

INSTANTIATE_TEST_SUITE_P(Looks, TypeChooserLooks, testing::ValuesIn(allLooks()), nameOfLook);

}  // namespace

#include "import/importExcelSelFile.h"

#include <QTreeWidget>

#include "tests/import/ExcelSelection.h"

namespace {

using namespace testing_support;

struct TemplateChooser : ExcelSelection {
    importExcelSelFile dialog{nullptr};
    zBaseComboxPopup* popup = new zBaseComboxPopup(&dialog);
    QTreeWidget* tree = new QTreeWidget(&dialog);

    TemplateChooser() {
        installation.values().groupedTemplates = {
            {QStringLiteral("乙组"), {{QStringLiteral("三"), QStringLiteral("MB/三.v1.MODX")}}},
            {QStringLiteral("丙组"), {}},
            {QStringLiteral("甲组"),
             {{QStringLiteral("一"), QStringLiteral("MB/一.MODX")},
              {QStringLiteral("二"), QStringLiteral("MB/../MB/二.MODX")}}}};
    }
    void attach() {
        ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, "setTemplateChooser",
                                              Q_ARG(zBaseComboxPopup*, popup),
                                              Q_ARG(QTreeWidget*, tree)));
    }
    void load(const QString& selectedPath) {
        ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, "loadGcmb", Q_ARG(QString, selectedPath)));
    }
    void clickItem(QTreeWidgetItem* item) {
        ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, "slotGcmbTreeItemClicked",
                                              Q_ARG(QTreeWidgetItem*, item), Q_ARG(int, 0)));
    }
    QTreeWidgetItem* group(const char* name) {
        const auto found = tree->findItems(QString::fromUtf8(name), Qt::MatchExactly);
        return found.isEmpty() ? nullptr : found.first();
    }
};

TEST_F(TemplateChooser, is_not_needed) {
    load(QStringLiteral("/x"));
    QTreeWidgetItem item;
    item.setData(0, Qt::UserRole + 2, QStringLiteral("/x"));
    clickItem(&item);
    clickItem(nullptr);
    EXPECT_EQ(dialog.GetGcmb(), QString());
    EXPECT_EQ(countOf("ProjectSettingHelper::getJiLinMoBanList") + countOf("box"), 0);
    EXPECT_EQ(countOf("exception"), 0);
}

TEST_F(TemplateChooser, lists_the_groups_in_their_order_with_name_and_path) {
    attach();
    tree->addTopLevelItem(new QTreeWidgetItem);
    popup->setDisplayText(QStringLiteral("old"));
    load(QString());
    const QStringList order = installation.values().groupedTemplates.keys();
    ASSERT_EQ(tree->topLevelItemCount(), order.size());
    for (int i = 0; i < order.size(); ++i) {
        EXPECT_EQ(tree->topLevelItem(i)->text(0), order.at(i));
        EXPECT_TRUE(tree->topLevelItem(i)->childCount() == 0 ||
                    tree->topLevelItem(i)->isExpanded());
        EXPECT_FALSE(tree->topLevelItem(i)->data(0, Qt::UserRole + 2).isValid());
    }
    QTreeWidgetItem* three = group("乙组")->child(0);
    EXPECT_EQ(three->data(0, Qt::UserRole).toString(), QStringLiteral("三.v1"));
    EXPECT_EQ(three->data(0, Qt::UserRole + 2).toString(),
              installation.path(QStringLiteral("MB/三.v1.MODX")));
    EXPECT_EQ(group("甲组")->childCount(), 2);
    EXPECT_EQ(popup->displayText(), QString());
    EXPECT_EQ(dialog.GetGcmb(), QString());
}

TEST_F(TemplateChooser, selects_the_template_of_the_given_path) {
    attach();
    const QString path = installation.path(QStringLiteral("MB/一.MODX"));
    load(path);
    EXPECT_EQ(tree->currentItem(), group("甲组")->child(0));
    EXPECT_EQ(popup->displayText(), QStringLiteral("一"));
    EXPECT_EQ(dialog.GetGcmb(), path);
    load(installation.path(QStringLiteral("MB/none.MODX")));
    EXPECT_EQ(popup->displayText(), QString());
    EXPECT_EQ(dialog.GetGcmb(), path);
}

TEST_F(TemplateChooser, takes_the_template_that_is_clicked_and_closes_the_pop_up) {
    attach();
    load(QString());
    dialog.show();
    popup->showDropDownPopup();
    ASSERT_TRUE(child<QFrame>(popup, "popup")->isVisible());
    Q_EMIT tree->itemClicked(group("乙组")->child(0), 0);
    EXPECT_EQ(dialog.GetGcmb(), installation.path(QStringLiteral("MB/三.v1.MODX")));
    EXPECT_EQ(popup->displayText(), QStringLiteral("三.v1"));
    EXPECT_FALSE(child<QFrame>(popup, "popup")->isVisible());
    EXPECT_EQ(countOf("box"), 0);
}

TEST_F(TemplateChooser, refuses_a_group_and_goes_back_to_the_chosen_template) {
    attach();
    load(installation.path(QStringLiteral("MB/一.MODX")));
    tree->setCurrentItem(group("乙组"));
    clickItem(group("乙组"));
    EXPECT_EQ(journalLines({"box"}),
              Lines{"box showInforByOneBtn(\"提示\", \"请选择工程模板！\", [\"确定\"])"});
    EXPECT_EQ(tree->currentItem(), group("甲组")->child(0));
    EXPECT_EQ(dialog.GetGcmb(), installation.path(QStringLiteral("MB/一.MODX")));
}

TEST_F(TemplateChooser, refuses_a_group_and_selects_nothing_where_nothing_was_chosen) {
    attach();
    load(QString());
    tree->setCurrentItem(group("乙组"));
    clickItem(group("乙组"));
    EXPECT_EQ(countOf("showInforByOneBtn"), 1);
    EXPECT_FALSE(tree->currentItem());
    EXPECT_EQ(dialog.GetGcmb(), QString());
}

TEST_F(TemplateChooser, touches_no_tree_that_goes_while_its_message_is_shown) {
    attach();
    load(installation.path(QStringLiteral("MB/一.MODX")));
    const QMetaObject::Connection connection = QObject::connect(
        &workbench::Journal::instance(), &workbench::Journal::recorded, [this](const auto& entry) {
            if (entry.value(QLatin1String("name")) != QLatin1String("showInforByOneBtn")) return;
            delete tree;
            tree = nullptr;
        });
    clickItem(group("乙组"));
    QObject::disconnect(connection);
    EXPECT_FALSE(tree);
    EXPECT_EQ(countOf("exception"), 0);
    EXPECT_EQ(dialog.GetGcmb(), installation.path(QStringLiteral("MB/一.MODX")));
}

TEST_F(TemplateChooser, listens_to_the_last_tree_alone) {
    attach();
    load(QString());
    QTreeWidget* const before = tree;
    tree = new QTreeWidget(&dialog);
    attach();
    Q_EMIT before->itemClicked(before->topLevelItem(0)->child(0), 0);
    EXPECT_EQ(dialog.GetGcmb(), QString());
    load(QString());
    QTreeWidgetItem* chosen = group("乙组")->child(0);
    Q_EMIT tree->itemClicked(chosen, 0);
    EXPECT_EQ(dialog.GetGcmb(), chosen->data(0, Qt::UserRole + 2).toString());
    tree = nullptr;
    attach();
    load(QString());
    EXPECT_EQ(countOf("exception"), 0);
}

TEST_F(TemplateChooser, reports_an_exception_of_the_template_list) {
    attach();
    for (const char* call :
         {"ProjectSettingHelper::GetProjectSettingHelper",
          "ProjectSettingHelper::getJiLinMoBanList", "SharedInterface::GetAppPath"}) {
        clearJournal();
        throwAt(call, workbench::ThrowRule::As::Literal);
        load(QString());
        EXPECT_EQ(journalLines({"exception"}),
                  Lines{"exception importExcelSelFile::loadGcmb: boom"})
            << call;
        throwNoMore();
        load(QString());
        EXPECT_EQ(tree->topLevelItemCount(), 3) << call;
    }
}

TEST_F(TemplateChooser, stays_empty_without_configuration) {
    attach();
    installation.switches().configurationPresent = false;
    load(QString());
    EXPECT_EQ(tree->topLevelItemCount(), 0);
    EXPECT_EQ(countOf("exception"), 0);
}

}  // namespace

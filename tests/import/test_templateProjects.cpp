#include <QDir>
#include <QFile>
#include <QListWidget>

#include "core/listItemPool.h"
#include "import/TemplateProListItem.h"
#include "import/templateProjects.h"
#include "tests/support/FakeDialog.h"

namespace {

using namespace testing_support;
using workbench::FirstPage;

struct Templates : testing::Test {
    TemporaryInstallation installation;
    newpro::ListItemPool items;
    QListWidget list;
    QStringList created;

    QString add(const QString& name, int minutesOld, const QString& key = QStringLiteral("kvys")) {
        const QString path = installation.addTemplate(key, name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-60 * minutesOld),
                                     QFileDevice::FileModificationTime));
        return path;
    }
    int fill(const QString& key = QStringLiteral("kvys")) {
        return newpro::fillTemplateList(&list, key, items,
                                        [this](const QString& path) { created += path; });
    }
    QWidget* card(int row) { return list.itemWidget(list.item(row)); }
    QStringList titles() {
        QStringList texts;
        for (int row = 0; row < list.count(); ++row) {
            texts += child<QLabel>(card(row), "lblTitle")->text();
        }
        return texts;
    }
};

TEST_F(Templates, lie_below_the_installation_by_application_type) {
    EXPECT_EQ(newpro::templateFolder(QStringLiteral("kvzcb")),
              installation.path(QStringLiteral("MBSC/kvzcb")));
}

TEST_F(Templates, are_listed_oldest_first) {
    add(QStringLiteral("b.MODX"), 5);
    add(QStringLiteral("c.MODX"), 50);
    add(QStringLiteral("a.MODX"), 1);
    EXPECT_EQ(fill(), 3);
    EXPECT_EQ(titles(),
              QStringList({QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")}));
}

TEST_F(Templates, of_the_other_application_type_are_not_listed) {
    add(QStringLiteral("a.MODX"), 1);
    add(QStringLiteral("z.MODX"), 1, QStringLiteral("kvzcb"));
    EXPECT_EQ(fill(QStringLiteral("kvzcb")), 1);
    EXPECT_EQ(titles(), QStringList{QStringLiteral("z")});
}

TEST_F(Templates, are_the_files_with_the_suffix_hidden_ones_included) {
    add(QStringLiteral("a.MODX"), 9);
    add(QStringLiteral(".hidden.MODX"), 8);
    add(QStringLiteral("lower.modx"), 7);
    add(QStringLiteral("b.txt"), 6);
    add(QStringLiteral("c.MODX.bak"), 5);
    add(QStringLiteral("dMODX"), 4);
    add(QStringLiteral("folder.MODX/inner.MODX"), 3);
#ifdef Q_OS_UNIX
    ASSERT_TRUE(QFile::link(installation.path(QStringLiteral("MBSC/kvys/a.MODX")),
                            installation.path(QStringLiteral("MBSC/kvys/link.MODX"))));
#endif
    fill();
    // A folder's name filter does not look at the case, unlike the template tree.
    EXPECT_EQ(titles(), QStringList({QStringLiteral("a"), QStringLiteral(".hidden"),
                                     QStringLiteral("lower")}));
}

TEST_F(Templates, of_the_same_age_go_backwards_by_name) {
    const QDateTime then = QDateTime::currentDateTime().addDays(-1);
    for (const char* name : {"m.MODX", "z.MODX", "a.MODX", "k.MODX"}) {
        QFile file(add(QLatin1String(name), 1));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(then, QFileDevice::FileModificationTime));
    }
    add(QStringLiteral("newest.MODX"), 0);
    add(QStringLiteral("oldest.MODX"), 60 * 24 * 9);
    fill();
    EXPECT_EQ(titles().join(QLatin1Char(' ')), QStringLiteral("oldest z m k a newest"));
}

TEST_F(Templates, of_a_missing_folder_leave_the_list_empty_without_a_word) {
    EXPECT_EQ(fill(QStringLiteral("nowhere")), 0);
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(countOf("box") + countOf("exception"), 0);
}

TEST_F(Templates, are_appended_in_rows_of_the_scaled_height) {
    workbench::Host::instance().setScale(1.5);
    list.addItem(QStringLiteral("earlier"));
    add(QStringLiteral("a.MODX"), 1);
    fill();
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(1)->data(Qt::SizeHintRole).toSize(), QSize(-1, 120));
    EXPECT_EQ(list.visualItemRect(list.item(1)).height(), 120);
}

TEST_F(Templates, use_the_items_of_earlier_rows_again) {
    auto* earlier = new QListWidgetItem;
    earlier->setData(Qt::UserRole, 1);
    items.keep(earlier);
    add(QStringLiteral("a.MODX"), 1);
    add(QStringLiteral("b.MODX"), 2);
    fill();
    EXPECT_EQ(list.item(0), earlier);
    EXPECT_EQ(titles(), QStringList({QStringLiteral("b"), QStringLiteral("a")}));
}

TEST_F(Templates, hand_their_path_on_when_chosen) {
    const QString path = add(QStringLiteral("a.MODX"), 1);
    fill();
    list.show();
    click(child<zBaseButton>(card(0), "btnNewProject"));
    doubleClick(card(0));
    EXPECT_EQ(created, QStringList({path, path}));
}

TEST_F(Templates, survive_a_receiver_that_deletes_the_whole_list) {
    add(QStringLiteral("a.MODX"), 1);
    auto* own = new QListWidget;
    const QPointer<QListWidget> alive(own);
    QString chosen;
    newpro::fillTemplateList(own, QStringLiteral("kvys"), items, [&](const QString& path) {
        delete own;
        chosen = path;
    });
    own->show();
    click(child<zBaseButton>(own->itemWidget(own->item(0)), "btnNewProject"));
    EXPECT_FALSE(alive);
    EXPECT_TRUE(chosen.endsWith(QLatin1String("/a.MODX")));
}

TEST_F(Templates, report_an_exception_of_the_creation_and_can_be_chosen_again) {
    add(QStringLiteral("a.MODX"), 1);
    for (const Thrown& thrown : thrownKinds()) {
        SCOPED_TRACE(thrown.name);
        clearJournal();
        list.clear();
        int tries = 0;
        newpro::fillTemplateList(&list, QStringLiteral("kvys"), items, [&](const QString&) {
            ++tries;
            SharedInterface::GetAppPath();
        });
        list.show();
        throwAt("SharedInterface::GetAppPath", thrown.as);
        doubleClick(card(0));
        EXPECT_EQ(journalLines({"exception"}),
                  Lines{std::string("exception NewProCfgDialog::LoadTemplateProInfo: ") +
                        thrown.reported});
        doubleClick(card(0));
        EXPECT_EQ(tries, 2);
        EXPECT_EQ(countOf("exception"), 1);
        throwNoMore();
    }
}

struct TemplateCreation : testing::Test {
    TemporaryInstallation installation;
    FakeDialog dialog;
    QString path = QStringLiteral("/templates/甲.MODX");

    Lines run(void (*flow)(newpro::CreationDialog&, const QString&)) {
        clearJournal();
        flow(dialog, path);
        return flowLines();
    }

    const std::string accepted = "dialog FakeDialog done 1";
    const std::string service = "call osgi::ObjectHelper::GetService(\"firstPagePlugin\")";
    const std::string query = "call FirstPagePlugin::canStartNew(true)";
    const std::string message = "call Communication::SendMsg(4, 44, \"/templates/甲.MODX\")";
    const std::string signal = "signal SignalCreateMB(4, 44, \"/templates/甲.MODX\")";
};

TEST_F(TemplateCreation, by_card_closes_first_and_tells_the_main_logic_and_the_host) {
    EXPECT_EQ(run(newpro::createFromTemplateCard),
              Lines({accepted, service, query, message, signal}));
}

TEST_F(TemplateCreation, by_tree_closes_a_ready_host_s_dialog_and_tells_the_host_alone) {
    EXPECT_EQ(run(newpro::createFromTemplateTree), Lines({service, query, accepted, signal}));
}

TEST_F(TemplateCreation, sends_nothing_while_the_host_is_busy) {
    installation.switches().firstPage = FirstPage::Busy;
    EXPECT_EQ(run(newpro::createFromTemplateCard), Lines({accepted, service, query}));
    EXPECT_EQ(run(newpro::createFromTemplateTree), Lines({service, query}));
}

TEST_F(TemplateCreation, sends_nothing_without_the_service) {
    installation.switches().firstPage = FirstPage::Absent;
    EXPECT_EQ(run(newpro::createFromTemplateCard), Lines({accepted, service}));
    EXPECT_EQ(run(newpro::createFromTemplateTree), Lines({service}));
}

TEST_F(TemplateCreation, of_an_empty_path_does_nothing) {
    path.clear();
    EXPECT_EQ(run(newpro::createFromTemplateCard), Lines());
    EXPECT_EQ(run(newpro::createFromTemplateTree), Lines());
}

TEST_F(TemplateCreation, reports_the_program_type_of_the_application_type) {
    const struct {
        const char* appType;
        int programType;
    } table[] = {{"Kvys", 4}, {"Kvzcb", 16}, {"Kvjs", 8}, {"Kvqgc", 32}, {"kvys", -1}, {"", -1}};
    for (const auto& row : table) {
        dialog.appType = QLatin1String(row.appType);
        for (const auto flow : {newpro::createFromTemplateCard, newpro::createFromTemplateTree}) {
            run(flow);
            ASSERT_EQ(countOf("SignalCreateMB"), 1);
            const QJsonArray args =
                entriesOf("SignalCreateMB").first().value(QLatin1String("args")).toArray();
            EXPECT_EQ(args, QJsonArray({row.programType, 44, path})) << row.appType;
        }
    }
}

TEST_F(TemplateCreation, touches_no_dialog_that_its_host_deleted_on_acceptance) {
    dialog.onDone = [this] { dialog.destroy(); };
    EXPECT_EQ(run(newpro::createFromTemplateCard), Lines({accepted, service, query, message}));
}

TEST_F(TemplateCreation, by_tree_touches_no_dialog_that_its_host_deleted_on_acceptance) {
    dialog.onDone = [this] { dialog.destroy(); };
    EXPECT_EQ(run(newpro::createFromTemplateTree), Lines({service, query, accepted}));
}

TEST_F(TemplateCreation, touches_no_dialog_that_the_main_logic_deleted) {
    workbench::Host::instance().setReceiver(
        [this](int, int, const QVariant&) { dialog.destroy(); });
    EXPECT_EQ(run(newpro::createFromTemplateCard), Lines({accepted, service, query, message}));
}

TEST_F(TemplateCreation, touches_nothing_after_the_signal) {
    dialog.onEmit = [this] { dialog.destroy(); };
    EXPECT_EQ(run(newpro::createFromTemplateTree), Lines({service, query, accepted, signal}));
}

}  // namespace

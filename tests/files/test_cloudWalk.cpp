#include "files/cloudDisk.h"
#include "tests/files/cloudNodes.h"
#include "tests/support/TestSupport.h"

namespace {

using newpro::findInCloud;
using namespace files_tests;

TEST(CloudWalk, FetchesEachFolderOnTheWayOnceAndNoOther) {
    const QJsonArray top{
        node(QStringLiteral("b"), true),
        node(QStringLiteral("a"), true,
             {node(QStringLiteral("b"), true, {node(QStringLiteral("c.GCFX"), false)})})};
    QStringList fetched;
    const auto file =
        findInCloud(top, {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c.GCFX")},
                    [&](const QJsonObject& folder) {
                        fetched.append(folder.value(QLatin1String("wjjmc")).toString());
                        return std::optional<QJsonArray>(childrenOf(folder));
                    });
    ASSERT_TRUE(file);
    EXPECT_EQ(file->value(QLatin1String("xzlj")).toString(), QStringLiteral("link of c.GCFX"));
    EXPECT_EQ(fetched, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

/// @return the type of the node that was found; empty where there was none.
QString typeOf(const std::optional<QJsonObject>& found) {
    return found ? found->value(QLatin1String("wjlx")).toString() : QString();
}

TEST(CloudWalk, TheWayLeadsThroughFoldersAndEndsAtAFileWhicheverStandsFirst) {
    const QJsonObject file = node(QStringLiteral("x"), false);
    const QJsonObject folder = node(QStringLiteral("x"), true, {node(QStringLiteral("y"), false)});
    for (const QJsonArray& top : {QJsonArray{file, folder}, QJsonArray{folder, file}}) {
        EXPECT_EQ(typeOf(findInCloud(top, {QStringLiteral("x")}, storedIn)), QStringLiteral("2"));
        EXPECT_TRUE(findInCloud(top, {QStringLiteral("x"), QStringLiteral("y")}, storedIn));
    }
    // The name alone tells a node: where there is no file, the folder is found.
    EXPECT_EQ(typeOf(findInCloud({folder}, {QStringLiteral("x")}, storedIn)), QStringLiteral("1"));
}

TEST(CloudWalk, AnotherNameOrNoneIsNotFound) {
    const QJsonArray top{node(QStringLiteral("x"), true, {node(QStringLiteral("y"), false)})};
    EXPECT_FALSE(findInCloud(top, {QStringLiteral("X")}, storedIn));
    EXPECT_FALSE(findInCloud(top, {QStringLiteral("y"), QStringLiteral("x")}, storedIn));
    EXPECT_FALSE(findInCloud(top, {}, storedIn));
    EXPECT_FALSE(findInCloud({}, {QStringLiteral("x")}, storedIn));
}

TEST(CloudWalk, EndsWhenAFolderIsRefused) {
    const QJsonArray top{node(QStringLiteral("x"), true, {node(QStringLiteral("y"), false)})};
    EXPECT_FALSE(findInCloud(top, {QStringLiteral("x"), QStringLiteral("y")},
                             [](const QJsonObject&) { return std::nullopt; }));
}

TEST(CloudWalk, RecordsWithoutMembersOrOfOtherTypesArePassedOver) {
    const QJsonArray damaged{
        QJsonValue(),
        7,
        QStringLiteral("x"),
        QJsonArray{1},
        QJsonObject(),
        QJsonObject{{QStringLiteral("wjjmc"), 7}, {QStringLiteral("wjlx"), QStringLiteral("1")}},
        QJsonObject{{QStringLiteral("wjjmc"), QStringLiteral("x")}, {QStringLiteral("wjlx"), 1}},
        node(QStringLiteral("x"), true, {node(QStringLiteral("y"), false)})};
    EXPECT_TRUE(findInCloud(damaged, {QStringLiteral("x"), QStringLiteral("y")}, storedIn));
}

TEST(CloudWalk, TheRootOfThePersonalDiskIsFoundByItsName) {
    const QJsonObject root =
        node(QStringLiteral("根目录"), true, {node(QStringLiteral("a"), false)});
    const auto answer = [](const QJsonValue& data) {
        return QJsonObject{{QStringLiteral("data"), data}};
    };
    const QString key = QStringLiteral("anything");
    EXPECT_EQ(newpro::personalTopLevel(answer(QJsonObject{{key, QJsonArray{root}}})).size(), 1);
    EXPECT_EQ(newpro::personalTopLevel(answer(QJsonObject{{QStringLiteral("a"), 1},
                                                          {QStringLiteral("b"), QJsonArray()},
                                                          {key, QJsonArray{root}}}))
                  .size(),
              1);
    for (const QJsonValue& data :
         {QJsonValue(), QJsonValue(1), QJsonValue(QJsonArray{root}), QJsonValue(QJsonObject()),
          QJsonValue(QJsonObject{{key, QJsonArray{node(QStringLiteral("别的"), true)}}})}) {
        EXPECT_TRUE(newpro::personalTopLevel(answer(data)).isEmpty());
    }
}

TEST(CloudOwner, OnlyARecordOfAnotherUserForThisPathCounts) {
    const QString path = QStringLiteral("企业云盘/a.GCFX");
    const auto record = [](const QString& first, const QString& user, int count) {
        QStringList fields{first, user};
        while (fields.size() < count) fields.append(QStringLiteral("x"));
        return fields.join(QLatin1String("##"));
    };
    const QString u1 = QStringLiteral("u1");
    const QString u2 = QStringLiteral("u2");
    const struct {
        const char* name;
        QStringList list;
        bool another;
    } rows[] = {
        {"no list", {}, false},
        {"own record", {record(path, u1, 15)}, false},
        {"record of another", {record(path, u2, 15)}, true},
        {"own record among others", {record(path, u2, 15), record(path, u1, 15)}, false},
        {"another path", {record(path + QLatin1Char('x'), u2, 15)}, false},
        {"another layout", {record(path, u2, 14), QStringLiteral("yp##") + path}, false},
        {"a path that equals the user id", {record(u1, u2, 15)}, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(newpro::belongsToAnother(row.list, path, u1), row.another) << row.name;
    }
    EXPECT_TRUE(newpro::belongsToAnother({record(u1, u2, 15)}, u1, u1));
}

}  // namespace

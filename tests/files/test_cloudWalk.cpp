#include <QJsonArray>

#include "files/cloudDisk.h"
#include "tests/support/TestSupport.h"
#include "tests/support/properties.h"

namespace {

using newpro::findInCloud;

QJsonObject node(const QString& name, bool folder, const QJsonArray& children = {}) {
    return {{QStringLiteral("wjjmc"), name},
            {QStringLiteral("wjlx"), folder ? QStringLiteral("1") : QStringLiteral("2")},
            {QStringLiteral("xjdata"), children},
            {QStringLiteral("xzlj"), QStringLiteral("link of ") + name}};
}

QJsonArray childrenOf(const QJsonObject& folder) {
    return folder.value(QLatin1String("xjdata")).toArray();
}

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

TEST(CloudWalk, TheWayLeadsThroughFoldersAndEndsAtAFile) {
    const QJsonArray top{node(QStringLiteral("x"), false),
                         node(QStringLiteral("x"), true, {node(QStringLiteral("y"), false)})};
    const auto fetch = [](const QJsonObject& folder) {
        return std::optional<QJsonArray>(childrenOf(folder));
    };
    EXPECT_TRUE(findInCloud(top, {QStringLiteral("x")}, fetch));
    EXPECT_TRUE(findInCloud(top, {QStringLiteral("x"), QStringLiteral("y")}, fetch));
    EXPECT_FALSE(findInCloud(top, {QStringLiteral("X")}, fetch));
    EXPECT_FALSE(findInCloud(top, {QStringLiteral("y"), QStringLiteral("x")}, fetch));
    EXPECT_FALSE(findInCloud(top, {}, fetch));
    EXPECT_FALSE(findInCloud({}, {QStringLiteral("x")}, fetch));
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
    EXPECT_TRUE(findInCloud(
        damaged, {QStringLiteral("x"), QStringLiteral("y")},
        [](const QJsonObject& folder) { return std::optional<QJsonArray>(childrenOf(folder)); }));
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

/// A tree of names, in which siblings differ.
QJsonArray anyTree(int depth) {
    QJsonArray nodes;
    const int count = *rc::gen::inRange(0, 5);
    for (int i = 0; i < count; ++i) {
        const bool folder = depth > 1 && *rc::gen::arbitrary<bool>();
        const QString name =
            *testing_support::anyText(QStringLiteral("工程.|")) + QString::number(i);
        nodes.append(node(name, folder, folder ? anyTree(depth - 1) : QJsonArray()));
    }
    return nodes;
}

void collectFiles(const QJsonArray& nodes, const QStringList& above, QVector<QStringList>& paths) {
    for (const QJsonValue& value : nodes) {
        const QJsonObject entry = value.toObject();
        const QStringList path =
            above + QStringList(entry.value(QLatin1String("wjjmc")).toString());
        if (entry.value(QLatin1String("wjlx")) == QLatin1String("1")) {
            collectFiles(childrenOf(entry), path, paths);
        } else {
            paths.append(path);
        }
    }
}

RC_GTEST_PROP(CloudWalk, EveryFileOfATreeIsFoundWithOneFetchPerFolder, ()) {
    const QJsonArray top = anyTree(5);
    QVector<QStringList> paths;
    collectFiles(top, {}, paths);
    for (const QStringList& path : paths) {
        int fetched = 0;
        const auto file = findInCloud(top, path, [&](const QJsonObject& folder) {
            ++fetched;
            return std::optional<QJsonArray>(childrenOf(folder));
        });
        RC_ASSERT(bool(file));
        RC_ASSERT(file->value(QLatin1String("xzlj")).toString() ==
                  QStringLiteral("link of ") + path.constLast());
        RC_ASSERT(fetched == path.size() - 1);
        const QStringList beyond = path + QStringList(QStringLiteral("x"));
        RC_ASSERT(!findInCloud(top, beyond, [](const QJsonObject& folder) {
            return std::optional<QJsonArray>(childrenOf(folder));
        }));
    }
}

QJsonValue anyJson(int depth) {
    static const QStringList keys{QStringLiteral("wjjmc"), QStringLiteral("wjlx"),
                                  QStringLiteral("xjdata"), QStringLiteral("data")};
    switch (*rc::gen::inRange(0, depth > 0 ? 6 : 4)) {
        case 0:
            return QJsonValue();
        case 1:
            return *rc::gen::arbitrary<bool>();
        case 2:
            return *rc::gen::arbitrary<double>();
        case 3:
            return *rc::gen::element(QStringLiteral("1"), QStringLiteral("a"), QString());
        case 4: {
            QJsonArray list;
            for (int i = *rc::gen::inRange(0, 4); i > 0; --i) list.append(anyJson(depth - 1));
            return list;
        }
        default: {
            QJsonObject object;
            for (const QString& key : keys) {
                if (*rc::gen::arbitrary<bool>()) object.insert(key, anyJson(depth - 1));
            }
            return object;
        }
    }
}

RC_GTEST_PROP(CloudWalk, AnyJsonIsWalkedAndOnlyAFileOfTheNameIsFound, ()) {
    const QJsonValue answer = anyJson(6);
    newpro::personalTopLevel(answer.toObject());
    const auto file = findInCloud(
        answer.toArray(), {QStringLiteral("a"), QStringLiteral("a")},
        [](const QJsonObject& folder) { return std::optional<QJsonArray>(childrenOf(folder)); });
    if (!file) return;
    RC_ASSERT(file->value(QLatin1String("wjjmc")) == QJsonValue(QStringLiteral("a")));
    RC_ASSERT(file->value(QLatin1String("wjlx")) != QJsonValue(QStringLiteral("1")));
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

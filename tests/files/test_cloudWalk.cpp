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

std::optional<QJsonArray> storedIn(const QJsonObject& folder) {
    return childrenOf(folder);
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
        RC_ASSERT(!findInCloud(top, beyond, storedIn));
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

bool oneInEight() {
    return *rc::gen::weightedElement<bool>({{7, false}, {1, true}});
}

/// A listing of nodes that mostly bear the name "a", here and there with anything in its place.
QJsonArray anyListing(int depth) {
    QJsonArray nodes;
    for (int i = *rc::gen::element(2, 3, 4); i > 0; --i) {
        QJsonObject entry =
            node(*rc::gen::element(QStringLiteral("a"), QStringLiteral("a"), QStringLiteral("b")),
                 *rc::gen::arbitrary<bool>(), depth > 1 ? anyListing(depth - 1) : QJsonArray());
        for (const QString& key : entry.keys()) {
            if (oneInEight()) entry.insert(key, anyJson(2));
        }
        nodes.append(oneInEight() ? anyJson(2) : QJsonValue(entry));
    }
    return nodes;
}

bool isNamedA(const QJsonValue& value) {
    return value.toObject().value(QLatin1String("wjjmc")) == QJsonValue(QStringLiteral("a"));
}

bool isFile(const QJsonValue& value) {
    return value.toObject().value(QLatin1String("wjlx")) != QJsonValue(QStringLiteral("1"));
}

TEST(CloudWalk, InAnyListingTheLastNameIsFoundAndAFileBeforeAFolder) {
    int found = 0;
    EXPECT_TRUE(rc::check([&found] {
        std::optional<QJsonArray> last;
        const auto file =
            findInCloud(anyListing(2), {QStringLiteral("a"), QStringLiteral("a")},
                        [&last](const QJsonObject& folder) { return last = childrenOf(folder); });
        QJsonArray named, files;
        for (const QJsonValue value : last.value_or(QJsonArray())) {
            if (isNamedA(value)) named.append(value);
            if (isNamedA(value) && isFile(value)) files.append(value);
        }
        RC_ASSERT(bool(file) == !named.isEmpty());
        if (!file) return;
        ++found;
        RC_ASSERT(*file == (files.isEmpty() ? named : files).first().toObject());
    }));
    EXPECT_GE(found, 10);  // of a hundred listings about forty
}

RC_GTEST_PROP(CloudWalk, TheRootIsFoundAmongAnything, ()) {
    const QStringList keys{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    const QString rootKey = *rc::gen::element(keys[0], keys[1], keys[2]);
    QJsonObject data;
    for (const QString& key : keys)
        data.insert(key, *rc::gen::arbitrary<bool>() ? anyListing(1) : anyJson(4));
    const QJsonArray listing = anyListing(2);
    data.insert(rootKey, QJsonArray{node(QStringLiteral("根目录"), true, listing)});
    RC_ASSERT(newpro::personalTopLevel({{QStringLiteral("data"), data}}) == listing);
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

#include "files/cloudDisk.h"
#include "tests/files/cloudNodes.h"
#include "tests/support/properties.h"

namespace {

using newpro::findInCloud;
using namespace files_tests;

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

}  // namespace

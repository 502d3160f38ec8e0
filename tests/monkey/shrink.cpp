#include "tests/monkey/shrink.h"

#include <QJsonArray>
#include <QStringList>

namespace monkey {

namespace {

/// Where a value stands in a document: keys, and indices as texts.
using Path = QStringList;

QJsonValue valueAt(const QJsonValue& root, const Path& path) {
    QJsonValue value = root;
    for (const QString& step : path)
        value = value.isArray() ? value.toArray().at(step.toInt()) : value[step];
    return value;
}

/// @return the document with another value at a place.
QJsonValue with(const QJsonValue& root, const Path& path, const QJsonValue& value) {
    if (path.isEmpty()) return value;
    const QJsonValue inner = with(valueAt(root, path.mid(0, 1)), path.mid(1), value);
    if (root.isArray()) {
        QJsonArray array = root.toArray();
        array.replace(path.first().toInt(), inner);
        return array;
    }
    QJsonObject object = root.toObject();
    object.insert(path.first(), inner);
    return object;
}

int sizeOf(const QJsonValue& container) {
    return container.isArray() ? container.toArray().size() : container.toObject().size();
}

/// @return the container without `count` of its elements from `first` on.
QJsonValue without(const QJsonValue& container, int first, int count) {
    if (container.isArray()) {
        QJsonArray array = container.toArray();
        for (int i = 0; i < count; ++i) array.removeAt(first);
        return array;
    }
    QJsonObject object = container.toObject();
    for (const QString& key : object.keys().mid(first, count)) object.remove(key);
    return object;
}

class Shrinker {
  public:
    Shrinker(const QJsonObject& content, const Fails& fails) : content(content), fails(fails) {}

    QJsonObject run() {
        while (passOver({})) continue;
        return content.toObject();
    }

  private:
    /// Shrinks a container and then what is left in it. @return whether anything was taken.
    bool passOver(const Path& path) {
        bool taken = false;
        for (int portion = sizeOf(valueAt(content, path)); portion >= 1; portion /= 2)
            taken |= takeFrom(path, portion);
        const QJsonValue container = valueAt(content, path);
        for (int i = sizeOf(container) - 1; i >= 0; --i) {
            const QString key =
                container.isArray() ? QString::number(i) : container.toObject().keys().at(i);
            const QJsonValue inner = valueAt(content, path + Path{key});
            if (inner.isArray() || inner.isObject()) taken |= passOver(path + Path{key});
        }
        return taken;
    }

    /// What a user does last hangs on what was before, so that it is tried from the end.
    bool takeFrom(const Path& path, int portion) {
        bool taken = false;
        for (int end = sizeOf(valueAt(content, path)); end > 0; end -= portion) {
            const int first = qMax(0, end - portion);
            const QJsonValue less = without(valueAt(content, path), first, end - first);
            const QJsonValue candidate = with(content, path, less);
            if (!fails(candidate.toObject())) continue;
            content = candidate;
            taken = true;
        }
        return taken;
    }

    QJsonValue content;
    const Fails& fails;
};

}  // namespace

QJsonObject shrunk(const QJsonObject& content, const Fails& fails) {
    return Shrinker(content, fails).run();
}

}  // namespace monkey

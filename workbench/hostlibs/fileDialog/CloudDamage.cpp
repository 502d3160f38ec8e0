#include "workbench/hostlibs/fileDialog/CloudDisk.h"

namespace workbench::cloud {

namespace {

const QString children = QStringLiteral("xjdata");

QJsonValue damagedNode(QJsonObject node, int index);

QJsonArray damagedNodes(const QJsonArray& nodes) {
    QJsonArray spoilt;
    const int kept = (nodes.size() + 1) / 2 + 2;  // lists are cut short as well
    for (int i = 0; i < nodes.size() && i < kept; ++i)
        spoilt.append(damagedNode(nodes.at(i).toObject(), i));
    return spoilt;
}

QJsonValue damagedNode(QJsonObject node, int index) {
    node.insert(children, damagedNodes(node.value(children).toArray()));
    switch (index % 5) {
        case 0:
            node.remove(QStringLiteral("wjjmc"));
            return node;
        case 1:
            node.insert(QStringLiteral("wjlx"), 1);
            node.insert(children, QStringLiteral("目录"));
            return node;
        case 2:
            node.insert(QStringLiteral("wjjmc"), QJsonArray{1, 2});
            node.remove(QStringLiteral("wjlx"));
            return node;
        case 3:
            node.remove(QStringLiteral("xzlj"));
            node.insert(QStringLiteral("wjjid"), 17);
            node.insert(QStringLiteral("xgsj"), false);
            return node;
        default:
            return QJsonValue::Null;
    }
}

}  // namespace

QJsonObject damaged(const QJsonObject& answer) {
    QJsonObject spoilt = answer;
    const QJsonValue data = answer.value(QStringLiteral("data"));
    QJsonObject object = data.toObject();
    if (data.isArray()) {
        spoilt.insert(QStringLiteral("data"), damagedNodes(data.toArray()));
    } else if (object.contains(QStringLiteral("list"))) {
        QJsonObject root = object.value(QStringLiteral("list")).toArray().first().toObject();
        root.insert(children, damagedNodes(root.value(children).toArray()));
        object.insert(QStringLiteral("list"), QJsonArray{root, 7});
        spoilt.insert(QStringLiteral("data"), object);
    } else if (data.isObject()) {
        object.insert(QStringLiteral("filPath"), 5);
        object.remove(QStringLiteral("isExist"));
        spoilt.insert(QStringLiteral("data"), object);
    } else {
        spoilt.insert(QStringLiteral("code"), QStringLiteral("0"));
        spoilt.insert(QStringLiteral("data"), QJsonArray());
    }
    return spoilt;
}

}  // namespace workbench::cloud

#include "workbench/record/hits.h"

#include <QLabel>
#include <QTreeWidget>

#include "workbench/scenario/targets.h"

namespace workbench {

namespace {

/// A place that was hit. Each kind of place is a row of `rows` below.
struct Hit {
    QWidget* window;
    QWidget* widget;
    bool twice;

    bool lies(const QWidget* in) const { return in && (in == widget || in->isAncestorOf(widget)); }
};

QString textOf(const QWidget* widget) {
    return widget->property("text").toString();
}

Step step(const char* verb, const QJsonObject& args = {}) {
    return {QLatin1String(verb), args};
}

Step closing(const Hit& hit) {
    if (hit.widget->objectName() != QLatin1String("closeButton")) return {};
    return step("close");
}

Step ofRibbon(const Hit& hit) {
    for (QWidget* at = hit.widget; at != hit.window; at = at->parentWidget()) {
        const QString entry = at->property("name").toString();
        if (at->inherits("RibbonTab") && hit.lies(ribbonButton(hit.window, entry)))
            return step("ribbon", {{QStringLiteral("entry"), entry}});
    }
    return {};
}

Step ofTaxMode(const Hit& hit) {
    const QString entry = textOf(hit.widget);
    if (taxModeButton(hit.window, entry) != hit.widget) return {};
    return step("taxMode", {{QStringLiteral("entry"), entry}});
}

Step ofFilePage(const Hit& hit) {
    if (hit.lies(onFilePage(hit.window, "browseButton"))) return step("browse");
    if (hit.lies(onFilePage(hit.window, "newButton"))) return step("create");
    return {};
}

Step ofExcel(const Hit& hit) {
    if (!hit.window->inherits("importExcelSelFile")) return {};
    const QString name = hit.widget->objectName();
    const char* choice = name == QLatin1String("btnSelFile")  ? "file"
                         : name == QLatin1String("btnSelDir") ? "folder"
                                                              : "";
    return *choice ? step("excel", {{QStringLiteral("choose"), QLatin1String(choice)}}) : Step();
}

Step ofCard(const Hit& hit) {
    for (QWidget* at = hit.widget; at != hit.window; at = at->parentWidget()) {
        const auto* title = at->findChild<QLabel*>(QStringLiteral("lblTitle"));
        if (!title || modelCard(hit.window, title->text()) != at) continue;
        Step found = step("model", {{QStringLiteral("name"), title->text()}});
        const char* use = hit.twice ? "double-click" : "";
        if (hit.lies(newButtonOf(at)))
            use = "new";
        else if (hit.lies(menuButtonOf(at)))
            use = "menu";
        found.args.insert(QStringLiteral("use"), QLatin1String(use));
        return *use ? found : Step();
    }
    return {};
}

Step ofTree(const Hit& hit) {
    auto* tree = around<QTreeWidget>(hit.widget);
    if (!tree || tree->objectName() != QLatin1String("templateTree")) return {};
    for (QWidget* at = hit.widget; at != tree; at = at->parentWidget()) {
        const auto* label = at->findChild<QLabel*>();
        const QTreeWidgetItem* row = label ? templateRow(tree, label->text()) : nullptr;
        if (!row || tree->itemWidget(const_cast<QTreeWidgetItem*>(row), 0) != at) continue;
        const bool button = hit.widget->inherits("zBaseButton");
        if (!button && !hit.twice) return {};
        return step("template",
                    {{QStringLiteral("name"), label->text()},
                     {QStringLiteral("use"), QLatin1String(button ? "new" : "double-click")}});
    }
    return {};
}

/// The player clicks the middle of what it finds: that has to be what was hit, or as inert.
bool standsFor(const QWidget* named, const QWidget* hit) {
    const QWidget* middle = named->childAt(named->rect().center());
    if (!middle || middle == hit) return true;
    return qobject_cast<const QLabel*>(middle) &&
           (hit == named || qobject_cast<const QLabel*>(hit));
}

Step ofAnything(const Hit& hit) {
    for (QWidget* at = hit.widget; at != hit.window; at = at->parentWidget()) {
        const QString name = nameOf(at);
        if (name.isEmpty() || !standsFor(at, hit.widget)) continue;
        Step found = step("click", {{QStringLiteral("on"), name}});
        if (hit.twice) found.args.insert(QStringLiteral("twice"), true);
        return found;
    }
    return {};
}

Step (*const rows[])(const Hit&) = {closing, ofRibbon, ofTaxMode, ofFilePage,
                                    ofExcel, ofCard,   ofTree,    ofAnything};

}  // namespace

QString nameOf(QWidget* widget) {
    for (const QString& name : {widget->objectName(), textOf(widget)})
        if (!name.isEmpty() && anything(widget->window(), name) == widget) return name;
    return {};
}

Step stepOfClick(QWidget* hit, bool twice) {
    for (const auto row : rows) {
        const Step found = row({hit->window(), hit, twice});
        if (!found.verb.isEmpty()) return found;
    }
    return {};
}

}  // namespace workbench

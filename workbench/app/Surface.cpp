#include "workbench/app/Surface.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QLocale>

#include "workbench/base/qtNames.h"

namespace workbench {

namespace {

const char* const saidProperties[] = {
    "text",    "title",           "windowTitle", "accessibleName",
    "toolTip", "placeholderText", "statusTip",   "accessibleDescription"};

const char* const reasonContexts[] = {"QFile", "QIODevice", "QJsonParseError", "QProcess",
                                      "QSaveFile"};

}  // namespace

QString QtTexts::translate(const char* context, const char* text, const char* disambiguation,
                           int number) const {
    for (const char* reasons : reasonContexts)
        if (qstrcmp(context, reasons) == 0) return {};
    return QTranslator::translate(context, text, disambiguation, number);
}

Surface& Surface::instance() {
    static Surface surface;
    return surface;
}

void Surface::setLanguage(Language language) {
    if (language == current) return;
    current = language;
    for (int i = places.size() - 1; i >= 0; --i)
        if (!places[i].object) places.remove(i);
    for (Place& place : places) show(place);
    if (!qtTexts.isEmpty()) translateQt();
    Q_EMIT languageChanged();
}

void Surface::adopt(QWidget* root) {
    if (qtTexts.isEmpty() && qtTexts.load(QStringLiteral("qtbase_zh_CN"), qtTranslations()))
        translateQt();
    QObjectList objects = root->findChildren<QObject*>();
    objects.prepend(root);
    for (QObject* object : qAsConst(objects)) {
        if (!object->isWidgetType() && !qobject_cast<QAction*>(object)) continue;
        for (const char* property : saidProperties) take(object, property);
        const auto* box = qobject_cast<QComboBox*>(object);
        for (int i = 0; box && i < box->count(); ++i) take(object, {}, i);
    }
}

void Surface::translateQt() {
    if (current == Language::Chinese)
        QCoreApplication::installTranslator(&qtTexts);
    else
        QCoreApplication::removeTranslator(&qtTexts);
}

void Surface::take(QObject* object, const QByteArray& property, int entry) {
    const QString text = entry < 0 ? object->property(property).toString()
                                   : static_cast<QComboBox*>(object)->itemText(entry);
    if (text.isEmpty() || !englishOf(text)) return;
    places.append({object, property, entry, text, text});
    show(places.last());
}

void Surface::show(Place& place) const {
    auto* box = place.entry < 0 ? nullptr : static_cast<QComboBox*>(place.object.data());
    const QString now =
        box ? box->itemText(place.entry) : place.object->property(place.property).toString();
    if (now != place.shown) return;  // somebody else's by now
    place.shown = said(place.chinese);
    if (now == place.shown) return;
    if (box)
        box->setItemText(place.entry, place.shown);
    else
        place.object->setProperty(place.property, place.shown);
}

QString said(const QString& chinese) {
    const char* english =
        Surface::instance().language() == Language::English ? englishOf(chinese) : nullptr;
    return english ? QString::fromUtf8(english) : chinese;
}

QString said(const char* chinese) {
    return said(QString::fromUtf8(chinese));
}

QStringList languageWords() {
    return {QStringLiteral("zh"), QStringLiteral("en")};
}

Language languageOf(const QLocale& locale) {
    const bool unnamed = locale.language() == QLocale::C;
    return unnamed || locale.language() == QLocale::Chinese ? Language::Chinese : Language::English;
}

}  // namespace workbench

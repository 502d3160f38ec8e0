/// What Qt 5 and Qt 6 have under different names, for the workbench and the tests.
#pragma once

#include <QCoreApplication>
#include <QKeySequence>
#include <QLibraryInfo>
#include <QMetaType>
#include <QMouseEvent>
#include <QVariant>

namespace workbench {

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

/// Whether a meta-type's values may be moved by copying their bytes.
constexpr QMetaType::TypeFlag relocatableType = QMetaType::MovableType;

/// @return id of a registered type; QMetaType::UnknownType if there is none of this name.
inline int typeIdOf(const QByteArray& name) {
    return QMetaType::type(name);
}

/// Converts a value to the type with this id. @return whether that can be done.
inline bool convertTo(int typeId, QVariant& value) {
    return value.convert(typeId);
}

/// @return key and modifiers of the first step of a sequence.
inline int firstKeyOf(const QKeySequence& sequence) {
    return sequence[0];
}

/// @return where on the screen it happened.
inline QPoint placeOnScreen(const QMouseEvent& event) {
    return event.globalPos();
}

/// @return what a widget is told of a mouse over it, without a button. @param place in the widget.
inline QHoverEvent hoverAt(const QPointF& place) {
    return {QEvent::HoverMove, place, place};
}

/// @return the folder of Qt's own translations.
inline QString qtTranslations() {
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
}

/// Draws in the screen's own pixels. To be called before there is an application.
inline void useHighDpiPixmaps() {
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

#else

constexpr QMetaType::TypeFlag relocatableType = QMetaType::RelocatableType;

inline int typeIdOf(const QByteArray& name) {
    return QMetaType::fromName(name).id();
}

inline bool convertTo(int typeId, QVariant& value) {
    return value.convert(QMetaType(typeId));
}

inline int firstKeyOf(const QKeySequence& sequence) {
    return sequence[0].toCombined();
}

inline QPoint placeOnScreen(const QMouseEvent& event) {
    return event.globalPosition().toPoint();
}

inline QHoverEvent hoverAt(const QPointF& place) {
    return {QEvent::HoverMove, place, place, place};
}

inline QString qtTranslations() {
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
}

inline void useHighDpiPixmaps() {}

#endif

}  // namespace workbench

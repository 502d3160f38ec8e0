#include "tests/looks/Contrast.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QtMath>

#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace looks_tests {

using workbench::scaled;

namespace {

double channel(int value) {
    const double part = value / 255.0;
    return part <= 0.04045 ? part / 12.92 : qPow((part + 0.055) / 1.055, 2.4);
}

double luminance(QRgb colour) {
    return 0.2126 * channel(qRed(colour)) + 0.7152 * channel(qGreen(colour)) +
           0.0722 * channel(qBlue(colour));
}

double contrastOf(QRgb one, QRgb other) {
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return qMax(a, b) / qMin(a, b);
}

QHash<QRgb, int> coloursIn(const QImage& picture, const QRect& place) {
    QHash<QRgb, int> counts;
    const QRect inside = place & picture.rect();
    // Neighbours are mostly of one colour.
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        int start = inside.left();
        for (int x = start; x <= inside.right(); ++x) {
            const QRgb here = picture.pixel(x, y);
            if (x < inside.right() && picture.pixel(x + 1, y) == here) continue;
            counts[here] += x + 1 - start;
            start = x + 1;
        }
    }
    return counts;
}

/// @return what can be seen of a widget, in the window.
QRect placeIn(const QWidget* window, const QWidget* widget, QRect part) {
    part &= widget->visibleRegion().boundingRect();
    return {widget->mapTo(window, part.topLeft()), part.size()};
}

QString called(const QWidget* widget, const QString& text) {
    return QStringLiteral("%1 %2 \"%3\"")
        .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(), text.left(20));
}

/// Text and where it stands in a widget.
struct Text {
    QString text;
    QRect place;
};

Text textOf(const QWidget* widget) {
    const QRect inside = widget->rect();
    const int frame = scaled(4);
    const QRect framed = inside.adjusted(frame, frame, -frame, -frame);
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return {label->text(), inside};
    if (const auto* tick = qobject_cast<const QCheckBox*>(widget))
        return {tick->text(), inside.adjusted(scaled(24), 0, 0, 0)};
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        const bool icon = !button->icon().isNull();
        const bool hidden = qobject_cast<const QToolButton*>(button) && button->text().isEmpty();
        return {hidden ? QString() : button->text(),
                framed.adjusted(icon ? button->iconSize().width() : 0, 0, 0, 0)};
    }
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
        return {edit->text().isEmpty() ? edit->placeholderText() : edit->text(), framed};
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        return {combo->isEditable() ? QString() : combo->currentText(),
                framed.adjusted(0, 0, -scaled(24), 0)};
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(widget))
        return {edit->toPlainText(), framed};
    return {};
}

void addRows(QWidget* window, const QImage& picture, QAbstractItemView* view,
             QVector<Measured>& found) {
    const QAbstractItemModel* model = view->model();
    for (int row = 0; model && row < model->rowCount(); ++row)
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            if (index.data().toString().isEmpty() || view->indexWidget(index)) continue;
            const QRect place = placeIn(window, view->viewport(), view->visualRect(index));
            if (place.height() < scaled(16)) continue;
            found.append({called(view, index.data().toString()), contrastIn(picture, place)});
        }
}

}  // namespace

double contrast(const QColor& one, const QColor& other) {
    return contrastOf(one.rgb(), other.rgb());
}

QColor groundOf(const QImage& picture, const QRect& place) {
    const QHash<QRgb, int> counts = coloursIn(picture, place);
    QRgb most = 0;
    for (auto it = counts.begin(); it != counts.end(); ++it)
        if (it.value() > counts.value(most)) most = it.key();
    return QColor(most);
}

double contrastIn(const QImage& picture, const QRect& place) {
    const QRgb ground = groundOf(picture, place).rgb();
    double largest = 1;
    const QHash<QRgb, int> counts = coloursIn(picture, place);
    for (auto it = counts.begin(); it != counts.end(); ++it)
        largest = qMax(largest, contrastOf(it.key(), ground));
    return largest;
}

double edgeContrast(const QImage& picture, const QRect& box) {
    const int y = box.center().y();
    const QRgb around = picture.pixel(qMax(0, box.left() - scaled(2)), y);
    const QRgb outline = picture.pixel(box.left() + scaled(1) / 2, y);
    const QRgb fill = picture.pixel(box.left() + scaled(4), y);
    // Its outline may also be what stands out from its fill.
    return qMax(qMax(contrastOf(outline, around), contrastOf(fill, around)),
                contrastOf(outline, fill));
}

QVector<Measured> textsOf(QWidget* window) {
    const QImage picture = window->grab().toImage();
    QVector<Measured> found;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        if (auto* view = qobject_cast<QAbstractItemView*>(widget))
            addRows(window, picture, view, found);
        const Text text = textOf(widget);
        if (text.text.trimmed().isEmpty()) continue;
        const QRect place = placeIn(window, widget, text.place);
        if (place.height() < scaled(8) || place.width() < scaled(8)) continue;
        found.append({called(widget, text.text), contrastIn(picture, place)});
    }
    return found;
}

QVector<Measured> edgesOf(QWidget* window) {
    const QImage picture = window->grab().toImage();
    QVector<Measured> found;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->visibleRegion().isEmpty()) continue;
        const bool inBox = qobject_cast<QComboBox*>(widget->parentWidget());
        const bool field = qobject_cast<QLineEdit*>(widget) && !inBox;
        const bool choice = qobject_cast<QComboBox*>(widget);
        const auto* push = qobject_cast<QPushButton*>(widget);
        const bool split = push && qobject_cast<QPushButton*>(widget->parentWidget());
        const bool tab = widget->objectName() == QLatin1String("curText");
        if (!field && !choice && (!push || split || tab)) continue;
        const QRect box = placeIn(window, widget, widget->rect());
        if (box.size() != widget->size()) continue;
        found.append({called(widget, QString()), edgeContrast(picture, box)});
    }
    return found;
}

QVector<Measured> iconsOf(QWidget* window) {
    const QImage picture = window->grab().toImage();
    QVector<Measured> found;
    const auto measure = [&](QWidget* widget, const QRect& part) {
        const QRect place = placeIn(window, widget, part);
        if (place.isEmpty()) return;
        found.append({called(widget, QStringLiteral("icon")), contrastIn(picture, place)});
    };
    const int frame = scaled(4);
    for (auto* button : window->findChildren<QAbstractButton*>()) {
        const bool close = button->objectName() == QLatin1String("closeButton");
        if (!button->isVisible() || qobject_cast<QCheckBox*>(button)) continue;
        if (button->text().isEmpty() || close)
            measure(button, button->rect().adjusted(frame, frame, -frame, -frame));
    }
    for (auto* label : window->findChildren<QLabel*>())
        if (label->isVisible() && label->pixmap(Qt::ReturnByValue).width() > 0)
            measure(label, label->rect());
    return found;
}

}  // namespace looks_tests

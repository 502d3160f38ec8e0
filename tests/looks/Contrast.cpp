#include "tests/looks/Contrast.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOption>
#include <QToolButton>
#include <QTreeView>
#include <QtMath>
#include <algorithm>

#include "tests/support/StyleOf.h"
#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace looks_tests {

using workbench::roomFor;
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

using Colours = QHash<QRgb, int>;

Colours coloursIn(const QImage& picture, const QRect& place) {
    Colours counts;
    const QRect inside = place & picture.rect();
    // Neighbours are mostly of one colour.
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        int start = inside.left();
        for (int x = start; x <= inside.right(); ++x) {
            if (x < inside.right() && line[x + 1] == line[x]) continue;
            counts[line[x]] += x + 1 - start;
            start = x + 1;
        }
    }
    return counts;
}

QRgb mostOf(const Colours& counts) {
    QRgb most = 0;
    for (auto it = counts.begin(); it != counts.end(); ++it)
        if (it.value() > counts.value(most)) most = it.key();
    return most;
}

/// @return what can be seen of a part of a widget, in the window.
QRect placeIn(const QWidget* window, const QWidget* widget, QRect part) {
    part &= widget->visibleRegion().boundingRect();
    return {widget->mapTo(window, part.topLeft()), part.size()};
}

QString called(const QWidget* widget, const QString& text) {
    return QStringLiteral("%1 %2 \"%3\"")
        .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(), text.left(20));
}

QRect framed(const QRect& rect) {
    const int frame = rect.height() < scaled(22) ? scaled(1) : scaled(4);
    return rect.adjusted(frame, frame, -frame, -frame);
}

QRect inMiddle(const QRect& room, const QSize& size, Qt::Alignment alignment = Qt::AlignCenter) {
    return QStyle::alignedRect(Qt::LeftToRight, alignment, size, room) & room;
}

QSize lineOf(const QWidget* widget, const QString& text) {
    return widget->fontMetrics().size(Qt::TextSingleLine | Qt::TextShowMnemonic, text);
}

/// Pictures and texts of a widget, and the box that it takes input in, in its own coordinates.
class Parts {
  public:
    struct Text {
        QString text;
        QRect place;
    };
    QVector<Text> texts;
    QVector<QRect> icons;
    QRect box;

    explicit Parts(QWidget* widget) {
        if (auto* label = qobject_cast<QLabel*>(widget)) addLabel(*label);
        if (auto* tick = qobject_cast<QCheckBox*>(widget))
            addTick(*tick);
        else if (auto* button = qobject_cast<QAbstractButton*>(widget))
            addButton(*button);
        if (auto* edit = qobject_cast<QLineEdit*>(widget)) addField(*edit);
        if (auto* edit = qobject_cast<QPlainTextEdit*>(widget)) {
            texts.append({edit->toPlainText(), framed(widget->rect())});
            box = widget->rect();
        }
        if (auto* combo = qobject_cast<QComboBox*>(widget)) addCombo(*combo);
        if (auto* menu = qobject_cast<QMenu*>(widget)) addMenu(*menu);
        if (auto* bar = qobject_cast<QMenuBar*>(widget))
            for (QAction* action : bar->actions())
                texts.append({action->text(), bar->actionGeometry(action)});
        if (auto* dock = qobject_cast<QDockWidget*>(widget))
            texts.append({dock->windowTitle(),
                          framed({0, 0, dock->width() - scaled(48), dock->widget()->y()})});
        if (auto* tree = qobject_cast<QTreeView*>(widget)) addBranches(*tree);
        if (auto* bar = qobject_cast<QScrollBar*>(widget))
            if (bar->maximum() > bar->minimum()) icons.append(bar->rect());
    }

  private:
    void addLabel(const QLabel& label) {
        const bool oneLine = !label.wordWrap() && !label.text().contains(QLatin1Char('\n'));
        const QRect room = label.contentsRect();
        const QSize line = oneLine ? lineOf(&label, label.text()) : room.size();
        texts.append({label.text(), inMiddle(room, line, label.alignment())});
        if (label.pixmap(Qt::ReturnByValue).width() > 0) icons.append(label.rect());
    }

    void addTick(const QCheckBox& tick) {
        QStyleOptionButton option;
        option.initFrom(&tick);
        const auto part = [&](QStyle::SubElement element) {
            return tick.style()->subElementRect(element, &option, &tick);
        };
        texts.append({tick.text(), part(QStyle::SE_CheckBoxContents)});
        const QRect indicator = part(QStyle::SE_CheckBoxIndicator);
        const int side = qMin(indicator.width(), indicator.height());
        box = inMiddle(indicator, {side, side});
        if (tick.isChecked())
            icons.append(box.adjusted(scaled(2), scaled(2), -scaled(2), -scaled(2)));
    }

    void addButton(const QAbstractButton& button) {
        const auto* styled = qobject_cast<const zBaseButton*>(&button);
        const bool icon = styled ? !testing_support::StyleOf::widget(styled).icons[0].isEmpty()
                                 : !button.icon().isNull() || button.text().isEmpty();
        const bool split = qobject_cast<QPushButton*>(button.parentWidget());
        const bool ribbon = button.objectName() == QLatin1String("curText");
        if (qobject_cast<const QPushButton*>(&button) && !split && !ribbon) box = button.rect();
        if (icon && button.text().isEmpty()) icons.append(framed(button.rect()));
        if (button.text().isEmpty()) return;
        const auto* tool = qobject_cast<const QToolButton*>(&button);
        if (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly) {
            icons.append(framed(button.rect()));
            return;
        }
        const int beside = icon ? button.iconSize().width() + scaled(6) : 0;
        const QSize line = lineOf(&button, button.text());
        const QRect all = inMiddle(framed(button.rect()), line + QSize(beside, 0));
        texts.append({button.text(), all.adjusted(beside, 0, 0, 0)});
        if (!icon) return;
        const QRect before(all.left(), 0, button.iconSize().width(), button.height());
        icons.append(inMiddle(before, button.iconSize()));
    }

    void addField(const QLineEdit& edit) {
        QRect place = framed(edit.rect());
        for (const auto* button : edit.findChildren<QToolButton*>())
            if (button->isVisible()) place.setRight(qMin(place.right(), button->x()));
        const QString text = edit.text().isEmpty() ? edit.placeholderText() : edit.displayText();
        const Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
        texts.append({text, inMiddle(place, lineOf(&edit, text), left)});
        if (!qobject_cast<QComboBox*>(edit.parentWidget())) box = edit.rect();
    }

    void addCombo(const QComboBox& combo) {
        const QRect inside = framed(combo.rect());
        const QRect arrow = inside.adjusted(inside.width() - roomFor(20), 0, 0, 0);
        const bool icon = !combo.itemIcon(combo.currentIndex()).isNull();
        const int before = icon ? combo.iconSize().width() + scaled(10) : 0;
        if (!combo.isEditable())
            texts.append({combo.currentText(), inside.adjusted(before, 0, -arrow.width(), 0)});
        icons.append(arrow);
        box = combo.rect();
    }

    void addBranches(const QTreeView& tree) {
        for (int row = 0; tree.rootIsDecorated() && row < tree.model()->rowCount(); ++row) {
            const QModelIndex index = tree.model()->index(row, 0);
            const QRect place = tree.visualRect(index);
            if (!tree.model()->hasChildren(index) || place.isEmpty()) continue;
            icons.append({tree.viewport()->x(), tree.viewport()->y() + place.top(), place.left(),
                          place.height()});
        }
    }

    void addMenu(const QMenu& menu) {
        for (QAction* action : menu.actions()) {
            if (action->isSeparator() || !action->isVisible()) continue;
            const QRect row = menu.actionGeometry(action);
            const bool mark = action->isCheckable() || !action->icon().isNull();
            const int before = mark ? roomFor(28) : 0;
            texts.append({action->text(), row.adjusted(before, 0, 0, 0)});
            if (action->isChecked() || !action->icon().isNull())
                icons.append(QRect(row.topLeft(), QSize(before, row.height())));
        }
    }
};

void addHead(QWidget* window, const QImage& picture, const QHeaderView& head, Measures& found) {
    for (int i = 0; i < head.count(); ++i) {
        const QString text =
            head.model()->headerData(i, head.orientation(), Qt::DisplayRole).toString();
        const QRect section(head.sectionViewportPosition(i), 0, head.sectionSize(i), head.height());
        const QRect place = placeIn(window, head.viewport(), framed(section));
        if (place.width() < scaled(16)) continue;
        found.texts.append({called(&head, text), contrastIn(picture, place)});
    }
}

void addRows(QWidget* window, const QImage& picture, const QAbstractItemView& view,
             Measures& found) {
    const QAbstractItemModel* model = view.model();
    for (int row = 0; model && row < model->rowCount(); ++row)
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            const QString text = index.data().toString();
            if (text.isEmpty() || view.indexWidget(index)) continue;
            const QRect place = placeIn(window, view.viewport(), framed(view.visualRect(index)));
            if (place.height() < scaled(8)) continue;
            const bool icon = !index.data(Qt::DecorationRole).isNull();
            const int before = icon ? view.iconSize().width() + scaled(6) : 0;
            found.texts.append(
                {called(&view, text), contrastIn(picture, place.adjusted(before, 0, 0, 0))});
            if (icon)
                found.icons.append(
                    {called(&view, text),
                     contrastIn(picture, QRect(place.topLeft(), QSize(before, place.height())))});
        }
}

void addParts(QWidget* window, const QImage& picture, QWidget* widget, Measures& found) {
    const Parts parts(widget);
    const int least = scaled(8);
    for (const Parts::Text& text : parts.texts) {
        const QRect place = placeIn(window, widget, text.place);
        if (text.text.trimmed().isEmpty() || place.height() < least || place.width() < least)
            continue;
        found.texts.append({called(widget, text.text), contrastIn(picture, place)});
    }
    for (const QRect& icon : parts.icons) {
        const QRect place = placeIn(window, widget, icon);
        if (icon.isEmpty() || place.size() != icon.size()) continue;  // seen whole
        found.icons.append({called(widget, QStringLiteral("icon")), contrastIn(picture, place)});
    }
    const QRect box = placeIn(window, widget, parts.box);
    if (!parts.box.isEmpty() && box.size() == parts.box.size())
        found.edges.append({called(widget, QStringLiteral("edge")), edgeContrast(picture, box)});
}

}  // namespace

double contrast(const QColor& one, const QColor& other) {
    return contrastOf(one.rgb(), other.rgb());
}

QColor groundOf(const QImage& picture, const QRect& place) {
    return QColor(mostOf(coloursIn(picture, place)));
}

double contrastIn(const QImage& picture, const QRect& place) {
    constexpr double visible = 1.2;  // grounds may run from one shade to another
    const Colours counts = coloursIn(picture, place);
    const QRgb ground = mostOf(counts);
    QVector<QPair<double, int>> ink;
    int all = 0;
    for (auto it = counts.begin(); it != counts.end(); ++it) {
        const double each = contrastOf(it.key(), ground);
        if (each < visible) continue;
        ink.append({each, it.value()});
        all += it.value();
    }
    std::sort(ink.begin(), ink.end(),
              [](const auto& a, const auto& b) { return a.first > b.first; });
    int clearest = 0;
    for (const auto& [each, pixels] : qAsConst(ink)) {
        clearest += pixels;
        if (4 * clearest >= all) return each;
    }
    return 1;
}

double edgeContrast(const QImage& picture, const QRect& box) {
    const int y = box.top() + box.height() / 4;  // above the text
    const QRgb around = picture.pixel(qMax(0, box.left() - scaled(2)), y);
    const QRgb outline = picture.pixel(box.left() + scaled(1) / 2, y);
    const QRgb fill = picture.pixel(box.left() + scaled(4), y);
    // Its outline may also be what stands out from its fill.
    return qMax(qMax(contrastOf(outline, around), contrastOf(fill, around)),
                contrastOf(outline, fill));
}

QRect inkOf(const QImage& picture, const QSize& around) {
    const QRgb ground = picture.pixel(around.width(), around.height());
    QRect found;
    for (int y = around.height(); y < picture.height() - around.height(); ++y)
        for (int x = around.width(); x < picture.width() - around.width(); ++x)
            if (picture.pixel(x, y) != ground) found |= QRect(x, y, 1, 1);
    return found;
}

Measures measuresOf(QWidget* window) {
    const QImage picture = window->grab().toImage();
    Measures found;
    QWidgetList widgets = window->findChildren<QWidget*>();
    widgets.append(window);
    for (QWidget* widget : qAsConst(widgets)) {
        if (!widget->isVisible() || widget->window() != window->window()) continue;
        if (const auto* head = qobject_cast<QHeaderView*>(widget))
            addHead(window, picture, *head, found);
        else if (const auto* view = qobject_cast<QAbstractItemView*>(widget))
            addRows(window, picture, *view, found);
        addParts(window, picture, widget, found);
    }
    return found;
}

}  // namespace looks_tests

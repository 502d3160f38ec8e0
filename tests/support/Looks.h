/// Skins and scales that a window has to look right in, and what to look for in them.
#pragma once

#include <QAbstractButton>
#include <QDir>
#include <QLabel>

#include "tests/support/TestSupport.h"

namespace testing_support {

/// @return the room that a text of one line takes where it is drawn: its advance, and the height
///         that its ink reaches on a line centred in `height`. The line spacing of a Chinese font
///         is larger than anything it draws.
inline QSize neededSize(const QFontMetrics& metrics, const QString& text, int height) {
    const QRect ink = metrics.tightBoundingRect(text);
    const int baseline = (height - metrics.height()) / 2 + metrics.ascent();
    const int above = qMax(0, -(baseline + ink.top()));
    const int below = qMax(0, baseline + ink.bottom() + 1 - height);
    return {metrics.horizontalAdvance(text), height + above + below};
}

/// @return what is cut off on a widget: the texts of labels and buttons that need more room than
///         they have.
/// @param tolerance pixels that the ink of a text may reach beyond its room, above and below
///        together.
/// @param shortened names of the labels that are elided on purpose.
inline QStringList clippedTexts(const QWidget* page, int tolerance, const QStringList& shortened) {
    QStringList clipped;
    const auto judge = [&clipped, tolerance](const QWidget* widget, const QString& text, QSize room,
                                             int beside) {
        QSize needed = neededSize(widget->fontMetrics(), text, room.height());
        needed.rwidth() += beside;
        if (needed.width() <= room.width() && needed.height() - tolerance <= room.height()) return;
        clipped << QStringLiteral("%1 \"%2\" needs %3x%4, has %5x%6")
                       .arg(widget->objectName(), text)
                       .arg(needed.width())
                       .arg(needed.height())
                       .arg(room.width())
                       .arg(room.height());
    };
    for (const auto* label : page->findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text().isEmpty()) continue;
        if (shortened.contains(label->objectName())) continue;
        if (label->wordWrap()) {
            if (label->heightForWidth(label->width()) > label->height()) clipped << label->text();
            continue;
        }
        judge(label, label->text(), label->contentsRect().size(), 0);
    }
    for (const auto* button : page->findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->text().isEmpty()) continue;
        judge(button, button->text(), button->size(),
              button->icon().isNull() ? 0 : button->iconSize().width());
    }
    return clipped;
}

/// @return visible siblings of a layout that overlap, which no text check would tell.
inline QStringList overlaps(const QWidget* page) {
    QStringList found;
    for (const auto* label : page->findChildren<QLabel*>()) {
        for (const auto* other :
             label->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (other == label || !label->isVisible() || !other->isVisible()) continue;
            // The outline of a window lies over everything and is seen through.
            if (other->testAttribute(Qt::WA_TransparentForMouseEvents)) continue;
            if (!label->geometry().intersects(other->geometry())) continue;
            found << label->text() + QStringLiteral(" over ") + other->objectName();
        }
    }
    return found;
}

/// @return the buttons of a window of which a part is seen where another one is: by its edge alone
/// no
///         person tells which of them a click is for.
inline QStringList buttonsOverEachOther(const QWidget* window) {
    QStringList found;
    QVector<QPair<const QAbstractButton*, QRect>> seen;
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->window() != window) continue;
        const QRect place =
            button->visibleRegion().boundingRect().translated(button->mapTo(window, QPoint(0, 0)));
        for (const auto& other : seen) {
            if (other.first->isAncestorOf(button) || button->isAncestorOf(other.first)) continue;
            if (place.intersects(other.second))
                found << button->text() + QStringLiteral(" over ") + other.first->text();
        }
        seen.append({button, place});
    }
    return found;
}

struct Look {
    double scale;
    const char* skin;
};

inline void PrintTo(const Look& look, std::ostream* out) {
    *out << look.skin << " at " << look.scale;
}

/// @return every look that the windows are shown in.
inline const std::vector<Look>& allLooks() {
    static const std::vector<Look> looks = [] {
        std::vector<Look> all;
        for (const char* skin : {"light", "dark", "contrast"})
            for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) all.push_back({scale, skin});
        return all;
    }();
    return looks;
}

inline std::string nameOfLook(const testing::TestParamInfo<Look>& info) {
    return info.param.skin + std::string("At") + std::to_string(qRound(info.param.scale * 100)) +
           "Percent";
}

/// The line of a card that no list is wide enough for.
inline const QStringList descriptionLine = {QStringLiteral("lblDescription")};
/// The lines of a card that real projects have too much to say in.
inline const QStringList sentenceLines = descriptionLine + QStringList{QStringLiteral("lblSource")};

/// Gives the host a skin and a scale.
inline void wear(const Look& look) {
    workbench::Host::instance().setScale(look.scale);
    workbench::Host::instance().setSkin(QLatin1String(look.skin));
}

/// Expects that every text of a window that is shown is whole, that nothing lies over a text, and
/// that the window has colours. Saves its picture if the variable NEWPRO_PICTURES names a folder.
inline void expectLooksRight(QWidget* window, const char* name, const Look& look, int tolerance = 0,
                             const QStringList& shortened = descriptionLine) {
    SCOPED_TRACE(name);
    settle();
    EXPECT_EQ(clippedTexts(window, tolerance, shortened), QStringList());
    EXPECT_EQ(overlaps(window), QStringList());
    const QImage picture = window->grab().toImage();
    EXPECT_EQ(picture.size(), window->size());
    const int light = qGray(picture.pixel(picture.width() / 2, picture.height() - 12));
    EXPECT_EQ(light < 128, look.skin != std::string("light")) << "background " << light;
    const QString folder = qEnvironmentVariable("NEWPRO_PICTURES");
    if (folder.isEmpty()) return;
    QDir().mkpath(folder);
    EXPECT_TRUE(picture.save(QStringLiteral("%1/%2-%3-%4.png")
                                 .arg(folder, QLatin1String(name), QLatin1String(look.skin))
                                 .arg(qRound(look.scale * 100))));
}

}  // namespace testing_support

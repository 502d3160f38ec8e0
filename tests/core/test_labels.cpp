/// What a label that shortens its text puts on the screen.
#include "core/ElidedLabel.h"

#include <QPainter>

#include "tests/support/TestSupport.h"

namespace {

using newpro::ElidedLabel;

const QString tallText = QStringLiteral("国Qgj(");

void prepare(QLabel& label, int pixels, const QSize& size) {
    label.setFont(TBaseTool::GetDefFont(pixels, QFont::Normal));
    label.resize(size);
}

/// @return the label on white paper.
QImage painted(QLabel& label) {
    QImage image(label.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    label.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

QImage painted(const QString& text, Qt::TextElideMode mode, const QSize& size) {
    ElidedLabel label(text, mode, nullptr);
    prepare(label, 16, size);
    return painted(label);
}

/// @return the rows that are not white, from the first to the last.
QImage inkOf(const QImage& image) {
    QImage blank(image.width(), 1, image.format());
    blank.fill(Qt::white);
    const auto inked = [&](int row) { return image.copy(0, row, image.width(), 1) != blank; };
    int top = 0;
    int bottom = image.height();
    while (top < bottom && !inked(top)) ++top;
    while (bottom > top && !inked(bottom - 1)) --bottom;
    return image.copy(0, top, image.width(), bottom - top);
}

/// @return the image moved down on white paper. @param by pixels.
QImage moved(const QImage& image, int by) {
    QImage paper(image.size(), image.format());
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, by, image);
    return paper;
}

TEST(ElidedLabelPaints, WhatAPlainLabelPaintsWhereItHasRoom) {
    for (int pixels : {12, 13, 16, 21, 28}) {
        const int line = QFontMetrics(TBaseTool::GetDefFont(pixels, QFont::Normal)).height();
        for (int height : {line, line + 1, line + 8, 2 * line + 1}) {
            SCOPED_TRACE(testing::Message() << pixels << " in " << height);
            ElidedLabel label(tallText, Qt::ElideRight, nullptr);
            zBaseLabel plain(tallText);
            prepare(label, pixels, {400, height});
            prepare(plain, pixels, {400, height});
            const QImage shown = painted(label);
            const QImage expected = painted(plain);
            ASSERT_GT(inkOf(expected).height(), pixels / 2);
            EXPECT_TRUE(shown == expected || shown == moved(expected, 1) ||
                        shown == moved(expected, -1));
        }
    }
}

TEST(ElidedLabelPaints, DotsWhereTextIsLeftOut) {
    const QString dots(QChar(0x2026));
    const QString text(8, u'国');
    const QFontMetrics metrics(TBaseTool::GetDefFont(16, QFont::Normal));
    for (const Qt::TextElideMode mode : {Qt::ElideRight, Qt::ElideMiddle}) {
        const QString shown =
            mode == Qt::ElideRight ? text.left(4) + dots : text.left(2) + dots + text.left(2);
        const QSize size(metrics.horizontalAdvance(text.left(4) + dots) + metrics.height() / 4,
                         2 * metrics.height());
        ASSERT_EQ(metrics.elidedText(text, mode, size.width()), shown);
        const QImage image = painted(text, mode, size);
        const int start = metrics.horizontalAdvance(shown.left(shown.indexOf(dots)));
        const QImage place = image.copy(start, 0, metrics.horizontalAdvance(dots), size.height());
        const int high = inkOf(place).height();
        EXPECT_GT(high, 0) << mode;
        EXPECT_LT(high, metrics.height() / 3) << mode << ": no letter stands there";
    }
}

TEST(ElidedLabelPaints, WhatStandsBeforeTheDotsOnTheLineOfTheWholeText) {
    const QString text(8, u'国');
    const QFontMetrics metrics(TBaseTool::GetDefFont(16, QFont::Normal));
    const int shown = metrics.horizontalAdvance(text.left(4));
    const int dots = metrics.horizontalAdvance(QChar(0x2026));
    const QSize size(shown + dots + metrics.height() / 4, 2 * metrics.height());
    const QImage cut = painted(text, Qt::ElideRight, size);
    const QImage whole =
        painted(text, Qt::ElideRight, {2 * metrics.horizontalAdvance(text), size.height()});
    const QRect before(0, 0, shown - 1, size.height());
    EXPECT_NE(cut, whole.copy(QRect(QPoint(), size)));
    EXPECT_EQ(cut.copy(before), whole.copy(before));
}

TEST(ElidedLabelPaints, MarkupAsTheTextThatItIs) {
    const QString markup = QStringLiteral("<b>x</b>");
    ElidedLabel label(markup, Qt::ElideRight, nullptr);
    QLabel plain(markup);
    plain.setTextFormat(Qt::PlainText);
    prepare(label, 16, {200, 40});
    prepare(plain, 16, {200, 40});
    EXPECT_EQ(inkOf(painted(label)), inkOf(painted(plain)));
    EXPECT_NE(painted(label), painted(QStringLiteral("x"), Qt::ElideRight, {200, 40}));
    label.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    EXPECT_EQ(label.sizeHint(), plain.sizeHint()) << "as wide as what it paints";
}

TEST(ElidedLabelPaints, InTheDisabledColourWhileItIsDisabled) {
    ElidedLabel label(tallText, Qt::ElideRight, nullptr);
    prepare(label, 20, {200, 40});
    const QImage enabled = painted(label);
    label.setEnabled(false);
    const QImage disabled = painted(label);
    EXPECT_NE(disabled, enabled);
    QPalette palette = label.palette();
    palette.setColor(QPalette::Active, label.foregroundRole(),
                     palette.color(QPalette::Disabled, label.foregroundRole()));
    palette.setColor(QPalette::Inactive, label.foregroundRole(),
                     palette.color(QPalette::Disabled, label.foregroundRole()));
    label.setPalette(palette);
    label.setEnabled(true);
    EXPECT_EQ(disabled, painted(label));
}

TEST(ElidedLabelPaints, ABlankInPlaceOfEachLineBreak) {
    for (Qt::TextElideMode mode : {Qt::ElideRight, Qt::ElideMiddle}) {
        for (const QSize size : {QSize(300, 40), QSize(40, 40), QSize(300, 12)}) {
            for (QChar mark : {QChar(u'\n'), QChar(u'\r'), QChar(QChar::LineSeparator),
                               QChar(QChar::ParagraphSeparator)}) {
                SCOPED_TRACE(testing::Message() << mode << ", " << size.width() << "x"
                                                << size.height() << ", " << mark.unicode());
                QString text = QStringLiteral("a b 国标 c");
                const QImage expected = painted(text, mode, size);
                text.replace(QLatin1Char(' '), mark);
                EXPECT_EQ(painted(text, mode, size), expected);
            }
        }
    }
    const QSize size(300, 40);
    EXPECT_NE(painted(QStringLiteral("a b"), Qt::ElideRight, size),
              painted(QStringLiteral("ab"), Qt::ElideRight, size));
}

TEST(ElidedLabelPaints, WholeGlyphsWhereItIsLowerThanItsLine) {
    for (int pixels : {12, 13, 16, 18, 21, 24, 28}) {
        ElidedLabel label(tallText, Qt::ElideRight, nullptr);
        const QFontMetrics metrics(TBaseTool::GetDefFont(pixels, QFont::Normal));
        prepare(label, pixels, {400, 2 * metrics.height()});
        const QImage whole = inkOf(painted(label));
        const int lowest = label.minimumSizeHint().height();
        ASSERT_LT(lowest, metrics.height());
        for (int height = lowest; height < metrics.height(); ++height) {
            label.resize(400, height);
            EXPECT_EQ(inkOf(painted(label)), whole) << pixels << " in " << height;
        }
    }
}

}  // namespace

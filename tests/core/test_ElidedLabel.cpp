#include "core/ElidedLabel.h"

#include <QElapsedTimer>

#include "tests/support/TestSupport.h"

namespace {

using newpro::elidedAtEnd;

QFont fontOf(int pixels) {
    return TBaseTool::GetDefFont(pixels, QFont::Normal);
}

TEST(ElidedAtEnd, TakesNarrowLettersWhole) {
    const QFontMetrics metrics(fontOf(12));
    const QString text(200, QLatin1Char('i'));
    const int needed = metrics.horizontalAdvance(text) + 1;  // its fraction of a pixel
    EXPECT_EQ(elidedAtEnd(metrics, text, needed), text);
    const QString cut = elidedAtEnd(metrics, text, needed - 10);
    EXPECT_TRUE(cut.endsWith(QChar(0x2026)));
    EXPECT_GT(cut.size(), 190);
}

TEST(ElidedAtEnd, DoesNotMeasureWhatNoWidthCouldShow) {
    const QFontMetrics metrics(fontOf(12));
    const QString text(3'000'000, QChar(u'工'));
    QElapsedTimer timer;
    timer.start();
    const QString shown = elidedAtEnd(metrics, text, 800);
    EXPECT_LT(timer.elapsed(), 500);
    EXPECT_LT(shown.size(), 80);
    EXPECT_EQ(shown, metrics.elidedText(text.left(200), Qt::ElideRight, 800));
}

}  // namespace

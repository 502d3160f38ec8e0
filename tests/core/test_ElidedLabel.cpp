#include "core/ElidedLabel.h"

#include <QElapsedTimer>

#include "tests/support/properties.h"

namespace {

using newpro::elidedAtEnd;

QFont fontOf(int pixels) {
    return TBaseTool::GetDefFont(pixels, QFont::Normal);
}

/// @return a text of letters of every width: Chinese, Latin, one outside the basic plane.
QString textOf(const std::vector<int>& letters) {
    const QStringList alphabet = {
        QStringLiteral("工"), QStringLiteral("，"), QStringLiteral("W"),
        QStringLiteral("i"),  QStringLiteral(" "),  QStringLiteral("AV"),
        QStringLiteral("𠮷"), QStringLiteral("5"),  QStringLiteral("e\u0301")};
    QString text;
    for (int letter : letters) text += alphabet.at(letter);
    return text;
}

RC_GTEST_PROP(ElidedAtEnd, IsWhatTheWholeTextElidesTo, ()) {
    const QFontMetrics metrics(fontOf(*rc::gen::inRange(8, 40)));
    const auto letters =
        *rc::gen::scale(5.0, rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 9)));
    const QString text = textOf(letters);
    const int width = *rc::gen::inRange(-100, 1500);
    RC_ASSERT(elidedAtEnd(metrics, text, width) == metrics.elidedText(text, Qt::ElideRight, width));
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

#include "core/ElidedLabel.h"
#include "tests/support/properties.h"

namespace {

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
    const QFontMetrics metrics(TBaseTool::GetDefFont(*rc::gen::inRange(8, 40), QFont::Normal));
    const auto letters =
        *rc::gen::scale(5.0, rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 9)));
    const QString text = textOf(letters);
    const int width = *rc::gen::inRange(-100, 1500);
    RC_ASSERT(newpro::elidedAtEnd(metrics, text, width) ==
              metrics.elidedText(text, Qt::ElideRight, width));
}

}  // namespace

/// Properties: RapidCheck in GoogleTest, and a generator of hostile texts.
#pragma once

#include <gtest/gtest.h>
// After GoogleTest, which it expects.
#include <rapidcheck/gtest.h>

#include <QString>
#include <QVector>
#include <vector>

namespace testing_support {

/// Texts of any code units, lone surrogates included, in which `likely` ones come up often.
inline rc::Gen<QString> anyText(const QString& likely) {
    std::vector<ushort> units(likely.utf16(), likely.utf16() + likely.size());
    const auto unit = rc::gen::oneOf(rc::gen::elementOf(units), rc::gen::arbitrary<ushort>());
    return rc::gen::map(rc::gen::container<std::vector<ushort>>(unit),
                        [](const std::vector<ushort>& text) {
                            return QString::fromUtf16(
                                reinterpret_cast<const char16_t*>(text.data()), int(text.size()));
                        });
}

}  // namespace testing_support

namespace rc {

/// A failed property shows its texts escaped.
inline void showValue(const QString& text, std::ostream& out) {
    for (const QChar unit : text) out << "\\u" << std::hex << unit.unicode() << std::dec;
}

}  // namespace rc

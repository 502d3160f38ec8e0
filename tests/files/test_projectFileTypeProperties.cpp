#include "files/projectFileType.h"

#include <QSet>

#include "tests/support/properties.h"

namespace {

using newpro::projectFileType;

RC_GTEST_PROP(ProjectFileType, CaseAndBlanksAroundNeverMatter, ()) {
    const QString suffix = *testing_support::anyText(QStringLiteral("SGCFXZJPMWBAK"));
    const int code = projectFileType(suffix);
    const QSet<int> codes{0, 2, 4, 5, 16, 17};
    RC_ASSERT(codes.contains(code));
    RC_ASSERT(projectFileType(suffix.toUpper()) == code);
    RC_ASSERT(projectFileType(QStringLiteral(" \t") + suffix + QLatin1Char('\n')) == code);
}

RC_GTEST_PROP(ProjectFileType, AnythingBesideAKnownSuffixIsUnknown, ()) {
    const QString known =
        *rc::gen::element(QStringLiteral("GCFX"), QStringLiteral("PMW"), QStringLiteral("BAK"),
                          QStringLiteral("SBAK"), QStringLiteral("GCFZ"), QStringLiteral("SGCFG"));
    const QString more = *testing_support::anyText(QStringLiteral("。预0."));
    RC_PRE(!more.trimmed().isEmpty());
    const QString text = more.trimmed() + known;
    RC_PRE(text.toUpper() != QLatin1String("SBAK"));
    const bool prefixed = more.trimmed().toUpper() == QLatin1String("S");
    if (!prefixed) RC_ASSERT(projectFileType(text) == 0);
}

}  // namespace

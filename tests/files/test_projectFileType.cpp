#include "files/projectFileType.h"

#include "tests/support/TestSupport.h"
#include "tests/support/properties.h"

namespace {

using newpro::projectFileType;

TEST(ProjectFileType, EverySuffixHasItsCode) {
    const struct {
        const char* suffix;
        int code;
    } rows[] = {
        {"GCFX", 4},  {"PMW", 4},     {"BAK", 4},    {"SBAK", 4},   {"GCFZ", 16},
        {"BAKZ", 16}, {"GCFG", 2},    {"SGCFZ", 17}, {"SBAKZ", 17}, {"SGCFX", 5},
        {"SPMW", 5},  {"SGCFJ", 5},   {"SGCF", 5},   {"SGCFG", 5},  {"GCF", 0},
        {"", 0},      {"MODX", 0},    {".GCFX", 0},  {"gcfx", 4},   {"pmw", 4},
        {"spmw", 5},  {" Gcfx\t", 4}, {"GC FX", 0},  {"GCFXX", 0},  {"预算", 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(projectFileType(QString::fromUtf8(row.suffix)), row.code) << row.suffix;
    }
}

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

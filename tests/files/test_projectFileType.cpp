#include "files/projectFileType.h"

#include "tests/support/TestSupport.h"

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

}  // namespace

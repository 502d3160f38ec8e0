#include "fuzz/targets.h"

#include <cstring>

namespace fuzzing {

void fuzzCloud(const QByteArray& input);
void fuzzCreation(const QByteArray& input);
void fuzzHistory(const QByteArray& input);
void fuzzInstallation(const QByteArray& input);
void fuzzJson(const QByteArray& input);
void fuzzProject(const QByteArray& input);
void fuzzScenario(const QByteArray& input);
void fuzzTender(const QByteArray& input);
void fuzzWorkbook(const QByteArray& input);

const std::vector<Target>& targets() {
    static const std::vector<Target> all = {
        {"cloud", fuzzCloud},       {"creation", fuzzCreation},
        {"history", fuzzHistory},   {"installation", fuzzInstallation},
        {"json", fuzzJson},         {"project", fuzzProject},
        {"scenario", fuzzScenario}, {"tender", fuzzTender},
        {"workbook", fuzzWorkbook},
    };
    return all;
}

FuzzOne targetNamed(const char* name) {
    for (const Target& target : targets()) {
        if (std::strcmp(target.name, name) == 0) return target.fuzzOne;
    }
    return nullptr;
}

}  // namespace fuzzing

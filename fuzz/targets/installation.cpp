/// Any bytes as one of the three files of an installation. First line: the file's name; the rest is
/// its content. The other two are small and sound.
#include "workbench/hostlibs/common/Installation.h"
#include "fuzz/support.h"
#include "fuzz/targets.h"

namespace fuzzing {

using workbench::Installation;

namespace {

struct File {
    const char* name;
    const char* sound;
};

const File files[] = {
    {"models.json", "{}"},
    {"settings.json", soundSettings},
    {"history.json", soundHistory},
};

/// What can be compared of an installation: everything but the catalogue, which is never written.
bool equal(const Installation& a, const Installation& b) {
    const auto& one = a.systemSettings;
    const auto& other = b.systemSettings;
    return one.modelName == other.modelName && one.estimateTemplate == other.estimateTemplate &&
           one.settlementTemplate == other.settlementTemplate && one.others == other.others &&
           a.basicSettings.projectFolder == b.basicSettings.projectFolder &&
           a.basicSettings.others == b.basicSettings.others && a.hostSettings == b.hostSettings &&
           a.suffixes == b.suffixes && a.history == b.history &&
           a.firstOpenClose == b.firstOpenClose;
}

/// The two writers write what the loader reads, and leave all else as it was.
void requireWrittenAsRead(Installation read) {
    read.systemSettings.modelName += QStringLiteral("【\"清单\"】");
    read.systemSettings.others.insert(QStringLiteral("键"), QStringLiteral("值\n"));
    require(read.saveSystemSettings().isEmpty(), "the system settings can be written");
    const QString entry = QStringLiteral("bd##") + read.folder + QStringLiteral("/甲.GCFX");
    require(read.addToHistory(entry).isEmpty(), "the history can be written");
    Installation again;
    QString error;
    require(Installation::load(read.folder, again, error), "what was written can be read");
    require(equal(read, again), "an installation is written as it was read");
}

}  // namespace

void fuzzInstallation(const QByteArray& input) {
    QByteArray content = input;
    const QByteArray name = takeLine(content);
    QString path;
    for (const File& file : files) {
        const bool fuzzed = name == file.name;
        const QString written =
            write(QLatin1String(file.name), fuzzed ? content : QByteArray(file.sound));
        if (fuzzed) path = written;
    }
    Installation read;
    QString error;
    if (Installation::load(folder(), read, error)) {
        requireWrittenAsRead(read);
        return;
    }
    requirePlaced(error, path, content);
    require(read.folder.isEmpty() && read.history.isEmpty(), "a failure changes nothing");
}

}  // namespace fuzzing

/// Any text as an entry of the history, as a list of the cloud service's entries, and as a choice.
#include "files/cloudDisk.h"
#include "files/fileChoice.h"
#include "files/fileFlow.h"
#include "files/historyEntry.h"
#include "files/projectFileType.h"
#include "fuzz/support.h"
#include "fuzz/targets.h"

namespace fuzzing {

namespace {

const QString hashes = QStringLiteral("##");
const QString unitSeparator = QStringLiteral("\x1F");

void readEntry(const QString& text) {
    const QStringList fields = newpro::historyFields(text);
    require(fields.join(hashes) == text || fields.join(unitSeparator) == text,
            "the fields of an entry make up the entry");
    const auto entry = newpro::parseHistoryEntry(text);
    if (!entry) return;
    require(fields.contains(entry->path), "the path is a field");
    require(!entry->path.isEmpty() && !entry->path.contains(QChar::Null), "the path is one");
    require(entry->isLocal() == entry->suffix.isEmpty(), "cloud paths alone have their suffix");
    require(entry->suffix == entry->suffix.toUpper(), "the suffix is in upper case");
}

/// An own record for the path settles whose file it is, whatever else the list holds.
void askForOwner(const QString& text) {
    QStringList list = text.split(QLatin1Char('\n'));
    const QString path = list.takeFirst();
    const QString user = QStringLiteral("u1");
    newpro::belongsToAnother(list, path, user);
    if (path.contains(QLatin1Char('#')) || path.contains(unitSeparator)) return;
    list.append(path + (hashes + user).repeated(newpro::cloudRecordFields - 1));
    require(!newpro::belongsToAnother(list, path, user), "an own record makes a file one's own");
}

void judgeChoice(const QString& text) {
    for (const QString& name : newpro::cloudComponents(text)) {
        require(!name.isEmpty(), "no component is empty");
    }
    const newpro::FileFacts facts = newpro::factsOf(text);
    for (const auto flow : {newpro::FileFlow::Estimate, newpro::FileFlow::Settlement,
                            newpro::FileFlow::Audit, newpro::FileFlow::Contracting}) {
        const newpro::Verdict verdict = newpro::judge(flow, facts);
        const bool accepted = verdict == newpro::Verdict::Accepted;
        require(!accepted || facts.cloud || facts.isFile, "what is no file is refused");
        require(!accepted || newpro::refusalText(flow, verdict).isEmpty(), "praise has no words");
    }
}

}  // namespace

void fuzzHistory(const QByteArray& input) {
    const QString text = textOf(input);
    readEntry(text);
    askForOwner(text);
    judgeChoice(text);
    const int type = newpro::projectFileType(text);
    require(newpro::projectFileType(QLatin1Char(' ') + text.toUpper()) == type,
            "letter case and blanks do not count");
}

}  // namespace fuzzing

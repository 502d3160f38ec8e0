#include "workbench/app/playCommands.h"

#include <QDir>
#include <algorithm>
#include <cstdio>

#include "workbench/scenario/Coverage.h"
#include "workbench/scenario/Player.h"
#include "workbench/scenario/journalText.h"

namespace workbench {

namespace {

const int widestLine = 180;

void writeTo(std::FILE* stream, const QString& line) {
    const QByteArray text = line.toUtf8() + '\n';
    std::fwrite(text.constData(), 1, size_t(text.size()), stream);
    std::fflush(stream);
}

QString shortened(const QString& line) {
    return line.size() <= widestLine ? line : line.left(widestLine - 1) + QChar(0x2026);
}

/// @return the width of a text in a terminal, where a Chinese character takes two columns.
int columnsOf(const QString& text) {
    const ushort firstWide = 0x2e80;
    return text.size() + int(std::count_if(text.begin(), text.end(), [](QChar character) {
               return character.unicode() >= firstWide;
           }));
}

PlayOptions optionsOf(const CommandLine& line) {
    PlayOptions options;
    options.installation = line.installation.isEmpty() ? sampleInstallation() : line.installation;
    options.pictureFolder = line.pictures;
    options.watch = line.watch;
    options.host = line.host;
    return options;
}

/// @return whether there is a tour.
bool fillInTour(CommandLine& tour) {
    if (tour.pictures.isEmpty())
        tour.pictures = QDir::current().absoluteFilePath(QStringLiteral("pictures"));
    const QDir folder(scenarioFolder());
    for (const QString& name : folder.entryList({QStringLiteral("tour-*.json")}, QDir::Files))
        tour.files.append(folder.absoluteFilePath(name));
    if (tour.files.isEmpty()) complain(QStringLiteral("%1: no tour-*.json").arg(folder.path()));
    return !tour.files.isEmpty();
}

/// Reads all files before the first is played: a wrong one is no reason to stop half-way.
bool readAll(const QStringList& files, QVector<Scenario>& scenarios) {
    bool right = true;
    for (const QString& file : files) {
        Scenario scenario;
        QString error;
        if (readScenario(file, scenario, error)) {
            scenarios.append(scenario);
        } else {
            complain(error);
            right = false;
        }
    }
    return right;
}

int reported(const Scenario& scenario, const PlayResult& result) {
    if (!result.unplayable.isEmpty()) {
        complain(QStringLiteral("%1: %2").arg(scenario.file, result.unplayable));
        return 2;
    }
    print(
        (result.asExpected() ? QStringLiteral("as expected  ") : QStringLiteral("DIFFERS      ")) +
        scenario.title);
    if (!result.ended.isEmpty()) print(QStringLiteral("  ended early: ") + result.ended);
    for (const QString& difference : result.differences) print(QStringLiteral("  ") + difference);
    return result.asExpected() ? 0 : 1;
}

void printTitle(const QString& title) {
    print(QStringLiteral("\n%1\n%2").arg(title, QString(columnsOf(title), QLatin1Char('-'))));
}

void printJournal(const PlayResult& result) {
    for (const QJsonObject& entry : result.journal)
        print(shortened(entryLine(entry).replace(result.folder, QLatin1String("{installation}"))));
}

}  // namespace

void print(const QString& line) {
    writeTo(stdout, line);
}

void complain(const QString& line) {
    writeTo(stderr, line);
}

int playScenarios(CommandLine line) {
    const bool tour = line.command == Command::Tour;
    if (tour && !fillInTour(line)) return 2;
    QVector<Scenario> scenarios;
    if (!readAll(line.files, scenarios)) return 2;
    const PlayOptions options = optionsOf(line);
    int worst = 0;
    QStringList pictures;
    Coverage coverage;
    for (const Scenario& scenario : scenarios) {
        if (tour) printTitle(scenario.title);
        const PlayResult result = play(scenario, options);
        if (tour) printJournal(result);
        worst = qMax(worst, reported(scenario, result));
        pictures += result.pictures;
        if (line.coverage) coverage.add(result.journal);
    }
    if (line.coverage) {
        for (const QString& row : coverage.table()) print(row);
    }
    if (!tour) return worst;
    print(QStringLiteral("\n%1 pictures in %2").arg(pictures.size()).arg(line.pictures));
    for (const QString& picture : pictures) print(QStringLiteral("  ") + picture);
    return worst;
}

}  // namespace workbench

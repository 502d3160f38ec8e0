/// Project files: the history lists, the template scan and the cloud walk, each beside a floor that
/// does the least that such a job can do.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QHBoxLayout>
#include <QHash>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <memory>

#include "SharedInterface.h"
#include "core/styleCodes.h"
#include "files/cloudDisk.h"
#include "files/historyLists.h"
#include "files/templateScan.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"

namespace {

// History ----------------------------------------------------------------------------------------

/// Four in five are budget files, which both boxes take.
QString pathOf(int number) {
    return QStringLiteral("/home/用户/工程/某住宅小区%1号楼.%2")
        .arg(number)
        .arg(number % 5 ? QStringLiteral("GCFX") : QStringLiteral("GCFZ"));
}

QStringList historyOf(int count, const char* marker) {
    QStringList history;
    for (int i = 0; i < count; ++i) history << QLatin1String(marker) + pathOf(i);
    return history;
}

template <typename Combo>
std::unique_ptr<Combo> editable(QWidget& parent) {
    auto combo = std::make_unique<Combo>(&parent);
    combo->setEditable(true);
    return combo;
}

/// The two boxes that the dialog builds, filled again and again.
void refillHistory(benchmark::State& state, const char* marker) {
    QWidget window;
    const auto audit = editable<zBaseCombox>(window);
    const auto contracting = editable<zBaseCombox>(window);
    newpro::FilePages pages;
    pages.audit.fileCombo = audit.get();
    pages.contracting.fileCombo = contracting.get();
    const QStringList history = historyOf(int(state.range(0)), marker);
    for (auto _ : state) {
        newpro::refillHistory(history, pages, {true, true, false, false});
        state.PauseTiming();
        workbench::Journal::instance().clear();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

/// Plain boxes filled with the same texts, item by item as the host's are. @param asksHost whether
/// the host is asked about every
///        file as well, which is no work of the module's.
void fillPlainBoxes(benchmark::State& state, bool asksHost) {
    QWidget window;
    const auto audit = editable<QComboBox>(window);
    const auto contracting = editable<QComboBox>(window);
    QStringList all, some;
    for (int i = 0; i < state.range(0); ++i) {
        all << pathOf(i);
        if (i % 5) some << pathOf(i);
    }
    for (auto _ : state) {
        for (const QString& path : asksHost ? all : QStringList()) {
            QString name, kind, suffix, detail;
            SharedInterface::GetFileInfo(path, name, kind, suffix, detail);
        }
        audit->clear();
        contracting->clear();
        for (const QString& path : all) audit->addItem(path, QVariant());
        for (const QString& path : some) contracting->addItem(path, QVariant());
        state.PauseTiming();
        workbench::Journal::instance().clear();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void history(benchmark::State& state) {
    refillHistory(state, "yp##");
}
void historyFloor(benchmark::State& state) {
    fillPlainBoxes(state, false);
}
void localHistory(benchmark::State& state) {
    refillHistory(state, "bd##");
}
void localHistoryFloor(benchmark::State& state) {
    fillPlainBoxes(state, true);
}
BENCHMARK(history)->RangeMultiplier(10)->Range(100, 100000)->Complexity(benchmark::oN);
BENCHMARK(historyFloor)->RangeMultiplier(10)->Range(100, 100000)->Complexity(benchmark::oN);
BENCHMARK(localHistory)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(localHistoryFloor)->Arg(10000)->Unit(benchmark::kMillisecond);

// Template scan ----------------------------------------------------------------------------------

/// 10,000 template files in 1,000 folders, two levels deep.
class TemplateFolder {
  public:
    TemplateFolder() {
        for (int number = 0; number < 1000; ++number) {
            const QString below =
                number < 50 ? QStringLiteral("类别%1").arg(number)
                            : QStringLiteral("类别%1/子类%2").arg(number % 50).arg(number);
            const QString path = folder.filePath(below);
            QDir().mkpath(path);
            for (int i = 0; i < 10; ++i) {
                QFile(path + QStringLiteral("/模板%1.MODX").arg(i)).open(QIODevice::WriteOnly);
            }
        }
    }
    QString path() const { return folder.path(); }

  private:
    QTemporaryDir folder;
};

/// A tree widget that makes the rows of the template page.
class Rows {
  public:
    Rows() { tree.setColumnCount(2); }

    QTreeWidgetItem* add(const QString& text, QTreeWidgetItem* parent, bool isFile,
                         const QString& data) {
        auto* item = new QTreeWidgetItem;
        if (parent) {
            parent->addChild(item);
        } else {
            tree.addTopLevelItem(item);
        }
        auto* row = new zBaseWidget(nullptr, newpro::TransparentRow);
        auto* layout = new QHBoxLayout(row);
        layout->addWidget(new zBaseLabel(text, row));
        layout->addStretch();
        if (isFile) {
            item->setData(0, Qt::UserRole + 1, data);
            auto* button = new zBaseButton(QStringLiteral("新建"), row);
            button->setControlType(newpro::NewButton);
            layout->addWidget(button);
        }
        tree.setItemWidget(item, 0, row);
        ++count;
        return item;
    }

    QTreeWidget tree;
    int count = 0;
};

void walkPlainly(const QString& folder, Rows& rows) {
    QHash<QString, QTreeWidgetItem*> folders;
    QDirIterator entries(folder, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QFileInfo info = entries.fileInfo();
        QTreeWidgetItem* parent = folders.value(info.path());
        if (info.isDir()) {
            folders.insert(path, rows.add(entries.fileName(), parent, false, QString()));
        } else if (path.endsWith(QLatin1String(".MODX"))) {
            rows.add(entries.fileName(), parent, true, path);
        }
    }
}

template <typename Walk>
void makeRows(benchmark::State& state, Walk walk) {
    static const TemplateFolder folder;
    for (auto _ : state) {
        auto rows = std::make_unique<Rows>();
        walk(folder.path(), *rows);
        if (rows->count != 11000) state.SkipWithError("rows are missing");
        state.PauseTiming();
        rows.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}

void templateScan(benchmark::State& state) {
    makeRows(state, [](const QString& folder, Rows& rows) {
        newpro::scanTemplateFolder(
            folder, nullptr,
            [&](const QString& text, QTreeWidgetItem* parent, bool isFile, const QString& data) {
                return rows.add(text, parent, isFile, data);
            });
    });
}
void templateScanFloor(benchmark::State& state) {
    makeRows(state, walkPlainly);
}
BENCHMARK(templateScan)->Unit(benchmark::kMillisecond);
BENCHMARK(templateScanFloor)->Unit(benchmark::kMillisecond);

// Cloud walk -------------------------------------------------------------------------------------

constexpr int levels = 10;

QString nodeName(int number) {
    return QStringLiteral("节点%1").arg(number);
}

/// @return a tree of `levels` levels with `width` entries each, the last of which is the folder or
///         file that the walk takes.
QJsonArray cloudTree(int width, int level = 1) {
    QJsonArray nodes;
    for (int i = 0; i < width; ++i) {
        const bool onTheWay = i == width - 1 && level < levels;
        QJsonObject node{
            {QStringLiteral("wjjmc"), nodeName(i)},
            {QStringLiteral("wjlx"), onTheWay ? QStringLiteral("1") : QStringLiteral("2")}};
        if (onTheWay) node.insert(QStringLiteral("xjdata"), cloudTree(width, level + 1));
        nodes.append(node);
    }
    return nodes;
}

QStringList wayDown(int width) {
    QStringList names;
    for (int level = 0; level < levels; ++level) names << nodeName(width - 1);
    return names;
}

void cloudWalk(benchmark::State& state) {
    const int width = int(state.range(0)) / levels;
    const QJsonArray tree = cloudTree(width);
    const QStringList names = wayDown(width);
    int fetches = 0;
    for (auto _ : state) {
        fetches = 0;
        const auto file = newpro::findInCloud(tree, names, [&](const QJsonObject& folder) {
            ++fetches;
            return std::optional<QJsonArray>(folder.value(QLatin1String("xjdata")).toArray());
        });
        if (!file) state.SkipWithError("the file was not found");
    }
    state.counters["requests"] = fetches + 1;
    state.SetComplexityN(state.range(0));
}

/// Reads the name and the type of every node on the way, and nothing else.
void cloudWalkFloor(benchmark::State& state) {
    const int width = int(state.range(0)) / levels;
    const QJsonArray tree = cloudTree(width);
    for (auto _ : state) {
        QJsonArray nodes = tree;
        int length = 0;
        while (!nodes.isEmpty()) {
            QJsonObject node;
            for (const QJsonValue& value : qAsConst(nodes)) {
                node = value.toObject();
                length += node.value(QLatin1String("wjjmc")).toString().size();
                length += node.value(QLatin1String("wjlx")).toString().size();
            }
            nodes = node.value(QLatin1String("xjdata")).toArray();
        }
        benchmark::DoNotOptimize(length);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(cloudWalk)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);
BENCHMARK(cloudWalkFloor)->RangeMultiplier(10)->Range(1000, 100000)->Complexity(benchmark::oN);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

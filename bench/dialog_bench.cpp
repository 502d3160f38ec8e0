/// Opening the new-project dialog: constructing it and its first paint, for 30, 300 and 3,000
/// pricing models, beside two floors from plain Qt widgets without style sheets: the same labels
/// and buttons with a plain list, and the same with all views and fields of the dialog's other
/// pages. And all that a large installation takes: reading 5,000 models with their fees as well.
#include <QtTest/qtestspontaneevent.h>
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <memory>

#include "dialog/NewProCfgDialog.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/zBaseControl/SkinStyle.h"
#include "workbench/journal/Journal.h"

namespace {

using ProjectSettingSpace::ProTaxTemplateInfo;

TaxTemplateInfo model(int number) {
    TaxTemplateInfo info;
    info.name = QStringLiteral("清单计价【国标2013规范，四川2020定额】第%1号").arg(number);
    info.key = QStringLiteral("key-%1").arg(number);
    info.description = QStringLiteral(
        "适用于按国家标准《建设工程工程量清单计价规范》编制的房屋建筑与装饰工程，税率按现行规定执行"
        "，"
        "安全文明施工费按规定计取，其他项目费按招标文件约定执行。");
    info.basis = QStringList{QStringLiteral("GB50500-2013"), QStringLiteral("四川省2020定额")};
    return info;
}

void useModels(int count) {
    ProTaxTemplateInfo entry;
    for (int i = 0; i < count; ++i) entry.models << model(i);
    workbench::Installation& installation = workbench::Host::instance().installation();
    installation.models.clear();
    installation.pricing.clear();
    installation.models[QStringLiteral("Kvys")] << entry;
    // A record without fee modes for each model: the card searches, and keeps its plain button.
    for (const TaxTemplateInfo& info : entry.models) {
        ProjectSettingSpace::PricingModelInfo pricing;
        pricing.key = info.key;
        installation.pricing[QStringLiteral("Kvys")].insert(info.key, pricing);
    }
}

void paint(QWidget& window) {
    window.show();
    QCoreApplication::processEvents();  // delivers the expose event, and with it the first paint
}

/// Deletes a dialog, and what the journal has of it, out of the measured time.
void endUntimed(benchmark::State& state, std::unique_ptr<QDialog> dialog) {
    state.PauseTiming();
    dialog.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    workbench::Journal::instance().clear();
    state.ResumeTiming();
}

void openDialog(benchmark::State& state) {
    useModels(int(state.range(0)));
    for (auto _ : state) {
        auto dialog = std::make_unique<NewProCfgDialog>(0, true, nullptr);
        paint(*dialog);
        endUntimed(state, std::move(dialog));
    }
    state.SetComplexityN(state.range(0));
}

/// Writes an installation like the sample, with its first model over and over. Each has two fee
/// modes, so that its card gets a menu.
/// @return whether all of it could be written.
bool writeInstallation(const QString& folder, int count) {
    const QString sample = QStringLiteral(SAMPLE_INSTALLATION "/");
    QFile file(sample + QStringLiteral("models.json"));
    if (!file.open(QIODevice::ReadOnly)) return false;
    QJsonObject kinds = QJsonDocument::fromJson(file.readAll()).object();
    QJsonArray budget = kinds[u"Kvys"].toArray();
    QJsonObject entry = budget[0].toObject();
    QJsonObject record = entry[u"models"].toArray()[0].toObject();
    QJsonArray records;
    for (int i = 0; i < count; ++i) {
        const TaxTemplateInfo info = model(i);
        record[u"name"] = info.name;
        record[u"key"] = info.key;
        records.append(record);
    }
    entry[u"models"] = records;
    budget[0] = entry;
    kinds[u"Kvys"] = budget;
    QFile models(folder + QStringLiteral("/models.json"));
    const QByteArray json = QJsonDocument(kinds).toJson();
    bool written = models.open(QIODevice::WriteOnly) && models.write(json) == json.size();
    for (const char* name : {"settings.json", "history.json"})
        written = QFile::copy(sample + QLatin1String(name),
                              folder + QLatin1Char('/') + QLatin1String(name)) &&
                  written;
    return written;
}

/// Reads the files of an installation, and opens the dialog over it. @param opens false: reads
/// alone.
void useInstallation(benchmark::State& state, bool opens) {
    const QTemporaryDir folder;
    if (!writeInstallation(folder.path(), int(state.range(0))))
        return state.SkipWithError("the installation cannot be written");
    workbench::Host& host = workbench::Host::instance();
    for (auto _ : state) {
        if (!host.loadInstallation(folder.path()).isEmpty()) {
            state.SkipWithError("the installation cannot be read");
            break;
        }
        std::unique_ptr<NewProCfgDialog> dialog;
        if (opens) {
            dialog = std::make_unique<NewProCfgDialog>(0, true, nullptr);
            paint(*dialog);
        }
        endUntimed(state, std::move(dialog));
    }
    host.reset();
    state.SetComplexityN(state.range(0));
}

void readInstallation(benchmark::State& state) {
    useInstallation(state, false);
}

void openInstallation(benchmark::State& state) {
    useInstallation(state, true);
}

QWidget* plainCard(const TaxTemplateInfo& info) {
    auto* card = new QWidget;
    auto* column = new QVBoxLayout(card);
    auto* title = new QHBoxLayout;
    auto* name = new QLabel(info.name);
    QFont font = name->font();
    font.setBold(true);
    name->setFont(font);
    title->addWidget(name, 1);
    auto* create = new QPushButton(QStringLiteral("新建"));
    create->setFixedWidth(50);
    create->setCursor(Qt::PointingHandCursor);
    title->addWidget(create);
    column->addLayout(title);
    font.setBold(false);
    font.setPixelSize(12);
    auto* source = new QLabel(QStringLiteral("依据：") + info.basis.join(QStringLiteral("；")));
    source->setFont(font);
    source->setToolTip(source->text());
    column->addWidget(source);
    auto* description = new QLabel;
    description->setFont(font);
    description->setText(description->fontMetrics().elidedText(
        QStringLiteral("说明：") + info.description, Qt::ElideRight, 790));
    description->setToolTip(info.description);
    column->addWidget(description);
    return card;
}

void addButtons(QVBoxLayout* column, const QStringList& texts) {
    auto* row = new QHBoxLayout;
    for (const QString& text : texts) row->addWidget(new QPushButton(text));
    column->addLayout(row);
}

QWidget* plainFilePage(const QString& caption, const QString& create) {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addWidget(new QLabel(caption));
    auto* fields = new QHBoxLayout;
    auto* combo = new QComboBox;
    combo->setEditable(true);
    fields->addWidget(combo);
    fields->addWidget(new QPushButton);
    column->addLayout(fields);
    column->addWidget(new QPushButton(create));
    return page;
}

QListWidget* plainListOfCards() {
    auto* list = new QListWidget;
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return list;
}

/// The labels and buttons that the dialog has beside the cards. @return the list for the cards.
QListWidget* addPlainButtons(QVBoxLayout* column) {
    addButtons(column, {QStringLiteral("预算工程"), QStringLiteral("审核工程"),
                        QStringLiteral("导入Excel新建"), QStringLiteral("导入YFJZ新建"),
                        QStringLiteral("关闭")});
    addButtons(column, {QStringLiteral("一般计税"), QStringLiteral("简易计税"),
                        QStringLiteral("营业税"), QStringLiteral("模板工程"),
                        QStringLiteral("预算工程"), QStringLiteral("导入CJZ新建")});
    column->addWidget(new QLabel);
    auto* hidden = new QWidget;
    auto* hiddenColumn = new QVBoxLayout(hidden);
    hiddenColumn->addWidget(new QLabel(QStringLiteral("待审工程文件")));
    hiddenColumn->addWidget(new QLabel(QStringLiteral("工程文件")));
    addButtons(hiddenColumn,
               {QString(), QStringLiteral("新建审核"), QString(), QStringLiteral("新建总承包")});
    hidden->hide();
    column->addWidget(hidden);
    QListWidget* list = plainListOfCards();
    column->addWidget(list);
    return list;
}

/// The buttons, pages, views and fields that the dialog has beside the cards.
/// @return the list for the cards.
QListWidget* addPlainPages(QVBoxLayout* column) {
    addButtons(column, {QStringLiteral("预算工程"), QStringLiteral("审核工程"),
                        QStringLiteral("导入Excel新建"), QStringLiteral("导入YFJZ新建"),
                        QStringLiteral("关闭")});
    auto* pages = new QStackedWidget;
    column->addWidget(pages);
    auto* main = new QWidget;
    pages->addWidget(main);
    pages->addWidget(plainFilePage(QStringLiteral("待审工程文件"), QStringLiteral("新建审核")));
    auto* mainColumn = new QVBoxLayout(main);
    addButtons(mainColumn, {QStringLiteral("一般计税"), QStringLiteral("简易计税"),
                            QStringLiteral("营业税"), QStringLiteral("模板工程"),
                            QStringLiteral("预算工程"), QStringLiteral("导入CJZ新建")});
    mainColumn->addWidget(new QLabel);
    auto* taxPages = new QStackedWidget;
    mainColumn->addWidget(taxPages);
    QListWidget* list = plainListOfCards();
    taxPages->addWidget(list);
    for (int hidden = 0; hidden < 3; ++hidden) taxPages->addWidget(plainListOfCards());
    auto* tree = new QTreeWidget;
    tree->setColumnCount(2);
    tree->setHeaderHidden(true);
    taxPages->addWidget(tree);
    taxPages->addWidget(plainFilePage(QStringLiteral("工程文件"), QStringLiteral("新建总承包")));
    return list;
}

void openPlain(benchmark::State& state, QListWidget* (*addRest)(QVBoxLayout* column)) {
    useModels(int(state.range(0)));
    for (auto _ : state) {
        auto dialog = std::make_unique<QDialog>();
        dialog->setFixedSize(880, 750);
        QListWidget* list = addRest(new QVBoxLayout(dialog.get()));
        const auto models = workbench::Host::instance().installation().models;
        for (const ProTaxTemplateInfo& entry : models[QStringLiteral("Kvys")]) {
            for (const TaxTemplateInfo& info : entry.models) {
                auto* item = new QListWidgetItem;
                item->setData(Qt::SizeHintRole, QSize(-1, 80));
                list->addItem(item);
                list->setItemWidget(item, plainCard(info));
            }
        }
        paint(*dialog);
        endUntimed(state, std::move(dialog));
    }
    state.SetComplexityN(state.range(0));
}

void plainList(benchmark::State& state) {
    openPlain(state, addPlainButtons);
}

void plainDialog(benchmark::State& state) {
    openPlain(state, addPlainPages);
}

/// One notch of a wheel over the cards, or one step of a touchpad, with the painting that follows.
/// @param pixels of a touchpad; 0 for a wheel.
void scroll(benchmark::State& state, int pixels) {
    useModels(int(state.range(0)));
    NewProCfgDialog dialog(0, true, nullptr);
    paint(dialog);
    auto* area = dialog.findChild<QScrollArea*>(QStringLiteral("taxPageArea"));
    const QPoint middle = area->viewport()->rect().center();
    QScrollBar* bar = area->verticalScrollBar();
    int down = -1;
    for (auto _ : state) {
        if (bar->value() == bar->maximum()) down = 1;
        if (bar->value() == bar->minimum()) down = -1;
        QWidget* under = area->viewport()->childAt(middle);
        const QPoint place = under->mapFrom(area->viewport(), middle);
        QWheelEvent turn(place, under->mapToGlobal(place), {0, down * pixels}, {0, down * 120},
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        const int before = bar->value();
        QSpontaneKeyEvent::setSpontaneous(&turn);  // only such a one goes on to what is around
        qApp->notify(under, &turn);
        if (bar->value() == before) state.SkipWithError("nothing scrolls");
        QCoreApplication::processEvents();
    }
    workbench::Journal::instance().clear();
}

void wheel(benchmark::State& state) {
    scroll(state, 0);
}

void touchpad(benchmark::State& state) {
    scroll(state, 12);
}

/// Another kind of project is picked: the cards in sight and all others are made anew.
void changeKind(benchmark::State& state) {
    useModels(int(state.range(0)));
    NewProCfgDialog dialog(0, true, nullptr);
    paint(dialog);
    for (auto _ : state) {
        QMetaObject::invokeMethod(&dialog, "GetModelCfgAndInitData");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        state.PauseTiming();
        workbench::Journal::instance().clear();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(changeKind)->Arg(30)->Arg(300)->Arg(3000)->Complexity()->Unit(benchmark::kMillisecond);
BENCHMARK(wheel)->Arg(30)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(touchpad)->Arg(30)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(plainList)->Arg(30)->Arg(300)->Arg(3000)->Complexity()->Unit(benchmark::kMillisecond);
BENCHMARK(plainDialog)->Arg(30)->Arg(300)->Arg(3000)->Complexity()->Unit(benchmark::kMillisecond);
BENCHMARK(openDialog)->Arg(30)->Arg(300)->Arg(3000)->Complexity()->Unit(benchmark::kMillisecond);
BENCHMARK(readInstallation)
    ->Arg(50)
    ->Arg(500)
    ->Arg(5000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(openInstallation)
    ->Arg(50)
    ->Arg(500)
    ->Arg(5000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    workbench::applySkin();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

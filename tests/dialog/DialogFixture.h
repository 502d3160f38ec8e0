/// The new-project dialog over a temporary host, and a user's verbs for it.
#pragma once

#include <QAction>
#include <QListWidget>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QWidgetAction>
#include <memory>

#include "dialog/NewProCfgDialog.h"
#include "dialog/SlidingStackedWidget.h"
#include "tests/support/TestSupport.h"
#include "workbench/journal/toJson.h"

namespace dialog_tests {

using testing_support::child;
using testing_support::clearJournal;
using testing_support::click;
using testing_support::countOf;
using testing_support::doubleClick;
using testing_support::flowLines;
using testing_support::journalLines;
using testing_support::journalLinesWithout;
using testing_support::journalNames;
using testing_support::Lines;
using testing_support::model;
using testing_support::settle;
using testing_support::throwAt;
using testing_support::throwNoMore;

inline const QString kvys = QStringLiteral("Kvys");  // a budget's models
inline const QString budgetLabel = QStringLiteral("预算工程");
inline const QString contractingLabel = QStringLiteral("总承包工程");
inline const QString auditLabel = QStringLiteral("审核工程");
inline const QString excelLabel = QStringLiteral("导入Excel新建");
inline const QString tenderLabel = QStringLiteral("导入YFJZ新建");
inline const QString estimateLabel = QStringLiteral("概算工程");
inline const QString settlementLabel = QStringLiteral("结算工程");
inline const QString wholeLabel = QStringLiteral("全过程工程");
inline const char* const taxButtons[] = {"generalTaxButton", "simpleTaxButton", "businessTaxButton",
                                         "templateButton", "budgetButton"};

class DialogTest : public testing::Test {
  protected:
    /// Makes the dialog as a host does and records its signals beside what crosses the boundary.
    NewProCfgDialog* make(bool showImportTender = true) {
        dialog.reset();
        clearJournal();
        dialog = std::make_unique<NewProCfgDialog>(0, showImportTender, nullptr);
        record();
        return dialog.get();
    }
    /// The same, shown, with an empty journal.
    NewProCfgDialog* open() {
        make()->show();
        settle();
        clearJournal();
        return dialog.get();
    }
    void record() {
        using workbench::Journal;
        QObject::connect(
            dialog.get(), &NewProCfgDialog::SignalCreatePro,
            [this](int type, int code, const QVariant& map) {
                sent = map;
                Journal::instance().signal(QStringLiteral("SignalCreatePro"), {type, code});
            });
        QObject::connect(
            dialog.get(), &NewProCfgDialog::SignalCreateMB,
            [](int type, int code, const QString& path) {
                Journal::instance().signal(QStringLiteral("SignalCreateMB"), {type, code, path});
            });
    }

    template <typename T>
    T* find(const char* name) {
        return child<T>(dialog.get(), name);
    }
    zBaseButton* button(const char* name) { return find<zBaseButton>(name); }
    QListWidget* list(const char* name) { return find<QListWidget>(name); }
    SlidingStackedWidget* taxStack() { return find<SlidingStackedWidget>("stackedWidget"); }
    QStackedWidget* pageStack() { return find<QStackedWidget>("m_StackedWidget"); }
    QTreeWidget* tree() { return find<QTreeWidget>("templateTree"); }
    /// @return the names of the tax row's buttons that are not hidden, in their order.
    Lines shownTaxButtons() {
        Lines names;
        for (const char* name : taxButtons) {
            if (!button(name)->isHidden()) names.push_back(name);
        }
        return names;
    }
    Lines checkedTaxButtons() {
        Lines names;
        for (const char* name : taxButtons) {
            if (button(name)->isChecked()) names.push_back(name);
        }
        return names;
    }

    QList<QWidgetAction*> entries() { return dialog->findChildren<QWidgetAction*>(); }
    QWidgetAction* entry(const QString& label) {
        for (QWidgetAction* action : entries()) {
            if (action->property("name").toString() == label) return action;
        }
        ADD_FAILURE() << "no ribbon entry " << label.toStdString();
        return nullptr;
    }
    zBaseButton* entryButton(const QString& label) {
        return child<zBaseButton>(entry(label)->defaultWidget(), "curText");
    }
    QStringList checkedEntries() {
        QStringList labels;
        for (QWidgetAction* action : entries()) {
            if (child<zBaseButton>(action->defaultWidget(), "curText")->isChecked()) {
                labels << action->property("name").toString();
            }
        }
        return labels;
    }
    /// @return the labels whose entries are drawn bold; every other must be of normal weight.
    QStringList boldEntries() {
        QStringList labels;
        for (QWidgetAction* action : entries()) {
            const int weight =
                child<zBaseButton>(action->defaultWidget(), "curText")->font().weight();
            if (weight == QFont::Bold) labels << action->property("name").toString();
            EXPECT_TRUE(weight == QFont::Bold || weight == QFont::Normal) << weight;
        }
        return labels;
    }
    /// Picks a ribbon entry with the mouse.
    void pick(const QString& label) {
        click(entryButton(label));
        settle();
    }
    /// Adds an entry of a kind that the ribbon does not offer, as a host would.
    QAction* addKind(const QString& label, QWidget* page = nullptr) {
        QAction* action = dialog->addXjPage({QString(), label, 0}, page);
        settle();
        return action;
    }
    QAction* addKindOnMainPage(const QString& label) {
        return addKind(label, find<QWidget>("pMiddlePanelV"));
    }
    /// Calls a slot or an invokable without arguments through the meta-object.
    bool call(const char* method) {
        return QMetaObject::invokeMethod(dialog.get(), method, Qt::DirectConnection);
    }
    int programType(int before = -1) {
        int type = before;
        bool answer = false;
        EXPECT_TRUE(QMetaObject::invokeMethod(dialog.get(), "GetProgramType", Qt::DirectConnection,
                                              Q_RETURN_ARG(bool, answer),
                                              QArgument<int&>("int&", type)));
        EXPECT_TRUE(answer);
        return type;
    }
    bool callNewPro(const TaxTemplateInfo& info) {
        return QMetaObject::invokeMethod(dialog.get(), "slotNewPro", Qt::DirectConnection,
                                         Q_ARG(ProjectSettingSpace::TaxTemplateInfo, info));
    }
    bool callCreatePro(const QVariantMap& values, int kind) {
        return QMetaObject::invokeMethod(dialog.get(), "slotCreatePro", Qt::DirectConnection,
                                         QArgument<QVariantMap>("QMap<QString,QVariant>", values),
                                         Q_ARG(int, kind));
    }
    /// @return the exceptions reported, as "source function: text".
    static Lines reports() {
        Lines lines;
        for (const QJsonObject& entry : workbench::Journal::instance().entries()) {
            if (entry.value(QLatin1String("kind")) != QLatin1String("exception")) continue;
            const QJsonArray args = entry.value(QLatin1String("args")).toArray();
            EXPECT_GT(args.at(1).toInt(), 0) << "the line of the guard";
            lines.push_back((args.at(0).toString() + QLatin1Char(' ') + args.at(2).toString() +
                             QStringLiteral(": ") + args.at(3).toString())
                                .toStdString());
        }
        return lines;
    }
    QWidget* card(const char* listName, int row) {
        QListWidget* cards = list(listName);
        EXPECT_LT(row, cards->count());
        return row < cards->count() ? cards->itemWidget(cards->item(row)) : nullptr;
    }
    QStringList titles(const char* listName) {
        QStringList found;
        for (int row = 0; row < list(listName)->count(); ++row) {
            found << child<QLabel>(card(listName, row), "lblTitle")->text();
        }
        return found;
    }

    testing_support::TemporaryInstallation host;
    std::unique_ptr<NewProCfgDialog> dialog;
    QVariant sent;
};

}  // namespace dialog_tests

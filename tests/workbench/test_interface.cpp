#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include "dialog/NewProCfgDialog.h"
#include "dialog/xzGcLxDialog.h"
#include "import/TemplateProListItem.h"
#include "import/importExcelSelFile.h"
#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/scenario/Scenario.h"

namespace {

using testing_support::textOf;

const QString docs = QStringLiteral(REPOSITORY "/docs/");

struct ExportedClass {
    const char* header;
    const QMetaObject& meta;

    QString name() const { return QLatin1String(meta.className()); }
};

const ExportedClass exportedClasses[] = {
    {"dialog/NewProCfgDialog.h", NewProCfgDialog::staticMetaObject},
    {"import/TemplateProListItem.h", TemplateProListItem::staticMetaObject},
    {"import/importExcelSelFile.h", importExcelSelFile::staticMetaObject},
    {"dialog/xzGcLxDialog.h", xzGcLxDialog::staticMetaObject}};

QStringList captures(const QString& text, const char* pattern) {
    const QRegularExpression expression(QLatin1String(pattern),
                                        QRegularExpression::MultilineOption);
    QStringList found;
    auto match = expression.globalMatch(text);
    while (match.hasNext()) found.append(match.next().captured(1));
    return found;
}

/// @return what a header declares for others: public members, signals, and what the meta-object
///         reaches in other sections.
QStringList declaredNames(const ExportedClass& exported) {
    QString text = textOf(QStringLiteral(REPOSITORY "/") + QLatin1String(exported.header));
    text.remove(QRegularExpression(QStringLiteral("//[^\n]*")));
    text = text.section(QStringLiteral("class NEWPRO_EXPORT ") + exported.name(), 1);
    text = text.section(QStringLiteral("\n};"), 0, 0);
    const QRegularExpression label(
        QStringLiteral("\\b(?:(?:public|protected|private)(?: Q_SLOTS)?|Q_SIGNALS):(?!:)"));
    QStringList names;
    auto match = label.globalMatch(text);
    while (match.hasNext()) {
        const auto section = match.next();
        const int end = text.indexOf(label, section.capturedEnd());
        const QString body = text.mid(section.capturedEnd(), end - section.capturedEnd());
        const bool forOthers =
            !QStringList{QStringLiteral("private:"), QStringLiteral("protected:")}.contains(
                section.captured());
        names += forOthers ? captures(body, "(~?\\w+)\\s*\\(")
                           : captures(body, "(?:Q_INVOKABLE|Q_SLOT)\\b[^;(]*?(\\w+)\\s*\\(");
    }
    return names;
}

/// @return the part of the page about one class.
QString chapter(const QString& className) {
    const QString page = textOf(docs + QStringLiteral("interface.md"));
    return page.section(QStringLiteral("\n## %1\n").arg(className), 1)
        .section(QStringLiteral("\n## "), 0, 0);
}

QSet<QString> setOf(const QStringList& list) {
    return {list.begin(), list.end()};
}

std::string listed(const QSet<QString>& names) {
    return QStringList(names.values()).join(QLatin1Char(' ')).toStdString();
}

TEST(InterfacePage, HasARowForEveryOperationAndForNothingElse) {
    for (const ExportedClass& exported : exportedClasses) {
        SCOPED_TRACE(exported.header);
        const QSet<QString> declared = setOf(declaredNames(exported));
        const QSet<QString> rows = setOf(captures(chapter(exported.name()), "^\\| `(~?\\w+)"));
        ASSERT_GT(declared.size(), 4);
        EXPECT_EQ(listed(declared - rows), "") << "without a row";
        EXPECT_EQ(listed(rows - declared), "") << "not declared";
    }
}

TEST(InterfacePage, HasARowForWhatTheMetaObjectReaches) {
    for (const ExportedClass& exported : exportedClasses) {
        const QMetaObject& meta = exported.meta;
        const QStringList rows = captures(chapter(exported.name()), "^\\| `(~?\\w+)");
        ASSERT_GT(meta.methodCount(), meta.methodOffset());
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            EXPECT_TRUE(rows.contains(QLatin1String(meta.method(i).name())))
                << exported.header << " " << meta.method(i).name().constData();
    }
}

TEST(InterfacePage, EveryRowNamesAFileThatShowsTheOperation) {
    for (const ExportedClass& exported : exportedClasses) {
        const QString text = chapter(exported.name());
        const QStringList rows = captures(text, "^(\\| `.*)$");
        for (const QString& row : rows)
            EXPECT_TRUE(row.contains(QLatin1String("](../tests/"))) << row.toStdString();
    }
}

TEST(InterfacePage, EveryLinkedScenarioCanBeRead) {
    int scenarios = 0;
    for (const char* page : {"interface.md", "scenarios.md"}) {
        const QString text = textOf(docs + QLatin1String(page));
        for (const QString& link : captures(text, "\\]\\(([^)#]+\\.json)")) {
            workbench::Scenario scenario;
            QString error;
            EXPECT_TRUE(workbench::readScenario(docs + link, scenario, error))
                << error.toStdString();
            ++scenarios;
        }
    }
    EXPECT_GT(scenarios, 0);
}

/// @return "`a`, `b` or `c`".
QString listed(const QStringList& words) {
    const QString list = words.mid(0, words.size() - 1).join(QLatin1String("`, `"));
    return QStringLiteral("`%1` or `%2`").arg(list, words.last());
}

QStringList switchRows() {
    QStringList rows;
    for (const workbench::HostSwitch& each : workbench::hostSwitches()) {
        if (!each.text) continue;
        const workbench::Shape shape = each.field.shape;
        QString text = QString::fromUtf8(each.text);
        for (const workbench::Field& member : each.field.members)
            if (!member.words.isEmpty()) text.replace(QLatin1String("%1"), listed(member.words));
        if (shape == workbench::Shape::Word || shape == workbench::Shape::Words)
            text.prepend(listed(each.field.words));
        rows.append(QStringLiteral("| `%1` | %2 |").arg(each.field.key, text));
    }
    return rows;
}

TEST(ScenarioPage, HasTheTableOfTheHostsSwitches) {
    const QString chapter = textOf(docs + QStringLiteral("scenarios.md"))
                                .section(QStringLiteral("\n### `host`"), 1)
                                .section(QStringLiteral("\n### "), 0, 0);
    EXPECT_EQ(captures(chapter, "^(\\| `.*)$"), switchRows());
}

}  // namespace

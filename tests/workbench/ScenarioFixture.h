/// Scenario files with a given content, read and played.
#pragma once

#include <QDir>
#include <QFile>

#include "tests/support/TestSupport.h"
#include "workbench/scenario/Player.h"
#include "workbench/scenario/Scenario.h"

namespace workbench_test {

class ScenarioTest : public testing::Test {
  protected:
    ScenarioTest() {
        options.installation = QStringLiteral(SAMPLE_INSTALLATION);
        options.stepLimit = 10000;  // a loaded machine takes its time
    }

    /// Reads a scenario with this content. @return the error without the folder of the file.
    std::string errorOf(const std::string& content) {
        const QString file = folder.filePath(QStringLiteral("s.json"));
        QFile written(file);
        EXPECT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(QByteArray::fromStdString(content));
        written.close();
        QString error;
        const bool read = workbench::readScenario(file, scenario, error);
        EXPECT_EQ(read, error.isEmpty());
        return error.remove(QDir::toNativeSeparators(folder.path() + QLatin1Char('/')))
            .toStdString();
    }

    workbench::PlayResult play(const std::string& members) {
        EXPECT_EQ(errorOf("{\"title\": \"t\", " + members + "}"), "");
        return workbench::play(scenario, options);
    }

    /// @return why a scenario of these steps ended early, without the place of the file.
    std::string endOf(const std::string& steps) {
        const QString ended = play("\"steps\": [" + steps + "]").ended;
        return ended.section(QStringLiteral("s.json: "), 1).toStdString();
    }

    QTemporaryDir folder;
    workbench::Scenario scenario;
    workbench::PlayOptions options;
};

}  // namespace workbench_test

/// The program as a person starts it.
#pragma once

#include <QProcess>

#include "tests/support/TestSupport.h"

namespace workbench_test {

struct Ran {
    int code = -1;
    QString out;
    QString err;
};

/// For programs under a leak detector: what is Qt's own.
constexpr char leakOptions[] =
    "suppressions=" REPOSITORY "/tests/support/leaks.supp:print_suppressions=0";

/// Runs the program without a display, but for what `variables` say.
inline Ran runProgram(const QStringList& arguments,
                      const QMap<QString, QString>& variables = {
                          {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen")}}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("LSAN_OPTIONS"), QLatin1String(leakOptions));
    for (auto it = variables.begin(); it != variables.end(); ++it)
        environment.insert(it.key(), it.value());
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(PROGRAM), arguments);
    EXPECT_TRUE(program.waitForFinished(100000)) << program.errorString().toStdString();
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    using testing_support::outputText;
    return {program.exitCode(), outputText(program.readAllStandardOutput()),
            outputText(program.readAllStandardError())};
}

}  // namespace workbench_test

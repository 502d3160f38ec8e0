/// The stage on which the new-from-file flows are played, and the lines that they leave behind.
#pragma once

#include "files/newFromFile.h"
#include "tests/files/FileTesting.h"

namespace files_testing {

using newpro::FilePage;
using testing_support::flowLines;
using testing_support::Lines;

constexpr const char* service = R"(call osgi::ObjectHelper::GetService("firstPagePlugin"))";
constexpr const char* isLoggedIn = "call UserInfo::IsLogin()";
constexpr const char* showLogin = "call FirstPagePlugin::showLogin({})";
constexpr const char* closed = "dialog FakeDialog done 0";
constexpr const char* start9001 = R"(call SharedInterface::UseFunc(9001, ""))";
constexpr const char* end9001 = R"(call SharedInterface::EndUseFun(9001, ""))";
constexpr const char* start20011 = R"(call SharedInterface::UseFunc(20011, ""))";
constexpr const char* end20011 = R"(call SharedInterface::EndUseFun(20011, ""))";
const QString cloudFile = QStringLiteral("企业云盘/甲/某工程.GCFX");

/// A fresh host and dialog, on the page of one flow, with its option checked.
struct Stage {
    explicit Stage(FileFlow flow) : flow(flow), page(dialog.pages.of(flow)) {
        if (page.fromFile) page.fromFile->setChecked(true);
    }

    void type(const QString& text) { page.fileCombo->setCurrentText(text); }
    void run() { newpro::newFromFile(dialog, dialog.pages, flow); }
    Lines linesOf(const QString& text) {
        testing_support::clearJournal();
        type(text);
        run();
        return flowLines();
    }
    /// @return the file that the first creation in the journal starts from; null without one.
    QString createdFrom() const {
        const bool message = flow == FileFlow::Contracting;
        const QJsonArray args = testing_support::entriesOf(
                                    message ? "Communication::SendMsgToPlugin" : "createFromPage")
                                    .value(0)
                                    .value(QLatin1String("args"))
                                    .toArray();
        const QJsonObject values = args.at(message ? 2 : 0).toObject();
        return values.value(QLatin1String(message ? "pro_file" : "GcLj")).toString();
    }

    testing_support::TemporaryInstallation host;
    testing_support::FakeDialog dialog;
    FileFlow flow;
    FilePage page;
};

/// @return what a flow leaves in the journal around `lines`, which come after the service lookup.
inline Lines framed(FileFlow flow, const Lines& lines) {
    Lines all{service};
    all.insert(all.end(), lines.begin(), lines.end());
    if (flow == FileFlow::Contracting) {
        all.insert(all.begin(), start20011);
        all.push_back(end20011);
    }
    return all;
}

inline std::string created(const char* json, int mode) {
    return std::string("signal createFromPage(") + json + ", " + std::to_string(mode) + ")";
}

/// @return how a flow that accepted the cloud file ends.
inline Lines endOf(FileFlow flow, const std::string& file) {
    const std::string entry = R"({"GcLj":")" + file + R"(",)";
    switch (flow) {
        case FileFlow::Estimate:
            return {"call GetProgramTypeByFile(\"" + file + "\")", closed, start9001,
                    created((entry + R"("TemplateName":""})").c_str(), 6), end9001};
        case FileFlow::Settlement:
            return {closed, start9001,
                    created((entry + R"("JsMb":"某模板","TemplateName":""})").c_str(), 8), end9001};
        case FileFlow::Audit:
            return {closed, created((entry + R"("TemplateName":""})").c_str(), 5)};
        case FileFlow::Contracting:
            break;
    }
    return {closed,
            R"(call Communication::SendMsgToPlugin(16, 114, {"client_pid":16,"pro_file":")" + file +
                R"("}))"};
}

}  // namespace files_testing

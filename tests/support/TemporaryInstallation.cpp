#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "tests/support/TestSupport.h"

namespace testing_support {

using workbench::Host;

TaxTemplateInfo model(const QString& name, const QString& feeMode,
                      const QString& alternativeFeeMode) {
    TaxTemplateInfo info;
    info.name = name;
    info.key = name;
    info.description = QStringLiteral("说明文字");
    info.basis = QStringList{QStringLiteral("规范")};
    info.feeMode = feeMode;
    info.alternativeFeeMode = alternativeFeeMode;
    return info;
}

ProjectSettingSpace::PricingModelInfo pricing(const QString& key, const QStringList& feeModes,
                                              const QString& defaultFeeMode) {
    ProjectSettingSpace::PricingModelInfo info;
    info.key = key;
    info.feeModes = feeModes;
    info.defaultFeeMode = defaultFeeMode;
    return info;
}

namespace {

const char settings[] = R"({
    "area": {"prodAreaYN": false, "configuration": {}},
    "firstOpenClose": 0,
    "basicSettings": {"projectFolder": "", "others": {}},
    "systemSettings": {
        "modelName": "", "estimateTemplate": "", "settlementTemplate": "", "others": {}
    },
    "transactions": {},
    "suffixes": {
        "1": ["GCFX", "SGCFX"], "2": ["GCFX", "GCFG"], "8": ["GCFX"], "16": ["GCFZ", "BAKZ"]
    },
    "groupedTemplates": {}
})";

const char* const folders[] = {"MBSC/kvys",    "MBSC/kvzcb",          "GCSZ/GcszYs",
                               "ProjectFiles", "CloudDisks/个人云盘", "CloudDisks/企业云盘"};

void writeTo(const QString& path, const QByteArray& content) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    EXPECT_EQ(file.write(content), content.size()) << path.toStdString();
}

}  // namespace

TemporaryInstallation::TemporaryInstallation() {
    EXPECT_TRUE(directory.isValid());
    const QDir root(directory.path());
    for (const char* each : folders) EXPECT_TRUE(root.mkpath(QString::fromUtf8(each)));
    writeTo(root.filePath(QStringLiteral("models.json")), "{}");
    writeTo(root.filePath(QStringLiteral("settings.json")), settings);
    writeTo(root.filePath(QStringLiteral("history.json")), R"({"entries": []})");
    writeTo(root.filePath(QStringLiteral("FileList.Ini")), "");
    Host::instance().reset();
    const QString error = Host::instance().loadInstallation(directory.path());
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();

    const QString kvys = QStringLiteral("Kvys");
    setModels(kvys, 0, {model(QStringLiteral("一般甲")), model(QStringLiteral("一般乙"))});
    setModels(kvys, 1, {model(QStringLiteral("简易甲"))});
    setModels(kvys, 2, {model(QStringLiteral("营业甲"))});
    setModels(QStringLiteral("Kvzcb"), 0, {model(QStringLiteral("总包甲"))});
    switches().boxesAnswerThemselves = true;
    clearJournal();
}

TemporaryInstallation::~TemporaryInstallation() {
    settle();
    Host::instance().setReceiver({});
    Host::instance().reset();
    clearJournal();
}

QString TemporaryInstallation::folder() const {
    return Host::instance().installation().folder;
}

QString TemporaryInstallation::path(const QString& relative) const {
    return folder() + QLatin1Char('/') + relative;
}

QString TemporaryInstallation::write(const QString& relative, const QByteArray& content) {
    const QString file = path(relative);
    EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    writeTo(file, content);
    return file;
}

QString TemporaryInstallation::addTemplate(const QString& appTypeKey, const QString& name) {
    return write(QStringLiteral("MBSC/") + appTypeKey + QLatin1Char('/') + name);
}

void TemporaryInstallation::configure(const QString& modelName,
                                      const ProjectSettingSpace::PricingModelInfo& info) {
    auto& configured = values().pricing[QStringLiteral("Kvys")];
    configured.remove(modelName);
    configured.insert(modelName, info);
}

void TemporaryInstallation::setModels(const QString& appType, int taxMode,
                                      const QList<TaxTemplateInfo>& models) {
    auto& modes = values().models[appType];
    for (auto& mode : modes) {
        if (mode.taxMode != taxMode) continue;
        mode.models = models;
        return;
    }
    ProjectSettingSpace::ProTaxTemplateInfo mode;
    mode.taxMode = taxMode;
    mode.models = models;
    modes.append(mode);
}

}  // namespace testing_support

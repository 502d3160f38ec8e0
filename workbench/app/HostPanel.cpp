#include "workbench/app/HostPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/journal/Journal.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

Switches& switches() {
    return Host::instance().switches();
}

}  // namespace

HostPanel::HostPanel(QWidget* parent) : QScrollArea(parent), form(new QFormLayout) {
    auto* content = new QWidget;
    content->setLayout(form);
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addHostSwitches();
    addAccountSwitches();
    addServiceSwitches();
    addLook();
    adaptToScale();
    refresh();
    Host& host = Host::instance();
    connect(&host, &Host::scaleChanged, this, &HostPanel::adaptToScale);
    connect(&host, &Host::scaleChanged, this, &HostPanel::refresh);
    connect(&host, &Host::skinChanged, this, &HostPanel::refresh);
    // The dialog's work loads plug-ins and logs accounts in. Many entries, one refresh.
    auto* soon = new QTimer(this);
    soon->setSingleShot(true);
    connect(soon, &QTimer::timeout, this, &HostPanel::refresh);
    connect(&Journal::instance(), &Journal::recorded, soon, [soon] { soon->start(0); });
}

void HostPanel::refresh() {
    for (const auto& refresher : refreshers) refresher();
}

void HostPanel::addHeading(const QString& text) {
    auto* heading = new QLabel(text);
    headings.append(heading);
    form->addRow(heading);
}

void HostPanel::addChoices(const QString& caption, const char* objectName,
                           const QVector<Choice>& choices) {
    auto* box = new QComboBox;
    box->setObjectName(QLatin1String(objectName));
    box->setAccessibleName(caption);
    for (const Choice& choice : choices) box->addItem(choice.text);
    connect(box, QOverload<int>::of(&QComboBox::activated), this,
            [choices](int index) { choices[index].set(); });
    refreshers.append([box, choices] {
        for (int i = 0; i < choices.size(); ++i)
            if (choices[i].isSet()) box->setCurrentIndex(i);
    });
    form->addRow(caption, box);
}

void HostPanel::addSwitch(const QString& text, const char* objectName, std::function<bool()> isOn,
                          std::function<void(bool)> set) {
    auto* box = new QCheckBox(text);
    box->setObjectName(QLatin1String(objectName));
    box->setAccessibleName(text);
    connect(box, &QCheckBox::clicked, this, set);
    refreshers.append([box, isOn] { box->setChecked(isOn()); });
    form->addRow(box);
}

void HostPanel::addHostSwitches() {
    const auto firstPage = [](const QString& text, FirstPage value) {
        return Choice{text, [value] { return switches().firstPage == value; },
                      [value] { switches().firstPage = value; }};
    };
    const auto area = [](const QString& text, bool yunnan) {
        return Choice{text, [yunnan] { return switches().prodAreaYN == yunnan; },
                      [yunnan] { switches().prodAreaYN = yunnan; }};
    };
    const auto version = [](const QString& text, double value) {
        return Choice{text, [value] { return qFuzzyCompare(switches().openVersion, value); },
                      [value] { switches().openVersion = value; }};
    };
    addHeading(QStringLiteral("主程序"));
    addChoices(QStringLiteral("首页插件"), "firstPageSwitch",
               {firstPage(QStringLiteral("就绪"), FirstPage::Ready),
                firstPage(QStringLiteral("忙"), FirstPage::Busy),
                firstPage(QStringLiteral("不存在"), FirstPage::Absent)});
    addChoices(QStringLiteral("地区"), "areaSwitch",
               {area(QStringLiteral("四川"), false), area(QStringLiteral("云南"), true)});
    addChoices(QStringLiteral("开放版本"), "versionSwitch",
               {version(QStringLiteral("1.3"), 1.3), version(QStringLiteral("1.2"), 1.2)});
    addSwitch(
        QStringLiteral("计价配置已加载"), "configurationSwitch",
        [] { return switches().configurationPresent; },
        [](bool on) { switches().configurationPresent = on; });
}

void HostPanel::addUserId() {
    auto* user = new QLineEdit;
    user->setObjectName(QStringLiteral("userSwitch"));
    user->setAccessibleName(QStringLiteral("账号"));
    connect(user, &QLineEdit::textEdited, this,
            [](const QString& text) { switches().account.userId = text; });
    refreshers.append([user] {
        if (user->text() != switches().account.userId) user->setText(switches().account.userId);
    });
    form->addRow(QStringLiteral("账号"), user);
}

void HostPanel::addAccountSwitches() {
    const auto login = [](const QString& text, Login value) {
        return Choice{text, [value] { return switches().account.login == value; },
                      [value] { switches().account.login = value; }};
    };
    addHeading(QStringLiteral("云账号与云盘"));
    addUserId();
    addSwitch(
        QStringLiteral("已登录"), "loggedInSwitch", [] { return switches().account.loggedIn; },
        [](bool on) { switches().account.loggedIn = on; });
    addChoices(QStringLiteral("登录窗口"), "loginSwitch",
               {login(QStringLiteral("由我回答"), Login::Ask),
                login(QStringLiteral("自动登录"), Login::Accepted),
                login(QStringLiteral("自动取消"), Login::Cancelled)});
    addSwitch(
        QStringLiteral("云盘应答缓慢"), "cloudSlowSwitch", [] { return switches().cloud.slow; },
        [](bool on) { switches().cloud.slow = on; });
    addSwitch(
        QStringLiteral("云盘拒绝请求"), "cloudRefusedSwitch",
        [] { return switches().cloud.refused; }, [](bool on) { switches().cloud.refused = on; });
    addSwitch(
        QStringLiteral("云盘数据损坏"), "cloudBrokenSwitch", [] { return switches().cloud.broken; },
        [](bool on) { switches().cloud.broken = on; });
}

void HostPanel::addServiceSwitches() {
    addHeading(QStringLiteral("插件"));
    addSwitch(
        QStringLiteral("插件管理器可用"), "managerSwitch",
        [] { return switches().pluginManagerPresent; },
        [](bool on) { switches().pluginManagerPresent = on; });
    const QPair<int, QString> plugins[] = {{4, QStringLiteral("预算插件已加载")},
                                           {8, QStringLiteral("结算插件已加载")},
                                           {16, QStringLiteral("总承包插件已加载")}};
    for (const auto& plugin : plugins) {
        const int id = plugin.first;
        const QByteArray name = "plugin" + QByteArray::number(id) + "Switch";
        addSwitch(
            plugin.second, name.constData(), [id] { return switches().plugins.value(id); },
            [id](bool on) { switches().plugins.insert(id, on); });
    }
}

void HostPanel::addLook() {
    const auto skin = [](const QString& text, const char* name) {
        const QString value = QLatin1String(name);
        return Choice{text, [value] { return Host::instance().skin() == value; },
                      [value] { Host::instance().setSkin(value); }};
    };
    QVector<Choice> scales;
    for (const int percent : {100, 125, 150, 200, 300})
        scales.append({QStringLiteral("%1 %").arg(percent),
                       [percent] { return qRound(Host::instance().scale() * 100) == percent; },
                       [percent] { Host::instance().setScale(percent / 100.0); }});
    addHeading(QStringLiteral("外观"));
    addChoices(QStringLiteral("皮肤"), "skinSwitch",
               {skin(QStringLiteral("浅色"), "light"), skin(QStringLiteral("深色"), "dark")});
    addChoices(QStringLiteral("缩放"), "scaleSwitch", scales);
}

void HostPanel::adaptToScale() {
    form->setContentsMargins(scaled(14), scaled(10), scaled(14), scaled(10));
    form->setHorizontalSpacing(scaled(10));
    form->setVerticalSpacing(scaled(8));
    for (QWidget* heading : qAsConst(headings)) {
        heading->setFont(TBaseTool::GetDefFont(scaled(14), QFont::Bold));
        heading->setContentsMargins(0, scaled(8), 0, 0);
    }
}

}  // namespace workbench

#include "workbench/app/HostPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/Journal.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

QString nameOf(const QJsonValue& value) {
    return value.toVariant().toString();
}

/// @return the value of a choice as the switch takes it.
QJsonValue valueOf(const HostSwitch& each, const HostSwitch::Choice& choice) {
    if (each.field.shape == workbench::Shape::Number) return choice.value.toDouble();
    if (each.field.shape == workbench::Shape::Truth) return choice.value == nameOf(true);
    return choice.value;
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
    for (const HostSwitch& each : hostSwitches()) add(each);
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

void HostPanel::add(const HostSwitch& each) {
    if (!each.heading.isEmpty()) addHeading(each.heading);
    if (!each.get) return;
    if (each.field.shape == workbench::Shape::Text) return addText(each);
    if (each.caption.isEmpty()) {
        for (const auto& [value, caption] : each.choices)
            addTick(
                caption, each.key + QLatin1Char('.') + value,
                [&each, value = value] { return each.get()[value].toBool(); },
                [&each, value = value](bool on) {
                    each.set(QJsonObject{{value, on}});
                });
        return;
    }
    if (each.choices.isEmpty() || each.choices.first().caption.isEmpty())
        return addTick(
            each.caption, each.key, [&each] { return each.get().toBool(); }, each.set);
    addList(each);
}

void HostPanel::addHeading(const QString& text) {
    auto* heading = new QLabel(text);
    headings.append(heading);
    form->addRow(heading);
}

void HostPanel::addText(const HostSwitch& each) {
    auto* line = new QLineEdit;
    line->setObjectName(each.key);
    line->setAccessibleName(each.caption);
    connect(line, &QLineEdit::textEdited, this, each.set);
    refreshers.append([line, &each] {
        if (line->text() != each.get().toString()) line->setText(each.get().toString());
    });
    form->addRow(each.caption, line);
}

void HostPanel::addList(const HostSwitch& each) {
    auto* box = new QComboBox;
    box->setObjectName(each.key);
    box->setAccessibleName(each.caption);
    for (const auto& choice : each.choices) box->addItem(choice.caption, choice.value);
    connect(box, QOverload<int>::of(&QComboBox::activated), this,
            [&each](int index) { each.set(valueOf(each, each.choices[index])); });
    refreshers.append([box, &each] {
        const int index = box->findData(nameOf(each.get()));
        if (index >= 0) box->setCurrentIndex(index);
    });
    form->addRow(each.caption, box);
}

void HostPanel::addTick(const QString& caption, const QString& name, std::function<bool()> isOn,
                        std::function<void(bool)> set) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    box->setAccessibleName(caption);
    connect(box, &QCheckBox::clicked, this, set);
    refreshers.append([box, isOn] { box->setChecked(isOn()); });
    form->addRow(box);
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

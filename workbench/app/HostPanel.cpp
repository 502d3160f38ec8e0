#include "workbench/app/HostPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/Journal.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

/// What each switch is for, to whom the captions around it are not in sight.
const std::pair<const char*, const char*> descriptions[] = {
    {"firstPage", "对话框询问时首页插件的状态"},
    {"prodAreaYN", "主程序所在的地区"},
    {"openVersion", "此版本及以前的功能可用"},
    {"configuration", "主程序是否有计价配置"},
    {"account.userId", "云账号的用户名"},
    {"account.loggedIn", "云账号是否已登录"},
    {"account.login", "登录窗口如何回答"},
    {"cloud.slow", "云盘过一会儿才应答"},
    {"cloud.refused", "云盘对每个请求都拒绝"},
    {"cloud.broken", "云盘的应答无法读懂"},
    {"cloud.foldersRefused", "云盘不列出文件夹"},
    {"pluginManager", "主程序是否有插件管理器"},
    {"plugins.4", "对话框不必再加载预算插件"},
    {"plugins.8", "对话框不必再加载结算插件"},
    {"plugins.16", "对话框不必再加载总承包插件"},
    {"skin", "窗口和对话框的颜色"},
    {"scale", "窗口和对话框的大小"}};

void describe(QWidget* control) {
    for (const auto& [key, text] : descriptions)
        if (control->objectName() == QLatin1String(key))
            control->setAccessibleDescription(QString::fromUtf8(text));
}

}  // namespace

HostPanel::HostPanel(QWidget* parent)
    : QScrollArea(parent), form(new QFormLayout), note(new QLabel) {
    auto* content = new QWidget;
    // Not a row of the form, which gives a text that comes late the height of one line.
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(form);
    layout->addWidget(note);
    layout->addStretch();
    note->setObjectName(QStringLiteral("scale.note"));
    note->setWordWrap(true);
    note->hide();
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(QStringLiteral("主程序开关"));
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const HostSwitch& each : hostSwitches()) add(each);
    adaptToScale();
    refresh();
    Host& host = Host::instance();
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
    if (!each.access.get) return;
    if (*each.heading) {
        headings.append(new QLabel(QString::fromUtf8(each.heading)));
        form->addRow(headings.last());
    }
    const QString caption = QString::fromUtf8(each.caption);
    const QStringList captions =
        QString::fromUtf8(each.captions).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    if (each.field.shape == workbench::Shape::Text) return addText(each, caption);
    if (captions.isEmpty())
        return addTick(
            caption, each.field.key, [&each] { return each.get().toBool(); },
            [&each](bool on) { each.set(on); });
    if (!caption.isEmpty()) return addList(each, caption, captions);
    for (int i = 0; i < captions.size(); ++i) {
        const QString& word = each.field.words.at(i);
        addTick(
            captions[i], each.field.key + QLatin1Char('.') + word,
            [&each, word] { return each.get()[word].toBool(); },
            [&each, word](bool on) {
                each.set(QJsonObject{{word, on}});
            });
    }
}

void HostPanel::addText(const HostSwitch& each, const QString& caption) {
    auto* line = new QLineEdit;
    line->setObjectName(each.field.key);
    line->setAccessibleName(caption);
    describe(line);
    connect(line, &QLineEdit::textEdited, this, [&each](const QString& text) { each.set(text); });
    refreshers.append([line, &each] {
        if (line->text() != each.get().toString()) line->setText(each.get().toString());
    });
    form->addRow(caption, line);
}

void HostPanel::addList(const HostSwitch& each, const QString& caption,
                        const QStringList& captions) {
    auto* box = new QComboBox;
    box->setObjectName(each.field.key);
    box->setAccessibleName(caption);
    describe(box);
    for (int i = 0; i < captions.size(); ++i) box->addItem(captions[i], each.field.words.at(i));
    connect(box, QOverload<int>::of(&QComboBox::activated), this,
            [box, &each](int index) { each.set(box->itemData(index).toString()); });
    refreshers.append([box, &each] {
        const int index = box->findData(each.get().toVariant().toString());
        if (index >= 0) box->setCurrentIndex(index);
    });
    form->addRow(caption, box);
}

void HostPanel::setNote(const QString& text) {
    note->setText(text);
    note->setVisible(!text.isEmpty());
    if (text.isEmpty()) return;
    // Once it has its place.
    QTimer::singleShot(0, note, [this] {
        if (!note->isHidden()) ensureWidgetVisible(note);
    });
}

void HostPanel::addTick(const QString& caption, const QString& name, std::function<bool()> isOn,
                        std::function<void(bool)> set) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    box->setAccessibleName(caption);
    describe(box);
    connect(box, &QCheckBox::clicked, this, set);
    refreshers.append([box, isOn] { box->setChecked(isOn()); });
    form->addRow(box);
}

void HostPanel::adaptToScale() {
    form->setContentsMargins(scaled(16), scaled(12), scaled(16), scaled(12));
    note->setContentsMargins(scaled(16), 0, scaled(16), scaled(12));
    form->setHorizontalSpacing(scaled(12));
    form->setVerticalSpacing(scaled(8));
    for (QWidget* heading : qAsConst(headings)) {
        heading->setFont(TBaseTool::GetDefFont(roomFor(14), QFont::Bold));
        heading->setContentsMargins(0, scaled(8), 0, 0);
    }
}

QSize HostPanel::minimumSizeHint() const {
    const int needed =
        widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
    const int room = qMax(scaled(220), screen()->availableSize().width() / 4);
    return {qMin(needed, room), QScrollArea::minimumSizeHint().height()};
}

bool HostPanel::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::event(event);
}

void HostPanel::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) adaptToScale();
}

}  // namespace workbench

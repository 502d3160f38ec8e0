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

QStringList split(const char* texts) {
    return QString::fromUtf8(texts).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

}  // namespace

void HostPanel::name(QWidget* control, const Names& names) {
    control->setObjectName(names.key);
    control->setAccessibleName(names.caption);
    control->setAccessibleDescription(names.description);
}

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
    const QStringList captions = split(each.captions);
    if (each.field.shape == workbench::Shape::Text) return addText(each, caption);
    if (captions.isEmpty())
        return addTick(
            {each.field.key, caption, QString::fromUtf8(each.description)},
            [&each] { return each.get().toBool(); }, [&each](bool on) { each.set(on); });
    if (!caption.isEmpty()) return addList(each, caption, captions);
    const QStringList descriptions = split(each.description);
    for (int i = 0; i < captions.size(); ++i) {
        const QString& word = each.field.words.at(i);
        addTick(
            {each.field.key + QLatin1Char('.') + word, captions[i], descriptions[i]},
            [&each, word] { return each.get()[word].toBool(); },
            [&each, word](bool on) {
                each.set(QJsonObject{{word, on}});
            });
    }
}

void HostPanel::addText(const HostSwitch& each, const QString& caption) {
    auto* line = new QLineEdit;
    name(line, {each.field.key, caption, QString::fromUtf8(each.description)});
    connect(line, &QLineEdit::textEdited, this, [&each](const QString& text) { each.set(text); });
    refreshers.append([line, &each] {
        if (line->text() != each.get().toString()) line->setText(each.get().toString());
    });
    form->addRow(caption, line);
}

void HostPanel::addList(const HostSwitch& each, const QString& caption,
                        const QStringList& captions) {
    auto* box = new QComboBox;
    name(box, {each.field.key, caption, QString::fromUtf8(each.description)});
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

void HostPanel::addTick(const Names& names, std::function<bool()> isOn,
                        std::function<void(bool)> set) {
    auto* box = new QCheckBox(names.caption);
    name(box, names);
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

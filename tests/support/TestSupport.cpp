#include "tests/support/TestSupport.h"

#include <QApplication>
#include <QJsonDocument>
#include <QMouseEvent>
#include <QStringList>
#include <algorithm>
#include <ostream>

void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

void PrintTo(const QStringList& texts, std::ostream* out) {
    *out << "[\"" << texts.join(QLatin1String("\", \"")).toStdString() << "\"]";
}

void PrintTo(const QJsonObject& object, std::ostream* out) {
    *out << QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

namespace testing_support {

using workbench::Host;
using workbench::Journal;
using As = workbench::ThrowRule::As;

namespace {

/// A JSON list without its brackets.
std::string inner(const QJsonArray& list) {
    std::string text;
    for (const QJsonValue& value : list) {
        QByteArray json = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
        if (!text.empty()) text += ", ";
        text += json.mid(1, json.size() - 2).toStdString();
    }
    return text;
}

std::string text(const QJsonObject& entry, const char* key) {
    return entry.value(QLatin1String(key)).toString().toStdString();
}

bool matches(const QJsonObject& entry, const Lines& filter) {
    const auto has = [&](const std::string& value) {
        return std::find(filter.begin(), filter.end(), value) != filter.end();
    };
    return has(text(entry, "name")) || has(text(entry, "kind"));
}

template <typename Keep, typename Show>
Lines collect(Keep keep, Show show) {
    Lines lines;
    for (const QJsonObject& entry : Journal::instance().entries()) {
        if (keep(entry)) lines.push_back(show(entry));
    }
    return lines;
}

}  // namespace

QString utf(const char* text) {
    return QString::fromUtf8(text);
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QString textOf(const QString& path) {
    return QString::fromUtf8(contentOf(path));
}

std::string lineOf(const QJsonObject& entry) {
    const std::string kind = text(entry, "kind");
    const std::string name = text(entry, "name");
    const QJsonArray args = entry.value(QLatin1String("args")).toArray();
    if (kind == "project") return kind + " " + name;
    if (kind == "exception") return kind + " " + name + ": " + args.last().toString().toStdString();
    if (kind != "dialog") return kind + " " + name + "(" + inner(args) + ")";
    const QJsonValue result = entry.value(QLatin1String("result"));
    std::string line = kind + " " + name + " " + text(entry, "event");
    return result.isDouble() ? line + " " + std::to_string(result.toInt()) : line;
}

Lines journalLines(const Lines& only) {
    return collect([&](const auto& entry) { return only.empty() || matches(entry, only); }, lineOf);
}

Lines journalLinesWithout(const Lines& without) {
    return collect([&](const auto& entry) { return !matches(entry, without); }, lineOf);
}

Lines flowLines() {
    return journalLinesWithout(
        {"AppPluginManager::instance", "Communication::GetInstance", "Communication::GetMainWindow",
         "CpfMain::GetInstance", "InterfaceAdaptation::getInstance",
         "ProjectSettingHelper::GetProjectSettingHelper", "SharedInterface::getInstance",
         "SkinManager::instance", "TranMiUtilAction::Instance", "Users::Instance", "Users::Kvy"});
}

Lines journalNames(const Lines& only) {
    return collect([&](const auto& entry) { return only.empty() || matches(entry, only); },
                   [](const auto& entry) { return text(entry, "name"); });
}

QVector<QJsonObject> entriesOf(const char* name) {
    QVector<QJsonObject> found;
    for (const QJsonObject& entry : Journal::instance().entries()) {
        if (text(entry, "name") == name) found.append(entry);
    }
    return found;
}

int countOf(const char* nameOrKind) {
    return int(journalNames({nameOrKind}).size());
}

QJsonValue answered(const char* name, int nth) {
    const QVector<QJsonObject> found = entriesOf(name);
    if (nth > found.size()) return QJsonValue(QJsonValue::Undefined);
    return found.at(nth - 1).value(QLatin1String("answer"));
}

void clearJournal() {
    Journal::instance().clear();
}

void throwAt(const char* call, As as, int nth, const QString& text) {
    workbench::ThrowRule rule;
    rule.call = QLatin1String(call);
    rule.as = as;
    rule.nth = nth;
    rule.text = text;
    Host::instance().switches().throws.append(rule);
}

void throwNoMore() {
    Host::instance().switches().throws.clear();
}

int withEveryCallThrowing(const char* call, const std::function<void()>& make,
                          const std::function<void()>& use) {
    const std::vector<Thrown>& kinds = thrownKinds();
    for (int nth = 1;; ++nth) {
        const Thrown& thrown = kinds[size_t(nth) % kinds.size()];
        SCOPED_TRACE(std::string(call) + " #" + std::to_string(nth) + " throws " + thrown.name);
        throwNoMore();
        throwAt(call, thrown.as, nth);
        make();
        const bool threw = Host::instance().switches().throws.constFirst().seen >= nth;
        throwNoMore();
        if (!threw) return nth - 1;
        use();
        if (testing::Test::HasFatalFailure()) return nth;
    }
}

const std::vector<Thrown>& thrownKinds() {
    static const std::vector<Thrown> kinds = {
        {As::Literal, "a character string", "boom"},
        {As::String, "a QString", "boom"},
        {As::StdException, "a std::exception", "boom"},
        {As::Other, "something else", "未知异常"},
    };
    return kinds;
}

void click(QWidget* widget) {
    ASSERT_TRUE(widget);
    ASSERT_TRUE(widget->isVisible() && widget->isEnabled())
        << "cannot click " << widget->objectName().toStdString();
    QTest::mouseClick(widget, Qt::LeftButton);
}

void doubleClick(QWidget* widget, Qt::MouseButton button) {
    ASSERT_TRUE(widget);
    doubleClick(widget, widget->rect().center(), button);
}

// Not QTest's own, which in Qt 6 holds the button down until it is let go over a widget: here the
// widget may be gone by then.
void doubleClick(QWidget* widget, const QPoint& place, Qt::MouseButton button) {
    QMouseEvent event(QEvent::MouseButtonDblClick, place, widget->mapToGlobal(place), button,
                      button, Qt::NoModifier);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
    // Let go elsewhere: the widget may be gone.
    QWidget elsewhere;
    QMouseEvent release(QEvent::MouseButtonRelease, place, place, button, Qt::NoButton,
                        Qt::NoModifier);
    QSpontaneKeyEvent::setSpontaneous(&release);
    qApp->notify(&elsewhere, &release);
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

ModalDriver::ModalDriver(const char* what, Accepts accepts, std::function<void(QWidget*)> drive)
    : what(what), accepts(std::move(accepts)), drive(std::move(drive)) {
    QObject::connect(&timer, &QTimer::timeout, [this] { look(); });
    timer.start(1);
}

ModalDriver::~ModalDriver() {
    EXPECT_TRUE(driven) << "the modal window never came: " << what;
}

void ModalDriver::look() {
    QWidget* window = QApplication::activePopupWidget();
    if (!window || !accepts(window)) window = QApplication::activeModalWidget();
    if (!window) return;
    if (accepts(window)) {
        timer.stop();
        driven = true;
        drive(window);
        return;
    }
    // A window that fades in may be behind another for a moment; one that stays blocks the test.
    constexpr int patience = 2000;
    if (++otherWindows < patience) return;
    ADD_FAILURE() << "another modal window came: " << window->metaObject()->className();
    window->close();
}

}  // namespace testing_support

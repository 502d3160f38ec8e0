/// What the tests of every room share: a temporary host, the journal as text, modal windows.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QJsonObject>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "SharedInterface.h"
#include "tests/support/systemTexts.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"

/// Readable values in failed comparisons.
void PrintTo(const QString& text, std::ostream* out);
void PrintTo(const QStringList& texts, std::ostream* out);
void PrintTo(const QJsonObject& object, std::ostream* out);

namespace testing_support {

/// Lines of text in UTF-8, which GoogleTest compares and prints one by one.
using Lines = std::vector<std::string>;

/// @return the text that these bytes are in UTF-8.
QString utf(const char* text);
/// @return a file's content, and the same as text; the test fails where it cannot be read.
QByteArray contentOf(const QString& path);
QString textOf(const QString& path);

/// Lets a Qt warning pass whose text contains `pattern` (a regular expression) until the running
/// test ends, which fails when none came. Every other Qt warning fails the running test.
void expectWarning(const QString& pattern);

/// A pricing model named `name`, with a basis, a description and the key `name`.
TaxTemplateInfo model(const QString& name, const QString& feeMode = QString(),
                      const QString& alternativeFeeMode = QString());
/// Detailed configuration of a model. @param key equals TaxTemplateInfo::key.
ProjectSettingSpace::PricingModelInfo pricing(const QString& key, const QStringList& feeModes,
                                              const QString& defaultFeeMode = QString());

/// A fresh host over a temporary installation folder of its own, from here to the end of the scope.
/// It has a few pricing models ("Kvys": two general, one simplified, one business-tax model;
/// "Kvzcb": one general model), no templates and an empty history. Boxes answer themselves.
class TemporaryInstallation {
  public:
    TemporaryInstallation();
    ~TemporaryInstallation();
    TemporaryInstallation(const TemporaryInstallation&) = delete;
    TemporaryInstallation& operator=(const TemporaryInstallation&) = delete;

    /// @return the installation folder, without trailing separator.
    QString folder() const;
    /// @return the absolute path of a file below the folder, whether or not it exists.
    QString path(const QString& relative) const;
    /// Writes a file, with its folders. @return its absolute path.
    QString write(const QString& relative, const QByteArray& content = "x");
    /// Writes an empty template project, such as template("kvys", "A.MODX"). @return its path.
    QString addTemplate(const QString& appTypeKey, const QString& name);

    workbench::Switches& switches() { return workbench::Host::instance().switches(); }
    workbench::Installation& values() { return workbench::Host::instance().installation(); }
    /// Replaces the models of one tax mode of an application type.
    void setModels(const QString& appType, int taxMode, const QList<TaxTemplateInfo>& models);
    /// Gives a budget model this configuration, in place of those that it has.
    void configure(const QString& modelName, const ProjectSettingSpace::PricingModelInfo& info);
    void clearModels() { values().models.clear(); }

  private:
    QTemporaryDir directory;
};

/// The compact form of one journal entry: `call SharedInterface::UseFunc(13015, "")`,
/// `signal SignalCreatePro(4, 95, {...})`, `dialog NewProCfgDialog done 1`,
/// `box showInformation("提示", "...", ["确定"])`, `exception NewProCfgDialog::CreateUI: text`,
/// `project FILE`.
std::string lineOf(const QJsonObject& entry);
/// @param only names and kinds to keep; empty for all. @return entries in order, as lines.
Lines journalLines(const Lines& only = {});
/// @param without names and kinds to leave out. @return entries in order, as lines.
Lines journalLinesWithout(const Lines& without);
/// @return everything that crossed the boundary, as lines, but for accessors of singletons and the
///         main window, which a flow may ask for as often as it likes.
Lines flowLines();
/// @param only names and kinds to keep; empty for all. @return names in order.
Lines journalNames(const Lines& only = {});
/// @return the entries with this name, in order.
QVector<QJsonObject> entriesOf(const char* name);
/// @return how many entries have this name or kind.
int countOf(const char* nameOrKind);
/// @return the answer of the nth call of this name (from 1); undefined where there is none.
QJsonValue answered(const char* name, int nth = 1);
void clearJournal();

/// Asks a host operation to throw at its nth call from now.
void throwAt(const char* call, workbench::ThrowRule::As as, int nth = 1,
             const QString& text = QStringLiteral("boom"));
void throwNoMore();
/// All kinds of exceptions, with the text that the report carries for a thrown "boom".
struct Thrown {
    workbench::ThrowRule::As as;
    const char* name;
    const char* reported;
};
const std::vector<Thrown>& thrownKinds();
/// What a window asks the host for hundreds of times, from everywhere.
inline const char* const scalingCalls[] = {"InterfaceAdaptation::getResolutionRatioH",
                                           "InterfaceAdaptation::getInstance"};
/// Runs `make` once for each call of a host operation that it makes: that one throws, and the kinds
/// of exceptions take turns. @param use runs after each, when nothing throws any more.
/// @return how many calls there were.
int withEveryCallThrowing(const char* call, const std::function<void()>& make,
                          const std::function<void()>& use);

/// Clicks with the left button in the middle of a visible, enabled widget; else fails the test.
void click(QWidget* widget);
/// The second press of a double click, in the middle of a widget or at a place in it.
void doubleClick(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
void doubleClick(QWidget* widget, const QPoint& place, Qt::MouseButton button = Qt::LeftButton);
/// Runs what was posted: events, deferred deletions, timers that are due.
void settle();

/// @return the child of this object name; fails the test where there is none.
template <typename T>
T* child(const QObject* parent, const char* name) {
    T* found = parent->findChild<T*>(QLatin1String(name));
    EXPECT_TRUE(found) << "no child named " << name;
    return found;
}

/// Drives one modal window or pop-up from inside its event loop; see whenModal.
class ModalDriver {
  public:
    using Accepts = std::function<bool(QWidget*)>;
    ModalDriver(const char* what, Accepts accepts, std::function<void(QWidget*)> drive);
    ~ModalDriver();
    ModalDriver(ModalDriver&&) = delete;
    bool came() const { return driven; }

  private:
    void look();
    const char* what;
    Accepts accepts;
    std::function<void(QWidget*)> drive;
    QTimer timer;
    int otherWindows = 0;
    bool driven = false;
};

/// Waits for a modal window (or a pop-up) of type T and runs `drive` inside its event loop. Keep
/// the result in a scope around the call that opens it. The test fails when the window has not come
/// by the end of the scope; a modal window of another type is closed and fails it as well.
template <typename T>
[[nodiscard]] ModalDriver whenModal(std::function<void(T*)> drive) {
    return ModalDriver(
        typeid(T).name(), [](QWidget* window) { return qobject_cast<T*>(window) != nullptr; },
        [drive = std::move(drive)](QWidget* window) { drive(qobject_cast<T*>(window)); });
}

}  // namespace testing_support

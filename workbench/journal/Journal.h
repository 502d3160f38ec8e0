/// The ordered record of everything that crosses the boundary between module and host.
#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <QVector>
#include <functional>
#include <utility>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// One process-wide journal. Each entry is one JSON object with seq, ms, kind and name, and with
/// args, answer, event and result where its kind has them. Entries are kept in memory and, once a
/// file is set, written line by line, each in one piece.
class WORKBENCH_API Journal : public QObject {
    Q_OBJECT
  public:
    static Journal& instance();

    /// Writes every later entry to a file, which is emptied first. An empty path ends the writing.
    /// @return false if the file cannot be opened for writing; `fileError` is the reason.
    bool setFile(const QString& path);
    /// @return file and reason why it could not be written to its end; empty if all is written.
    ///         Nothing more is then written to it, and its last line is a whole one.
    QString fileError() const { return problem; }
    const QVector<QJsonObject>& entries() const { return list; }
    /// Forgets the entries. Numbers start from 1 again, but for a file: it is kept and goes on.
    void clear();
    /// @return the entry as it stands in a file: one line of UTF-8 without its line end, the keys
    ///         in their fixed order.
    static QByteArray line(const QJsonObject& entry);

    /// Records an entry. @param fields what the kind has beside kind and name.
    void record(const QString& kind, const QString& name, const QJsonObject& fields);
    void signal(const QString& name, const QJsonArray& args);
    void dialogOpened(const QString& className);
    void dialogDone(const QString& className, int result);
    void box(const QString& name, const QString& title, const QString& text,
             const QStringList& buttons);
    void exception(const QString& function, const QString& source, int line, const QString& text);
    void project(const QString& file);

    /// Asked before every host operation. A hook that makes the operation fail records the call
    /// and throws.
    using FaultHook = std::function<void(const char* name, const QJsonArray& args)>;
    void setFaultHook(FaultHook hook) { faultHook = std::move(hook); }

    /// Records a host operation without an answer, unless the fault hook throws.
    /// @param name the operation as declared, such as "SharedInterface::UseFunc".
    void call(const char* name, const QJsonArray& args = {});

    /// For operations that are recorded as something else than a call: asks the fault hook alone.
    void throwIfAsked(const char* name, const QJsonArray& args) {
        if (faultHook) faultHook(name, args);
    }

    /// Records a host operation with its answer. Where the fault hook throws, `operation` does not
    /// run, and the entry has no answer.
    /// @param toJson turns the answer into JSON (lists of records: their count).
    template <typename Operation, typename ToJson>
    auto call(const char* name, const QJsonArray& args, Operation&& operation, ToJson&& toJson)
        -> decltype(operation()) {
        throwIfAsked(name, args);
        decltype(auto) answer = std::forward<Operation>(operation)();
        recordAnswer(name, args, std::forward<ToJson>(toJson)(answer));
        return answer;
    }

  Q_SIGNALS:
    void recorded(const QJsonObject& entry);
    void cleared();

  private:
    Journal();
    void write(const QJsonObject& entry);
    void fail();
    void recordAnswer(const char* name, const QJsonArray& args, const QJsonValue& answer);

    FaultHook faultHook;
    QVector<QJsonObject> list;
    QElapsedTimer clock;
    QFile file;
    QString problem;
    qint64 wholeLines = 0;  ///< Bytes of the file so far.
    int lastSeq = 0;
};

/// Journals a host operation that answers a boolean, a number or a text.
template <typename Operation>
auto journalled(const char* name, const QJsonArray& args, Operation&& operation) {
    return Journal::instance().call(name, args, std::forward<Operation>(operation),
                                    [](const auto& answer) { return QJsonValue(answer); });
}

/// Journals an accessor of a host object: the answer is true, or null where there is no object.
/// @return `object`.
template <typename Object>
Object* accessed(const char* name, Object* object, const QJsonArray& args = {}) {
    return Journal::instance().call(
        name, args, [object] { return object; },
        [](Object* answer) { return answer ? QJsonValue(true) : QJsonValue(); });
}

}  // namespace workbench

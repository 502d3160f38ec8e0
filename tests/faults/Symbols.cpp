#include "tests/faults/Symbols.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <execinfo.h>

#include <QHash>
#include <QProcess>
#include <algorithm>
#include <cstdlib>
#include <map>

#include "tests/faults/interposer/places.h"

namespace faults {

namespace {

const void* moduleBase() {
    static const void* base = [] {
        Dl_info info{};
        dladdr(reinterpret_cast<const void*>(&operationCount), &info);
        return static_cast<const void*>(info.dli_fbase);
    }();
    return base;
}

/// Names by offset, local ones included, which the dynamic linker does not know.
std::map<quintptr, QString> readFunctions() {
    QProcess lister;
    lister.start(
        QStringLiteral(SYMBOL_LISTER),
        {QStringLiteral("-C"), QStringLiteral("--defined-only"), QStringLiteral(FAULTY_MODULE)});
    lister.waitForFinished(-1);
    std::map<quintptr, QString> functions;
    for (const QByteArray& line : lister.readAllStandardOutput().split('\n')) {
        // "0000000000012345 t name"
        if (line.size() < 20 || (line[17] != 't' && line[17] != 'T' && line[17] != 'W')) continue;
        functions[line.left(16).toULongLong(nullptr, 16)] = QString::fromUtf8(line.mid(19));
    }
    return functions;
}

}  // namespace

QString demangled(const char* symbol) {
    int status = 0;
    char* name = abi::__cxa_demangle(symbol, nullptr, nullptr, &status);
    const QString result = QString::fromUtf8(status == 0 ? name : symbol);
    std::free(name);
    return result;
}

bool inModule(const void* address) {
    static QHash<const void*, bool> known;
    const auto found = known.constFind(address);
    if (found != known.constEnd()) return *found;
    Dl_info info{};
    const bool in = dladdr(address, &info) != 0 && info.dli_fbase == moduleBase();
    known.insert(address, in);
    return in;
}

quintptr offsetOf(const void* address) {
    return quintptr(address) - quintptr(moduleBase());
}

QString functionAt(quintptr offset) {
    static const std::map<quintptr, QString> functions = readFunctions();
    // A return address may stand behind the last instruction of its function.
    auto next = functions.upper_bound(offset - 1);
    return offset == 0 || next == functions.begin() ? QString() : std::prev(next)->second;
}

QVector<const void*> callers() {
    constexpr int depth = 200;
    void* frames[depth];
    const int count = backtrace(frames, depth);
    QVector<const void*> result;
    for (int i = 1; i < count; ++i) result.append(frames[i]);
    return result;
}

QString enclosing(QString function) {
    function.remove(QLatin1String("(anonymous namespace)::"));
    function = function.left(function.indexOf(QLatin1Char('(')));
    return function.mid(function.lastIndexOf(QLatin1Char(' ')) + 1);
}

bool makesBaseOfWindow(const QString& operation, const QString& caller) {
    static const struct {
        QString base, window;
    } made[] = {
        {QStringLiteral("zBaseModal::zBaseModal"),
         QStringLiteral("NewProCfgDialog::NewProCfgDialog")},
        {QStringLiteral("zTitleModal::zTitleModal"), QStringLiteral("xzGcLxDialog::xzGcLxDialog")},
    };
    return std::any_of(std::begin(made), std::end(made), [&](const auto& each) {
        return operation == each.base && caller == each.window;
    });
}

}  // namespace faults

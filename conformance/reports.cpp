/// Stands before the host's ProcExceptionNew, to know what the dialog reports to it.
#include <SharedInterface.h>

#include "Check.h"

namespace conformance {

namespace {

QStringList& heard() {
    static QStringList texts;
    return texts;
}

}  // namespace

QStringList takeReports() {
    QStringList taken;
    taken.swap(heard());
    return taken;
}

}  // namespace conformance

#ifdef __ELF__
#include <dlfcn.h>

// The program's own definition is found before that of any shared library. Weak: where the host is
// part of the program its definition is the one, and nothing is heard here.
__attribute__((weak)) void ProcExceptionNew(const std::exception& exception, const char* source,
                                            int line, const char* function) {
    conformance::heard() +=
        QString::fromUtf8(function) + QLatin1String(": ") + QString::fromUtf8(exception.what());
    using Report = void (*)(const std::exception&, const char*, int, const char*);
    // The name of this very function, as the Itanium ABI has it.
    static const auto hosts =
        reinterpret_cast<Report>(dlsym(RTLD_NEXT, "_Z16ProcExceptionNewRKSt9exceptionPKciS3_"));
    if (hosts) hosts(exception, source, line, function);
}
#endif

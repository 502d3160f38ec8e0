/// A page of the dialog that starts from a file, and how such a flow ends.
#pragma once

#include "Opened.h"

namespace conformance {

/// Ends the promise where the maker of the host gave no file. @param option that gives one.
inline void need(const QString& file, const char* option) {
    if (file.isEmpty()) throw NotReached{QStringLiteral("not given: ") + QLatin1String(option)};
}

/// The dialog's page that starts from a file.
struct FilePage {
    explicit FilePage(QWidget* page)
        : combo(page->findChild<QComboBox*>(QStringLiteral("fileCombo"))),
          create(page->findChild<QAbstractButton*>(QStringLiteral("newButton"))),
          browse(page->findChild<QAbstractButton*>(QStringLiteral("browseButton"))) {}
    QComboBox* combo;
    QAbstractButton* create;
    QAbstractButton* browse;
};

inline FilePage auditPage(const Opened& opened) {
    opened.entry(QStringLiteral("审核工程"))->click();
    return FilePage(opened.page("auditPage"));
}

/// No entry of the ribbon leads there: a host puts the page where it wants it.
inline FilePage contractingPage(const Opened& opened) {
    QWidget* page = nullptr;
    QMetaObject::invokeMethod(opened.dialog, "addZcbXjWid", Q_RETURN_ARG(QWidget*, page));
    expect(page, QStringLiteral("the page was not built: did the host throw?"));
    return FilePage(page);
}

inline void startContracting(const Opened& opened) {
    QMetaObject::invokeMethod(opened.dialog, "xjZcbButtonSlot");
}

inline void expectUsable(const Opened& opened) {
    expect(opened.dialog && opened.dialog->isVisible() && opened.dialog->isEnabled(),
           QStringLiteral("the dialog cannot be used afterwards"));
}

/// Does what tells the host something. It may answer with windows of its own.
/// @param closer meets them.
inline void expectTaken(const std::function<void()>& action, const Closer& closer = {}) {
    const bool loop = runsEventLoop(action);
    settle();
    expect(!loop || !closer.closed().isEmpty(),
           QStringLiteral("an event loop runs before a service answers"));
}

/// Does what hands a file to a plug-in. A window of the host is no refusal: after one the dialog is
/// still there.
inline void expectHandedOver(const Opened& opened, const std::function<void()>& action,
                             const Closer& closer = {}) {
    expectTaken(action, closer);
    expect(!opened.dialog || !opened.dialog->isVisible(),
           QStringLiteral("the dialog stays open: the file is refused"));
}

}  // namespace conformance

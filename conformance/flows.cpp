#include <NewProCfgDialog.h>
#include <osgi.h>
#include <xzGcLxDialog.h>
#include <zControl.h>

#include <QListWidget>
#include <QMouseEvent>
#include <QPixmap>

#include "Check.h"
#include "Windows.h"

namespace conformance {

namespace {

/// The dialog as a host shows it, and what it asks for.
struct Opened {
    explicit Opened(const QStringList& history = {})
        : dialog(new NewProCfgDialog(0, true, nullptr)) {
        dialog->SetLsjl(history);
        QObject::connect(
            dialog, &NewProCfgDialog::SignalCreatePro,
            [this](int type, int code, const QVariant& map) {
                requests += QStringLiteral("%1 %2 %3").arg(type).arg(code).arg(map.toMap().size());
            });
        QObject::connect(dialog, &NewProCfgDialog::SignalCreateMB,
                         [this](int type, int code, const QString&) {
                             requests += QStringLiteral("%1 %2").arg(type).arg(code);
                         });
        dialog->show();
        settle();
    }
    ~Opened() {
        delete dialog;
        settle();
    }

    QAbstractButton* entry(const QString& text) const {
        for (const auto* tab : dialog->findChildren<RibbonTab*>())
            if (tab->property("name") == text && !tab->isHidden())
                return tab->findChild<QAbstractButton*>(QStringLiteral("curText"));
        throw NotReached{QStringLiteral("the ribbon has no entry ") + text};
    }
    QWidget* page(const char* name) const {
        auto* found = dialog->findChild<QWidget*>(QLatin1String(name));
        expect(found, QLatin1String(name) + QLatin1String(" was not built: did the host throw?"));
        return found;
    }
    QWidget* firstCard() const {
        for (const auto* list : dialog->findChildren<QListWidget*>())
            if (list->isVisible() && list->count() > 0) return list->itemWidget(list->item(0));
        throw NotReached{QStringLiteral("no pricing model is shown")};
    }

    QPointer<NewProCfgDialog> dialog;
    QStringList requests;
};

void needFirstPage() {
    auto* page = static_cast<FirstPagePlugin*>(osgi::ObjectHelper::GetService("firstPagePlugin"));
    if (!page || !page->canStartNew(true))
        throw NotReached{QStringLiteral("the first page lets no project be started")};
}

/// A button, or the "新建" inside of one that is split.
void create(const QWidget* card) {
    auto* button = card->findChild<QAbstractButton*>(QStringLiteral("btnNewProject"));
    expect(button, QStringLiteral("a card has no button: did the host throw?"));
    for (auto* part : button->findChildren<QAbstractButton*>())
        if (!part->text().isEmpty()) button = part;
    button->click();
    settle();
}

void opens() {
    Opened opened;
    expect(opened.dialog->isVisible(), QStringLiteral("the dialog is not shown"));
    expect(!opened.dialog->grab().isNull(), QStringLiteral("the dialog is not painted"));
    for (const char* name : {"ribbon", "lswGeneralTax", "templateTree", "auditPage"})
        opened.page(name);
    opened.dialog->close();
    settle();
    expect(!opened.dialog || !opened.dialog->isVisible(),
           QStringLiteral("a closed dialog stays open"));
}

void ribbonChangesThePage() {
    const Opened opened;
    opened.entry(QStringLiteral("审核工程"))->click();
    settle();
    expect(opened.page("auditPage")->isVisible(),
           QStringLiteral("a click on 审核工程 does not show its page"));
    opened.entry(QStringLiteral("预算工程"))->click();
    settle();
    expect(!opened.page("auditPage")->isVisible(),
           QStringLiteral("a click on 预算工程 does not leave the audit page"));
}

void modelAsks() {
    needFirstPage();
    Opened opened;
    create(opened.firstCard());
    expect(opened.requests == QStringList{QStringLiteral("4 95 13")},
           QStringLiteral("the host is asked for: ") + opened.requests.join(QLatin1String(", ")));
    expect(!opened.dialog || !opened.dialog->isVisible(),
           QStringLiteral("the dialog stays open after the request"));
}

void doubleClickAsksOnce() {
    needFirstPage();
    Opened opened;
    const QPointer<QWidget> card = opened.firstCard();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                            QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        if (!card) break;
        const bool down = type != QEvent::MouseButtonRelease;
        const QPointF place(20, 20);
        QMouseEvent event(type, place, card->mapToGlobal(place.toPoint()), Qt::LeftButton,
                          down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(card, &event);
    }
    settle();
    expect(opened.requests.size() == 1,
           QStringLiteral("a double click asks for %1 projects").arg(opened.requests.size()));
}

void emptyAuditIsRefused() {
    needFirstPage();
    Opened opened;
    opened.entry(QStringLiteral("审核工程"))->click();
    auto* button =
        opened.page("auditPage")->findChild<QAbstractButton*>(QStringLiteral("newButton"));
    const Closer closer;
    button->click();
    settle();
    expect(!closer.closed().isEmpty(), QStringLiteral("no box tells that a file is missing"));
    expect(opened.dialog && opened.dialog->isVisible() && opened.dialog->isEnabled(),
           QStringLiteral("the dialog cannot be used after the box"));
}

void fileStartsAnAudit(const Files& files) {
    if (files.project.isEmpty()) throw NotReached{QStringLiteral("no file was given: --project")};
    needFirstPage();
    Opened opened;
    opened.entry(QStringLiteral("审核工程"))->click();
    const QWidget* page = opened.page("auditPage");
    page->findChild<QComboBox*>(QStringLiteral("fileCombo"))->setEditText(files.project);
    const Closer closer;
    page->findChild<QAbstractButton*>(QStringLiteral("newButton"))->click();
    settle();
    expect(closer.closed().isEmpty(), QStringLiteral("the file is refused: ") + files.project);
    expect(!opened.dialog || !opened.dialog->isVisible(),
           QStringLiteral("the dialog stays open after the request"));
}

void historyIsOffered(const Files& files) {
    if (files.project.isEmpty()) throw NotReached{QStringLiteral("no file was given: --project")};
    // A local file stands in the history with this in front.
    const Opened opened({QStringLiteral("bd##") + files.project});
    const auto* combo =
        opened.page("auditPage")->findChild<QComboBox*>(QStringLiteral("fileCombo"));
    expect(combo->findText(files.project) >= 0,
           QStringLiteral("the history does not offer the file: is its suffix one of GetSuffix?"));
}

/// Starts an import by its ribbon entry and closes whatever opens.
void importIsCancelled(const QString& entry, const QString& expected) {
    needFirstPage();
    Opened opened;
    const Closer closer;
    opened.entry(entry)->click();
    settle();
    expect(!closer.closed().isEmpty(), QStringLiteral("nothing opens to choose from"));
    expect(expected.isEmpty() || closer.closed().contains(expected),
           expected + QStringLiteral(" does not open"));
    expect(opened.requests.isEmpty(), QStringLiteral("a cancelled import asks for a project"));
}

void chooserAnswers() {
    xzGcLxDialog chooser(nullptr);
    const Clicker budget(QStringLiteral("预算工程"));
    const int answer = chooser.exec();
    expect(answer == 4, QStringLiteral("the chooser answers %1 to 预算工程").arg(answer));
}

void goesWithItsParent() {
    auto* window = new QWidget;
    const QPointer<NewProCfgDialog> dialog = new NewProCfgDialog(0, true, window);
    dialog->show();
    settle();
    delete window;
    settle();
    expect(!dialog, QStringLiteral("the dialog outlives its parent"));
}

}  // namespace

QVector<Promise> flows(const Files& files) {
    return {
        {QStringLiteral("the dialog opens, is painted and closes"), opens},
        {QStringLiteral("the ribbon changes the page"), ribbonChangesThePage},
        {QStringLiteral("a model asks for one project"), modelAsks},
        {QStringLiteral("a double click asks for one project"), doubleClickAsksOnce},
        {QStringLiteral("an audit without a file is refused with a box"), emptyAuditIsRefused},
        {QStringLiteral("a project file starts an audit"), [files] { fileStartsAnAudit(files); }},
        {QStringLiteral("the history is offered"), [files] { historyIsOffered(files); }},
        {QStringLiteral("the Excel import can be cancelled"),
         [] {
             importIsCancelled(QStringLiteral("导入Excel新建"),
                               QStringLiteral("importExcelSelFile"));
         }},
        {QStringLiteral("the tender import can be cancelled"),
         [] { importIsCancelled(QStringLiteral("导入YFJZ新建"), QString()); }},
        {QStringLiteral("the project type chooser answers"), chooserAnswers},
        {QStringLiteral("the dialog goes with its parent"), goesWithItsParent},
    };
}

}  // namespace conformance

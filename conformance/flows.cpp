#include <SharedInterface.h>
#include <xzGcLxDialog.h>

#include <QDir>
#include <QListWidget>
#include <QPixmap>
#include <QTreeWidget>
#include <optional>

#include "Check.h"
#include "HostWindows.h"
#include "Opened.h"

namespace conformance {

namespace {

/// A button, or the "新建" inside of one that is split.
void create(const QWidget* card) {
    auto* button = card->findChild<QAbstractButton*>(QStringLiteral("btnNewProject"));
    expect(button, QStringLiteral("a card has no button: did the host throw?"));
    for (auto* part : button->findChildren<QAbstractButton*>())
        if (!part->text().isEmpty()) button = part;
    quietly([button] { button->click(); });
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
    quietly([&] { opened.entry(QStringLiteral("审核工程"))->click(); });
    settle();
    expect(opened.page("auditPage")->isVisible(),
           QStringLiteral("a click on 审核工程 does not show its page"));
    quietly([&] { opened.entry(QStringLiteral("预算工程"))->click(); });
    settle();
    expect(!opened.page("auditPage")->isVisible(),
           QStringLiteral("a click on 预算工程 does not leave the audit page"));
}

void contractingIsChosen() {
    const QString contracting = QStringLiteral("总承包工程");
    const Opened opened;
    // The dialog brings no entry for it: a host adds one.
    quietly([&] { opened.dialog->addXjPage({QString(), contracting, 0}, nullptr); });
    quietly([&] { opened.entry(contracting)->click(); });
    settle();
    quietly([&] { opened.entry(QStringLiteral("预算工程"))->click(); });
    settle();
    expect(opened.page("lswGeneralTax")->isVisible(),
           QStringLiteral("a click on 预算工程 does not show its models again"));
}

void ribbonTakesNoKeys() {
    const Opened opened;
    QAbstractButton* audit = opened.entry(QStringLiteral("审核工程"));
    for (const int key : {Qt::Key_Space, Qt::Key_Return})
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QApplication::sendEvent(audit, &event);
        }
    settle();
    expect(
        !opened.page("auditPage")->isVisible(),
        QStringLiteral("a key changes the page: the dialog cannot filter what it does not find"));
}

void currentEntryIsBold() {
    const Opened opened;
    const QAbstractButton* audit = opened.entry(QStringLiteral("审核工程"));
    expect(!audit->font().bold(), QStringLiteral("an entry is bold that is not the current one"));
    opened.entry(QStringLiteral("审核工程"))->click();
    settle();
    expect(audit->font().bold(), QStringLiteral("the current entry is not bold"));
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

void feeModeAsks() {
    needFirstPage();
    Opened opened;
    QPushButton* choose = nullptr;
    for (const auto* list : opened.dialog->findChildren<QListWidget*>()) {
        if (!list->isVisible()) continue;
        // A card to which nobody has scrolled is there, and not visible.
        for (auto* button : list->findChildren<QPushButton*>())
            if (!choose && button->menu()) choose = button;
    }
    if (!choose) throw NotReached{QStringLiteral("no pricing model has a choice of fee modes")};
    const Picker picker;
    choose->click();
    settle();
    expect(picker.picked(), QStringLiteral("no menu opens to choose a fee mode from"));
    expect(opened.requests == QStringList{QStringLiteral("4 95 13")},
           QStringLiteral("the host is asked for: ") + opened.requests.join(QLatin1String(", ")));
}

void doubleClickAsksOnce() {
    needFirstPage();
    Opened opened;
    const QPointer<QWidget> card = opened.firstCard();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                            QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        if (!card) break;
        sendMouse(card, type, QPointF(20, 20));
    }
    settle();
    expect(opened.requests.size() == 1,
           QStringLiteral("a double click asks for %1 projects").arg(opened.requests.size()));
}

/// A template in the host's folder, for as long as nobody has put one there.
class TemplateFile {
  public:
    TemplateFile() {
        const QString folder = SharedInterface::GetAppPath() + QStringLiteral("/MBSC/kvys");
        for (QDir up(folder); !up.exists(); up.setPath(QFileInfo(up.path()).path()))
            made += up.path();
        // A name of its own: another check may be under way in the same folder.
        file.setFileName(QStringLiteral("%1/conformance-%2.MODX")
                             .arg(folder)
                             .arg(QCoreApplication::applicationPid()));
        if (!QDir().mkpath(folder) || !file.open(QIODevice::WriteOnly))
            throw NotReached{QStringLiteral("no template can be written to ") + folder};
        file.close();
    }
    ~TemplateFile() {
        file.remove();
        for (const QString& folder : made) QDir().rmdir(folder);
    }

  private:
    QFile file;
    QStringList made;  ///< Folders, the innermost first.
};

/// @param create finds the button of a template; null where there is none.
void templateAsks(const std::function<QAbstractButton*(const QWidget& dialog)>& create) {
    needFirstPage();
    std::optional<TemplateFile> own;
    auto opened = std::make_unique<Opened>();
    if (!create(*opened->dialog)) {
        opened.reset();
        own.emplace();
        opened = std::make_unique<Opened>();
    }
    QAbstractButton* button = create(*opened->dialog);
    expect(button, QStringLiteral("the templates below GetAppPath()/MBSC are not offered"));
    const Closer closer;
    const bool loop = runsEventLoop([button] { button->click(); });
    settle();
    expect(!loop || !closer.closed().isEmpty(),
           QStringLiteral("an event loop runs before a service answers"));
    expect(opened->requests == QStringList{QStringLiteral("4 44")},
           QStringLiteral("the host is asked for: ") + opened->requests.join(QLatin1String(", ")));
}

void cardAsks() {
    templateAsks([](const QWidget& dialog) -> QAbstractButton* {
        const auto* list = dialog.findChild<QListWidget*>(QStringLiteral("lswTemplateEng"));
        const QWidget* card = list && list->count() > 0 ? list->itemWidget(list->item(0)) : nullptr;
        return card ? card->findChild<QAbstractButton*>(QStringLiteral("btnNewProject")) : nullptr;
    });
}

void treeAsks() {
    templateAsks([](const QWidget& dialog) -> QAbstractButton* {
        const auto* tree = dialog.findChild<QTreeWidget*>(QStringLiteral("templateTree"));
        return tree ? tree->viewport()->findChild<QAbstractButton*>() : nullptr;
    });
}

void chooserAnswers() {
    const struct {
        QString text;
        int answer;
    } kinds[] = {{QStringLiteral("预算工程"), 4}, {QStringLiteral("总承包工程"), 16}};
    for (const auto& kind : kinds) {
        xzGcLxDialog chooser(nullptr);
        const Clicker clicker(kind.text);
        const int answer = chooser.exec();
        expect(answer == kind.answer,
               QStringLiteral("the chooser answers %1 to %2").arg(answer).arg(kind.text));
    }
}

void goesWithItsParent() {
    auto* window = new QWidget;
    const QPointer<NewProCfgDialog> dialog = new NewProCfgDialog(0, true, window);
    dialog->show();
    settle();
    quietly([window] { delete window; });
    settle();
    expect(!dialog, QStringLiteral("the dialog outlives its parent"));
}

}  // namespace

QVector<Promise> flows() {
    return {
        {QStringLiteral("the dialog opens, is painted and closes"), opens},
        {QStringLiteral("the ribbon changes the page"), ribbonChangesThePage},
        {QStringLiteral("the ribbon goes to general contracting and back"), contractingIsChosen},
        {QStringLiteral("the ribbon takes no keys"), ribbonTakesNoKeys},
        {QStringLiteral("the current ribbon entry is bold"), currentEntryIsBold},
        {QStringLiteral("a model asks for one project"), modelAsks},
        {QStringLiteral("a fee mode that is picked asks for one project"), feeModeAsks},
        {QStringLiteral("a double click asks for one project"), doubleClickAsksOnce},
        {QStringLiteral("a template's card asks for one project"), cardAsks},
        {QStringLiteral("the template tree asks for one project"), treeAsks},
        {QStringLiteral("the project type chooser answers"), chooserAnswers},
        {QStringLiteral("the dialog goes with its parent"), goesWithItsParent},
    };
}

}  // namespace conformance

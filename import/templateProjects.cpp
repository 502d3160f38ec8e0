#include "import/templateProjects.h"

#include <QDir>
#include <QFileInfo>
#include <QListWidget>
#include <QPointer>
#include <memory>

#include "SharedInterface.h"
#include "core/cardRow.h"
#include "core/creationDialog.h"
#include "core/firstPage.h"
#include "core/guard.h"
#include "core/hostMessages.h"
#include "core/listItemPool.h"
#include "import/TemplateProListItem.h"

namespace newpro {

namespace {

QFileInfoList templateFiles(const QString& folder) {
    return QDir(folder).entryInfoList({QLatin1Char('*') + TemplateProProfix},
                                      QDir::Files | QDir::NoSymLinks | QDir::Hidden,
                                      QDir::Time | QDir::Reversed);
}

void emitCreate(CreationDialog& dialog, const QPointer<QWidget>& alive, const QString& path) {
    if (!alive) return;
    int programType = UnknownProgram;
    if (dialog.programTypeOfAppType(programType)) dialog.emitCreateMB(programType, path);
}

}  // namespace

QString templateFolder(const QString& appTypeKey) {
    return SharedInterface::GetAppPath() + QStringLiteral("/MBSC/") + appTypeKey;
}

int fillTemplateList(const Part<QListWidget>& list, const QString& appTypeKey, ListItemPool& items,
                     const std::function<void(const QString& path)>& onCreate) {
    const int filling = items.filling();
    const QFileInfoList files = templateFiles(templateFolder(appTypeKey));
    for (const QFileInfo& file : files) {
        auto card = std::make_unique<TemplateProListItem>(file.absoluteFilePath());
        if (items.filling() != filling) throw Gone();
        QObject::connect(card.get(), &TemplateProListItem::signalCreateProByTemaplte, list.need(),
                         [onCreate](const QString& path) {
                             // Copies: the list, and with it this connection, may go.
                             guarded({"NewProCfgDialog", "LoadTemplateProInfo"},
                                     [create = onCreate, path] { create(path); });
                         });
        appendCard(list.need(), items.take(), std::move(card));
    }
    return files.size();
}

void createFromTemplateCard(CreationDialog& dialog, const QString& path) {
    if (path.isEmpty()) return;
    const QPointer<QWidget> alive(dialog.widget());
    dialog.acceptDialog();
    if (!hostIsReady()) return;
    sendTemplateMessage(path);
    emitCreate(dialog, alive, path);
}

void createFromTemplateTree(CreationDialog& dialog, const QString& path) {
    if (path.isEmpty()) return;
    const QPointer<QWidget> alive(dialog.widget());
    if (!hostIsReady()) return;
    if (alive) dialog.acceptDialog();
    // No message to the main logic on this way, unlike the card's: the signal alone.
    emitCreate(dialog, alive, path);
}

}  // namespace newpro

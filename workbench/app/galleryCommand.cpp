#include "workbench/app/galleryCommand.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>

#include "workbench/app/playCommands.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/scenario/Player.h"
#include "workbench/scenario/TemporaryCopy.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

const double galleryScales[] = {1, 1.5, 2};
const double galleryZoom = 0.4;  ///< Of the design at 100 %.
const int galleryGap = 20;       ///< Pixels between the pictures of a sheet.
const int galleryLine = 26;      ///< Height of a caption, in pixels.

/// One column of a sheet.
struct GalleryColumn {
    QString caption;
    QVector<QImage> pages;
};

/// @param names set to what the pages are called. @return why there is no column; empty if there
/// is.
QString pictured(const Scenario& scenario, const QString& skin, double scale, GalleryColumn& column,
                 QStringList& names) {
    const TemporaryFolder folder;
    if (!folder.error().isEmpty()) return folder.error();
    PlayOptions options;
    options.installation = sampleInstallation();
    options.pictureFolder = folder.path();
    options.host = {{QStringLiteral("skin"), skin}, {QStringLiteral("scale"), scale}};
    const PlayResult result = play(scenario, options);
    if (!result.asExpected())
        return (QStringList{result.unplayable, result.ended} + result.differences).join(QString());
    column.caption = QStringLiteral("%1 %").arg(scale * 100);
    names.clear();
    for (const QString& file : result.pictures) {
        const QImage page(file);
        column.pages.append(page.scaled(page.size() * (galleryZoom / scale), Qt::KeepAspectRatio,
                                        Qt::SmoothTransformation));
        names.append(QFileInfo(file).completeBaseName());
    }
    return {};
}

/// Draws pictures in the colours of the host's present skin.
QImage drawnSheet(const QVector<GalleryColumn>& columns, const QStringList& names) {
    const int across = columns.first().pages.first().width() + galleryGap;
    int height = galleryGap;
    for (const QImage& page : columns.first().pages)
        height += galleryLine + page.height() + galleryGap;
    QImage sheet(galleryGap + across * columns.size(), height, QImage::Format_RGB32);
    sheet.fill(colour(Tint::Hover));
    QPainter painter(&sheet);
    painter.setFont(TBaseTool::GetDefFont(13, QFont::Normal));
    painter.setPen(colour(Tint::Text));
    int y = galleryGap;
    for (int row = 0; row < names.size(); ++row) {
        for (int i = 0; i < columns.size(); ++i) {
            const int x = galleryGap + i * across;
            painter.drawText(QRect(x, y, across, galleryLine), Qt::AlignVCenter,
                             names[row] + QStringLiteral(", ") + columns[i].caption);
            painter.drawImage(x, y + galleryLine, columns[i].pages[row]);
        }
        y += galleryLine + columns.first().pages[row].height() + galleryGap;
    }
    return sheet;
}

bool makeSheet(const Scenario& scenario, const QString& skin, const QString& file) {
    QVector<GalleryColumn> columns;
    QStringList names;
    for (const double scale : galleryScales) {
        columns.append(GalleryColumn());
        const QString reason = pictured(scenario, skin, scale, columns.last(), names);
        if (reason.isEmpty()) continue;
        complain(QStringLiteral("%1 at %2: %3").arg(skin).arg(scale).arg(reason));
        return false;
    }
    Host::instance().setSkin(skin);
    const bool written = drawnSheet(columns, names).save(file, "PNG", 40);
    Host::instance().reset();
    written ? print(file) : complain(QStringLiteral("%1 cannot be written").arg(file));
    return written;
}

}  // namespace

int makeGallery(const CommandLine& line) {
    Scenario scenario;
    QString error;
    if (!readScenario(scenarioFolder() + QStringLiteral("/gallery.json"), scenario, error)) {
        complain(error);
        return 2;
    }
    const QString folder = line.pictures.isEmpty()
                               ? QDir::current().absoluteFilePath(QStringLiteral("pictures"))
                               : line.pictures;
    QDir().mkpath(folder);
    bool right = true;
    for (const QString& skin : fieldNamed(hostFields(), "skin").words)
        right = makeSheet(scenario, skin, QStringLiteral("%1/gallery-%2.png").arg(folder, skin)) &&
                right;
    return right ? 0 : 1;
}

}  // namespace workbench

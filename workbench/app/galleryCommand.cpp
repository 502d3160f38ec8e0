#include "workbench/app/galleryCommand.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QPainter>
#include <algorithm>
#include <functional>
#include <memory>
#include <numeric>

#include "workbench/app/MainWindow.h"
#include "workbench/app/ScaleLimit.h"
#include "workbench/app/playCommands.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/hostlibs/fileDialog/LoginWindow.h"
#include "workbench/hostlibs/fileDialog/OpenDialog.h"
#include "workbench/hostlibs/zControl/MessageBox.h"
#include "workbench/scenario/Player.h"
#include "workbench/scenario/TemporaryCopy.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

const double galleryScales[] = {1, 1.5, 2};
const double galleryZoom = 0.4;         ///< Of the pages on a sheet.
const int galleryColumns = 4;           ///< Of a sheet.
const int galleryGap = 20;              ///< Pixels between the pictures of a sheet.
const int galleryLine = 26;             ///< Height of a caption, in pixels.
const QRect closeUp(16, 70, 400, 210);  ///< Of the first page, in pixels of the design.

struct Picture {
    QString caption;
    QImage image;
};
using Pictures = QVector<Picture>;

/// A window that no scenario shows: the workbench's own, and those that are answered unseen.
struct OwnWindow {
    const char* name;
    QSize size;  ///< Empty: as it opens.
    std::function<std::unique_ptr<QWidget>()> make;
};

std::unique_ptr<QWidget> makeBox() {
    return std::make_unique<MessageBox>(QStringLiteral("提示"),
                                        QStringLiteral("请选择预算工程文件"),
                                        QStringList(QStringLiteral("确定")), "info", nullptr);
}

std::unique_ptr<QWidget> makeFileDialog() {
    FileRequest request;
    request.folder = Host::instance().installation().projectFolder();
    request.mode = 1;
    return std::make_unique<OpenDialog>(nullptr, request);
}

const OwnWindow ownWindows[] = {
    {"box", {}, makeBox},
    {"file-dialog", {860, 560}, makeFileDialog},
    {"log-in", {}, [] { return std::make_unique<LoginWindow>(); }},
    {"workbench", {1280, 820}, [] { return std::make_unique<MainWindow>(); }}};

/// @return why there are no pictures; empty if there are.
QString pictured(const Scenario& scenario, const QString& skin, double scale, Pictures& pages) {
    const TemporaryFolder folder;
    if (!folder.error().isEmpty()) return folder.error();
    PlayOptions options;
    options.installation = sampleInstallation();
    options.pictureFolder = folder.path();
    options.host = {{QStringLiteral("skin"), skin}, {QStringLiteral("scale"), scale}};
    const PlayResult result = play(scenario, options);
    if (!result.asExpected())
        return (QStringList{result.unplayable, result.ended} + result.differences).join(QString());
    for (const QString& file : result.pictures)
        pages.append({QFileInfo(file).completeBaseName(), QImage(file)});
    return {};
}

/// Puts a skin on the host, to the end of the scope.
class Dressed {
  public:
    explicit Dressed(const QString& skin) { Host::instance().setSkin(skin); }
    ~Dressed() { Host::instance().reset(); }
    Dressed(const Dressed&) = delete;
};

/// Adds the windows that the scenario does not show.
QString addOwnWindows(const QString& skin, Pictures& pages) {
    const TemporaryCopy copy(sampleInstallation());
    if (!copy.error().isEmpty()) return copy.error();
    const Dressed host(skin);
    const QString error = Host::instance().loadInstallation(copy.folder());
    if (!error.isEmpty()) return error;
    for (const OwnWindow& each : ownWindows) {
        const std::unique_ptr<QWidget> window = each.make();
        window->show();
        // Not that of a screen that nobody sees.
        if (auto* limit = window->findChild<ScaleLimit*>()) limit->fit({1920, 1080});
        if (!each.size.isEmpty()) window->resize(each.size);
        QCoreApplication::processEvents();
        pages.append({QLatin1String(each.name), window->grab().toImage()});
    }
    return {};
}

/// Draws pictures beside and below each other, in the colours of the host's present skin.
QImage drawnSheet(const Pictures& pictures, int columns) {
    QVector<int> widths(columns), heights((pictures.size() + columns - 1) / columns);
    for (int i = 0; i < pictures.size(); ++i) {
        int& width = widths[i % columns];
        int& height = heights[i / columns];
        width = qMax(width, pictures[i].image.width() + galleryGap);
        height = qMax(height, galleryLine + pictures[i].image.height() + galleryGap);
    }
    QImage sheet(std::accumulate(widths.begin(), widths.end(), galleryGap),
                 std::accumulate(heights.begin(), heights.end(), galleryGap), QImage::Format_RGB32);
    sheet.fill(colour(Tint::Hover));
    QPainter painter(&sheet);
    painter.setFont(TBaseTool::GetDefFont(13, QFont::Normal));
    painter.setPen(colour(Tint::Text));
    for (int i = 0; i < pictures.size(); ++i) {
        const int x = std::accumulate(widths.begin(), widths.begin() + i % columns, galleryGap);
        const int y = std::accumulate(heights.begin(), heights.begin() + i / columns, galleryGap);
        painter.drawText(QRect(x, y, widths[i % columns], galleryLine), Qt::AlignVCenter,
                         pictures[i].caption);
        painter.drawImage(x, y + galleryLine, pictures[i].image);
    }
    return sheet;
}

/// @param pages at least one. @return them as they stand on a sheet, none wider than the first.
Pictures small(Pictures pages) {
    const int widest = pages.first().image.width();
    for (Picture& page : pages) {
        const int width = qRound(qMin(page.image.width(), widest) * galleryZoom);
        page.image = page.image.scaledToWidth(width, Qt::SmoothTransformation);
    }
    return pages;
}

const QRgb* lineOf(const QImage& picture, int y) {
    return reinterpret_cast<const QRgb*>(picture.constScanLine(y));
}

/// @return the 256 most frequent of counted colours, always in the same order.
QVector<QRgb> mostFrequent(const QHash<QRgb, int>& counts) {
    QVector<QRgb> colours = counts.keys().toVector();
    std::sort(colours.begin(), colours.end(), [&counts](QRgb a, QRgb b) {
        return std::make_pair(counts[b], b) < std::make_pair(counts[a], a);
    });
    return colours.mid(0, 256);
}

/// @return the picture in its most frequent colours, and the others in the nearest of these: half
///         the bytes, and nobody sees it.
QImage inFewColours(const QImage& picture) {
    const QImage whole = picture.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    for (int y = 0; y < whole.height(); ++y)
        for (int x = 0; x < whole.width(); ++x) ++counts[lineOf(whole, y)[x]];
    return whole.convertToFormat(QImage::Format_Indexed8, mostFrequent(counts));
}

bool keep(const QImage& picture, const QString& folder, const QString& name) {
    QDir().mkpath(folder);
    const QString file = QStringLiteral("%1/%2.png").arg(folder, name);
    const bool written = inFewColours(picture).save(file, "PNG", 0);
    written ? print(file) : complain(QStringLiteral("%1 cannot be written").arg(file));
    return written;
}

/// Writes every page at its full size, all of them on a sheet, and one as each scale draws it.
bool keepSkin(const Scenario& scenario, const QString& skin, const QString& folder) {
    Pictures shown, closeUps;
    for (const double scale : galleryScales) {
        Pictures pages;
        QString reason = pictured(scenario, skin, scale, pages);
        if (scale == 1 && reason.isEmpty()) reason = addOwnWindows(skin, pages);
        if (reason.isEmpty() && pages.isEmpty()) reason = QStringLiteral("it has no pictures");
        if (!reason.isEmpty()) {
            complain(QStringLiteral("%1 at %2: %3").arg(skin).arg(scale).arg(reason));
            return false;
        }
        if (scale == 1) shown = pages;
        const QRect part(closeUp.topLeft() * scale, closeUp.size() * scale);
        closeUps.append({QStringLiteral("%1 %").arg(scale * 100), pages.first().image.copy(part)});
    }
    const Dressed host(skin);
    bool right =
        keep(drawnSheet(small(shown), galleryColumns), folder, QLatin1String("gallery-") + skin);
    right = keep(drawnSheet(closeUps, closeUps.size()), folder, QLatin1String("scales-") + skin) &&
            right;
    for (const Picture& page : shown)
        right = keep(page.image, folder + QLatin1Char('/') + skin, page.caption) && right;
    return right;
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
    bool right = true;
    for (const QString& skin : fieldNamed(hostFields(), "skin").words)
        right = keepSkin(scenario, skin, folder) && right;
    return right ? 0 : 1;
}

}  // namespace workbench

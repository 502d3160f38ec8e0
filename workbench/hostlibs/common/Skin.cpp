#include "workbench/hostlibs/common/Skin.h"

#include <QFile>
#include <QFileInfo>
#include <QFontInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QScreen>
#include <QSvgRenderer>
#include <QWidget>
#include <QtMath>

#include "workbench/hostlibs/common/Host.h"

namespace workbench {

namespace {

struct Shades {
    QRgb light, dark, contrast;
};

// In the order of Tint. What has to be told from what, and by how much, is in docs/contrast.md.
constexpr Shades shades[] = {
    {0x00000000, 0x00000000, 0x00000000},  // None
    {0xFFFFFFFF, 0xFF20242C, 0xFF000000},  // Surface
    {0xFFFFFFFF, 0xFF272C36, 0xFF000000},  // Card
    {0xFFF0F5FF, 0xFF2E3644, 0xFF1C1C1C},  // CardHover
    {0xFFFFFFFF, 0xFF1A1E25, 0xFF000000},  // Field
    {0xFFEEF1F6, 0xFF2B3039, 0xFF262626},  // Disabled
    {0xFF76829A, 0xFF8791A3, 0xFFFFFFFF},  // Border
    {0xFFC3CCDA, 0xFF4A5466, 0xFFFFFFFF},  // Line
    {0xFFE6EAF2, 0xFF343B48, 0xFF8C8C8C},  // Divider
    {0xFF1F2733, 0xFFE4E8EF, 0xFFFFFFFF},  // Text
    {0xFF525C6B, 0xFFB4BDCB, 0xFFFFFFFF},  // Muted
    {0xFF596372, 0xFFAAB3C1, 0xFFC8C8C8},  // Faint
    {0xFF2563D9, 0xFF2F6AD0, 0xFFFFD400},  // Accent
    {0xFF1B50B8, 0xFF2458B4, 0xFFFFE566},  // AccentHover
    {0xFF123A85, 0xFF1A4390, 0xFFFFF3B0},  // AccentPressed
    {0xFFFFFFFF, 0xFFFFFFFF, 0xFF000000},  // OnAccent
    {0xFF1C59C4, 0xFF8DB6FF, 0xFFFFD400},  // AccentLine
    {0xFFF0F5FF, 0xFF2E3644, 0xFF2A2A2A},  // Hover
    {0xFFBFD4FA, 0xFF435574, 0xFF5A5A5A},  // Pressed
    {0xFFD3E6FF, 0xFF28426A, 0xFF003C8F},  // Selected
    {0xFFB8262E, 0xFFFF9699, 0xFFFF9A9A},  // Danger
    {0xFF76829A, 0xFF8791A3, 0xFFFFFFFF},  // Handle
    {0xFF525C6B, 0xFFB4BDCB, 0xFFFFD400},  // HandleHover
};
static_assert(sizeof(shades) / sizeof(*shades) == static_cast<size_t>(Tint::Count));

QImage drawn(const QString& file, const QSize& pixels, Qt::AspectRatioMode mode) {
    QImage canvas(pixels, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const auto place = [&](const QSize& natural) {
        QRect rect(QPoint(), natural.scaled(pixels, mode));
        rect.moveCenter(canvas.rect().center());
        return rect;
    };
    if (file.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        QSvgRenderer renderer(file);
        renderer.render(&painter, place(renderer.defaultSize()));
    } else {
        const QImage image(file);
        painter.drawImage(place(image.size()), image);
    }
    return canvas;
}

}  // namespace

QColor colour(Tint tint) {
    const Shades& shade = shades[static_cast<int>(tint)];
    const QString skin = Host::instance().skin();
    return QColor::fromRgba(skin == darkSkin       ? shade.dark
                            : skin == contrastSkin ? shade.contrast
                                                   : shade.light);
}

int scaled(double designPixels) {
    return qRound(designPixels * Host::instance().scale());
}

int fontSize() {
    return int(13 * Host::instance().scale());
}

int roomFor(double designPixels) {
    const double larger = QFontInfo(QGuiApplication::font()).pixelSize() / double(fontSize());
    return scaled(designPixels * qMax(1.0, larger));
}

QSize roomOnScreen(const QWidget& window, double width, double height) {
    return QSize(roomFor(width), roomFor(height)).boundedTo(window.screen()->availableSize());
}

QString skinPicture(const QString& path) {
    const QString skin = Host::instance().skin();
    if (skin == lightSkin || path.isEmpty()) return path;
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    QString other = path;
    other.insert(dot < 0 ? path.size() : dot, QLatin1Char('-') + skin);
    return QFile::exists(other) ? other : path;
}

QPixmap pixmapOf(const QString& path, const QSize& size, qreal ratio, Qt::AspectRatioMode mode) {
    const QSize pixels(qCeil(size.width() * ratio), qCeil(size.height() * ratio));
    if (path.isEmpty() || pixels.isEmpty()) return {};
    const QString file = skinPicture(path);
    const QString key = QStringLiteral("skin %1 %2x%3 %4")
                            .arg(file)
                            .arg(pixels.width())
                            .arg(pixels.height())
                            .arg(mode);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        if (!QFileInfo(file).isFile()) return {};
        pixmap = QPixmap::fromImage(drawn(file, pixels, mode));
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

}  // namespace workbench

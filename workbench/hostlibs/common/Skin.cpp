#include "workbench/hostlibs/common/Skin.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QtMath>

#include "workbench/hostlibs/common/Host.h"

namespace workbench {

namespace {

struct Shade {
    QRgb light;
    QRgb dark;
};

// In the order of Tint.
constexpr Shade shades[] = {
    {0x00000000, 0x00000000},  // None
    {0xFFFFFFFF, 0xFF20242C},  // Surface
    {0xFFFFFFFF, 0xFF272C36},  // Card
    {0xFFF0F5FF, 0xFF2E3644},  // CardHover
    {0xFFFFFFFF, 0xFF1A1E25},  // Field
    {0xFFD5DCE8, 0xFF424B5C},  // Border
    {0xFFE6EAF2, 0xFF343B48},  // Divider
    {0xFF1F2733, 0xFFE4E8EF},  // Text
    {0xFF5C6675, 0xFFA3ADBD},  // Muted
    {0xFFA3ACB9, 0xFF687283},  // Faint
    {0xFF2B6DE5, 0xFF3B78DE},  // Accent
    {0xFF4A85F0, 0xFF4F89EA},  // AccentHover
    {0xFF1F57C0, 0xFF2F64BF},  // AccentPressed
    {0xFFFFFFFF, 0xFFFFFFFF},  // OnAccent
    {0xFF2B6DE5, 0xFF7DACFF},  // AccentLine
    {0xFFF0F5FF, 0xFF2E3644},  // Hover
    {0xFFDCE9FF, 0xFF38465C},  // Pressed
    {0xFFCDE8FF, 0xFF2C4A73},  // Selected
    {0xFFE5484D, 0xFFE5484D},  // Danger
};
static_assert(sizeof(shades) / sizeof(*shades) == static_cast<size_t>(Tint::Count));

bool dark() {
    return Host::instance().skin() == darkSkin;
}

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
    const Shade& shade = shades[static_cast<int>(tint)];
    return QColor::fromRgba(dark() ? shade.dark : shade.light);
}

int scaled(double designPixels) {
    return qRound(designPixels * Host::instance().scale());
}

QString skinPicture(const QString& path) {
    if (!dark() || path.isEmpty()) return path;
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    QString other = path;
    other.insert(dot < 0 ? path.size() : dot, QLatin1String("-dark"));
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

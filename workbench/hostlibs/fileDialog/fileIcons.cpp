#include "workbench/hostlibs/fileDialog/fileIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include "workbench/hostlibs/common/Skin.h"

namespace workbench {

namespace {

/// Lets `draw` paint on a square of 16 by 16 units.
template <typename Draw>
QIcon drawnIcon(int size, qreal ratio, Draw&& draw) {
    QPixmap pixmap(QSize(size, size) * ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixmap.width() / 16.0, pixmap.height() / 16.0);
    draw(painter);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    QIcon icon;
    // The same picture for a selected row: Qt would tint it otherwise.
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected, QIcon::Disabled})
        icon.addPixmap(pixmap, mode);
    return icon;
}

}  // namespace

QIcon folderIcon(int size, qreal ratio) {
    return drawnIcon(size, ratio, [](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xD9, 0x9A, 0x2B));
        painter.drawRoundedRect(QRectF(1, 2.5, 7, 5), 1, 1);
        painter.drawRoundedRect(QRectF(1, 4, 14, 5), 1, 1);
        painter.setBrush(QColor(0xF6, 0xC3, 0x5B));
        painter.drawRoundedRect(QRectF(1, 5.5, 14, 8), 1.2, 1.2);
    });
}

QIcon documentIcon(int size, qreal ratio) {
    return drawnIcon(size, ratio, [](QPainter& painter) {
        QPainterPath sheet;
        sheet.moveTo(3, 1.5);
        sheet.lineTo(9.5, 1.5);
        sheet.lineTo(13, 5);
        sheet.lineTo(13, 14.5);
        sheet.lineTo(3, 14.5);
        sheet.closeSubpath();
        painter.setPen(QPen(colour(Tint::Muted), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(colour(Tint::Field));
        painter.drawPath(sheet);
        painter.drawPolyline(QPolygonF(QVector<QPointF>{{9.5, 1.5}, {9.5, 5}, {13, 5}}));
        painter.setPen(QPen(colour(Tint::Accent), 1, Qt::SolidLine, Qt::RoundCap));
        for (const double y : {8.0, 10.0, 12.0}) painter.drawLine(QPointF(5, y), QPointF(11, y));
    });
}

}  // namespace workbench

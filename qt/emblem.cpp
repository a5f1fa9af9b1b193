#include "qt/emblem.h"

#include <QPainterPath>
#include <algorithm>

namespace emblem {

namespace {

/// The trace within a unit square.
QPainterPath trace() {
    QPainterPath path(QPointF(0.16, 0.50));
    for (const QPointF point :
         {QPointF(0.34, 0.50), QPointF(0.40, 0.40), QPointF(0.47, 0.68), QPointF(0.55, 0.22),
          QPointF(0.63, 0.60), QPointF(0.68, 0.50), QPointF(0.84, 0.50)}) {
        path.lineTo(point);
    }
    return path;
}

}  // namespace

void paint(QPainter& painter, const QRectF& area) {
    const double side = std::min(area.width(), area.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.center() - QPointF(side / 2, side / 2));
    painter.scale(side, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x0B, 0x66, 0x70));
    painter.drawEllipse(QRectF(0.04, 0.04, 0.92, 0.92));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 0.055, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(trace());
    painter.restore();
}

QIcon icon() {
    QIcon icon;
    for (const int side : {16, 32, 48, 128}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(painter, pixmap.rect());
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace emblem

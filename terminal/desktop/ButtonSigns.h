#pragma once

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace quorin {

enum class TTriangle { Up, Down };

// A small triangle in the middle of a button.
inline void DrawTriangle(QPainter& painter, const QRect& place, TTriangle direction) {
    constexpr double halfWidth = 3.5;
    constexpr double halfHeight = 2.0;
    const double tip = direction == TTriangle::Up ? -halfHeight : halfHeight;
    const QPointF middle = QRectF(place).center();
    const QPointF corners[] = {middle + QPointF(-halfWidth, -tip),
                               middle + QPointF(halfWidth, -tip), middle + QPointF(0, tip)};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QGuiApplication::palette().color(QPalette::ButtonText));
    painter.drawPolygon(corners, 3);
    painter.restore();
}

} // namespace quorin

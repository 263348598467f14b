// The card table seen from above, shared by the sample game and the promotion window:
// chairs, a padded leather rail with a wooden inner edge, and green felt.
#include <cmath>
#include <numbers>

#include "artwork/artwork_detail.h"

namespace platform::artwork::detail {
namespace {

// A squarish oval (a superellipse) reads as a poker table rather than a plain ellipse,
// and keeps room for the cards at the ends.
constexpr qreal kOvalPower = 2.6;
constexpr int kOvalSteps = 288;

qreal signedPower(qreal value, qreal power) {
    return std::copysign(std::pow(std::abs(value), power), value);
}

// Distance from the centre to the oval along the direction (dx, dy) of unit length.
qreal reachAlong(qreal dx, qreal dy, qreal radiusX, qreal radiusY) {
    const qreal sum =
        std::pow(std::abs(dx / radiusX), kOvalPower) + std::pow(std::abs(dy / radiusY), kOvalPower);
    return std::pow(sum, -1.0 / kOvalPower);
}

// A chair from above: a cushioned seat and, away from the table, a curved backrest.
void paintChair(QPainter& painter, QPointF at, qreal degrees, qreal size) {
    painter.save();
    painter.translate(at);
    painter.rotate(degrees);
    const qreal half = size / 2;
    QRadialGradient cushion(QPointF(0, -half * 0.2), size * 0.7);
    cushion.setColorAt(0, QColor(0x4A4A52));
    cushion.setColorAt(1, QColor(0x26262B));
    painter.setPen(QPen(QColor(0x141416), 0.8));
    painter.setBrush(cushion);
    painter.drawRoundedRect(QRectF(-half * 0.85, -half * 0.75, size * 0.85, size * 0.8), size * 0.2,
                            size * 0.2);
    QPainterPath back;
    back.moveTo(-half, half * 0.05);
    back.quadTo(0, half * 0.55, half, half * 0.05);
    back.lineTo(half * 0.9, half * 0.55);
    back.quadTo(0, half * 1.05, -half * 0.9, half * 0.55);
    back.closeSubpath();
    painter.setBrush(QColor(0x1F1F23));
    painter.drawPath(back);
    painter.restore();
}

void paintChairs(QPainter& painter, const TableShape& shape, std::span<const QPointF> seats) {
    const qreal outerX = shape.feltRadiusX + shape.railWidth;
    const qreal outerY = shape.feltRadiusY + shape.railWidth;
    for (const QPointF& seat : seats) {
        const QPointF away = seat - shape.centre;
        const qreal length = std::hypot(away.x(), away.y());
        const qreal dx = away.x() / length;
        const qreal dy = away.y() / length;
        const qreal reach = reachAlong(dx, dy, outerX, outerY) + shape.chairSize * 0.25;
        const QPointF at = shape.centre + QPointF(dx, dy) * reach;
        const qreal degrees = std::atan2(dy, dx) * 180 / std::numbers::pi - 90;
        paintChair(painter, at, degrees, shape.chairSize);
    }
}

void paintShadow(QPainter& painter, const TableShape& shape) {
    const qreal rx = shape.feltRadiusX + shape.railWidth * 1.8;
    const qreal ry = shape.feltRadiusY + shape.railWidth * 1.8;
    painter.save();
    painter.translate(shape.centre + QPointF(0, shape.railWidth * 0.4));
    painter.scale(rx, ry);
    QRadialGradient unit(QPointF(0, 0), 1.0);
    unit.setColorAt(0.82, QColor(0, 0, 0, 140));
    unit.setColorAt(1.0, QColor(0, 0, 0, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(unit);
    painter.drawEllipse(QPointF(0, 0), 1.0, 1.0);
    painter.restore();
}

void paintRail(QPainter& painter, const TableShape& shape) {
    const qreal rail = shape.railWidth;
    const QPainterPath outer =
        tableOval(shape.centre, shape.feltRadiusX + rail, shape.feltRadiusY + rail);
    QLinearGradient leather(shape.centre - QPointF(0, shape.feltRadiusY + rail),
                            shape.centre + QPointF(0, shape.feltRadiusY + rail));
    leather.setColorAt(0, QColor(0x5A3520));
    leather.setColorAt(0.5, QColor(0x45261A));
    leather.setColorAt(1, QColor(0x2C170E));
    painter.setPen(QPen(QColor(0x1A0D07), 1.0));
    painter.setBrush(leather);
    painter.drawPath(outer);

    // A soft sheen along the padding, then the stitching.
    painter.setBrush(Qt::NoBrush);
    const QPainterPath middle =
        tableOval(shape.centre, shape.feltRadiusX + rail * 0.55, shape.feltRadiusY + rail * 0.55);
    painter.setPen(QPen(QColor(255, 225, 190, 38), rail * 0.45));
    painter.drawPath(middle);
    QPen stitch(QColor(0xA07A55), std::max(0.5, rail * 0.05), Qt::CustomDashLine);
    stitch.setDashPattern({3, 3});
    painter.setPen(stitch);
    painter.drawPath(
        tableOval(shape.centre, shape.feltRadiusX + rail * 0.8, shape.feltRadiusY + rail * 0.8));

    // The wooden inner edge of the rail.
    const qreal wood = std::max(2.0, rail * 0.22);
    painter.setPen(QPen(QColor(0x9A6A36), wood));
    painter.drawPath(
        tableOval(shape.centre, shape.feltRadiusX + wood / 2, shape.feltRadiusY + wood / 2));
    painter.setPen(QPen(QColor(0xC89A5E), std::max(0.5, wood * 0.25)));
    painter.drawPath(
        tableOval(shape.centre, shape.feltRadiusX + wood * 0.8, shape.feltRadiusY + wood * 0.8));
}

void paintFelt(QPainter& painter, const TableShape& shape) {
    const QPainterPath felt = tableOval(shape.centre, shape.feltRadiusX, shape.feltRadiusY);
    QRadialGradient cloth(shape.centre, std::max(shape.feltRadiusX, shape.feltRadiusY));
    cloth.setColorAt(0, QColor(0x2E8A4E));
    cloth.setColorAt(0.6, QColor(kFelt));
    cloth.setColorAt(1, QColor(0x124A28));
    painter.setPen(Qt::NoPen);
    painter.setBrush(cloth);
    painter.drawPath(felt);

    painter.save();
    painter.setClipPath(felt);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 70), shape.railWidth * 0.5));
    painter.drawPath(felt);
    painter.restore();

    // The betting line.
    painter.setPen(QPen(QColor(255, 255, 255, 45), std::max(0.8, shape.railWidth * 0.06)));
    painter.drawPath(tableOval(shape.centre, shape.feltRadiusX * 0.80, shape.feltRadiusY * 0.74));
}

}  // namespace

QPainterPath tableOval(QPointF centre, qreal radiusX, qreal radiusY) {
    QPainterPath oval;
    for (int step = 0; step < kOvalSteps; ++step) {
        const qreal angle = 2 * std::numbers::pi * step / kOvalSteps;
        const QPointF point(centre.x() + radiusX * signedPower(std::cos(angle), 2 / kOvalPower),
                            centre.y() + radiusY * signedPower(std::sin(angle), 2 / kOvalPower));
        if (step == 0) {
            oval.moveTo(point);
        } else {
            oval.lineTo(point);
        }
    }
    oval.closeSubpath();
    return oval;
}

void paintTable(QPainter& painter, const TableShape& shape, std::span<const QPointF> seats) {
    painter.save();
    paintShadow(painter, shape);
    paintChairs(painter, shape, seats);
    paintRail(painter, shape);
    paintFelt(painter, shape);
    painter.restore();
}

}  // namespace platform::artwork::detail

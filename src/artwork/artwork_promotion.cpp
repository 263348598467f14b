// The pictures of the promotion window: the reduced table, the small card pairs, the small
// board cards and the award ribbon.
#include <array>
#include <cmath>
#include <numbers>

#include "artwork/artwork.h"
#include "artwork/artwork_detail.h"
#include "artwork/cardface.h"

namespace platform::artwork {
namespace {

using namespace detail;

constexpr QSize kTableSize(397, 285);
constexpr QRgb kWindowGrey = 0xC0C0C0;

constexpr QSize kSeatBox(22, 23);

std::array<QPointF, 9> seatCentres() {
    std::array<QPointF, 9> centres{};
    for (std::size_t seat = 0; seat < centres.size(); ++seat) {
        centres.at(seat) = QRectF(kPromotionSeatTopLeft.at(seat), kSeatBox).center();
    }
    return centres;
}

QPainterPath starPath(QPointF centre, qreal outer) {
    QPainterPath star;
    const qreal inner = outer * 0.42;
    for (int point = 0; point < 10; ++point) {
        const qreal angle = -std::numbers::pi / 2 + point * std::numbers::pi / 5;
        const qreal radius = point % 2 == 0 ? outer : inner;
        const QPointF at = centre + QPointF(std::cos(angle), std::sin(angle)) * radius;
        if (point == 0) {
            star.moveTo(at);
        } else {
            star.lineTo(at);
        }
    }
    star.closeSubpath();
    return star;
}

// A ribbon end with a swallowtail notch, pointing left (`sign` -1) or right (+1).
QPainterPath ribbonTail(qreal innerX, qreal sign) {
    const qreal outerX = innerX + sign * 9.5;
    QPainterPath tail;
    tail.moveTo(innerX, 4.5);
    tail.lineTo(outerX, 4.5);
    tail.lineTo(outerX - sign * 2.8, 10.3);
    tail.lineTo(outerX, 16.0);
    tail.lineTo(innerX, 16.0);
    tail.closeSubpath();
    return tail;
}

}  // namespace

QImage promotionTable(qreal dpr) {
    QImage image = makeCanvas(kTableSize, dpr, QColor(kWindowGrey));
    QPainter painter(&image);
    prepare(painter);
    const auto seats = seatCentres();
    paintTable(painter, {QPointF(197, 115), 180, 95, 12, 21}, seats);
    return image;
}

QImage smallBacks(qreal dpr) {
    return fanOfBacks({20, 21}, dpr, {{13, 18}, {7.8, 10.8}, {12.2, 10.2}, 7});
}

QImage frontPair(int firstDrawId, int secondDrawId, qreal dpr) {
    return fanOfFaces({40, 42}, dpr, {{26, 35}, {15.2, 21.2}, {24.8, 20.6}, 6}, firstDrawId,
                      secondDrawId, Qt::transparent);
}

QImage smallCard(int drawId, qreal dpr) {
    return cardFaceImage(drawId, {27, 36}, dpr);
}

QImage awardBadge(qreal dpr) {
    QImage image = makeCanvas({62, 17}, dpr);
    QPainter painter(&image);
    prepare(painter);
    painter.setPen(QPen(QColor(0x5E0F16), 0.6));
    painter.setBrush(QColor(0x9E1B25));
    painter.drawPath(ribbonTail(9.0, -1));
    painter.drawPath(ribbonTail(53.0, 1));

    QLinearGradient gold(QPointF(0, 1), QPointF(0, 14));
    gold.setColorAt(0, QColor(0xF8DC8A));
    gold.setColorAt(0.5, QColor(kGold));
    gold.setColorAt(1, QColor(0xB07E1C));
    painter.setPen(QPen(QColor(kGoldDark), 0.8));
    painter.setBrush(gold);
    painter.drawRoundedRect(QRectF(6.5, 1.0, 49, 13.0), 2.5, 2.5);

    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x3A2406));
    painter.drawPath(glyphPath(QStringLiteral("AWARD"), 31, 4.0, 7.0, 30));
    painter.setBrush(Qt::white);
    painter.drawPath(starPath({11.8, 7.6}, 3.3));
    painter.drawPath(starPath({50.2, 7.6}, 3.3));
    return image;
}

}  // namespace platform::artwork

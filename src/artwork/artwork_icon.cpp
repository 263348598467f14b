// The program's icon: two fanned aces, spades in front, on a rounded square of felt.
// Below 32 pixels a single card stands alone, since two would blur into one.

#include "artwork/artwork.h"
#include "artwork/artwork_detail.h"

namespace platform::artwork {
namespace {

using namespace detail;

constexpr qreal kUnits = 64;  // the icon is laid out on a 64 x 64 grid

void paintFeltSquare(QPainter& painter) {
    const QRectF square(1.5, 1.5, kUnits - 3, kUnits - 3);
    QRadialGradient felt(QPointF(28, 24), 44);
    felt.setColorAt(0, QColor(0x3AA05E));
    felt.setColorAt(0.7, QColor(kFelt));
    felt.setColorAt(1, QColor(0x0F4424));
    painter.setPen(QPen(QColor(0x0B3019), 2.0));
    painter.setBrush(felt);
    painter.drawRoundedRect(square, 13, 13);
}

// An ace reduced to what an icon can hold: the card, one big pip and, if there is room,
// an "A" in the corner.
void paintIconAce(QPainter& painter, QPointF centre, QSizeF size, qreal degrees, Suit suit,
                  bool withIndex) {
    painter.save();
    painter.translate(centre);
    painter.rotate(degrees);
    const QRectF card(QPointF(-size.width() / 2, -size.height() / 2), size);
    painter.setPen(QPen(QColor(0x6E6E6E), 0.9));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(card, size.width() * 0.12, size.width() * 0.12);
    const qreal pip = size.width() * (withIndex ? 0.62 : 0.74);
    paintPip(
        painter, suit,
        QRectF(-pip / 2, -pip * 0.55 + (withIndex ? size.height() * 0.06 : 0), pip, pip * 1.1));
    if (withIndex) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(suitColour(suit));
        painter.drawPath(glyphPath(QStringLiteral("A"), card.left() + size.width() * 0.2,
                                   card.top() + size.height() * 0.06, size.height() * 0.2,
                                   size.width() * 0.3));
    }
    painter.restore();
}

}  // namespace

QImage iconImage(int size) {
    const int side = std::max(size, 1);
    QImage image = makeCanvas({side, side}, 1.0);
    QPainter painter(&image);
    prepare(painter);
    painter.scale(side / kUnits, side / kUnits);
    paintFeltSquare(painter);
    if (side < 32) {
        paintIconAce(painter, {32, 32}, {36, 48}, 0, Suit::spades, false);
    } else {
        const bool withIndex = side >= 48;
        paintIconAce(painter, {24, 32}, {29, 40}, -14, Suit::hearts, withIndex);
        paintIconAce(painter, {39, 33}, {29, 40}, 10, Suit::spades, withIndex);
    }
    return image;
}

}  // namespace platform::artwork

// The pictures of the sample game: the table, the face-down pairs, the board cards, the two
// fanned pairs of the showdown and the dealer button.
#include <array>

#include "artwork/artwork.h"
#include "artwork/artwork_detail.h"
#include "artwork/cardface.h"

namespace platform::artwork {
namespace {

using namespace detail;

constexpr QSize kTableSize(643, 539);
const QPointF kTableCentre(325, 222);
// The felt where the showdown pairs lie, near the rail and so a little darker than its middle.
constexpr QRgb kShowdownGround = 0x1C6536;

// The stage puts each seat's face-down pair at these places (top left, 41 x 43 boxes);
// the chairs face their centres.
constexpr std::array<QPoint, 8> kPocketTopLeft{
    {{146, 317}, {87, 226}, {127, 121}, {246, 77}, {381, 74}, {482, 119}, {522, 227}, {463, 321}}};
constexpr QSize kPocketBox(41, 43);

std::array<QPointF, 8> seatCentres() {
    std::array<QPointF, 8> centres{};
    for (std::size_t seat = 0; seat < centres.size(); ++seat) {
        centres.at(seat) = QRectF(kPocketTopLeft.at(seat), kPocketBox).center();
    }
    return centres;
}

void paintRoom(QPainter& painter) {
    QRadialGradient glow(kTableCentre, 430);
    glow.setColorAt(0, QColor(0x242424));
    glow.setColorAt(0.75, QColor(0x101010));
    glow.setColorAt(1, QColor(0x060606));
    painter.fillRect(QRect(QPoint(0, 0), kTableSize), glow);
}

void paintWordmark(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 28));
    painter.drawPath(
        glyphPath(QStringLiteral("TABLEWRIGHT"), kTableCentre.x(), 150, 13, 150, true));
}

}  // namespace

QImage pokerTable(qreal dpr) {
    QImage image = makeCanvas(kTableSize, dpr, QColor(0x060606));
    QPainter painter(&image);
    prepare(painter);
    paintRoom(painter);
    const auto seats = seatCentres();
    paintTable(painter, {kTableCentre, 262, 178, 22, 36}, seats);
    paintWordmark(painter);
    return image;
}

QImage pocketBacks(qreal dpr) {
    return fanOfBacks({39, 41}, dpr, {{26, 35}, {15, 21}, {24, 20}, 7});
}

QImage boardCard(int drawId, qreal dpr) {
    return cardFaceImage(drawId, {54, 72}, dpr);
}

QImage showdownFan(int firstDrawId, int secondDrawId, QSize size, qreal dpr) {
    const QSizeF card(46, 62);
    const qreal w = size.width();
    const qreal h = size.height();
    const Fan fan{
        card, {card.width() / 2 + 3, h / 2 + 0.5}, {w - card.width() / 2 - 3, h / 2 - 0.5}, 6};
    return fanOfFaces(size, dpr, fan, firstDrawId, secondDrawId, QColor(kShowdownGround));
}

QImage dealerButton(qreal dpr) {
    QImage image = makeCanvas({26, 23}, dpr);
    QPainter painter(&image);
    prepare(painter);
    const QPointF top(13, 10.6);
    QRadialGradient shadow(QPointF(14, 13), 12.5);
    shadow.setColorAt(0.7, QColor(0, 0, 0, 110));
    shadow.setColorAt(1, QColor(0, 0, 0, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shadow);
    painter.drawEllipse(QPointF(14, 13), 12.5, 10.5);
    // The edge of the disc, then its face.
    painter.setBrush(QColor(0xB4B4B4));
    painter.drawEllipse(top + QPointF(0, 1.6), 11.6, 9.2);
    QRadialGradient face(top - QPointF(3, 3), 14);
    face.setColorAt(0, Qt::white);
    face.setColorAt(1, QColor(0xE2E2E2));
    painter.setPen(QPen(QColor(0x8C8C8C), 0.6));
    painter.setBrush(face);
    painter.drawEllipse(top, 11.6, 9.2);
    painter.setPen(QPen(QColor(0xC4C4C4), 0.6));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(top, 9.2, 7.1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x111111));
    painter.drawPath(glyphPath(QStringLiteral("D"), top.x(), top.y() - 5.2, 10.4, 10));
    return image;
}

}  // namespace platform::artwork

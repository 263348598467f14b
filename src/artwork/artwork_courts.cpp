// Jacks, queens and kings: a framed panel holding a stylised bust, drawn twice head to toe
// as on real court cards. Each half is laid out in a 42 x 38 box of card units.
#include "artwork/artwork_detail.h"

namespace platform::artwork::detail {
namespace {

constexpr qreal kHalfWidth = 42;
constexpr qreal kHalfHeight = 38;
constexpr qreal kMidX = kHalfWidth / 2;

const QColor kSkin(0xF3D3B2);
const QColor kInk(0x4A3020);
const QColor kPanel(0xFBF4E2);

QPen inkPen(qreal width = 0.45) {
    return QPen(kInk, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

QColor hairColour(int rank) {
    switch (rank) {
        case 11:
            return QColor(0x4A2E18);
        case 12:
            return QColor(0xB8862E);
        default:
            return QColor(0x7A5A3C);
    }
}

// A solid black robe would be a hole in the card: the black suits dress in charcoal.
QColor robeColour(Suit suit) {
    return isRed(suit) ? QColor(kRed) : QColor(0x2E3340);
}

void paintRobe(QPainter& painter, Suit suit) {
    QPainterPath robe;
    robe.moveTo(0.0, kHalfHeight);
    robe.lineTo(0.0, 33.0);
    robe.cubicTo(3.0, 27.6, 9.0, 25.0, 16.0, 24.4);
    robe.lineTo(26.0, 24.4);
    robe.cubicTo(33.0, 25.0, 39.0, 27.6, kHalfWidth, 33.0);
    robe.lineTo(kHalfWidth, kHalfHeight);
    robe.closeSubpath();
    painter.setPen(inkPen());
    painter.setBrush(robeColour(suit));
    painter.drawPath(robe);

    // A gold belt where the two halves meet, and shoulder badges that repeat the suit.
    painter.save();
    painter.setClipPath(robe);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kGold));
    painter.drawRect(QRectF(0, kHalfHeight - 2.0, kHalfWidth, 2.0));
    painter.restore();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    for (qreal x : {10.2, 31.8}) {
        painter.drawPath(suitPath(suit, QRectF(x - 2.3, 29.2, 4.6, 5.0)));
    }
}

void paintGoldCollar(QPainter& painter) {
    QPainterPath collar;
    collar.moveTo(15.4, 24.5);
    collar.cubicTo(16.2, 29.0, 18.9, 31.8, kMidX, 32.8);
    collar.cubicTo(23.1, 31.8, 25.8, 29.0, 26.6, 24.5);
    collar.closeSubpath();
    painter.setPen(inkPen());
    painter.setBrush(QColor(kGold));
    painter.drawPath(collar);
}

// The king's ermine: a white cape collar with black tails.
void paintErmine(QPainter& painter) {
    QPainterPath cape;
    cape.moveTo(8.0, 27.8);
    cape.cubicTo(10.0, 25.4, 13.0, 24.4, 16.0, 24.2);
    cape.lineTo(26.0, 24.2);
    cape.cubicTo(29.0, 24.4, 32.0, 25.4, 34.0, 27.8);
    cape.cubicTo(30.0, 30.4, 12.0, 30.4, 8.0, 27.8);
    painter.setPen(inkPen());
    painter.setBrush(Qt::white);
    painter.drawPath(cape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kInk);
    for (qreal x : {11.6, 15.8, 21.0, 26.2, 30.4}) {
        painter.drawEllipse(QPointF(x, x == 21.0 ? 28.0 : 27.4), 0.55, 0.85);
    }
}

void paintNeckAndHead(QPainter& painter) {
    painter.setPen(inkPen());
    painter.setBrush(kSkin);
    painter.drawRect(QRectF(18.4, 20.0, 5.2, 5.0));
    painter.drawEllipse(QPointF(kMidX, 15.6), 5.6, 6.6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kInk);
    painter.drawEllipse(QPointF(19.0, 15.4), 0.6, 0.65);
    painter.drawEllipse(QPointF(23.0, 15.4), 0.6, 0.65);
}

void paintQueenHair(QPainter& painter) {
    QPainterPath hair;
    hair.moveTo(15.0, 12.4);
    hair.cubicTo(13.8, 18.6, 13.2, 22.8, 12.2, 26.4);
    hair.lineTo(29.8, 26.4);
    hair.cubicTo(28.8, 22.8, 28.2, 18.6, 27.0, 12.4);
    hair.cubicTo(26.0, 7.8, 16.0, 7.8, 15.0, 12.4);
    painter.setPen(inkPen());
    painter.setBrush(hairColour(12));
    painter.drawPath(hair);
}

void paintFringe(QPainter& painter, int rank) {
    QPainterPath fringe;
    fringe.moveTo(15.5, 14.6);
    fringe.cubicTo(15.2, 8.2, 26.8, 8.2, 26.5, 14.6);
    fringe.cubicTo(24.2, 11.6, 17.8, 11.6, 15.5, 14.6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(hairColour(rank));
    painter.drawPath(fringe);
}

void paintBeard(QPainter& painter) {
    QPainterPath beard;
    beard.moveTo(15.5, 15.8);
    beard.cubicTo(15.6, 22.2, 18.4, 25.8, kMidX, 27.0);
    beard.cubicTo(23.6, 25.8, 26.4, 22.2, 26.5, 15.8);
    beard.cubicTo(25.0, 19.8, 17.0, 19.8, 15.5, 15.8);
    painter.setPen(inkPen());
    painter.setBrush(hairColour(13));
    painter.drawPath(beard);
}

void paintJewel(QPainter& painter, QPointF at, qreal radius, QColor colour) {
    painter.setPen(inkPen(0.3));
    painter.setBrush(colour);
    painter.drawEllipse(at, radius, radius);
}

void paintCrown(QPainter& painter, Suit suit) {
    QPainterPath crown;
    crown.moveTo(15.2, 11.6);
    crown.lineTo(14.6, 4.6);
    crown.lineTo(18.0, 8.0);
    crown.lineTo(kMidX, 2.6);
    crown.lineTo(24.0, 8.0);
    crown.lineTo(27.4, 4.6);
    crown.lineTo(26.8, 11.6);
    crown.closeSubpath();
    painter.setPen(inkPen());
    painter.setBrush(QColor(kGold));
    painter.drawPath(crown);
    painter.setPen(inkPen(0.35));
    painter.drawLine(QPointF(15.1, 10.0), QPointF(26.9, 10.0));
    paintJewel(painter, {14.6, 4.3}, 0.9, Qt::white);
    paintJewel(painter, {kMidX, 2.4}, 1.0, Qt::white);
    paintJewel(painter, {27.4, 4.3}, 0.9, Qt::white);
    paintJewel(painter, {kMidX, 8.6}, 1.0, suitColour(suit));
}

void paintCoronet(QPainter& painter, Suit suit) {
    QPainterPath band;
    band.moveTo(15.6, 11.2);
    band.cubicTo(17.0, 6.6, 25.0, 6.6, 26.4, 11.2);
    band.cubicTo(24.0, 9.8, 18.0, 9.8, 15.6, 11.2);
    painter.setPen(inkPen());
    painter.setBrush(QColor(kGold));
    painter.drawPath(band);
    for (qreal x : {17.0, kMidX, 25.0}) {
        const qreal top = x == kMidX ? 4.4 : 6.4;
        painter.setPen(inkPen(0.5));
        painter.drawLine(QPointF(x, top + 1.0), QPointF(x, 8.6));
        paintJewel(painter, {x, top}, x == kMidX ? 1.3 : 1.0,
                   x == kMidX ? suitColour(suit) : QColor(Qt::white));
    }
}

void paintCap(QPainter& painter, Suit suit) {
    QPainterPath feather;
    feather.moveTo(25.0, 8.6);
    feather.cubicTo(28.0, 3.0, 32.0, 1.6, 35.6, 1.8);
    feather.cubicTo(33.0, 4.2, 30.0, 7.4, 25.8, 10.2);
    feather.closeSubpath();
    painter.setPen(inkPen());
    painter.setBrush(Qt::white);
    painter.drawPath(feather);

    QPainterPath cap;
    cap.moveTo(14.2, 11.4);
    cap.cubicTo(13.8, 4.6, 28.2, 4.6, 27.8, 11.4);
    cap.closeSubpath();
    painter.setBrush(robeColour(suit));
    painter.drawPath(cap);
    painter.setBrush(QColor(kGold));
    painter.drawRoundedRect(QRectF(13.6, 10.2, 14.8, 2.2), 1, 1);
}

// What each figure holds: the king a sceptre, the queen a rose, the jack a staff.
void paintSceptre(QPainter& painter, Suit suit) {
    painter.setPen(QPen(kInk, 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(35.0, 30.0), QPointF(35.0, 12.0));
    painter.setPen(QPen(QColor(kGold), 0.9, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(35.0, 30.0), QPointF(35.0, 12.0));
    paintPip(painter, suit, QRectF(32.4, 7.0, 5.2, 5.6));
}

// Red ink stays on the red suits: the black queens hold a white rose.
void paintRose(QPainter& painter, Suit suit) {
    painter.setPen(QPen(QColor(0x2F6B2F), 0.7));
    painter.drawLine(QPointF(7.0, 30.0), QPointF(7.8, 19.0));
    const QColor petals = isRed(suit) ? QColor(kRed) : QColor(Qt::white);
    const QPointF heart(7.8, 17.4);
    for (const QPointF& offset : {QPointF(0, -1.3), QPointF(1.25, -0.4), QPointF(0.8, 1.05),
                                  QPointF(-0.8, 1.05), QPointF(-1.25, -0.4)}) {
        paintJewel(painter, heart + offset, 1.05, petals);
    }
    paintJewel(painter, heart, 0.7, QColor(kGold));
}

void paintStaff(QPainter& painter) {
    painter.setPen(QPen(kInk, 1.2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(6.5, 30.0), QPointF(6.5, 11.0));
    QPainterPath head;
    head.moveTo(6.5, 6.0);
    head.lineTo(8.4, 10.6);
    head.lineTo(4.6, 10.6);
    head.closeSubpath();
    painter.setPen(inkPen());
    painter.setBrush(QColor(0xC9CED6));
    painter.drawPath(head);
}

void paintFigure(QPainter& painter, int rank, Suit suit) {
    if (rank == 12) {
        paintQueenHair(painter);
    }
    paintRobe(painter, suit);
    paintNeckAndHead(painter);
    paintFringe(painter, rank);
    switch (rank) {
        case 11:
            paintGoldCollar(painter);
            paintCap(painter, suit);
            paintStaff(painter);
            break;
        case 12:
            paintGoldCollar(painter);
            paintCoronet(painter, suit);
            paintRose(painter, suit);
            break;
        default:
            paintBeard(painter);
            paintErmine(painter);
            paintCrown(painter, suit);
            paintSceptre(painter, suit);
            break;
    }
}

void paintHalf(QPainter& painter, const QRectF& panel, int rank, Suit suit) {
    painter.save();
    painter.translate(panel.topLeft());
    painter.scale(panel.width() / kHalfWidth, panel.height() / (2 * kHalfHeight));
    paintFigure(painter, rank, suit);
    // The corner pip beside the head, as on printed courts.
    const QRectF pipBox = rank == 13 ? QRectF(2.4, 2.4, 5.4, 6.0) : QRectF(34.2, 13.6, 5.4, 6.0);
    paintPip(painter, suit, pipBox);
    painter.restore();
}

void paintFrame(QPainter& painter, const QRectF& panel, Suit suit) {
    painter.setPen(QPen(suitColour(suit), 0.8));
    painter.setBrush(kPanel);
    painter.drawRect(panel);
    painter.setPen(QPen(QColor(kGold), 0.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(panel.adjusted(1.3, 1.3, -1.3, -1.3));
}

}  // namespace

void paintCourtPanel(QPainter& painter, const QRectF& panel, int rank, Suit suit) {
    painter.save();
    paintFrame(painter, panel, suit);
    painter.setClipRect(panel.adjusted(1.6, 1.6, -1.6, -1.6));
    paintHalf(painter, panel, rank, suit);
    const QPointF centre = panel.center();
    painter.translate(centre);
    painter.rotate(180);
    painter.translate(-centre);
    paintHalf(painter, panel, rank, suit);
    painter.restore();
}

}  // namespace platform::artwork::detail

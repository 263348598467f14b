// The faces of the cards. The full design is laid out in the units of a 71 x 96 card and
// scaled to its target; below about 44 pixels wide a simpler face takes over, with a big
// index and one big pip, because pip rows would turn to mush there.
#include <algorithm>
#include <array>
#include <span>

#include "artwork/artwork_detail.h"
#include "artwork/cardface.h"

namespace platform::artwork::detail {
namespace {

// Where a pip stands, in units of a 71 x 96 card. Pips below the middle are turned round.
struct PipSpot {
    qreal x;
    qreal y;
};

constexpr qreal kLeft = 22.5;
constexpr qreal kMid = 35.5;
constexpr qreal kRight = 48.5;
constexpr qreal kTop = 17.5;
constexpr qreal kBottom = 78.5;
constexpr qreal kCentre = 48.0;
constexpr qreal kUpperThird = kTop + (kBottom - kTop) / 3;
constexpr qreal kLowerThird = kBottom - (kBottom - kTop) / 3;
constexpr qreal kUpperQuarter = (kTop + kCentre) / 2;
constexpr qreal kLowerQuarter = (kBottom + kCentre) / 2;
constexpr qreal kTenHigh = (kTop + kUpperThird) / 2;
constexpr qreal kTenLow = (kBottom + kLowerThird) / 2;

constexpr std::array<PipSpot, 2> kTwo{{{kMid, kTop}, {kMid, kBottom}}};
constexpr std::array<PipSpot, 3> kThree{{{kMid, kTop}, {kMid, kCentre}, {kMid, kBottom}}};
constexpr std::array<PipSpot, 4> kFour{
    {{kLeft, kTop}, {kRight, kTop}, {kLeft, kBottom}, {kRight, kBottom}}};
constexpr std::array<PipSpot, 5> kFive{
    {{kLeft, kTop}, {kRight, kTop}, {kMid, kCentre}, {kLeft, kBottom}, {kRight, kBottom}}};
constexpr std::array<PipSpot, 6> kSix{{{kLeft, kTop},
                                       {kRight, kTop},
                                       {kLeft, kCentre},
                                       {kRight, kCentre},
                                       {kLeft, kBottom},
                                       {kRight, kBottom}}};
constexpr std::array<PipSpot, 7> kSeven{{{kLeft, kTop},
                                         {kRight, kTop},
                                         {kMid, kUpperQuarter},
                                         {kLeft, kCentre},
                                         {kRight, kCentre},
                                         {kLeft, kBottom},
                                         {kRight, kBottom}}};
constexpr std::array<PipSpot, 8> kEight{{{kLeft, kTop},
                                         {kRight, kTop},
                                         {kMid, kUpperQuarter},
                                         {kLeft, kCentre},
                                         {kRight, kCentre},
                                         {kMid, kLowerQuarter},
                                         {kLeft, kBottom},
                                         {kRight, kBottom}}};
constexpr std::array<PipSpot, 9> kNine{{{kLeft, kTop},
                                        {kRight, kTop},
                                        {kLeft, kUpperThird},
                                        {kRight, kUpperThird},
                                        {kMid, kCentre},
                                        {kLeft, kLowerThird},
                                        {kRight, kLowerThird},
                                        {kLeft, kBottom},
                                        {kRight, kBottom}}};
constexpr std::array<PipSpot, 10> kTen{{{kLeft, kTop},
                                        {kRight, kTop},
                                        {kMid, kTenHigh},
                                        {kLeft, kUpperThird},
                                        {kRight, kUpperThird},
                                        {kLeft, kLowerThird},
                                        {kRight, kLowerThird},
                                        {kMid, kTenLow},
                                        {kLeft, kBottom},
                                        {kRight, kBottom}}};

std::span<const PipSpot> pipSpots(int rank) {
    switch (rank) {
        case 2:
            return kTwo;
        case 3:
            return kThree;
        case 4:
            return kFour;
        case 5:
            return kFive;
        case 6:
            return kSix;
        case 7:
            return kSeven;
        case 8:
            return kEight;
        case 9:
            return kNine;
        case 10:
            return kTen;
        default:
            return {};
    }
}

constexpr qreal kPipWidth = 11.4;
constexpr qreal kPipHeight = 12.6;
const QPointF kCardCentre(kCardWidth / 2.0, kCardHeight / 2.0);

QRectF boxAround(QPointF centre, qreal width, qreal height) {
    return {centre.x() - width / 2, centre.y() - height / 2, width, height};
}

// Rank over suit in the top left corner; narrow enough to read in a fifth of the card.
// Smaller cards get a relatively larger index, which the strip of a fan can still hold.
void paintIndex(QPainter& painter, int rank, Suit suit, qreal enlarge) {
    constexpr qreal centreX = 7.4;
    painter.save();
    painter.scale(enlarge, enlarge);
    painter.setPen(Qt::NoPen);
    painter.setBrush(suitColour(suit));
    painter.drawPath(glyphPath(rankText(rank), centreX, 4.0, 10.5, 11.0));
    paintPip(painter, suit, boxAround({centreX, 21.8}, 8.6, 9.4));
    painter.restore();
}

void paintBothIndices(QPainter& painter, int rank, Suit suit, qreal cardWidth) {
    const qreal enlarge = std::clamp(1.0 + (kCardWidth - cardWidth) * 0.009, 1.0, 1.15);
    paintIndex(painter, rank, suit, enlarge);
    painter.save();
    painter.translate(kCardCentre);
    painter.rotate(180);
    painter.translate(-kCardCentre);
    paintIndex(painter, rank, suit, enlarge);
    painter.restore();
}

void paintPips(QPainter& painter, int rank, Suit suit) {
    for (const PipSpot& spot : pipSpots(rank)) {
        paintPip(painter, suit, boxAround({spot.x, spot.y}, kPipWidth, kPipHeight),
                 spot.y > kCentre);
    }
}

// The ace of spades carries the maker's flourish: a larger pip in a thin gilt ring.
void paintAceOfSpades(QPainter& painter) {
    const QRectF box = boxAround(kCardCentre, 31, 34);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(kGold), 1.1));
    painter.drawEllipse(kCardCentre, 20.8, 20.8);
    painter.setPen(QPen(QColor(kGold), 0.5));
    painter.drawEllipse(kCardCentre, 18.9, 18.9);
    paintPip(painter, Suit::spades, box);
    painter.setPen(QPen(Qt::white, 0.8));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(suitPath(Suit::spades, box.adjusted(3.9, 4.1, -3.9, -4.4)));
}

void paintAce(QPainter& painter, Suit suit) {
    if (suit == Suit::spades) {
        paintAceOfSpades(painter);
        return;
    }
    paintPip(painter, suit, boxAround(kCardCentre, 28, 31));
}

// Paints in the units of a 71 x 96 card placed on `card`.
void enterCardUnits(QPainter& painter, const QRectF& card) {
    painter.translate(card.topLeft());
    painter.scale(card.width() / kCardWidth, card.height() / kCardHeight);
}

}  // namespace

QPainterPath cardOutline(const QRectF& card) {
    const qreal radius = std::max(1.5, card.width() * 0.065);
    QPainterPath outline;
    outline.addRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    return outline;
}

void paintCardBody(QPainter& painter, const QRectF& card, QColor face) {
    painter.save();
    painter.setPen(QPen(QColor(kCardBorder), 1.0));
    painter.setBrush(face);
    painter.drawPath(cardOutline(card));
    painter.restore();
}

void paintFullFace(QPainter& painter, const QRectF& card, int drawId, QColor face) {
    paintCardBody(painter, card, face);
    const int rank = rankOf(drawId);
    const Suit suit = suitOf(drawId);
    painter.save();
    enterCardUnits(painter, card);
    paintBothIndices(painter, rank, suit, card.width());
    if (rank == 1) {
        paintAce(painter, suit);
    } else if (rank > 10) {
        paintCourtPanel(painter, QRectF(14.5, 10, 42, 76), rank, suit);
    } else {
        paintPips(painter, rank, suit);
    }
    painter.restore();
}

void paintSmallFace(QPainter& painter, const QRectF& card, int drawId, QColor face) {
    paintCardBody(painter, card, face);
    const int rank = rankOf(drawId);
    const Suit suit = suitOf(drawId);
    painter.save();
    painter.translate(card.topLeft());
    painter.scale(card.width() / 27.0, card.height() / 36.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(suitColour(suit));
    painter.drawPath(glyphPath(rankText(rank), 6.6, 2.4, 9.6, 9.0));
    paintPip(painter, suit, boxAround({6.6, 18.4}, 7.0, 7.6));
    if (rank > 10) {
        painter.setPen(QPen(QColor(kGold), 0.9));
        painter.setBrush(QColor(0xFBF3DC));
        painter.drawRoundedRect(QRectF(11.2, 13.6, 12.6, 19.6), 1.5, 1.5);
        paintPip(painter, suit, boxAround({17.5, 23.4}, 9.4, 10.4));
    } else {
        paintPip(painter, suit, boxAround({17.4, 23.6}, 13.6, 15.0));
    }
    painter.restore();
}

void paintPlaceholder(QPainter& painter, const QRectF& card) {
    painter.save();
    QPen dashed(QColor(kRed), 1.0, Qt::DashLine);
    painter.setPen(dashed);
    painter.setBrush(QColor(0xE6E6E6));
    painter.drawPath(cardOutline(card));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kRed));
    painter.drawPath(glyphPath(QStringLiteral("?"), card.center().x(),
                               card.top() + card.height() * 0.3, card.height() * 0.4,
                               card.width() * 0.6));
    painter.restore();
}

}  // namespace platform::artwork::detail

// Shared pieces of the card painter and the pictures: suit shapes, colours, glyph outlines,
// canvases at a device pixel ratio, and the table seen from above.
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <QString>
#include <span>

namespace platform::artwork::detail {

enum class Suit { clubs = 0, diamonds = 1, hearts = 2, spades = 3 };

inline constexpr QRgb kRed = 0xC8102E;
inline constexpr QRgb kBlack = 0x1A1A1A;
inline constexpr QRgb kGold = 0xD4A437;
inline constexpr QRgb kGoldDark = 0x8A6416;
inline constexpr QRgb kCardBorder = 0x8E8E8E;
inline constexpr QRgb kFelt = 0x1E6B3A;

inline constexpr int kCardWidth = 71;
inline constexpr int kCardHeight = 96;

constexpr bool isValidDrawId(int drawId) {
    return drawId >= 0 && drawId < 52;
}
constexpr int rankOf(int drawId) {
    return drawId / 4 + 1;
}  // ace 1 .. king 13
constexpr Suit suitOf(int drawId) {
    return static_cast<Suit>(drawId % 4);
}
constexpr bool isRed(Suit suit) {
    return suit == Suit::diamonds || suit == Suit::hearts;
}
inline QColor suitColour(Suit suit) {
    return QColor(isRed(suit) ? kRed : kBlack);
}

// The outline of a suit symbol filling `box` (pips stand a little taller than wide).
QPainterPath suitPath(Suit suit, const QRectF& box);
// The suit symbol filling `box`, turned half round about its centre when `upsideDown`.
void paintPip(QPainter& painter, Suit suit, const QRectF& box, bool upsideDown = false);

// The outline of `text` in a bold face, its ink scaled to `height` and centred on `centreX`,
// its top at `top`; squeezed sideways if wider than `maxWidth`.
QPainterPath glyphPath(const QString& text, qreal centreX, qreal top, qreal height, qreal maxWidth,
                       bool serif = false);
// "A", "2" .. "10", "J", "Q", "K".
QString rankText(int rank);

// A transparent (or `fill`ed) image of `logical` size at `dpr`, ready for a QPainter.
QImage makeCanvas(QSize logical, qreal dpr, QColor fill = Qt::transparent);
// Antialiased painter on `image`, in logical coordinates.
void prepare(QPainter& painter);

// The card body: white rounded card with a thin grey border; the radius follows the size.
void paintCardBody(QPainter& painter, const QRectF& card, QColor face);
QPainterPath cardOutline(const QRectF& card);

// Faces: the full design (natural size and down to about 44 wide) and the small one.
void paintFullFace(QPainter& painter, const QRectF& card, int drawId, QColor face);
void paintSmallFace(QPainter& painter, const QRectF& card, int drawId, QColor face);
void paintPlaceholder(QPainter& painter, const QRectF& card);
// The picture of a jack, queen or king inside `panel` (design units of a 71 x 96 card).
void paintCourtPanel(QPainter& painter, const QRectF& panel, int rank, Suit suit);

// Two cards of one size, the first turned by -degrees, the second by +degrees about their
// centres; the second lies on top.
struct Fan {
    QSizeF card;
    QPointF first;
    QPointF second;
    qreal degrees;
};
QImage fanOfFaces(QSize size, qreal dpr, const Fan& fan, int firstDrawId, int secondDrawId,
                  QColor ground);
QImage fanOfBacks(QSize size, qreal dpr, const Fan& fan);

// The table seen from above: a rounded oval of felt in a padded rail, with chairs.
struct TableShape {
    QPointF centre;
    qreal feltRadiusX;
    qreal feltRadiusY;
    qreal railWidth;
    qreal chairSize;  // across a chair
};
QPainterPath tableOval(QPointF centre, qreal radiusX, qreal radiusY);
// Paints chairs behind the rail facing `seats` (points on the felt), then rail and felt.
void paintTable(QPainter& painter, const TableShape& shape, std::span<const QPointF> seats);

}  // namespace platform::artwork::detail

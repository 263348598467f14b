// The card library: the size of a card and its face, painted as vectors with QPainter,
// so cards are crisp at any size and on HiDPI screens.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRgb>
#include <cstdint>

namespace platform {

// The card size in pixels at its natural scale: 71 x 96.
void cdtInit(std::int32_t& width, std::int32_t& height);

// Paints the face of card `card` (draw id 0..51: (value - 1) * 4 + suit, ace = 1,
// suits clubs 0, diamonds 1, hearts 2, spades 3) with its top left corner at (x, y),
// at the natural size. `mode` 0 paints the face; `colour` is the face's background.
// An id outside 0..51 paints a visible placeholder rather than nothing.
void cdtDraw(QPainter& surface, int x, int y, int card, int mode, QRgb colour);

// The face of card `drawId` at any size (e.g. 54 x 72 or 27 x 36), for a device pixel ratio.
// Rendered once per (card, size, ratio) and cached.
QImage cardFaceImage(int drawId, QSize size, qreal devicePixelRatio = 1.0);

// Paints a card face into `target` (logical coordinates) at any size.
void paintCardFace(QPainter& painter, const QRectF& target, int drawId);

// Paints a card back into `target`.
void paintCardBack(QPainter& painter, const QRectF& target);

// "Ace of Spades", "Ten of Hearts"... for a draw id; empty for an id outside 0..51.
QString cardName(int drawId);

}  // namespace platform

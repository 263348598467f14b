// The pictures of the program, painted here at the sizes the controls show them.
// Each takes a device pixel ratio so it stays crisp on HiDPI screens; sizes are logical pixels.
#pragma once

#include <QImage>
#include <QPoint>
#include <array>

namespace platform::artwork {

// The sample game: the table seen from above with felt, rail and eight seats, 643 x 539.
QImage pokerTable(qreal dpr = 1.0);
// Two cards face down, slightly fanned, 39 x 41 (all eight seats).
QImage pocketBacks(qreal dpr = 1.0);
// One community card face, 54 x 72.
QImage boardCard(int drawId, qreal dpr = 1.0);
// Two face-up cards fanned: 67 x 70 (ten and four of clubs) and 66 x 70 (jacks).
QImage showdownFan(int firstDrawId, int secondDrawId, QSize size, qreal dpr = 1.0);
// The dealer button: a disc with a D, 26 x 23, on a transparent ground.
QImage dealerButton(qreal dpr = 1.0);

// The promotion window: the reduced table seen from above, 397 x 285.
QImage promotionTable(qreal dpr = 1.0);
// Where the promotion window puts each seat's small face-down pair on that picture (top left
// of 22 x 23 boxes); the picture's chairs face their centres.
inline constexpr std::array<QPoint, 9> kPromotionSeatTopLeft{{{41, 112},
                                                              {61, 58},
                                                              {129, 37},
                                                              {258, 37},
                                                              {312, 58},
                                                              {332, 114},
                                                              {306, 158},
                                                              {237, 169},
                                                              {69, 156}}};
// Two small cards face down, 20 x 21.
QImage smallBacks(qreal dpr = 1.0);
// Two face-up cards, 40 x 42 (the jacks of hearts and diamonds).
QImage frontPair(int firstDrawId, int secondDrawId, qreal dpr = 1.0);
// One small card face, 27 x 36.
QImage smallCard(int drawId, qreal dpr = 1.0);
// A small award ribbon picture, 62 x 17.
QImage awardBadge(qreal dpr = 1.0);

// The program's icon at size x size pixels (painted at build time for the window and the
// desktop).
QImage iconImage(int size);

}  // namespace platform::artwork

// Cards on the two drawing surfaces, fanned from left to right.
#include <cmath>

#include "platform/cardface.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"

void frmMain::DrawHandOneCard(std::int16_t key) {
    drawCardOn(picShow, key);
}

void frmMain::DrawHandTwoCard(std::int16_t key) {
    drawCardOn(picLabels, key);
}

void frmMain::drawCardOn(platform::PictureBox* surface, std::int16_t key) {
    // The sum is taken in floating point: the fifth of a card is not rounded by itself.
    xincr = static_cast<std::int32_t>(std::nearbyint(cWidth / 5.0 + xincr));
    const int y =
        static_cast<int>(std::nearbyint((surface->ScaleHeight() / 5) / platform::kTwipsPerPixel));
    const std::int16_t card = cards::DrawIdOfKey(key, keyMap);
    if (card < 0)
        return;  // no such card: nothing is drawn, the hand goes on with a gap
    const int x = xincr;
    surface->drawOnSurface(
        [&](QPainter& painter) { platform::cdtDraw(painter, x, y, card, 0, 0xFFFFFF); });
    surface->noteDrawn(platform::cardName(card));
    surface->Refresh();
}

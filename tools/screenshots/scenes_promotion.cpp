#include <QTimer>

#include "promotion/frmPacific.h"
#include "scenes.h"

namespace {

// The board card that slides farthest, and where it stands once the board is spread.
constexpr std::size_t kLastBoardCard = 4;
constexpr double kSpreadLeft = 1905 + 1644;

// Closing the main window opens the promotion window; its animation is stopped the moment
// the five board cards stand spread out, and that window is saved.
screenshots::Register promotion("promotion", [](frmMain& form) {
    QTimer watch;
    watch.setInterval(20);
    QObject::connect(&watch, &QTimer::timeout, [&form] {
        frmPacific* window = form.promotionWindow();
        if (window == nullptr || window->isEnd)
            return;
        const auto* card = window->Picture1.at(kLastBoardCard);
        if (card->isHidden() || card->Left() < kSpreadLeft)
            return;
        window->isEnd = true;
        screenshots::saveWindowInstead(window);
    });
    watch.start();
    form.Form_QueryUnload();
});

}  // namespace

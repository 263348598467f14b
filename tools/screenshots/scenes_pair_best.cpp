// The Pre-Flop Pair Value exercise with a picked pair, and a Best Hand board with its answer.
#include "scenes.h"

namespace {

void press(frmMain& form, int key) {
    screenshots::control<QPushButton>(form, QStringLiteral("cmdKey(%1)").arg(key))->click();
    screenshots::settle(150);
}

// The first key of the keyboard that is open, from `from` on.
int firstOpenKey(const frmMain& form, int from) {
    for (int key = from; key < 52; ++key) {
        if (screenshots::control<QPushButton>(form, QStringLiteral("cmdKey(%1)").arg(key))
                ->isEnabled()) {
            return key;
        }
    }
    return -1;
}

screenshots::Register pairValue("pair_value", [](frmMain& form) {
    screenshots::clickTopic(form, QStringLiteral("Starting Pair Awareness"));
    screenshots::settle(200);
    screenshots::control<QPushButton>(form, QStringLiteral("cmdStart3A"))->click();
    press(form, 38);  // ace of spades
    press(form, 35);  // jack of spades
});

screenshots::Register bestHand("best_hand", [](frmMain& form) {
    screenshots::clickTopic(form, QStringLiteral("Best Hand Recognition"));
    screenshots::settle(200);
    screenshots::control<QPushButton>(form, QStringLiteral("cmdStart4"))->click();
    screenshots::settle(150);
    const int first = firstOpenKey(form, 20);
    press(form, first);
    press(form, firstOpenKey(form, first + 14));
});

}  // namespace

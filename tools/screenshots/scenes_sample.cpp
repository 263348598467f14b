// The sample game's table at four moments of the hand: the deal, the flop, the showdown and
// the offer at the end. The steps play with their real waits.
#include "scenes.h"

namespace {

void playSampleTo(frmMain& form, int step) {
    screenshots::clickTopic(form, QStringLiteral("Sample Poker Game"));
    for (int shown = 1; shown < step; ++shown)  // the hand opens on its first step
        screenshots::control<QPushButton>(form, QStringLiteral("cmdNext"))->click();
}

screenshots::Register afterDeal("sample_step03", [](frmMain& form) { playSampleTo(form, 3); });
screenshots::Register afterFlop("sample_step11", [](frmMain& form) { playSampleTo(form, 11); });
screenshots::Register showdown("sample_step32", [](frmMain& form) { playSampleTo(form, 32); });
screenshots::Register offer("sample_step34", [](frmMain& form) { playSampleTo(form, 34); });

}  // namespace

// PLACEHOLDER: replaced by the Poker Hand Names / Rankings implementation.
#include "shell/frmMain.h"
void frmMain::ShowHandNamesScreen() {}
void frmMain::cmdStart1A_Click() {}
void frmMain::cmdStart1B_Click() {}
std::int16_t frmMain::DealRandomHand() { return 0; }
void frmMain::nameClickNamesRandom(std::int16_t) {}
void frmMain::ShowRankingsScreen() {}
void frmMain::cmdStart2A_Click() {}
void frmMain::cmdStart2B_Click() {}
std::int16_t frmMain::DealSecondHand() { return 0; }
void frmMain::picShow_Click() {}
void frmMain::picLabels_Click() {}

// PLACEHOLDER: replaced by the Pre-Flop Pair Value implementation.
#include "shell/frmMain.h"
void frmMain::ShowPairValueScreen() {}
void frmMain::cmdStart3A_Click() {}
void frmMain::cmdStart3B_Click() {}
std::int16_t frmMain::DealRandomPair() { return 0; }
void frmMain::keyPressPairPick(std::int16_t) {}
void frmMain::nameClickPairRandom(std::int16_t) {}
std::int16_t frmMain::PairValueKey(const cards::Hand&) { return 0; }

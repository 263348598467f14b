// PLACEHOLDER: replaced by the Best Hand Recognition implementation.
#include "shell/frmMain.h"
void frmMain::ShowBestHandScreen() {}
void frmMain::cmdStart4_Click() {}
void frmMain::DealBoard() {}
void frmMain::BoardFlushPossible() {}
void frmMain::ReadBoard() {}
void frmMain::keyPressBestHand(std::int16_t) {}

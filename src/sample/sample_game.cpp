// PLACEHOLDER: replaced by the sample game implementation.
#include "shell/frmMain.h"
void frmMain::ShowSampleGame() {}
void frmMain::ShowSampleDeal() {}
void frmMain::ShowSampleFlop() {}
void frmMain::ShowSampleTurn() {}
void frmMain::ShowSampleRiver() {}
void frmMain::ShowSampleShowdown() {}
void frmMain::shortDelay(std::int32_t) {}
void frmMain::cmdNext_Click() {}

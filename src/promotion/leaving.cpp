// PLACEHOLDER: replaced by the promotion windows and the ways out.
#include "shell/frmMain.h"
void frmMain::Form_QueryUnload() {}
void frmMain::lblEnough_Click() {}

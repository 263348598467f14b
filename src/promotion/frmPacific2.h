// The promotion window the program opens: the twin of frmPacific with the school's texts
// and link and no facts panel.
#pragma once

#include "promotion/frmPacific.h"

class frmPacific2 final : public frmPacific {
    Q_OBJECT
  public:
    explicit frmPacific2(frmMain& main);
};

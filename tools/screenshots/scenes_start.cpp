#include "scenes.h"

namespace {
screenshots::Register start("start", [](frmMain&) { screenshots::settle(1500); });
}  // namespace

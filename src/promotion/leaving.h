// Leaving the school: what the main window needs of the promotion folder before it opens.
#pragma once

#include "platform/controls.h"

namespace promotion {
// The tooltip of the link at the end of the sample game names the room's address.
void setEnoughTip(platform::Label& lblEnough);
}  // namespace promotion

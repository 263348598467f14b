// The ways out of the main window: its close opens the promotion window, and the link at
// the end of the sample game leaves for the web page at once.
#include "promotion/leaving.h"

#include "platform/mDefs.h"
#include "promotion/frmPacific2.h"
#include "promotion/open_url.h"
#include "shell/frmMain.h"

namespace promotion {

void setEnoughTip(platform::Label& lblEnough) {
    lblEnough.setToolTip(QStringLiteral("Play poker online for free at ") + mDefs::RoomPage() +
                         QStringLiteral(" get free $1000 play chips for practice. "));
}

}  // namespace promotion

void frmMain::Form_QueryUnload() {
    if (!promoteOnClose)
        return;
    // The promotion runs once: a second close while it runs (the promotion window unloading
    // this one, another click on the close box) starts nothing.
    if (inQueryUnload_ || platform::programEnding())
        return;
    inQueryUnload_ = true;
    // The main window makes way; it stays loaded until the program ends.
    hide();
    if (!promotion_) {
        promotion_ = mDefs::showRoomOffer ? new frmPacific(*this) : new frmPacific2(*this);
    }
    promotion_->Show();
}

void frmMain::lblEnough_Click() {
    mDefs::OpenUrl(QStringLiteral("open"), mDefs::LinkTarget(), 0, 0, 1);
    promoteOnClose = false;
    platform::DoEvents();
    Unload();
    platform::EndProgram();
}

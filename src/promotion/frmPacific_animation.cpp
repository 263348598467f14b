// The promotion window's animation and its ways out. The animation runs inside Show(): its
// waits serve events, so the close box and the button are handled in the middle of it, and
// both end the program from there.
#include <exception>

#include "platform/mDefs.h"
#include "promotion/frmPacific.h"
#include "promotion/open_url.h"
#include "shell/frmMain.h"

namespace {
constexpr int kSlideTurns = 411;
constexpr std::size_t kFrontSeat = 7;  // after this seat the front player's cards turn up
}  // namespace

void frmPacific::Show() {
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
    if (!over())
        show();
}

bool frmPacific::over() const {
    return isEnd || platform::programEnding();
}

void frmPacific::Form_Load() {
    for (auto* seat : Picture2)
        seat->setVisible(false);
    for (std::size_t card = 0; card < 4; ++card)
        Picture1.at(card)->setVisible(false);
    StartPromotion();
}

void frmPacific::StartPromotion() {
    // On the screen first, so the animation is seen while it runs.
    show();
    activateWindow();
    Command1_Click();
}

void frmPacific::shortDelay(std::int32_t delayTime) {
    platform::WaitServingEvents(delayTime, [this] { return over(); });
}

void frmPacific::Command1_Click() {
    try {
        shortDelay(1000);
        while (!over()) {
            dealSeats();
            shortDelay(800);
            showBoardStack();
            slideBoard(+1);
            shortDelay(2500);
            if (!over())
                Command2_Click();
            shortDelay(3500);
        }
    } catch (const std::exception&) {
        // The animation only stops; the window stays as it is.
    }
}

void frmPacific::dealSeats() {
    for (std::size_t seat = 0; seat < Picture2.size(); ++seat) {
        if (over())
            return;
        Picture2.at(seat)->setVisible(true);
        shortDelay(125);
        platform::DoEvents();
        if (seat == kFrontSeat) {
            Picture3->setVisible(true);
            shortDelay(150);
        }
    }
}

void frmPacific::showBoardStack() {
    for (std::size_t card = 0; card < 5; ++card) {
        if (over())
            return;
        Picture1.at(card)->setVisible(true);
        platform::DoEvents();
    }
}

void frmPacific::slideBoard(int direction) {
    for (int turn = 0; turn < kSlideTurns; ++turn) {
        if (over())
            return;
        for (std::size_t card = 1; card < 5; ++card) {
            auto* box = Picture1.at(card);
            box->setLeft(box->Left() + direction * static_cast<double>(card));
        }
        platform::DoEvents();
    }
}

void frmPacific::Command2_Click() {
    try {
        if (over())
            return;
        for (auto* seat : Picture2) {
            seat->setVisible(false);
            platform::DoEvents();
        }
        Picture3->setVisible(false);
        for (std::size_t card = 0; card < 5; ++card) {
            if (over())
                break;
            Picture1.at(card)->setVisible(false);
            platform::DoEvents();
        }
        slideBoard(-1);
        shortDelay(400);
    } catch (const std::exception&) {
        // As in the animation loop: the routine only ends.
    }
}

void frmPacific::cmdPokerRoom_Click() {
    if (over())
        return;
    const QString address = look_.linkFollowsOffer ? mDefs::LinkTarget() : mDefs::SchoolPage();
    mDefs::OpenUrl(QStringLiteral("open"), address, 0, 0, 1);
    platform::DoEvents();
    main_.Unload();
    platform::EndProgram();
}

void frmPacific::Form_QueryUnload() {
    if (over())
        return;  // the program is ending already; nothing to do twice
    isEnd = true;
    main_.Unload();
    platform::EndProgram();
}

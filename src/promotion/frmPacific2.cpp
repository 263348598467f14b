#include "promotion/frmPacific2.h"

#include "promotion/open_url.h"

namespace {

const promotion::Look& schoolLook() {
    static const promotion::Look look{
        .caption = QStringLiteral("Play Poker Online for FREE ... Real People Real Fun"),
        .label2Text = mDefs::RoomName() + QStringLiteral(" Sample Table"),
        .label2 = {2130, 45, 2100, 195},
        .label28Left = 2580,
        .pokerRoomCaption = QStringLiteral("Home Page"),
        .pokerRoomLeft = 2325,
        .pokerRoomTop = 6465,
        .picture4 = {330, 4905, 5895, 1380},
        .label44 = {120, 240, 5655, 780},
        .label44Text = QStringLiteral(
            "Play poker online with real people for FREE. You get unlimited  $1000 play money "
            "account for practice without any risk. Visit our home page for the TOP- 10 Online "
            "Poker Rooms with review and screenshots and more free poker goodies"),
        .label1Text = mDefs::RoomTrademark(),
        .hasFactsPanel = false,
        .linkFollowsOffer = false,
    };
    return look;
}

}  // namespace

frmPacific2::frmPacific2(frmMain& main) : frmPacific(main, schoolLook()) {
    setObjectName(QStringLiteral("frmPacific2"));
}

#include "promotion/open_url.h"

#include "platform/mDefs.h"
#include "shell/frmMain.h"

namespace mDefs {

// The shell's "open" of a web address starts the browser with it; the parameters, the
// folder and the way of showing mean nothing to that hand-off.
void OpenUrl(const QString& /*operation*/, const QVariant& target, const QVariant& /*parameters*/,
             const QVariant& /*directory*/, std::int32_t /*showCommand*/) {
    platform::OpenAddress(target.toString());
}

// Both are fixed when the program is built; nothing at run time changes them.
QString RoomPage() {
    return QStringLiteral(TABLEWRIGHT_ROOM_URL);
}
QString SchoolPage() {
    return QStringLiteral(TABLEWRIGHT_SCHOOL_URL);
}
QString RoomName() {
    return QStringLiteral(TABLEWRIGHT_ROOM_NAME);
}
QString RoomTrademark() {
    return QStringLiteral(TABLEWRIGHT_ROOM_TRADEMARK);
}
QString LinkTarget() {
    return showRoomOffer ? RoomPage() : SchoolPage();
}

}  // namespace mDefs

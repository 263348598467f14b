// Opening a web address in the user's browser, and the two addresses the program knows.
#pragma once

#include <QString>
#include <QVariant>
#include <cstdint>

namespace mDefs {

// Hands `target` to the program the user's system has for it (the web browser) and returns
// at once; whether it opened is not looked at. Target, parameters and directory may be any
// value: they are used as text, so the number 0 is the text "0".
void OpenUrl(const QString& operation, const QVariant& target, const QVariant& parameters,
             const QVariant& directory, std::int32_t showCommand);

// The front page of the promoted poker room, with its referrer number.
QString RoomPage();
// The tutor's own page about playing online.
QString SchoolPage();
// The page the links open: the room's when showRoomOffer is set, else the school's.
QString LinkTarget();
// The promoted room's name, and the trade-mark line that goes with it (empty for none).
QString RoomName();
QString RoomTrademark();

}  // namespace mDefs

// What the logic asks of the platform, each as one replaceable function: the message box,
// sound, opening a web address, ending the program, the random source, the clock and the
// screen. The defaults are the real thing; tests swap in recorders so nothing blocks.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>

#include "cards/cards.h"

namespace platform {

struct Seams {
    std::function<void(const QString& text)> messageBox;
    std::function<void(const QString& path)> playSound;
    std::function<void(const QString& address)> openAddress;
    std::function<void(int exitCode)> endProgram;
    std::function<std::int64_t()> tickCount;  // monotonic milliseconds
    std::function<int()> screenWidthPixels;
    // Multiplies every wait; 0 makes the waits of the scenes instant (tests).
    double waitScale = 1.0;
    std::unique_ptr<cards::RandomSource> random;
};

// The one set of seams of the process. resetSeams() restores the real ones.
Seams& seams();
void resetSeams();

// Modal message box with an OK button and the program's default title.
void MsgBox(const QString& text);
// Plays a wave file in the background and returns at once; silence when it is missing.
void PlaySound(const QString& path);
// Hands the address to the user's browser and does not wait for it.
void OpenAddress(const QString& address);
// Ends the program: every wait and nested event loop returns, no window stays.
void EndProgram(int exitCode = 0);
// True once EndProgram has been called.
bool programEnding();
cards::RandomSource& Random();
std::int64_t TickCount();
int ScreenWidthPixels();

// The folder of the program file. Names are written as "\html\intro.html".
QString ApplicationFolder();
void setApplicationFolder(const QString& folder);  // tests
QString AppPath(const QString& backslashName);

// Serves events for `milliseconds` (scaled by waitScale) without spinning a core; returns
// early when `stop` turns true or the program ends. 0 returns without serving anything.
void WaitServingEvents(std::int32_t milliseconds, const std::function<bool()>& stop = {});
// Ends every wait now running (a stop flag was raised).
void InterruptWaits();
// Lets the events that are waiting through, once.
void DoEvents();

}  // namespace platform

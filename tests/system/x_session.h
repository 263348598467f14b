// The built program on a desktop of its own, acted on from outside as a user or the window
// system would: windows found by their title, asked to close as a window manager's close box
// asks (WM_DELETE_WINDOW), clicked with the pointer (the XTEST extension), looked at pixel by
// pixel.
//
//     system_test::Desktop desktop;                  // Xvfb + session bus + runtime folder
//     ASSERT_TRUE(desktop.running());
//     desktop.startProgram();                        // the built program, or any other file
//     desktop.waitForWindow(system_test::kMainTitle, 30'000);
//
// Every process the harness starts (the X server, the bus, the program) runs in a process
// group of its own, and everything in that group goes when its owner object goes: a
// bus-started helper with the bus, a browser-engine process with the program.
#pragma once

#include <QDeadlineTimer>
#include <QPoint>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <vector>

struct _XDisplay;

namespace system_test {

// The titles of the program's windows, as the window system sees them.
inline const QString kMainTitle = QStringLiteral("Tablewright..");
inline const QString kPromotionTitle =
    QStringLiteral("Play Poker Online for FREE ... Real People Real Fun");

// The test process's own application object, made once (Qt's processes and files need one).
void startApplication();

// Asks `done` every few milliseconds until it says yes or the time is up; its last answer.
template <typename Done>
bool pollUntil(int timeoutMs, Done done) {
    for (QDeadlineTimer deadline(timeoutMs); !done(); QThread::msleep(50)) {
        if (deadline.hasExpired())
            return false;
    }
    return true;
}

// Starts a server as the leader of a process group of its own; the first line it prints (its
// display, its address, its port), or nothing when it printed none in time.
QString startServer(QProcess& server, const QString& program, const QStringList& arguments);

// An X server (Xvfb, on the first free display), a session bus (dbus-daemon), a runtime
// folder (XDG_RUNTIME_DIR, mode 0700, holding the bus's socket) and a home, for the life of
// the object, and one program run there at a time.
class Desktop {
  public:
    Desktop();
    ~Desktop();

    bool running() const { return connection_ != nullptr && !busAddress_.isEmpty(); }
    QString runtimeFolder() const { return runtime_.path(); }

    // Starts the built program (or `program`) here, with these variables added to its
    // environment; false when it did not start. A stand-in for the desktop's URL opener is
    // put first on its search path, so a page it opens is recorded rather than shown.
    bool startProgram(const QStringList& arguments = {},
                      const QProcessEnvironment& extraEnvironment = {},
                      const QString& program = {});
    // Waits for the program to end; false when it did not end in time.
    bool waitForExit(int timeoutMs) { return program_.waitForFinished(timeoutMs); }
    // The code it ended with; -1 for a crash.
    int exitCode() const {
        return program_.exitStatus() == QProcess::NormalExit ? program_.exitCode() : -1;
    }
    // All the program has written on stderr, and the lines that are not notices of Qt or the
    // browser engine.
    QString errors() const;
    QStringList unexpectedErrorLines() const;
    // Polls what the program has written on stderr so far until a line matches; the match,
    // with no match when none came in time.
    QRegularExpressionMatch waitForErrorLine(const QString& pattern, int timeoutMs) const;
    // The addresses handed to the desktop's URL opener, waiting up to `timeoutMs` for the
    // first: the opener is started and not waited for, and may write after the program ended.
    QStringList openedAddresses(int timeoutMs = 0) const;

    // The mapped top-level windows with exactly this title, as X window ids.
    std::vector<unsigned long> windowsTitled(const QString& title) const;
    // Polls until a window with this title is mapped; 0 when none came in time.
    unsigned long waitForWindow(const QString& title, int timeoutMs) const;
    // Asks the window to close, as the close box of a window manager does.
    void requestClose(unsigned long window) const;
    // The window's top left corner on the screen.
    QPoint origin(unsigned long window) const;
    // Moves the pointer there and clicks the left button. The server queues input of its
    // own and sends a client's message at once: a close requested right after a click
    // reaches the program behind the click, as when a user clicks and hits the close box at
    // once.
    void click(QPoint at) const;
    // The colour of one pixel of the screen, as 0xrrggbb.
    unsigned long colourAt(QPoint at) const;

  private:
    QString file(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

    QProcess server_;
    QProcess bus_;
    QProcess program_;
    QTemporaryDir runtime_;
    QTemporaryDir folder_;  // the program's stderr, the URL opener and what it was handed
    QTemporaryDir home_;
    QString busAddress_;
    _XDisplay* connection_ = nullptr;
};

}  // namespace system_test

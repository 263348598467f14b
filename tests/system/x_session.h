// The built program in a private X server, acted on from outside as a user or the window
// system would: windows found by their title, asked to close as a window manager's close box
// asks (WM_DELETE_WINDOW), and clicked with the pointer (the XTEST extension).
//
// Use a DesktopSession to run the program as a desktop runs it:
//
//     system_test::DesktopSession desktop;            // Xvfb + session bus + runtime folder
//     ASSERT_TRUE(desktop.running());
//     auto run = desktop.startProgram();              // the built program, or any other file
//     desktop.waitForWindow(system_test::kMainTitle, 30'000);
//
// Every process the harness starts (the X server, the bus, the program) runs in a process
// group of its own, and everything in that group goes when its owner object goes: a
// bus-started helper with the bus, a browser-engine process with the program.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QRect>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <vector>

struct _XDisplay;

namespace system_test {

// The titles of the program's windows, as the window system sees them.
inline const QString kMainTitle = QStringLiteral("Tablewright..");
inline const QString kPromotionTitle =
    QStringLiteral("Play Poker Online for FREE ... Real People Real Fun");

// The browser engine's module, when it was built beside the program (not in sanitizer builds).
inline const QString kEngineModule = QStringLiteral("tablewright_webpane");
bool engineModuleBuilt();

// The test process's own application object, made once (Qt's processes and files need one).
void startApplication();

// An Xvfb of its own on the first free display, for the life of the object.
class XServer {
  public:
    XServer();
    virtual ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    virtual bool running() const { return connection_ != nullptr; }
    QString display() const { return display_; }
    // What a program run here gets in its environment: the display, Qt's X platform, and no
    // session bus (so none is started behind the test's back either).
    virtual QProcessEnvironment programEnvironment() const;

    // The mapped top-level windows with exactly this title, as X window ids.
    std::vector<unsigned long> windowsTitled(const QString& title) const;
    // Polls until a window with this title is mapped; 0 when none came in time.
    unsigned long waitForWindow(const QString& title, int timeoutMs) const;
    // Polls until no window with any of these titles is mapped; the elapsed milliseconds,
    // or -1 when one is still there at the timeout.
    qint64 waitUntilGone(const QStringList& titles, int timeoutMs) const;
    // Asks the window to close, as the close box of a window manager does.
    void requestClose(unsigned long window) const;
    // The window's place on the screen in pixels.
    QRect geometry(unsigned long window) const;
    // Moves the pointer there and clicks the left button.
    bool click(QPoint at) const;
    // Clicks there and asks the window to close in the same breath, as a user who clicks and
    // hits the close box at once: the program finds both in its queue, the click first.
    bool clickAndClose(QPoint at, unsigned long window) const;

  private:
    QProcess server_;
    QString display_;
    _XDisplay* connection_ = nullptr;
};

class ProgramRun;

// A desktop of its own: the X server, a session bus (dbus-daemon) and a runtime folder
// (XDG_RUNTIME_DIR, mode 0700, holding the bus's socket), for the life of the object.
class DesktopSession : public XServer {
  public:
    DesktopSession();
    ~DesktopSession() override;

    bool running() const override { return XServer::running() && !busAddress_.isEmpty(); }
    QProcessEnvironment programEnvironment() const override;
    QString runtimeFolder() const { return runtime_.path(); }

    // Starts the built program (or `program`) here; started() tells whether it did.
    std::unique_ptr<ProgramRun> startProgram(const QStringList& arguments = {},
                                             const QProcessEnvironment& extraEnvironment = {},
                                             const QString& program = {}) const;

  private:
    QTemporaryDir runtime_;
    QProcess bus_;
    QString busAddress_;
};

// One run of a program in that server, with these arguments and these variables added to
// its environment. A stand-in for the desktop's URL opener is put first on its search path,
// so a page it opens is recorded rather than shown.
class ProgramRun {
  public:
    ProgramRun(const XServer& server, const QString& program, const QStringList& arguments = {},
               const QProcessEnvironment& extraEnvironment = {});
    ~ProgramRun();

    bool started() const { return process_.state() == QProcess::Running; }
    // Waits for the process to end; the elapsed milliseconds, or -1 when it did not end.
    qint64 waitForExit(int timeoutMs);
    int exitCode() const { return process_.exitCode(); }
    bool crashed() const { return process_.exitStatus() == QProcess::CrashExit; }
    // All the program wrote on stderr, and the lines that are not notices of Qt or the
    // browser engine.
    QString errors() const { return stderr_; }
    QStringList unexpectedErrorLines() const;
    // Polls what the program has written on stderr so far until a line matches; the match,
    // with no match when none came in time.
    QRegularExpressionMatch waitForErrorLine(const QRegularExpression& line, int timeoutMs) const;
    // The addresses handed to the desktop's URL opener, waiting up to `timeoutMs` for the
    // first: the opener is started and not waited for, and may write after the program ended.
    QStringList openedAddresses(int timeoutMs = 0) const;

  private:
    QString file(const char* name) const;

    QTemporaryDir folder_;
    QProcess process_;
    QString stderr_;
};

}  // namespace system_test

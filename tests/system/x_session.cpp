#include "x_session.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <algorithm>

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

// Last: Xlib's macros (None, Bool, Status...) would clash with Qt's names.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace system_test {

bool engineModuleBuilt() {
    return QFileInfo(QFileInfo(QStringLiteral(TABLEWRIGHT_PROGRAM)).dir(), kEngineModule + ".so")
        .exists();
}

void startApplication() {
    static int argc = 1;
    static char name[] = "system_test";
    static char* argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);
}

namespace {

// Asks `done` every few milliseconds until it says yes or the time is up; its last answer.
template <typename Done>
bool pollUntil(int timeoutMs, Done done, unsigned long stepMs = 50) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > timeoutMs)
            return false;
        QThread::msleep(stepMs);
    }
    return true;
}

// Starts the process as the leader of a process group of its own, killed should the test
// process die first (a crash, a timeout's kill); what it started goes with its group or with
// the X server and the bus it needs.
void startInOwnGroup(QProcess& process, const QString& program, const QStringList& arguments) {
    process.setChildProcessModifier([] {
        setsid();
        prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
    process.start(program, arguments);
    process.waitForStarted(10'000);
}

// Ends the process (asking first when `gently`: a terminated server removes its lock file and
// socket) and everything left in its group.
void endGroup(QProcess& process, bool gently = false) {
    const auto leader = static_cast<pid_t>(process.processId());
    if (gently) {
        process.terminate();
        process.waitForFinished(5000);
    }
    if (leader > 0)
        kill(-leader, SIGKILL);
    process.waitForFinished(5000);
}

// Starts a server in a process group of its own; the first line it prints (its display, its
// address), or nothing when it printed none in time.
QString startServer(QProcess& server, const QString& program, const QStringList& arguments) {
    startInOwnGroup(server, program, arguments);
    QByteArray output;
    pollUntil(20'000, [&] {
        server.waitForReadyRead(200);
        output += server.readAllStandardOutput();
        return output.contains('\n') || server.state() != QProcess::Running;
    });
    if (!output.contains('\n'))
        return {};
    return QString::fromLatin1(output.left(output.indexOf('\n')).trimmed());
}

QString titleOf(Display* display, Window window) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(display, window, XInternAtom(display, "_NET_WM_NAME", False), 0, 1024,
                           False, XInternAtom(display, "UTF8_STRING", False), &type, &format,
                           &count, &after, &data) != Success ||
        data == nullptr)
        return {};
    const QString title =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(count));
    XFree(data);
    return title;
}

}  // namespace

// ---- the X server ----

XServer::XServer() {
    // -displayfd picks a free display and writes its number on the given descriptor.
    const QString number =
        startServer(server_, QStringLiteral(XVFB_PROGRAM),
                    {"-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
    if (number.isEmpty())
        return;
    // A window may go between listing it and asking about it; that is no failure here.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    connection_ = XOpenDisplay((":" + number).toLatin1().constData());
    if (connection_ != nullptr)
        display_ = ":" + number;
}

XServer::~XServer() {
    if (connection_ != nullptr)
        XCloseDisplay(connection_);
    endGroup(server_, true);
}

QProcessEnvironment XServer::programEnvironment() const {
    QProcessEnvironment environment;
    environment.insert("DISPLAY", display_);
    environment.insert("QT_QPA_PLATFORM", "xcb");
    // Without an address, the bus library would launch a daemon of its own for the display,
    // one that leaves its process group and outlives the test.
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    return environment;
}

std::vector<unsigned long> XServer::windowsTitled(const QString& title) const {
    std::vector<unsigned long> found;
    Window root = 0, parent = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    if (!running())
        return found;
    XSync(connection_, False);
    // With no window manager, the program's windows are the root's own children.
    XQueryTree(connection_, DefaultRootWindow(connection_), &root, &parent, &children, &count);
    for (unsigned int i = 0; i < count; ++i) {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(connection_, children[i], &attributes) != 0 &&
            attributes.map_state == IsViewable && titleOf(connection_, children[i]) == title)
            found.push_back(children[i]);
    }
    if (children != nullptr)
        XFree(children);
    return found;
}

unsigned long XServer::waitForWindow(const QString& title, int timeoutMs) const {
    std::vector<unsigned long> windows;
    pollUntil(timeoutMs, [&] { return !(windows = windowsTitled(title)).empty(); });
    return windows.empty() ? 0 : windows.front();
}

qint64 XServer::waitUntilGone(const QStringList& titles, int timeoutMs) const {
    QElapsedTimer clock;
    clock.start();
    const bool gone = pollUntil(
        timeoutMs,
        [&] {
            return std::all_of(titles.begin(), titles.end(), [this](const QString& title) {
                return windowsTitled(title).empty();
            });
        },
        5);
    return gone ? clock.elapsed() : -1;
}

void XServer::requestClose(unsigned long window) const {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(connection_, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] =
        static_cast<long>(XInternAtom(connection_, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(connection_, window, False, NoEventMask, &event);
    XFlush(connection_);
}

QRect XServer::geometry(unsigned long window) const {
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(connection_, window, &attributes) == 0)
        return {};
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(connection_, window, DefaultRootWindow(connection_), 0, 0, &x, &y,
                          &child);
    return {x, y, attributes.width, attributes.height};
}

bool XServer::click(QPoint at) const {
    int event = 0, error = 0, major = 0, minor = 0;
    if (!running() || XTestQueryExtension(connection_, &event, &error, &major, &minor) == 0)
        return false;
    XTestFakeMotionEvent(connection_, DefaultScreen(connection_), at.x(), at.y(), CurrentTime);
    XTestFakeButtonEvent(connection_, 1, True, CurrentTime);
    XTestFakeButtonEvent(connection_, 1, False, CurrentTime);
    XSync(connection_, False);
    return true;
}

bool XServer::clickAndClose(QPoint at, unsigned long window) const {
    // The server queues input of its own and sends a client's message at once: the round
    // trip in click() lets the click go out first, the close right behind it.
    if (!click(at))
        return false;
    requestClose(window);
    return true;
}

// ---- DesktopSession ----

DesktopSession::DesktopSession() {
    if (!XServer::running() || !runtime_.isValid())
        return;
    QFile::setPermissions(runtime_.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The bus hands these on to the services it starts (the accessibility bus wants the
    // display to announce itself on).
    environment.insert("DISPLAY", display());
    environment.insert("XDG_RUNTIME_DIR", runtime_.path());
    bus_.setProcessEnvironment(environment);
    busAddress_ = startServer(bus_, QStringLiteral(DBUS_DAEMON_PROGRAM),
                              {"--session", "--nofork", "--nopidfile", "--print-address=1",
                               "--address=unix:path=" + runtime_.filePath("bus")});
}

DesktopSession::~DesktopSession() {
    endGroup(bus_, true);
}

QProcessEnvironment DesktopSession::programEnvironment() const {
    QProcessEnvironment environment = XServer::programEnvironment();
    environment.insert("DBUS_SESSION_BUS_ADDRESS", busAddress_);
    environment.insert("XDG_RUNTIME_DIR", runtime_.path());
    return environment;
}

std::unique_ptr<ProgramRun> DesktopSession::startProgram(
    const QStringList& arguments, const QProcessEnvironment& extraEnvironment,
    const QString& program) const {
    return std::make_unique<ProgramRun>(
        *this, program.isEmpty() ? QStringLiteral(TABLEWRIGHT_PROGRAM) : program, arguments,
        extraEnvironment);
}

// ---- ProgramRun ----

ProgramRun::ProgramRun(const XServer& server, const QString& program, const QStringList& arguments,
                       const QProcessEnvironment& extraEnvironment) {
    // The desktop's URL opener, as Qt looks for it on the search path.
    QFile script(file("xdg-open"));
    if (script.open(QIODevice::WriteOnly)) {
        script.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"$(dirname \"$0\")/opened.txt\"\n");
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(server.programEnvironment());
    environment.insert("PATH", folder_.path() + ":" + environment.value("PATH"));
    // In a sanitizer build the leak checker's list of suppressions used would land on
    // stderr; the suppressions themselves come from the test's own environment.
    if (environment.contains("LSAN_OPTIONS")) {
        environment.insert("LSAN_OPTIONS",
                           environment.value("LSAN_OPTIONS") + ":print_suppressions=0");
    }
    environment.insert(extraEnvironment);
    process_.setProcessEnvironment(environment);
    // A file rather than a pipe, so a talkative program never blocks on it.
    process_.setStandardErrorFile(file("stderr.txt"));
    process_.setStandardOutputFile(QProcess::nullDevice());
    startInOwnGroup(process_, program, arguments);
}

ProgramRun::~ProgramRun() {
    // The program, and whatever it started that is still there.
    endGroup(process_);
}

QString ProgramRun::file(const char* name) const {
    return folder_.filePath(QString::fromLatin1(name));
}

namespace {

QString contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()) : QString();
}

}  // namespace

qint64 ProgramRun::waitForExit(int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    const bool ended = process_.waitForFinished(timeoutMs);
    stderr_ = contentsOf(file("stderr.txt"));
    return ended ? clock.elapsed() : -1;
}

QRegularExpressionMatch ProgramRun::waitForErrorLine(const QRegularExpression& line,
                                                     int timeoutMs) const {
    const QRegularExpression anyLine(line.pattern(),
                                     line.patternOptions() | QRegularExpression::MultilineOption);
    QRegularExpressionMatch match;
    pollUntil(timeoutMs,
              [&] { return (match = anyLine.match(contentsOf(file("stderr.txt")))).hasMatch(); });
    return match;
}

QStringList ProgramRun::unexpectedErrorLines() const {
    // Notices of the platform: Qt's own, plain or by category, and the browser engine's,
    // including the report of its graphics set-up that Qt's web engine prints line by line.
    static const QRegularExpression notice(QStringLiteral(
        R"(^(QStandardPaths: |qt\.[a-z.]+: |Qt: |Qt WebEngine |\[\d+:\d+:\d+/\d+\.\d+:|Fontconfig |js: |)"
        R"(Sandboxing disabled by user\.$|GL Type: |Surface (Type|Profile|Version): |)"
        R"(QSG RHI Backend: |Using [A-Za-z ]+: |Init Parameters:$|  \*  |)"
        R"(No suitable graphics backend found$|)"
        // and the scripted user's reports
        R"(visit: ))"));
    QStringList unexpected = stderr_.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    unexpected.removeIf([](const QString& line) { return notice.match(line).hasMatch(); });
    return unexpected;
}

QStringList ProgramRun::openedAddresses(int timeoutMs) const {
    pollUntil(timeoutMs, [this] { return QFile::exists(file("opened.txt")); });
    return contentsOf(file("opened.txt")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace system_test

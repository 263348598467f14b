#include "x_session.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QThread>
#include <algorithm>
#include <array>

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

// Last: Xlib's macros (None, Bool, Status...) would clash with Qt's names.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
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

// ---- process groups ----

namespace {

// The write end of the pipe to the reaper; the children have it until they exec, to report
// themselves, and the test process has it until it ends.
int g_reaperPipe = -1;

// The reaper: a copy of the test process that reads the process groups to end (a pid; its
// negative once the test has ended that group itself) and, when the pipe closes because the
// test process is gone, kills every group still listed. Only system calls here: it is a
// fork of a process that may have threads.
[[noreturn]] void reap(int readEnd) {
    setsid();  // a kill of the test's own group leaves the reaper to do its work
    const int null = open("/dev/null", O_RDWR);
    for (int fd : {0, 1, 2})
        dup2(null, fd);
    for (int fd = 3; fd < 1024; ++fd) {
        if (fd != readEnd)
            close(fd);
    }
    std::array<pid_t, 4096> groups{};
    std::size_t count = 0;
    pid_t record = 0;
    while (read(readEnd, &record, sizeof record) == static_cast<ssize_t>(sizeof record)) {
        if (record > 0 && count < groups.size()) {
            groups[count++] = record;
        } else if (record < 0) {
            for (std::size_t i = 0; i < count; ++i) {
                if (groups[i] == -record)
                    groups[i] = groups[--count];
            }
        }
    }
    for (std::size_t i = 0; i < count; ++i)
        kill(-groups[i], SIGKILL);
    _exit(0);
}

int reaperPipe() {
    if (g_reaperPipe >= 0)
        return g_reaperPipe;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return -1;
    const pid_t reaper = fork();
    if (reaper == 0) {
        close(ends[1]);
        reap(ends[0]);
    }
    close(ends[0]);
    if (reaper < 0) {
        close(ends[1]);
        return -1;
    }
    g_reaperPipe = ends[1];
    return g_reaperPipe;
}

void tellReaper(pid_t record) {
    if (g_reaperPipe >= 0)
        (void)!write(g_reaperPipe, &record, sizeof record);
}

}  // namespace

void startInOwnGroup(QProcess& process) {
    const int pipe = reaperPipe();
    // In the child, between fork and exec: a new session and group, reported before the
    // program runs, so no crash of the test can come between the start and the listing.
    process.setChildProcessModifier([pipe] {
        setsid();
        const pid_t self = getpid();
        if (pipe >= 0)
            (void)!write(pipe, &self, sizeof self);
    });
}

void endGroup(QProcess& process) {
    const qint64 leader = process.processId();
    if (leader > 0)
        kill(static_cast<pid_t>(-leader), SIGKILL);
    process.waitForFinished(5000);
    if (leader > 0)
        tellReaper(static_cast<pid_t>(-leader));
}

namespace {

// Starts a server in a process group of its own; the first line it prints (its display, its
// address), or nothing when it printed none in time.
QString startServer(QProcess& server, const QString& program, const QStringList& arguments) {
    startInOwnGroup(server);
    server.start(program, arguments);
    if (!server.waitForStarted(10'000))
        return {};
    QElapsedTimer clock;
    clock.start();
    QByteArray output;
    while (!output.contains('\n') && clock.elapsed() < 20'000) {
        server.waitForReadyRead(200);
        output += server.readAllStandardOutput();
    }
    if (!output.contains('\n'))
        return {};
    return QString::fromLatin1(output.left(output.indexOf('\n')).trimmed());
}

}  // namespace

// ---- the X server ----

struct XServer::Connection {
    Display* display = nullptr;
    ~Connection() {
        if (display != nullptr)
            XCloseDisplay(display);
    }
};

XServer::XServer() {
    // -displayfd picks a free display and writes its number on the given descriptor.
    const QString number =
        startServer(server_, QStringLiteral(XVFB_PROGRAM),
                    {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                     QStringLiteral("0"), QStringLiteral("1280x1024x24"),
                     QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    if (number.isEmpty())
        return;
    const QString name = QStringLiteral(":") + number;
    // A window may go between listing it and asking about it; that is no failure here.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    connection_ = std::make_unique<Connection>();
    connection_->display = XOpenDisplay(name.toLatin1().constData());
    if (connection_->display != nullptr)
        display_ = name;
}

XServer::~XServer() {
    connection_.reset();
    // A terminated server removes its lock file and socket; a killed one would leave them.
    server_.terminate();
    server_.waitForFinished(5000);
    endGroup(server_);
}

QProcessEnvironment XServer::programEnvironment() const {
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("DISPLAY"), display_);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    // Without an address, the bus library would launch a daemon of its own for the display,
    // one that leaves its process group and outlives the test.
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("disabled:"));
    return environment;
}

namespace {

QString titleOf(Display* display, Window window) {
    // The UTF-8 title first, then the old one.
    const Atom netName = XInternAtom(display, "_NET_WM_NAME", False);
    const Atom utf8 = XInternAtom(display, "UTF8_STRING", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(display, window, netName, 0, 1024, False, utf8, &type, &format, &count,
                           &after, &data) == Success &&
        data != nullptr) {
        const QString title =
            QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(count));
        XFree(data);
        return title;
    }
    char* name = nullptr;
    if (XFetchName(display, window, &name) != 0 && name != nullptr) {
        const QString title = QString::fromLocal8Bit(name);
        XFree(name);
        return title;
    }
    return {};
}

}  // namespace

std::vector<unsigned long> XServer::windowsTitled(const QString& title) const {
    std::vector<unsigned long> found;
    if (!running())
        return found;
    Display* display = connection_->display;
    Window root = 0, parent = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    XSync(display, False);
    // With no window manager, the program's windows are the root's own children.
    if (XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count) == 0) {
        return found;
    }
    for (unsigned int i = 0; i < count; ++i) {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display, children[i], &attributes) == 0)
            continue;
        if (attributes.map_state != IsViewable)
            continue;
        if (titleOf(display, children[i]) == title)
            found.push_back(children[i]);
    }
    if (children != nullptr)
        XFree(children);
    return found;
}

unsigned long XServer::waitForWindow(const QString& title, int timeoutMs) const {
    QElapsedTimer clock;
    clock.start();
    do {
        const auto windows = windowsTitled(title);
        if (!windows.empty())
            return windows.front();
        QThread::msleep(50);
    } while (clock.elapsed() < timeoutMs);
    return 0;
}

qint64 XServer::waitUntilGone(const QStringList& titles, int timeoutMs) const {
    QElapsedTimer clock;
    clock.start();
    do {
        const bool gone = std::all_of(titles.begin(), titles.end(), [this](const QString& title) {
            return windowsTitled(title).empty();
        });
        if (gone)
            return clock.elapsed();
        QThread::msleep(5);
    } while (clock.elapsed() < timeoutMs);
    return -1;
}

void XServer::requestClose(unsigned long window) const {
    Display* display = connection_->display;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window, False, NoEventMask, &event);
    XFlush(display);
}

bool XServer::clickAndClose(QPoint at, unsigned long window) const {
    if (!running())
        return false;
    Display* display = connection_->display;
    int event = 0, error = 0, major = 0, minor = 0;
    if (XTestQueryExtension(display, &event, &error, &major, &minor) == 0)
        return false;
    XTestFakeMotionEvent(display, DefaultScreen(display), at.x(), at.y(), CurrentTime);
    XTestFakeButtonEvent(display, 1, True, CurrentTime);
    XTestFakeButtonEvent(display, 1, False, CurrentTime);
    // The server queues input of its own and sends a client's message at once: the round
    // trip lets the click go out first, the close right behind it.
    XSync(display, False);
    requestClose(window);
    return true;
}

QRect XServer::geometry(unsigned long window) const {
    Display* display = connection_->display;
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(display, window, &attributes) == 0)
        return {};
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &x, &y, &child);
    return {x, y, attributes.width, attributes.height};
}

bool XServer::click(QPoint at) const {
    QProcess xdotool;
    startInOwnGroup(xdotool);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), display_);
    xdotool.setProcessEnvironment(environment);
    xdotool.start(QStringLiteral(XDOTOOL_PROGRAM),
                  {QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y()),
                   QStringLiteral("click"), QStringLiteral("1")});
    const bool clicked = xdotool.waitForFinished(10'000) && xdotool.exitCode() == 0;
    endGroup(xdotool);
    return clicked;
}

// ---- DesktopSession ----

DesktopSession::DesktopSession() {
    if (!XServer::running() || !runtime_.isValid())
        return;
    QFile::setPermissions(runtime_.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The bus hands these on to the services it starts (the accessibility bus wants the
    // display to announce itself on).
    environment.insert(QStringLiteral("DISPLAY"), display());
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime_.path());
    bus_.setProcessEnvironment(environment);
    busAddress_ = startServer(
        bus_, QStringLiteral(DBUS_DAEMON_PROGRAM),
        {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
         QStringLiteral("--print-address=1"),
         QStringLiteral("--address=unix:path=") + runtime_.filePath(QStringLiteral("bus"))});
}

DesktopSession::~DesktopSession() {
    bus_.terminate();
    bus_.waitForFinished(5000);
    endGroup(bus_);
}

bool DesktopSession::running() const {
    return XServer::running() && !busAddress_.isEmpty();
}

QProcessEnvironment DesktopSession::programEnvironment() const {
    QProcessEnvironment environment = XServer::programEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress_);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime_.path());
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

namespace {
constexpr const char* kOpenerLog = "opened.txt";
constexpr const char* kErrorFile = "stderr.txt";
}  // namespace

ProgramRun::ProgramRun(const XServer& server)
    : ProgramRun(server, QStringLiteral(TABLEWRIGHT_PROGRAM)) {}

ProgramRun::ProgramRun(const XServer& server, const QString& program, const QStringList& arguments,
                       const QProcessEnvironment& extraEnvironment) {
    // The desktop's URL opener, as Qt looks for it on the search path.
    const QString opener = folder_.filePath(QStringLiteral("xdg-open"));
    QFile script(opener);
    if (script.open(QIODevice::WriteOnly)) {
        script.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"$(dirname \"$0\")/" +
                     QByteArray(kOpenerLog) + "\"\n");
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QProcessEnvironment session = server.programEnvironment();
    for (const QString& name : session.keys())
        environment.insert(name, session.value(name));
    environment.insert(QStringLiteral("PATH"), folder_.path() + QStringLiteral(":") +
                                                   environment.value(QStringLiteral("PATH")));
    // In a sanitizer build the leak checker's list of suppressions used would land on
    // stderr; the suppressions themselves come from the test's own environment.
    if (environment.contains(QStringLiteral("LSAN_OPTIONS"))) {
        environment.insert(QStringLiteral("LSAN_OPTIONS"),
                           environment.value(QStringLiteral("LSAN_OPTIONS")) +
                               QStringLiteral(":print_suppressions=0"));
    }
    for (const QString& name : extraEnvironment.keys())
        environment.insert(name, extraEnvironment.value(name));
    process_.setProcessEnvironment(environment);
    // A file rather than a pipe, so a talkative program never blocks on it.
    process_.setStandardErrorFile(folder_.filePath(QString::fromLatin1(kErrorFile)));
    process_.setStandardOutputFile(QProcess::nullDevice());
    startInOwnGroup(process_);
    process_.start(program, arguments);
    process_.waitForStarted(10'000);
}

ProgramRun::~ProgramRun() {
    // The program, and whatever it started that is still there.
    endGroup(process_);
}

namespace {
// The process and its children, grandchildren and so on (a program run under a tracer is
// the tracer's child).
QStringList processTree(qint64 root) {
    QStringList pids{QString::number(root)};
    for (qsizetype i = 0; i < pids.size(); ++i) {
        QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(pids[i]));
        if (children.open(QIODevice::ReadOnly))
            pids +=
                QString::fromLatin1(children.readAll()).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }
    return pids;
}
}  // namespace

bool ProgramRun::waitForLibrary(const QString& name, int timeoutMs) const {
    QElapsedTimer clock;
    clock.start();
    do {
        for (const QString& pid : processTree(process_.processId())) {
            QFile maps(QStringLiteral("/proc/%1/maps").arg(pid));
            if (maps.open(QIODevice::ReadOnly) && maps.readAll().contains(name.toLocal8Bit()))
                return true;
        }
        QThread::msleep(50);
    } while (clock.elapsed() < timeoutMs);
    return false;
}

qint64 ProgramRun::waitForExit(int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    const bool ended = process_.waitForFinished(timeoutMs);
    const qint64 elapsed = clock.elapsed();
    stderr_ = errorsSoFar();
    return ended ? elapsed : -1;
}

QString ProgramRun::errorsSoFar() const {
    QFile errors(folder_.filePath(QString::fromLatin1(kErrorFile)));
    if (!errors.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLocal8Bit(errors.readAll());
}

QRegularExpressionMatch ProgramRun::waitForErrorLine(const QRegularExpression& line,
                                                     int timeoutMs) const {
    QRegularExpression anyLine(line.pattern(),
                               line.patternOptions() | QRegularExpression::MultilineOption);
    QElapsedTimer clock;
    clock.start();
    QRegularExpressionMatch match;
    do {
        match = anyLine.match(errorsSoFar());
        if (match.hasMatch())
            break;
        QThread::msleep(50);
    } while (clock.elapsed() < timeoutMs);
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
    QStringList unexpected;
    for (const QString& line : stderr_.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (!notice.match(line).hasMatch())
            unexpected.append(line);
    }
    return unexpected;
}

QStringList ProgramRun::openedAddresses() const {
    QFile log(folder_.filePath(QString::fromLatin1(kOpenerLog)));
    if (!log.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLocal8Bit(log.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace system_test

#include "x_session.h"

#include <QCoreApplication>
#include <QFile>

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

// Last: Xlib's macros (None, Bool, Status...) would clash with Qt's names.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

namespace system_test {

void startApplication() {
    static int argc = 1;
    static char name[] = "system_test";
    static char* argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);
}

namespace {

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

// Ends the process, asking first (a terminated server removes its lock file and socket), and
// everything left in its group.
void endGroup(QProcess& process) {
    const auto leader = static_cast<pid_t>(process.processId());
    process.terminate();
    process.waitForFinished(5000);
    if (leader > 0)
        kill(-leader, SIGKILL);
}

QString contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()) : QString();
}

}  // namespace

QString startServer(QProcess& server, const QString& program, const QStringList& arguments) {
    startInOwnGroup(server, program, arguments);
    QByteArray output;
    pollUntil(20'000, [&] {
        server.waitForReadyRead(200);
        output += server.readAllStandardOutput();
        return output.contains('\n') || server.state() != QProcess::Running;
    });
    return QString::fromLatin1(output.left(output.indexOf('\n')).trimmed());
}

// ---- the desktop ----

Desktop::Desktop() {
    // -displayfd picks a free display and writes its number on the given descriptor.
    const QString display =
        ":" + startServer(server_, QStringLiteral(XVFB_PROGRAM),
                          {"-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
    if (display == ":" || !runtime_.isValid())
        return;
    // A window may go between listing it and asking about it; that is no failure here.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    connection_ = XOpenDisplay(display.toLatin1().constData());
    QFile::setPermissions(runtime_.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // The bus hands these on to the services it starts (the accessibility bus wants the
    // display to announce itself on).
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", display);
    environment.insert("XDG_RUNTIME_DIR", runtime_.path());
    bus_.setProcessEnvironment(environment);
    busAddress_ = startServer(bus_, QStringLiteral(DBUS_DAEMON_PROGRAM),
                              {"--session", "--nofork", "--nopidfile", "--print-address=1",
                               "--address=unix:path=" + runtime_.filePath("bus")});
}

Desktop::~Desktop() {
    // The program, and whatever it started that is still there; then the desktop.
    endGroup(program_);
    endGroup(bus_);
    if (connection_ != nullptr)
        XCloseDisplay(connection_);
    endGroup(server_);
}

std::vector<unsigned long> Desktop::windowsTitled(const QString& title) const {
    std::vector<unsigned long> found;
    Window root = 0, parent = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    XSync(connection_, False);
    // With no window manager, the program's windows are the root's own children.
    XQueryTree(connection_, DefaultRootWindow(connection_), &root, &parent, &children, &count);
    for (unsigned int i = 0; i < count; ++i) {
        XWindowAttributes attributes{};
        char* name = nullptr;
        if (XGetWindowAttributes(connection_, children[i], &attributes) != 0 &&
            attributes.map_state == IsViewable && XFetchName(connection_, children[i], &name) &&
            QString::fromLatin1(name) == title)
            found.push_back(children[i]);
        XFree(name);
    }
    XFree(children);
    return found;
}

unsigned long Desktop::waitForWindow(const QString& title, int timeoutMs) const {
    std::vector<unsigned long> windows;
    pollUntil(timeoutMs, [&] { return !(windows = windowsTitled(title)).empty(); });
    return windows.empty() ? 0 : windows.front();
}

void Desktop::requestClose(unsigned long window) const {
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

QPoint Desktop::origin(unsigned long window) const {
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(connection_, window, DefaultRootWindow(connection_), 0, 0, &x, &y,
                          &child);
    return {x, y};
}

void Desktop::click(QPoint at) const {
    XTestFakeMotionEvent(connection_, DefaultScreen(connection_), at.x(), at.y(), CurrentTime);
    XTestFakeButtonEvent(connection_, 1, True, CurrentTime);
    XTestFakeButtonEvent(connection_, 1, False, CurrentTime);
    // The round trip lets the click go out before anything the test sends next.
    XSync(connection_, False);
}

unsigned long Desktop::colourAt(QPoint at) const {
    XImage* image = XGetImage(connection_, DefaultRootWindow(connection_), at.x(), at.y(), 1, 1,
                              AllPlanes, ZPixmap);
    if (image == nullptr)
        return 0;
    const unsigned long pixel = XGetPixel(image, 0, 0) & 0xffffff;
    XDestroyImage(image);
    return pixel;
}

// ---- the program ----

bool Desktop::startProgram(const QStringList& arguments,
                           const QProcessEnvironment& extraEnvironment, const QString& program) {
    // The desktop's URL opener, as Qt looks for it on the search path.
    QFile script(file("xdg-open"));
    if (script.open(QIODevice::WriteOnly)) {
        script.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"$(dirname \"$0\")/opened.txt\"\n");
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", QString::fromLatin1(DisplayString(connection_)));
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.insert("DBUS_SESSION_BUS_ADDRESS", busAddress_);
    environment.insert("XDG_RUNTIME_DIR", runtime_.path());
    environment.insert("HOME", home_.path());
    environment.insert("PATH", folder_.path() + ":" + environment.value("PATH"));
    // In a sanitizer build the leak checker's list of suppressions used would land on
    // stderr; the suppressions themselves come from the test's own environment.
    if (environment.contains("LSAN_OPTIONS")) {
        environment.insert("LSAN_OPTIONS",
                           environment.value("LSAN_OPTIONS") + ":print_suppressions=0");
    }
    environment.insert(extraEnvironment);
    program_.setProcessEnvironment(environment);
    // A file rather than a pipe, so a talkative program never blocks on it.
    program_.setStandardErrorFile(file("stderr.txt"));
    program_.setStandardOutputFile(QProcess::nullDevice());
    startInOwnGroup(program_, program.isEmpty() ? QStringLiteral(TABLEWRIGHT_PROGRAM) : program,
                    arguments);
    return program_.state() == QProcess::Running;
}

QString Desktop::errors() const {
    return contentsOf(file("stderr.txt"));
}

QRegularExpressionMatch Desktop::waitForErrorLine(const QString& pattern, int timeoutMs) const {
    const QRegularExpression anyLine(pattern, QRegularExpression::MultilineOption);
    QRegularExpressionMatch match;
    pollUntil(timeoutMs, [&] { return (match = anyLine.match(errors())).hasMatch(); });
    return match;
}

QStringList Desktop::unexpectedErrorLines() const {
    // Notices of the platform: Qt's own, plain or by category, and the browser engine's,
    // including the report of its graphics set-up that Qt's web engine prints line by line.
    static const QRegularExpression notice(QStringLiteral(
        R"(^(QStandardPaths: |qt\.[a-z.]+: |Qt: |Qt WebEngine |\[\d+:\d+:\d+/\d+\.\d+:|Fontconfig |js: |)"
        R"(Sandboxing disabled by user\.$|GL Type: |Surface (Type|Profile|Version): |)"
        R"(QSG RHI Backend: |Using [A-Za-z ]+: |Init Parameters:$|  \*  |)"
        R"(No suitable graphics backend found$|)"
        // and the scripted user's reports
        R"(visit: ))"));
    QStringList unexpected = errors().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    unexpected.removeIf([](const QString& line) { return notice.match(line).hasMatch(); });
    return unexpected;
}

QStringList Desktop::openedAddresses(int timeoutMs) const {
    pollUntil(timeoutMs, [this] { return QFile::exists(file("opened.txt")); });
    return contentsOf(file("opened.txt")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace system_test

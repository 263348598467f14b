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

// Last: Xlib's macros (None, Bool, Status...) would clash with Qt's names.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

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

struct XServer::Connection {
    Display* display = nullptr;
    ~Connection() {
        if (display != nullptr)
            XCloseDisplay(display);
    }
};

XServer::XServer() {
    // -displayfd picks a free display and writes its number on the given descriptor.
    server_.start(QStringLiteral(XVFB_PROGRAM),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                   QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
                   QStringLiteral("tcp")});
    if (!server_.waitForStarted(10'000))
        return;
    QElapsedTimer clock;
    clock.start();
    QByteArray number;
    while (!number.contains('\n') && clock.elapsed() < 20'000) {
        server_.waitForReadyRead(200);
        number += server_.readAllStandardOutput();
    }
    if (!number.contains('\n'))
        return;
    const QString name = QStringLiteral(":") + QString::fromLatin1(number.trimmed());
    // A window may go between listing it and asking about it; that is no failure here.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    connection_ = std::make_unique<Connection>();
    connection_->display = XOpenDisplay(name.toLatin1().constData());
    if (connection_->display != nullptr)
        display_ = name;
}

XServer::~XServer() {
    connection_.reset();
    server_.terminate();
    if (!server_.waitForFinished(5000))
        server_.kill();
    server_.waitForFinished(5000);
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
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), display_);
    xdotool.setProcessEnvironment(environment);
    xdotool.start(QStringLiteral(XDOTOOL_PROGRAM),
                  {QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y()),
                   QStringLiteral("click"), QStringLiteral("1")});
    return xdotool.waitForFinished(10'000) && xdotool.exitCode() == 0;
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
    environment.insert(QStringLiteral("DISPLAY"), server.display());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
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
    process_.start(program, arguments);
    process_.waitForStarted(10'000);
}

ProgramRun::~ProgramRun() {
    if (process_.state() != QProcess::NotRunning) {
        process_.kill();
        process_.waitForFinished(5000);
    }
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
    QFile errors(folder_.filePath(QString::fromLatin1(kErrorFile)));
    if (errors.open(QIODevice::ReadOnly))
        stderr_ = QString::fromLocal8Bit(errors.readAll());
    return ended ? elapsed : -1;
}

QStringList ProgramRun::unexpectedErrorLines() const {
    // Notices of the platform: Qt's own, plain or by category, and the browser engine's,
    // including the report of its graphics set-up that Qt's web engine prints line by line.
    static const QRegularExpression notice(QStringLiteral(
        R"(^(QStandardPaths: |qt\.[a-z.]+: |Qt: |Qt WebEngine |\[\d+:\d+:\d+/\d+\.\d+:|Fontconfig |js: |)"
        R"(Sandboxing disabled by user\.$|GL Type: |Surface (Type|Profile|Version): |)"
        R"(QSG RHI Backend: |Using [A-Za-z ]+: |Init Parameters:$|  \*  |)"
        R"(No suitable graphics backend found$))"));
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

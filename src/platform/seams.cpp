#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QLibrary>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <vector>

#include "platform/mDefs.h"

namespace platform {

namespace {

bool g_ending = false;
QString g_applicationFolder;

void realMessageBox(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QCoreApplication::applicationName(), text, QMessageBox::Ok,
                    QApplication::activeWindow());
    box.exec();
}

using PlaySoundFunction = void (*)(const QString& path);

// The sound module beside the program, loaded at the first sound; null when it can't be, which
// is said once.
PlaySoundFunction soundPlayer() {
    static const PlaySoundFunction player = [] {
        QLibrary module(AppPath(QStringLiteral("\\tablewright_sound")));
        const auto play =
            reinterpret_cast<PlaySoundFunction>(module.resolve("tablewright_play_sound"));
        if (!play)
            qWarning("The answer sounds are off: %s", qPrintable(module.errorString()));
        return play;
    }();
    return player;
}

// A new sound cuts off the one still playing; a missing file plays nothing.
void realPlaySound(const QString& path) {
    const bool exists = QFileInfo::exists(path);
    if (const PlaySoundFunction play = soundPlayer())
        play(exists ? path : QString());
}

void realOpenAddress(const QString& address) {
    QDesktopServices::openUrl(QUrl(address));
}

void realEndProgram(int exitCode) {
    for (QWidget* window : QApplication::topLevelWidgets())
        window->hide();
    QCoreApplication::exit(exitCode);
}

std::int64_t realTickCount() {
    static QElapsedTimer clock = [] {
        QElapsedTimer t;
        t.start();
        return t;
    }();
    return clock.elapsed();
}

int realScreenWidth() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().width() : 0;
}

std::vector<QEventLoop*>& runningWaits() {
    static std::vector<QEventLoop*> loops;
    return loops;
}

Seams makeRealSeams() {
    Seams s;
    s.messageBox = realMessageBox;
    s.playSound = realPlaySound;
    s.openAddress = realOpenAddress;
    s.endProgram = realEndProgram;
    s.tickCount = realTickCount;
    s.screenWidthPixels = realScreenWidth;
    s.random = std::make_unique<cards::ClockRandomSource>();
    return s;
}

}  // namespace

Seams& seams() {
    static Seams s = makeRealSeams();
    return s;
}

void resetSeams() {
    seams() = makeRealSeams();
    g_ending = false;
}

void MsgBox(const QString& text) {
    seams().messageBox(text);
}
void PlaySound(const QString& path) {
    seams().playSound(path);
}
void OpenAddress(const QString& address) {
    seams().openAddress(address);
}

void EndProgram(int exitCode) {
    g_ending = true;
    InterruptWaits();
    seams().endProgram(exitCode);
}

bool programEnding() {
    return g_ending;
}
cards::RandomSource& Random() {
    return *seams().random;
}
std::int64_t TickCount() {
    return seams().tickCount();
}
int ScreenWidthPixels() {
    return seams().screenWidthPixels();
}

QString ApplicationFolder() {
    return g_applicationFolder.isEmpty() ? QCoreApplication::applicationDirPath()
                                         : g_applicationFolder;
}

void setApplicationFolder(const QString& folder) {
    g_applicationFolder = folder;
}

QString AppPath(const QString& backslashName) {
    QString relative = backslashName;
    relative.replace(QLatin1Char('\\'), QLatin1Char('/'));
    while (relative.startsWith(QLatin1Char('/')))
        relative.remove(0, 1);
    return QDir(ApplicationFolder()).filePath(relative);
}

void WaitServingEvents(std::int32_t milliseconds, const std::function<bool()>& stop) {
    const double scaled = milliseconds * seams().waitScale;
    if (milliseconds <= 0 || g_ending)
        return;
    const std::int64_t start = TickCount();
    const auto deadline = start + static_cast<std::int64_t>(scaled);
    auto stopped = [&] { return g_ending || (stop && stop()); };
    if (scaled <= 0) {
        DoEvents();
        return;
    }
    // An event loop that sleeps until the deadline or an event, rather than a spin.
    while (!stopped() && TickCount() < deadline) {
        QEventLoop loop;
        QTimer timer;
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
        // A stop raised by an event ends the wait as soon as that event has been served.
        if (auto* dispatcher = QAbstractEventDispatcher::instance()) {
            QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop, [&] {
                if (stopped())
                    loop.quit();
            });
        }
        timer.start(static_cast<int>(std::max<std::int64_t>(1, deadline - TickCount())));
        runningWaits().push_back(&loop);
        loop.exec();
        std::erase(runningWaits(), &loop);
    }
}

void InterruptWaits() {
    for (QEventLoop* loop : runningWaits())
        loop->quit();
}

void DoEvents() {
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

}  // namespace platform

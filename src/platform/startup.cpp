#include "platform/startup.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <algorithm>
#include <array>

#include "platform/mDefs.h"

namespace platform {

namespace {

// Notices that Qt and the browser engine print in the default category, where real faults
// also go, so they are dropped by their exact text: the global share context, which is never
// created without an OpenGL integration (see prepareApplication), and the engine finding no
// OpenGL to draw with (it draws in software).
constexpr std::array<QLatin1StringView, 2> kExpectedNotices{
    QLatin1StringView("QXcbIntegration: Cannot create platform OpenGL context, neither GLX nor "
                      "EGL are enabled"),
    QLatin1StringView("No suitable graphics backend found")};

QtMessageHandler g_nextHandler = nullptr;

void dropExpectedNotices(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const QString trimmed = text.trimmed();
    const bool expected = type == QtWarningMsg &&
                          std::ranges::any_of(kExpectedNotices, [&](QLatin1StringView notice) {
                              return trimmed == notice;
                          });
    if (!expected && g_nextHandler)
        g_nextHandler(type, context, text);
}

// The icon in the sizes a window shows, painted when the program was built (see src/shell).
// Each file is read only when a size is asked for.
QIcon builtInIcon() {
    QIcon icon;
    const QDir folder(QStringLiteral(":/icon"));
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files)) {
        const int side = file.baseName().toInt();
        icon.addFile(file.filePath(), QSize(side, side));
    }
    return icon;
}

}  // namespace

void prepareApplication() {
    // The program draws without OpenGL. Asked what the platform can do, Qt's X11 OpenGL
    // integration would load the OpenGL driver (a third of a second) and Mesa would start
    // its shader cache under ~/.cache; the program writes nothing.
    if (qEnvironmentVariableIsEmpty("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    // The lesson pane's browser engine, loaded when a web page is first asked for, will not
    // start without a global share context, and Qt provides one only when asked before the
    // application object exists. Without an OpenGL integration it is never created: the
    // engine draws in software.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    g_nextHandler = qInstallMessageHandler(dropExpectedNotices);
}

void configureApplication(QApplication& app) {
    app.setApplicationName(QStringLiteral("Tablewright"));
    app.setWindowIcon(builtInIcon());
    // Matches the window to its desktop entry (and so its icon) on desktops that ask.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.example.Tablewright"));
}

}  // namespace platform

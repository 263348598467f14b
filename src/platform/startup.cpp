#include "platform/startup.h"

#include <QApplication>

#include "platform/artwork.h"
#include "platform/mDefs.h"

namespace platform {

// Nothing yet: the lesson pane prepares what the browser engine needs when it loads it,
// after the first paint, so that no OpenGL driver is loaded before the window shows.
void prepareApplication() {}

void configureApplication(QApplication& app) {
    app.setApplicationName(QStringLiteral("Tablewright"));
    app.setWindowIcon(artwork::applicationIcon());
    // Matches the window to its desktop entry (and so its icon) on desktops that ask.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.example.Tablewright"));
}

}  // namespace platform

#include "platform/startup.h"

#include <QApplication>

#include "artwork/artwork.h"
#include "platform/mDefs.h"

namespace platform {

void configureApplication(QApplication& app) {
    app.setApplicationName(QStringLiteral("Tablewright"));
    app.setWindowIcon(artwork::applicationIcon());
    // Matches the window to its desktop entry (and so its icon) on desktops that ask.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.example.Tablewright"));
}

}  // namespace platform

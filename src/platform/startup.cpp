#include "platform/startup.h"

#include <QApplication>

#include "platform/artwork.h"
#include "platform/mDefs.h"

namespace platform {

void prepareApplication() { QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts); }

void configureApplication(QApplication& app) {
    app.setApplicationName(QStringLiteral("Tablewright"));
    app.setWindowIcon(artwork::applicationIcon());
}

}  // namespace platform

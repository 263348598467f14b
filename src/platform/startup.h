// What the application object needs before and right after it exists.
#pragma once

class QApplication;

namespace platform {
// Before the application object: no OpenGL at start, a share context for the browser engine.
void prepareApplication();
// Right after it: the program's name (the default title of message boxes) and its icon.
void configureApplication(QApplication& app);
}  // namespace platform

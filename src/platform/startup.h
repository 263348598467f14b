// What the application object needs before and right after it exists.
#pragma once

class QApplication;

namespace platform {
// Before the application object.
void prepareApplication();
// Right after it: the program's name (the default title of message boxes), the message
// seam of the card engine.
void configureApplication(QApplication& app);
}  // namespace platform

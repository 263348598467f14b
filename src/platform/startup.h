// What the application object needs right after it exists.
#pragma once

class QApplication;

namespace platform {
// Right after it: the program's name (the default title of message boxes), the message
// seam of the card engine.
void configureApplication(QApplication& app);
}  // namespace platform

// Screens of the program for the README and for looking at: each scene drives a fresh main
// window through its own routines and the tool saves what the window shows.
#pragma once

#include <functional>
#include <vector>

#include "shell/frmMain.h"

namespace screenshots {

struct Scene {
    const char* name;  // the PNG's name in docs/screenshots
    std::function<void(frmMain&)> play;
};

std::vector<Scene>& scenes();

struct Register {
    Register(const char* name, std::function<void(frmMain&)> play) {
        scenes().push_back({name, std::move(play)});
    }
};

// Serves events for a while, so pages load and the window repaints.
void settle(int milliseconds);
// A click on the tree entry with this text.
void clickTopic(frmMain& form, const QString& text);
// A control of the main window by its name.
template <typename Control = QWidget>
Control* control(const frmMain& form, const QString& name) {
    return form.findChild<Control*>(name);
}
// Saves this window, rather than the main window, for the scene now playing.
void saveWindowInstead(QWidget* window);

}  // namespace screenshots

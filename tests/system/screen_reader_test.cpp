// A screen reader's view of the real program: on the session bus of a desktop of its own,
// with the accessibility bus that bus starts, a listener hears the message line as a status
// line whose every new prompt is reported once, while the user (through the accessibility
// actions and the pointer) opens an exercise and starts it.
#include <gtest/gtest.h>

#include "x_session.h"

namespace {

// The listener: registers for name changes, starts the program, clicks the tree entry where
// the accessibility tree says it is, presses the Start button by its action, and prints each
// name change of a status line, with markers between the steps. The program it leaves
// running goes with its process group when the test ends. A control not found ends it with a
// traceback at the line that looked for it.
constexpr const char* kListener = R"py(
import subprocess, sys, time
import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

program, xdotool = sys.argv[1], sys.argv[2]

def say(*words):
    print(*words, file=sys.stderr, flush=True)

def on_name_change(event):
    if event.source.get_role_name() == "status bar":
        say("STATUS", event.source.get_name())

listener = Atspi.EventListener.new(on_name_change)
listener.register("object:property-change:accessible-name")

def pump(seconds, until=lambda: None):
    for _ in range(seconds * 20):
        while GLib.MainContext.default().iteration(False):
            pass
        if found := until():
            return found
        time.sleep(0.05)

def find(node, name):
    try:
        if node.get_name() == name and node.get_state_set().contains(Atspi.StateType.SHOWING):
            return node
        for i in range(node.get_child_count()):
            found = find(node.get_child_at_index(i), name)
            if found:
                return found
    except (GLib.Error, AttributeError):  # a node gone meanwhile, or none there
        pass

subprocess.Popen([program])
desktop = Atspi.get_desktop(0)
window = pump(60, lambda: find(desktop, "Tablewright.."))
entry = window and pump(10, lambda: find(window, "Poker Hand Names"))
box = entry.get_extents(Atspi.CoordType.SCREEN)
subprocess.run([xdotool, "mousemove", str(box.x + 10), str(box.y + box.height // 2),
                "click", "1"], check=True)
start = pump(10, lambda: find(window, "Start exercise 2"))
pump(1)
say("PRESS")
start.do_action(0)
pump(10)
say("END")
)py";

TEST(ScreenReader, HearsEachNewPromptOfTheMessageLine) {
    system_test::startApplication();
    const QString python = "/usr/bin/python3";
    if (QProcess::execute(python, {"-c", "import gi; gi.require_version('Atspi', '2.0')"}) != 0)
        GTEST_SKIP() << "needs python3 with the AT-SPI bindings";
    system_test::Desktop desktop;
    ASSERT_TRUE(desktop.running()) << "Xvfb or the session bus did not start";

    // The program's accessibility on, on the accessibility bus this desktop's bus starts (not
    // one of the test's own).
    QProcessEnvironment accessible;
    accessible.insert("AT_SPI_BUS_ADDRESS", {});
    accessible.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    ASSERT_TRUE(desktop.startProgram(
        {"-c", kListener, QStringLiteral(TABLEWRIGHT_PROGRAM), QStringLiteral(XDOTOOL_PROGRAM)},
        accessible, python));
    ASSERT_TRUE(desktop.waitForExit(150'000)) << "the listener did not end";
    const QString said = desktop.errors();
    ASSERT_TRUE(said.contains("\nEND\n")) << said.toStdString();

    // After the press, the prompt of the dealt hand is reported, once.
    const QStringList afterPress = said.section("\nPRESS\n", 1)
                                       .section("\nEND\n", 0, 0)
                                       .split(QLatin1Char('\n'))
                                       .filter(QRegularExpression("^STATUS "));
    EXPECT_EQ(afterPress, QStringList{"STATUS Click a poker hand name from the list.."})
        << said.toStdString();
    EXPECT_TRUE(said.contains("\nSTATUS Click [Start] to begin..\n"))
        << "opening the screen is reported too";
}

}  // namespace

// The program with a scripted user. It starts as the real program does, then visits every
// entry of the tree in turn, plays a round with every Start button of every exercise, plays
// the sample hand to its end and leaves through the promotion window. Each thing done is
// reported on stderr as a line starting "visit: ", for the test that runs it under strace.
// Exit code 0 when the whole visit was made; else the first thing that could not be done.
#include <QApplication>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>

#include "platform/mDefs.h"
#include "platform/startup.h"
#include "promotion/frmPacific.h"
#include "shell/frmMain.h"

namespace {

constexpr int kEngineMs = 60'000;   // the browser engine loads late on a loaded machine
constexpr int kPageMs = 400;        // a lesson page loading and painting
constexpr int kAnswerMs = 1200;     // a verdict shown and its message blinking
constexpr int kPromotionMs = 3000;  // the promotion's animation inside its waits
constexpr int kSampleSteps = 34;

// Leaves the program with this code, saying why.
void giveUp(int code, const char* why) {
    std::fprintf(stderr, "visit: failed: %s\n", why);
    platform::EndProgram(code);
}

void settle(int milliseconds) {
    platform::WaitServingEvents(milliseconds);
}

bool reachable(const QWidget* widget) {
    return widget->isVisible() && widget->isEnabled();
}

template <typename Control = QWidget>
Control* control(const frmMain& form, const QString& name) {
    return form.findChild<Control*>(name);
}

platform::CommandButton* firstOpenKey(const frmMain& form) {
    for (int index = 0; index < 52; ++index) {
        auto* key = control<platform::CommandButton>(form, QStringLiteral("cmdKey(%1)").arg(index));
        if (reachable(key))
            return key;
    }
    return nullptr;
}

struct Tally {
    int pages = 0;
    int rounds = 0;
    int keys = 0;
    int answers = 0;
};

// One round as a beginner plays it: Start, cards picked on the keyboard while it is open,
// then an answer: a hand name, or the two surfaces of the comparison.
void playRound(frmMain& form, platform::CommandButton* start, Tally& tally) {
    start->click();
    settle(kPageMs);
    ++tally.rounds;
    for (int picked = 0; picked < 10; ++picked) {
        platform::CommandButton* key = firstOpenKey(form);
        if (key == nullptr)
            break;
        key->click();
        ++tally.keys;
        settle(50);
    }
    for (std::int16_t index = 0; index < 9; ++index) {
        if (!control(form, QStringLiteral("lblName(%1)").arg(index))->isVisible())
            continue;
        form.lblName_MouseMove(index);
        form.lblName_Click(index);
        ++tally.answers;
        break;
    }
    if (control(form, QStringLiteral("picShow"))->isVisible()) {
        form.picShow_Click();
        settle(kPageMs);
        form.picLabels_Click();
        ++tally.answers;
    }
    settle(kAnswerMs);
}

void playExercise(frmMain& form, Tally& tally) {
    for (const char* name : {"cmdStart1A", "cmdStart1B", "cmdStart2A", "cmdStart2B", "cmdStart3A",
                             "cmdStart3B", "cmdStart4"}) {
        auto* start = control<platform::CommandButton>(form, QString::fromLatin1(name));
        if (reachable(start))
            playRound(form, start, tally);
    }
    if (auto* clear = control<platform::CommandButton>(form, QStringLiteral("cmdClear"));
        reachable(clear))
        clear->click();
}

void playSampleToTheEnd(frmMain& form) {
    auto* next = control<platform::CommandButton>(form, QStringLiteral("cmdNext"));
    for (int clicks = 0; clicks < 2 * kSampleSteps && next->caption() != QLatin1String("Replay") &&
                         !platform::programEnding();
         ++clicks) {
        next->click();
    }
}

// The text pane shows first; the engine takes over once its first page is in, where the
// engine module is there beside the program.
bool waitForEngine(const frmMain& form) {
    if (!QFileInfo::exists(platform::AppPath(QStringLiteral("\\tablewright_webpane.so"))))
        return false;
    for (int waited = 0; waited < kEngineMs; waited += 100) {
        if (control<platform::WebBrowser>(form, QStringLiteral("WebBrowser1"))->backend() ==
            platform::WebBrowser::Backend::Engine)
            return true;
        settle(100);
    }
    return false;
}

bool g_messageShown = false;

void visit(frmMain& form) {
    if (g_messageShown)
        return giveUp(3, "a message box opened at start-up");
    std::fprintf(stderr, "visit: lesson pane %s\n", waitForEngine(form) ? "engine" : "text");
    Tally tally;
    for (int node = 1;
         node <= control<platform::TreeView>(form, QStringLiteral("TreeView1"))->nodeCount() &&
         !platform::programEnding();
         ++node) {
        control<platform::TreeView>(form, QStringLiteral("TreeView1"))->setSelected(node);
        form.TreeView1_NodeClick(node);
        settle(kPageMs);
        if (!control<platform::WebBrowser>(form, QStringLiteral("WebBrowser1"))->isHidden())
            ++tally.pages;
        if (!control(form, QStringLiteral("picQuiz"))->isHidden())
            playExercise(form, tally);
        if (!control(form, QStringLiteral("picDemo"))->isHidden())
            playSampleToTheEnd(form);
    }
    std::fprintf(stderr,
                 "visit: %d entries, %d pages, %d rounds, %d keys, %d answers, sample at step %d\n",
                 control<platform::TreeView>(form, QStringLiteral("TreeView1"))->nodeCount(),
                 tally.pages, tally.rounds, tally.keys, tally.answers,
                 control<platform::CommandButton>(form, QStringLiteral("cmdNext"))->caption() ==
                         QLatin1String("Replay")
                     ? kSampleSteps
                     : 0);

    // The user closes the window; the promotion takes its place and is closed in turn.
    QTimer::singleShot(kPromotionMs, &form, [&form] {
        frmPacific* promotion = form.promotionWindow();
        if (promotion == nullptr || !promotion->isVisible())
            return giveUp(4, "no promotion window");
        std::fprintf(stderr, "visit: promotion window closed\n");
        promotion->close();
    });
    form.close();
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    platform::configureApplication(app);
    platform::setApplicationFolder(QStringLiteral(TABLEWRIGHT_APP_DIR));
    // A message box would wait for a user who is not there: one is a failure of the visit.
    platform::seams().messageBox = [](const QString& text) {
        std::fprintf(stderr, "visit: message box: %s\n", qPrintable(text));
        g_messageShown = true;
        platform::EndProgram(3);
    };
    int exitCode = 0;
    {
        frmMain form;
        form.Form_Load();
        form.show();
        QTimer::singleShot(0, &form, [&form] { visit(form); });
        exitCode = QApplication::exec();
    }
    return exitCode;
}

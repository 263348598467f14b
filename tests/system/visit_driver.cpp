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

platform::CommandButton* firstOpenKey(const frmMain& form) {
    for (platform::CommandButton* key : form.cmdKey) {
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
    for (std::int16_t index = 0; index < static_cast<std::int16_t>(form.lblName.size()); ++index) {
        if (!form.lblName[static_cast<std::size_t>(index)]->isVisible())
            continue;
        form.lblName_MouseMove(index);
        form.lblName_Click(index);
        ++tally.answers;
        break;
    }
    if (form.picShow->isVisible()) {
        form.picShow_Click();
        settle(kPageMs);
        form.picLabels_Click();
        ++tally.answers;
    }
    settle(kAnswerMs);
}

void playExercise(frmMain& form, Tally& tally) {
    for (platform::CommandButton* start :
         {form.cmdStart1A, form.cmdStart1B, form.cmdStart2A, form.cmdStart2B, form.cmdStart3A,
          form.cmdStart3B, form.cmdStart4}) {
        if (reachable(start))
            playRound(form, start, tally);
    }
    if (reachable(form.cmdClear))
        form.cmdClear->click();
}

void playSampleToTheEnd(frmMain& form) {
    for (int clicks = 0;
         clicks < 2 * kSampleSteps && form.sampleStep < kSampleSteps && !platform::programEnding();
         ++clicks) {
        form.cmdNext->click();
    }
}

bool g_messageShown = false;

void visit(frmMain& form) {
    if (g_messageShown)
        return giveUp(3, "a message box opened at start-up");
    Tally tally;
    for (int node = 1; node <= form.TreeView1->nodeCount() && !platform::programEnding(); ++node) {
        form.TreeView1->setSelected(node);
        form.TreeView1_NodeClick(node);
        settle(kPageMs);
        if (!form.WebBrowser1->isHidden())
            ++tally.pages;
        if (!form.picQuiz->isHidden())
            playExercise(form, tally);
        if (!form.picDemo->isHidden())
            playSampleToTheEnd(form);
    }
    std::fprintf(stderr,
                 "visit: %d entries, %d pages, %d rounds, %d keys, %d answers, sample at step %d\n",
                 form.TreeView1->nodeCount(), tally.pages, tally.rounds, tally.keys, tally.answers,
                 static_cast<int>(form.sampleStep));

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
    platform::prepareApplication();
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

// The program with a scripted user. It starts as the real program does, then visits every
// entry of the tree in turn, plays a round with every Start button of every exercise, plays
// the sample hand to its end and leaves through the promotion window, for the test that runs
// it under strace. Exit code 0 when the whole visit was made; else the first thing that could
// not be done, said on stderr.
//
// With --report it does nothing itself: the user is a test acting through the X server, and
// the driver only says on stderr where things are on the screen and what changed ("visit:
// entry 'Sample Poker Game' at 80,312", "visit: window shown <title>", "visit: close at loop
// depth 2"). The program's own ending decides the exit code.
//
// The driver knows the window only as a user does: its controls found by name, and the
// handlers a click or a key runs.
#include <QApplication>
#include <QSet>
#include <QTimer>
#include <cstdio>

#include "platform/mDefs.h"
#include "platform/startup.h"
#include "shell/frmMain.h"
#include "x_session.h"

namespace {

constexpr int kPageMs = 400;        // a lesson page loading and painting
constexpr int kAnswerMs = 1200;     // a verdict shown and its message blinking
constexpr int kPromotionMs = 3000;  // the promotion's animation inside its waits
constexpr int kLookMs = 50;         // how often the reporter looks at the window

// Leaves the program with this code, saying why.
void giveUp(int code, const char* why) {
    std::fprintf(stderr, "visit: failed: %s\n", why);
    platform::EndProgram(code);
}

template <typename Control = QWidget>
Control* control(const frmMain& form, const QString& name) {
    return form.findChild<Control*>(name);
}

bool reachable(const QWidget* widget) {
    return widget != nullptr && widget->isVisible() && widget->isEnabled();
}

bool shown(const frmMain& form, const QString& name) {
    const QWidget* widget = control(form, name);
    return widget != nullptr && !widget->isHidden();
}

// What the visit has done so far.
struct Visited {
    int pages, rounds, answers;
    bool sampleEnded;
};

// One round as a beginner plays it: Start, up to ten cards picked on the keyboard while it
// is open, then an answer: a hand name, or the two surfaces of the comparison.
void playRound(frmMain& form, platform::CommandButton* start, Visited& visited) {
    start->click();
    platform::WaitServingEvents(kPageMs);
    ++visited.rounds;
    for (int index = 0, picked = 0; index < 52 && picked < 10; ++index) {
        auto* key = control<platform::CommandButton>(form, QStringLiteral("cmdKey(%1)").arg(index));
        if (reachable(key)) {
            key->click();
            ++picked;
            platform::WaitServingEvents(50);
        }
    }
    for (std::int16_t index = 0; index < 9; ++index) {
        if (reachable(control(form, QStringLiteral("lblName(%1)").arg(index)))) {
            form.lblName_MouseMove(index);
            form.lblName_Click(index);
            ++visited.answers;
            break;
        }
    }
    if (reachable(control(form, QStringLiteral("picShow")))) {
        form.picShow_Click();
        platform::WaitServingEvents(kPageMs);
        form.picLabels_Click();
        ++visited.answers;
    }
    platform::WaitServingEvents(kAnswerMs);
}

// What the screen on show offers: every Start button a round, then Clear; or the sample
// hand, Next until the link at its end shows.
void playScreen(frmMain& form, Visited& visited) {
    for (auto* start :
         form.findChildren<platform::CommandButton*>(QRegularExpression("^cmdStart"))) {
        if (reachable(start))
            playRound(form, start, visited);
    }
    if (auto* clear = control<platform::CommandButton>(form, QStringLiteral("cmdClear"));
        reachable(clear))
        clear->click();
    auto* next = control<platform::CommandButton>(form, QStringLiteral("cmdNext"));
    for (int step = 0; next != nullptr && shown(form, QStringLiteral("picDemo")) && step < 100 &&
                       !visited.sampleEnded && !platform::programEnding();
         ++step) {
        next->click();
        visited.sampleEnded = shown(form, QStringLiteral("lblEnough"));
    }
}

void visit(frmMain& form) {
    auto* tree = control<platform::TreeView>(form, QStringLiteral("TreeView1"));
    Visited visited{};
    for (int node = 1; tree != nullptr && node <= tree->nodeCount() && !platform::programEnding();
         ++node) {
        tree->setSelected(node);
        form.TreeView1_NodeClick(node);
        platform::WaitServingEvents(kPageMs);
        visited.pages += shown(form, QStringLiteral("WebBrowser1")) ? 1 : 0;
        playScreen(form, visited);
    }
    if (visited.pages == 0 || visited.rounds == 0 || visited.answers == 0 || !visited.sampleEnded)
        return giveUp(7, "a part of the tree was not visited");

    // The user closes the window; the promotion takes its place and is closed in turn.
    QTimer::singleShot(kPromotionMs, &form, [] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->windowTitle() == system_test::kPromotionTitle && window->isVisible())
                return (void)window->close();
        }
        giveUp(4, "no promotion window");
    });
    form.close();
}

// Says where things are and what changed, for a test that acts through the X server.
class Reporter : public QObject {
  public:
    explicit Reporter(frmMain& form) : QObject(&form), form_(form) {
        qApp->installEventFilter(this);
        startTimer(kLookMs);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && widget->isWindow() && event->type() == QEvent::Show)
            std::fprintf(stderr, "visit: window shown %s\n", qPrintable(widget->windowTitle()));
        // Above 1 when the close is served inside a wait of the program's own.
        if (watched == &form_ && event->type() == QEvent::Close)
            std::fprintf(stderr, "visit: close at loop depth %d\n",
                         QThread::currentThread()->loopLevel());
        return false;
    }

    // Each tree entry's centre on the screen, and each control's once it shows.
    void timerEvent(QTimerEvent*) override {
        auto* tree = control<platform::TreeView>(form_, QStringLiteral("TreeView1"));
        for (int index = 1; form_.isVisible() && index <= tree->nodeCount(); ++index) {
            const QRect row = tree->visualItemRect(tree->node(index));
            if (tree->viewport()->rect().contains(row.center()))
                tell(QStringLiteral("entry '%1'").arg(tree->nodeText(index)),
                     tree->viewport()->mapToGlobal(row.center()));
        }
        for (const QString& name : {QStringLiteral("cmdNext"), QStringLiteral("lblEnough")}) {
            if (const QWidget* widget = control(form_, name);
                widget != nullptr && widget->isVisible())
                tell(name, widget->mapToGlobal(widget->rect().center()));
        }
    }

  private:
    void tell(const QString& what, QPoint at) {
        if (!told_.contains(what))
            std::fprintf(stderr, "visit: %s at %d,%d\n", qPrintable(what), at.x(), at.y());
        told_.insert(what);
    }

    frmMain& form_;
    QSet<QString> told_;
};

}  // namespace

int main(int argc, char* argv[]) {
    platform::prepareApplication();
    QApplication app(argc, argv);
    platform::configureApplication(app);
    platform::setApplicationFolder(QStringLiteral(TABLEWRIGHT_APP_DIR));
    const bool byHand = QApplication::arguments().contains(QStringLiteral("--report"));
    if (!byHand) {
        // A message box would wait for a user who is not there: one is a failure of the
        // visit.
        platform::seams().messageBox = [](const QString& text) {
            giveUp(3, qPrintable("a message box: " + text));
        };
    }
    frmMain form;
    form.Form_Load();
    form.show();
    if (byHand)
        new Reporter(form);
    else
        QTimer::singleShot(0, &form, [&form] { visit(form); });
    return QApplication::exec();
}

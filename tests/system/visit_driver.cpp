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
#include <QRegularExpression>
#include <QSet>
#include <QThread>
#include <QTimer>
#include <cstdio>

#include "platform/mDefs.h"
#include "platform/startup.h"
#include "shell/frmMain.h"

namespace {

constexpr int kPageMs = 400;        // a lesson page loading and painting
constexpr int kAnswerMs = 1200;     // a verdict shown and its message blinking
constexpr int kPromotionMs = 3000;  // the promotion's animation inside its waits
constexpr int kSampleSteps = 34;
constexpr int kLessons = 29;
constexpr int kRounds = 7;   // one for each Start button
constexpr int kLookMs = 50;  // how often the reporter looks at the window
const QString kPromotionTitle =
    QStringLiteral("Play Poker Online for FREE ... Real People Real Fun");

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

int g_rounds = 0;
int g_keys = 0;
int g_answers = 0;

// One round as a beginner plays it: Start, cards picked on the keyboard while it is open,
// then an answer: a hand name, or the two surfaces of the comparison.
void playRound(frmMain& form, platform::CommandButton* start) {
    start->click();
    platform::WaitServingEvents(kPageMs);
    ++g_rounds;
    for (int index = 0, picked = 0; index < 52 && picked < 10; ++index) {
        auto* key = control<platform::CommandButton>(form, QStringLiteral("cmdKey(%1)").arg(index));
        if (reachable(key)) {
            key->click();
            ++picked;
            ++g_keys;
            platform::WaitServingEvents(50);
            index = -1;  // the keys open now may have changed: look again from the first
        }
    }
    for (std::int16_t index = 0; index < 9; ++index) {
        if (reachable(control(form, QStringLiteral("lblName(%1)").arg(index)))) {
            form.lblName_MouseMove(index);
            form.lblName_Click(index);
            ++g_answers;
            break;
        }
    }
    if (reachable(control(form, QStringLiteral("picShow")))) {
        form.picShow_Click();
        platform::WaitServingEvents(kPageMs);
        form.picLabels_Click();
        ++g_answers;
    }
    platform::WaitServingEvents(kAnswerMs);
}

// Every Start button a round, then Clear; or the sample hand, Next until the link at the end
// shows.
void playScreen(frmMain& form, int& sampleStep) {
    for (auto* start :
         form.findChildren<platform::CommandButton*>(QRegularExpression("^cmdStart"))) {
        if (reachable(start))
            playRound(form, start);
    }
    if (auto* clear = control<platform::CommandButton>(form, QStringLiteral("cmdClear"));
        reachable(clear))
        clear->click();
    auto* next = control<platform::CommandButton>(form, QStringLiteral("cmdNext"));
    if (!shown(form, QStringLiteral("picDemo")) || next == nullptr)
        return;
    // The entry's click played step 1.
    for (sampleStep = 1; !shown(form, QStringLiteral("lblEnough")) &&
                         sampleStep < 2 * kSampleSteps && !platform::programEnding();
         ++sampleStep)
        next->click();
}

void visit(frmMain& form) {
    if (platform::programEnding())  // ended before its event loop ran
        return giveUp(3, "a message box opened at start-up");
    auto* tree = control<platform::TreeView>(form, QStringLiteral("TreeView1"));
    int pages = 0;
    int sampleStep = 0;
    for (int node = 1; tree != nullptr && node <= tree->nodeCount() && !platform::programEnding();
         ++node) {
        tree->setSelected(node);
        form.TreeView1_NodeClick(node);
        platform::WaitServingEvents(kPageMs);
        pages += shown(form, QStringLiteral("WebBrowser1")) ? 1 : 0;
        playScreen(form, sampleStep);
    }
    // Every lesson a page, every Start button a round, 5 + 10 + 2 + 2 cards picked, answers
    // given, the sample to its end.
    if (pages != kLessons || g_rounds != kRounds || g_keys < 19 || g_answers < 3 ||
        sampleStep != kSampleSteps)
        return giveUp(7, "a part of the tree was not visited");

    // The user closes the window; the promotion takes its place and is closed in turn.
    QTimer::singleShot(kPromotionMs, &form, [] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->windowTitle() == kPromotionTitle && window->isVisible())
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
        auto* timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, &Reporter::look);
        timer->start(kLookMs);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (widget == nullptr || !widget->isWindow())
            return false;
        if (event->type() == QEvent::Show) {
            std::fprintf(stderr, "visit: window shown %s\n", qPrintable(widget->windowTitle()));
        } else if (event->type() == QEvent::Close && widget == &form_) {
            // Above 1 when the close is served inside a wait of the program's own.
            std::fprintf(stderr, "visit: close at loop depth %d\n",
                         QThread::currentThread()->loopLevel());
        }
        return false;
    }

  private:
    // Each tree entry's centre on the screen, and each control's once it shows.
    void look() {
        auto* tree = control<platform::TreeView>(form_, QStringLiteral("TreeView1"));
        if (!form_.isVisible() || tree == nullptr)
            return;
        for (int index = 1; index <= tree->nodeCount(); ++index) {
            const QRect row = tree->visualItemRect(tree->node(index));
            if (tree->viewport()->rect().contains(row.center()))
                tell(QStringLiteral("entry '%1'").arg(tree->nodeText(index)),
                     tree->viewport()->mapToGlobal(row.center()));
        }
        for (const QString& name : {QStringLiteral("cmdNext"), QStringLiteral("lblEnough")}) {
            const QWidget* widget = control(form_, name);
            if (widget != nullptr && widget->isVisible())
                tell(name, widget->mapToGlobal(widget->rect().center()));
        }
    }

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
            std::fprintf(stderr, "visit: message box: %s\n", qPrintable(text));
            platform::EndProgram(3);
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

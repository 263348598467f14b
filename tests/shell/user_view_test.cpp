// What a user meets: captions shown whole on every screen, names a screen reader can say and
// a message line it hears, the keyboard's order, the focus after coming back from elsewhere,
// and the dealer button seen to slide.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QFontMetricsF>
#include <QPushButton>
#include <QTest>
#include <set>

#include "promotion/frmPacific2.h"
#include "support/window_fixture.h"

namespace {

class UserView : public test_support::WindowTest {
  protected:
    QWidget* control(const char* name) const {
        auto* widget = form->findChild<QWidget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    // A user's click on a control of the main window, or on the first key that is open.
    void click(const char* name) {
        if (std::string_view(name) == "key") {
            for (auto* key : form->findChildren<QPushButton*>()) {
                if (key->objectName().startsWith("cmdKey") && key->isEnabled()) {
                    QTest::mouseClick(key, Qt::LeftButton);
                    return;
                }
            }
            ADD_FAILURE() << "no key open";
            return;
        }
        QTest::mouseClick(control(name), Qt::LeftButton);
    }
};

// Each screen, and the clicks after each of which its captions are measured again.
struct Screen {
    const char* topic;
    std::vector<const char*> clicks;
};
const std::vector<Screen> kScreens{
    {"Poker Hand Names", {"cmdStart1A", "cmdStart1B", "lblName(0)", "lblName(8)"}},
    {"Poker Hand Rankings", {"cmdStart2A", "cmdStart2B", "picLabels", "picShow"}},
    {"Starting Pair Awareness", {"cmdStart3A", "cmdStart3B", "lblName(2)", "lblName(6)"}},
    {"Best Hand Recognition", {"cmdStart4", "key", "key"}},
};

// The captions in `window` that their control cuts off, measured with the font they are
// drawn in: a label's text, wrapped if it wraps, within its contents; a button's in its face.
std::vector<std::string> cutCaptions(const QWidget& window) {
    std::vector<std::string> cut;
    const auto note = [&](const QWidget& control, const QString& text) {
        cut.push_back(control.objectName().toStdString() + ": " + text.toStdString());
    };
    for (const auto* label : window.findChildren<platform::Label*>()) {
        if (!label->isVisibleTo(&window) || label->text().isEmpty())
            continue;
        const QRectF room = label->contentsRect();
        const int flags = int(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0);
        const QRectF needed = QFontMetricsF(label->font()).boundingRect(room, flags, label->text());
        if (needed.width() > room.width() || needed.height() > room.height())
            note(*label, label->text());
    }
    for (const auto* button : window.findChildren<QPushButton*>()) {
        const QFontMetricsF metrics(button->font());
        if (button->isVisibleTo(&window) &&
            (metrics.horizontalAdvance(button->text()) > button->width() - 4 ||
             metrics.height() > button->height()))
            note(*button, button->text());
    }
    return cut;
}

// Run once as it is and once with QT_SCALE_FACTOR=2.
TEST_F(UserView, EveryCaptionShowsWholeOnEveryScreen) {
    startWindow();
    for (const Screen& screen : kScreens) {
        SCOPED_TRACE(screen.topic);
        clickTopic(screen.topic);
        EXPECT_THAT(cutCaptions(*form), ::testing::IsEmpty());
        for (const char* name : screen.clicks) {
            click(name);
            EXPECT_THAT(cutCaptions(*form), ::testing::IsEmpty()) << "after " << name;
        }
    }
    clickTopic("Sample Poker Game");
    for (int step = 2; step <= 34; ++step) {
        click("cmdNext");
        EXPECT_THAT(cutCaptions(*form), ::testing::IsEmpty()) << "step " << step;
    }
    frmPacific room(*form);
    frmPacific2 promotion(*form);
    EXPECT_THAT(cutCaptions(room), ::testing::IsEmpty());
    EXPECT_THAT(cutCaptions(promotion), ::testing::IsEmpty());
}

// The accessible names under `root` that are the object name of a control of the program.
void collectInternalNames(QAccessibleInterface* node, const std::set<QString>& internal,
                          std::vector<std::string>& found) {
    if (!node || node->state().invisible)
        return;
    const QString name = node->text(QAccessible::Name);
    if (internal.count(name))
        found.push_back(name.toStdString());
    for (int i = 0; i < node->childCount(); ++i)
        collectInternalNames(node->child(i), internal, found);
}

TEST_F(UserView, ScreenReadersMeetNoInternalNameAndTheMessageLineIsAStatusLine) {
    startWindow();
    frmPacific room(*form);
    frmPacific2 promotion(*form);
    std::set<QString> internal;
    for (const QWidget* window : {static_cast<QWidget*>(form.get()), static_cast<QWidget*>(&room),
                                  static_cast<QWidget*>(&promotion)}) {
        for (const QObject* object : window->findChildren<QObject*>()) {
            if (!object->objectName().isEmpty() && !object->objectName().startsWith("qt_"))
                internal.insert(object->objectName());
        }
    }
    std::vector<std::string> found;
    for (const char* topic :
         {"Intro", "Poker Hand Names", "Best Hand Recognition", "Sample Poker Game"}) {
        clickTopic(topic);
        collectInternalNames(QAccessible::queryAccessibleInterface(form.get()), internal, found);
    }
    room.show();
    promotion.show();
    collectInternalNames(QAccessible::queryAccessibleInterface(&room), internal, found);
    collectInternalNames(QAccessible::queryAccessibleInterface(&promotion), internal, found);
    EXPECT_THAT(found, ::testing::IsEmpty());

    // The message line is a status line named by what it shows, so that each new prompt or
    // verdict is spoken (tests/system hears the event over AT-SPI).
    clickTopic("Poker Hand Names");
    auto* message = static_cast<QLabel*>(control("lblMessage"));
    QAccessibleInterface* line = QAccessible::queryAccessibleInterface(message);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->role(), QAccessible::StatusBar);
    click("cmdStart1B");
    EXPECT_EQ(line->text(QAccessible::Name), message->text());
}

// The keyboard's order: the two surfaces and the names, Clear, the tree, the keys from the
// last to the first, the Start buttons, the stage.
TEST_F(UserView, TabGoesFromClearToTheTreeAndThenDownTheKeys) {
    startWindow();
    QStringList wanted{"picShow", "picLabels"};
    for (int i = 8; i >= 0; --i)
        wanted << QStringLiteral("lblName(%1)").arg(i);
    wanted << "cmdClear"
           << "TreeView1";
    for (int i = 51; i >= 0; --i)
        wanted << QStringLiteral("cmdKey(%1)").arg(i);
    wanted << "cmdStart1A"
           << "cmdStart1B"
           << "cmdStart2A"
           << "cmdStart2B"
           << "cmdStart3A"
           << "cmdStart3B"
           << "cmdStart4"
           << "txtComments"
           << "cmdNext"
           << "lblEnough";
    QStringList chain;
    QWidget* const first = control("picShow");
    QWidget* widget = first;
    do {
        if (wanted.contains(widget->objectName()))
            chain << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != first);
    EXPECT_EQ(chain, wanted);
}

// Back from another window of the program the tree has the focus; back from another
// application the focus is where the user left it.
TEST_F(UserView, ComingBackFromAnotherApplicationLeavesTheFocusWhereItWas) {
    startWindow();
    clickTopic("Poker Hand Names");
    QWidget other;
    const auto activate = [](QWidget& window) {
        window.show();
        window.activateWindow();
        return QTest::qWaitForWindowActive(&window);
    };
    ASSERT_TRUE(activate(*form));
    control("cmdStart1A")->setFocus();
    ASSERT_TRUE(activate(other));
    emit qApp->focusWindowChanged(nullptr);  // the user is in another application
    ASSERT_TRUE(activate(*form));
    EXPECT_EQ(QApplication::focusWidget(), control("cmdStart1A"));
    ASSERT_TRUE(activate(other));
    ASSERT_TRUE(activate(*form));
    EXPECT_EQ(QApplication::focusWidget(), control("TreeView1"));
}

// The stage is painted at each pixel of the button's slide, and a click that is waiting is
// served only once the button stands at its new seat.
class SlideWatch : public QObject {
  public:
    explicit SlideWatch(QWidget* button) : button_(button) {}
    std::set<std::pair<int, int>> paintedAt;
    QPoint clickServedAt;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == button_ && event->type() == QEvent::Paint)
            paintedAt.emplace(button_->x(), button_->y());
        if (event->type() == QEvent::MouseButtonPress)
            clickServedAt = button_->pos();
        return false;
    }

  private:
    QWidget* button_;
};

TEST_F(UserView, TheDealerButtonIsSeenToSlideAndNoClickIsServedMeanwhile) {
    startWindow();
    clickTopic("Sample Poker Game");
    click("cmdNext");  // step 2; the next one deals
    auto* dealer = static_cast<platform::PictureBox*>(control("picDealer"));
    const QPoint home = dealer->pos();
    SlideWatch watch(dealer);
    dealer->installEventFilter(&watch);
    QWidget* comments = control("txtComments");
    comments->installEventFilter(&watch);
    QCoreApplication::postEvent(comments, new QMouseEvent(QEvent::MouseButtonPress, QPointF(5, 5),
                                                          comments->mapToGlobal(QPointF(5, 5)),
                                                          Qt::LeftButton, Qt::LeftButton, {}));
    static_cast<QPushButton*>(control("cmdNext"))->click();
    EXPECT_EQ(dealer->pos(), home + QPoint(-87, 87));
    EXPECT_GT(watch.paintedAt.size(), 80u) << "the button jumped instead of sliding";
    EXPECT_EQ(watch.clickServedAt, dealer->pos());
}

}  // namespace

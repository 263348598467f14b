// What a user meets in the main window: the design's places, captions shown whole on every
// screen, names a screen reader can say, the keyboard's order, the focus after coming back
// from elsewhere, and the dealer button seen to slide.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QFontMetricsF>
#include <QPushButton>
#include <QTest>
#include <set>

#include "promotion/frmPacific2.h"
#include "support/window_fixture.h"

namespace {

using ::testing::IsEmpty;

class UserView : public test_support::WindowTest {
  protected:
    // A user's click on a control of the main window, or on the first key that is open.
    void click(const QString& name) {
        const auto open = enabledKeys();
        QWidget* target = name != "key" ? child(name) : open.empty() ? nullptr : key(open.front());
        ASSERT_NE(target, nullptr) << "no key open";
        QTest::mouseClick(target, Qt::LeftButton);
    }
};

// The design's outer size, 13935 x 10200 twips with borders, gives the design's places.
TEST_F(UserView, DesignSizeGivesTheDesignsPlaces) {
    startWindow();
    const QSize frame = form->frameGeometry().size() - form->size();
    form->resize(frame.isNull() ? QSize(921, 653) : QSize(929, 680) - frame);  // usual: 8 x 27
    QCoreApplication::processEvents();
    form->Form_Resize();
    const std::pair<const char*, std::array<double, 4>> places[] = {
        {"TreeView1", {135, 165, 3015, 9350}},         {"WebBrowser1", {3300.75, 165, 10320, 9350}},
        {"picLabels", {5160, 9350.0 / 9, 3210, 2820}}, {"picKeys", {2805, 4675, 6045, 1740}},
        {"Frame2", {6100.5, 7082, 3135, 1890}},
    };
    for (const auto& [name, want] : places) {
        const auto* place = dynamic_cast<const platform::TwipsGeometry*>(child(name));
        ASSERT_NE(place, nullptr) << name;
        const std::array<double, 4> got{place->Left(), place->Top(), place->Width(),
                                        place->Height()};
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_NEAR(got[i], want[i], 1e-6) << name << ", " << i;
    }
}

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
    for (const auto* label : window.findChildren<platform::Label*>()) {
        const QRectF room = label->contentsRect();
        const int flags = int(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0);
        const QRectF needed = QFontMetricsF(label->font()).boundingRect(room, flags, label->text());
        if (label->isVisibleTo(&window) &&
            (needed.width() > room.width() || needed.height() > room.height()))
            cut.push_back(label->text().toStdString());
    }
    for (const auto* button : window.findChildren<QPushButton*>()) {
        const QFontMetricsF metrics(button->font());
        if (button->isVisibleTo(&window) &&
            (metrics.horizontalAdvance(button->text()) > button->width() - 4 ||
             metrics.height() > button->height()))
            cut.push_back(button->text().toStdString());
    }
    return cut;
}

// Run once as it is and once with QT_SCALE_FACTOR=2.
TEST_F(UserView, EveryCaptionShowsWholeOnEveryScreen) {
    startWindow();
    for (const Screen& screen : kScreens) {
        SCOPED_TRACE(screen.topic);
        clickTopic(screen.topic);
        EXPECT_THAT(cutCaptions(*form), IsEmpty());
        for (const char* name : screen.clicks) {
            click(name);
            EXPECT_THAT(cutCaptions(*form), IsEmpty()) << "after " << name;
        }
    }
    clickTopic("Sample Poker Game");
    for (int step = 2; step <= 34; ++step) {
        click("cmdNext");
        EXPECT_THAT(cutCaptions(*form), IsEmpty()) << "step " << step;
    }
    EXPECT_THAT(cutCaptions(frmPacific(*form)), IsEmpty());
    EXPECT_THAT(cutCaptions(frmPacific2(*form)), IsEmpty());
}

// The accessible names under `node` that are the object name of a control of the program.
void collectInternalNames(QAccessibleInterface* node, const std::set<QString>& internal,
                          std::vector<std::string>& found) {
    if (!node || node->state().invisible)
        return;
    if (internal.count(node->text(QAccessible::Name)))
        found.push_back(node->text(QAccessible::Name).toStdString());
    for (int i = 0; i < node->childCount(); ++i)
        collectInternalNames(node->child(i), internal, found);
}

TEST_F(UserView, ScreenReadersMeetNoInternalName) {
    startWindow();
    frmPacific room(*form);
    frmPacific2 promotion(*form);
    const std::array<QWidget*, 3> windows{form.get(), &room, &promotion};
    std::set<QString> internal;
    for (const QWidget* window : windows) {
        for (const QObject* object : window->findChildren<QObject*>())
            if (!object->objectName().isEmpty() && !object->objectName().startsWith("qt_"))
                internal.insert(object->objectName());
    }
    std::vector<std::string> found;
    for (const char* topic : {"Intro", "Poker Hand Names", "Best Hand Recognition"}) {
        clickTopic(topic);
        collectInternalNames(QAccessible::queryAccessibleInterface(form.get()), internal, found);
    }
    clickTopic("Sample Poker Game");
    for (QWidget* window : windows) {
        window->show();
        collectInternalNames(QAccessible::queryAccessibleInterface(window), internal, found);
    }
    EXPECT_THAT(found, IsEmpty());
}

// The keyboard's order: the two surfaces and the names, Clear, the tree, the keys from the
// last to the first, the Start buttons, the stage.
TEST_F(UserView, TabGoesFromClearToTheTreeAndThenDownTheKeys) {
    startWindow();
    QStringList wanted{"picShow", "picLabels"};
    for (int i = 8; i >= 0; --i)
        wanted << QStringLiteral("lblName(%1)").arg(i);
    wanted.append({"cmdClear", "TreeView1"});
    for (int i = 51; i >= 0; --i)
        wanted << QStringLiteral("cmdKey(%1)").arg(i);
    wanted << QStringLiteral(
                  "cmdStart1A cmdStart1B cmdStart2A cmdStart2B cmdStart3A cmdStart3B "
                  "cmdStart4 txtComments cmdNext lblEnough")
                  .split(' ');
    QStringList chain;
    QWidget* widget = child("picShow");
    do {
        if (wanted.contains(widget->objectName()))
            chain << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != child("picShow"));
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
    child("cmdStart1A")->setFocus();
    ASSERT_TRUE(activate(other));
    emit qApp->focusWindowChanged(nullptr);  // the user is in another application
    ASSERT_TRUE(activate(*form));
    EXPECT_EQ(QApplication::focusWidget(), child("cmdStart1A"));
    ASSERT_TRUE(activate(other));
    ASSERT_TRUE(activate(*form));
    EXPECT_EQ(QApplication::focusWidget(), child("TreeView1"));
}

// Where the button was each time it was painted, and where it stood when a waiting click
// was served.
class SlideWatch : public QObject {
  public:
    explicit SlideWatch(QWidget* button) : button(button) {}
    QWidget* button;
    std::set<std::pair<int, int>> paintedAt;
    QPoint clickServedAt;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == button && event->type() == QEvent::Paint)
            paintedAt.emplace(button->x(), button->y());
        if (event->type() == QEvent::MouseButtonPress)
            clickServedAt = button->pos();
        return false;
    }
};

TEST_F(UserView, TheDealerButtonIsSeenToSlideAndNoClickIsServedMeanwhile) {
    startWindow();
    clickTopic("Sample Poker Game");
    click("cmdNext");  // step 2; the next one deals
    QWidget* dealer = child("picDealer");
    const QPoint home = dealer->pos();
    SlideWatch watch(dealer);
    dealer->installEventFilter(&watch);
    QWidget* comments = child("txtComments");
    comments->installEventFilter(&watch);
    QCoreApplication::postEvent(comments, new QMouseEvent(QEvent::MouseButtonPress, QPointF(5, 5),
                                                          comments->mapToGlobal(QPointF(5, 5)),
                                                          Qt::LeftButton, Qt::LeftButton, {}));
    child<QPushButton>("cmdNext")->click();
    EXPECT_EQ(dealer->pos(), home + QPoint(-87, 87));
    EXPECT_GT(watch.paintedAt.size(), 80u) << "the button jumped instead of sliding";
    EXPECT_EQ(watch.clickServedAt, dealer->pos());
}

}  // namespace

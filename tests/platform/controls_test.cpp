// The controls keep the design's twips and semantics; waits end on time, on a stop or at the end.
#include <QElapsedTimer>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "platform/controls.h"
#include "platform/mDefs.h"
#include "platform/treeview.h"
#include "support/window_fixture.h"

namespace {

// Press, release, double click, release: what a user's double click delivers.
void doubleClick(QWidget* widget, QPoint at) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, at);
    QMouseEvent second(QEvent::MouseButtonDblClick, at, widget->mapToGlobal(at), Qt::LeftButton,
                       Qt::LeftButton, {});
    QApplication::sendEvent(widget, &second);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, at);
}

class ControlsTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { test_support::app(); }
    void TearDown() override { platform::resetSeams(); }
    QWidget host;
};

TEST_F(ControlsTest, LabelsKeepTwipsUnroundedShowThemAtFifteenPerPixelAndRefuseNegativeSizes) {
    platform::Label label(&host, QStringLiteral("l"));
    label.setGeometryTwips(3300.75, 1038.9, 6420, 240);
    EXPECT_DOUBLE_EQ(label.Left(), 3300.75);
    EXPECT_EQ(label.geometry(), QRect(220, 69, 428, 16));
    label.setLeft(-450);
    EXPECT_EQ(label.x(), -30);
    EXPECT_THROW(label.setWidth(-1), platform::InvalidPropertyValue);
    EXPECT_THROW(label.setHeight(-15), platform::InvalidPropertyValue);
    EXPECT_EQ(label.size(), QSize(428, 16)) << "the old size stays";

    // An auto-sized centred label follows its caption about its centre.
    platform::Label pot(&host, QStringLiteral("pot"));
    pot.setAlignment(Qt::AlignCenter);
    pot.setGeometryTwips(4905, 4080, 300, 240);
    pot.setAutoSize(true);
    pot.setCaption(QStringLiteral("Pot  $10.50"));
    EXPECT_GT(pot.Width(), 300);
    EXPECT_NEAR(pot.Left() + pot.Width() / 2, 4905 + 150, 1e-9);
    const double wide = pot.Width();
    pot.setCaption(QStringLiteral("Pot"));
    EXPECT_LT(pot.Width(), wide);
}

TEST_F(ControlsTest, PictureBoxKeepsItsDrawingUntilClsOrANewBackColor) {
    platform::PictureBox box(&host, QStringLiteral("surface"),
                             platform::PictureBox::Border::Sunken);
    box.setGeometryTwips(0, 0, 3210, 2820);
    EXPECT_DOUBLE_EQ(box.ScaleHeight(), 2820 - 4 * 15);
    const auto drawRed = [&] {
        box.drawOnSurface([](QPainter& p) { p.fillRect(QRect(10, 10, 5, 5), Qt::red); });
    };
    drawRed();
    box.noteDrawn(QStringLiteral("Ace of Spades"));
    box.noteDrawn(QStringLiteral("Ten of Hearts"));
    EXPECT_EQ(box.accessibleDescription(), QStringLiteral("Ace of Spades, Ten of Hearts"));
    host.show();                             // so that a new size resizes the surface at once
    box.setGeometryTwips(0, 0, 4000, 3000);  // growing keeps the drawing at the top left
    EXPECT_EQ(QColor(box.surfacePixel(12, 12)), QColor(Qt::red));
    box.Cls();
    EXPECT_EQ(qAlpha(box.surfacePixel(12, 12)), 0);
    EXPECT_TRUE(box.accessibleDescription().isEmpty());
    drawRed();
    box.setBackColor(0x008000);
    EXPECT_EQ(qAlpha(box.surfacePixel(12, 12)), 0) << "a new back colour clears too";
}

// A label in a bordered picture box counts from inside the border, what reaches past the
// border is cut off, and a click on the label is the label's alone, a double click included.
TEST_F(ControlsTest, ControlsSitInsideTheBorderAndALabelKeepsItsClicks) {
    for (const auto border :
         {platform::PictureBox::Border::FlatSingle, platform::PictureBox::Border::Sunken}) {
        platform::PictureBox box(&host, QStringLiteral("box"), border);
        box.setGeometryTwips(0, 0, 3000, 1500);
        platform::Label label(&box, QStringLiteral("name"));
        label.setGeometryTwips(0, 0, 3000, 300);
        const int inset = box.borderPixels();
        EXPECT_EQ(label.pos(), QPoint(inset, inset));
        EXPECT_EQ(label.mask().boundingRect(), QRect(0, 0, 200 - 2 * inset, 20));

        QSignalSpy labelClicks(&label, &platform::Label::Click);
        QSignalSpy boxClicks(&box, &platform::PictureBox::Click);
        doubleClick(&label, QPoint(5, 5));
        EXPECT_EQ(labelClicks.count(), 1) << "a double click is one click";
        EXPECT_EQ(boxClicks.count(), 0);
    }
}

// The dotted cue shows on a surface that the keyboard brought the focus to, not on one that
// a click or the program focused.
TEST_F(ControlsTest, TheFocusCueShowsOnlyForFocusThatCameByKeyboard) {
    platform::PictureBox box(&host, QStringLiteral("surface"),
                             platform::PictureBox::Border::Sunken);
    box.setBackColor(0x008000);
    box.setFocusPolicy(Qt::StrongFocus);
    box.setGeometryTwips(0, 0, 1500, 1500);
    host.show();
    host.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
    const QColor cue = box.palette().color(QPalette::Highlight);
    const auto cueShown = [&] {
        const QImage picture = box.grab().toImage();
        const int inset = box.borderPixels();
        return QColor(picture.pixel(inset, inset + 1)) == cue ||
               QColor(picture.pixel(inset, inset)) == cue;
    };
    for (const auto& [reason, shown] : {std::pair{Qt::MouseFocusReason, false},
                                        {Qt::OtherFocusReason, false},
                                        {Qt::TabFocusReason, true},
                                        {Qt::BacktabFocusReason, true}}) {
        box.clearFocus();
        box.setFocus(reason);
        ASSERT_TRUE(box.hasFocus());
        EXPECT_EQ(cueShown(), shown) << reason;
    }
}

// The tree draws its lines, keeps its selection in view when unfocused, folds on a double
// click and shows a long entry whole, scrolling sideways.
TEST_F(ControlsTest, TheTreeHasLinesAVisibleSelectionFoldsOnDoubleClickAndShowsEntriesWhole) {
    platform::TreeView tree(&host, QStringLiteral("tree"));
    tree.setGeometryTwips(0, 0, 1500, 3000);
    tree.setIndentationTwips(19 * platform::kTwipsPerPixel);
    const int parent = tree.addNode(std::nullopt, {}, QStringLiteral("Play Poker Online"));
    const QString longText = QStringLiteral("Online Poker cheating concerns and more besides");
    const int child = tree.addNode(parent, {}, longText);
    tree.addNode(std::nullopt, {}, QStringLiteral("Enjoy.."));
    tree.setExpanded(parent, true);
    tree.setSelected(child);
    host.show();
    QCoreApplication::processEvents();

    const QModelIndex childIndex = tree.indexFromItem(tree.node(child));
    EXPECT_GE(tree.columnWidth(0),
              tree.indentation() * 2 + tree.fontMetrics().horizontalAdvance(longText));
    EXPECT_GT(tree.horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(tree.textElideMode(), Qt::ElideNone);

    const QPalette& pal = tree.palette();
    EXPECT_NE(pal.color(QPalette::Inactive, QPalette::Highlight),
              pal.color(QPalette::Inactive, QPalette::Base));

    // A dotted line in the indentation: some pixels of the line's colour left of the child.
    // A dotted line in the indentation left of the child, where nothing else is drawn.
    const QImage picture = tree.viewport()->grab().toImage();
    const QRect row = tree.visualRect(childIndex);
    const QColor ground = pal.color(QPalette::Base);
    int linePixels = 0;
    for (int x = 0; x < row.left(); ++x) {
        for (int y = row.top(); y <= row.bottom(); ++y)
            linePixels += QColor(picture.pixel(x, y)) != ground;
    }
    EXPECT_GT(linePixels, 4);

    const QRect parentRow = tree.visualRect(tree.indexFromItem(tree.node(parent)));
    const QPoint onParent(parentRow.left() + 10, parentRow.center().y());
    doubleClick(tree.viewport(), onParent);
    EXPECT_FALSE(tree.node(parent)->isExpanded());
    doubleClick(tree.viewport(), onParent);
    EXPECT_TRUE(tree.node(parent)->isExpanded());
}

TEST_F(ControlsTest, WaitsServeEventsAndEndOnTheirDeadlineTheirStopOrTheProgramsEnd) {
    bool served = false;
    QTimer::singleShot(0, [&] { served = true; });
    platform::WaitServingEvents(0);
    EXPECT_FALSE(served) << "a zero wait serves nothing";
    QElapsedTimer clock;
    clock.start();
    platform::WaitServingEvents(120);
    EXPECT_TRUE(served);
    EXPECT_GE(clock.elapsed(), 110);  // a floor, not a timing target

    bool stop = false;
    QTimer::singleShot(10, [&] { stop = true; });
    clock.restart();
    platform::WaitServingEvents(60'000, [&] { return stop; });
    EXPECT_LT(clock.elapsed(), 10'000) << "the stop did not end the wait";

    // The program's end ends a wait that has no stop of its own, and every later one at once.
    std::vector<int> ends;
    platform::seams().endProgram = [&](int code) { ends.push_back(code); };
    QTimer::singleShot(5, [] { platform::EndProgram(0); });
    platform::WaitServingEvents(60'000);
    platform::WaitServingEvents(60'000);
    EXPECT_TRUE(platform::programEnding());
    EXPECT_EQ(ends, std::vector<int>{0});
}

}  // namespace

// The controls keep the design's units and semantics; the waits serve events without spinning.
#include <QElapsedTimer>
#include <QTimer>

#include "platform/controls.h"
#include "platform/mDefs.h"
#include "support/window_fixture.h"

namespace {

using platform::InvalidPropertyValue;
using platform::Label;
using platform::PictureBox;

class ControlsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        test_support::app();
        platform::resetSeams();
        hostWidget = std::make_unique<QWidget>();
    }
    void TearDown() override {
        hostWidget.reset();
        platform::resetSeams();
    }
    std::unique_ptr<QWidget> hostWidget;
    QWidget* host() { return hostWidget.get(); }
};

TEST_F(ControlsTest, TwipsAreStoredUnroundedAndAppliedAtFifteenPerPixel) {
    Label label(host(), QStringLiteral("l"));
    label.setGeometryTwips(3300.75, 1038.9, 6420, 240);
    EXPECT_DOUBLE_EQ(label.Left(), 3300.75);
    EXPECT_DOUBLE_EQ(label.Top(), 1038.9);
    EXPECT_EQ(label.geometry(), QRect(220, 69, 428, 16));
    label.setLeft(-450);
    EXPECT_EQ(label.x(), -30);
}

TEST_F(ControlsTest, NegativeSizeIsRefusedAndTheOldSizeKept) {
    PictureBox box(host(), QStringLiteral("p"));
    box.setGeometryTwips(0, 0, 3000, 1500);
    EXPECT_THROW(box.setWidth(-1), InvalidPropertyValue);
    EXPECT_THROW(box.setHeight(-15), InvalidPropertyValue);
    EXPECT_DOUBLE_EQ(box.Width(), 3000);
    EXPECT_EQ(box.height(), 100);
    EXPECT_NO_THROW(box.setWidth(0));
}

TEST_F(ControlsTest, AutoSizedCentredLabelGrowsAboutItsCentre) {
    Label label(host(), QStringLiteral("pot"));
    label.setAlignment(Qt::AlignCenter);
    label.setCaption(QStringLiteral("Pot"));
    label.setGeometryTwips(4905, 4080, 300, 240);
    label.setAutoSize(true);
    label.setCaption(QStringLiteral("Pot  $10.50"));
    EXPECT_GT(label.Width(), 300);
    EXPECT_NEAR(label.Left() + label.Width() / 2, 4905 + 150, 1e-9);
    const double wide = label.Width();
    label.setCaption(QStringLiteral("Pot"));
    EXPECT_LT(label.Width(), wide);
}

TEST_F(ControlsTest, FixedLabelKeepsItsSizeAndBorderStyleIsItsOwn) {
    Label label(host(), QStringLiteral("name"));
    label.setGeometryTwips(165, 60, 2850, 270);
    label.setCaption(QStringLiteral("A much longer caption than the label was made for"));
    EXPECT_DOUBLE_EQ(label.Width(), 2850);
    label.setBorderStyle(1);
    EXPECT_EQ(label.BorderStyle(), 1);
    label.setForeColor(0xE0E0E0);
    label.setBackColor(0);
    EXPECT_EQ(label.palette().color(QPalette::Window), QColor(0, 0, 0));
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(0xE0, 0xE0, 0xE0));
}

TEST_F(ControlsTest, PictureBoxKeepsItsDrawingUntilClsOrANewBackColor) {
    PictureBox box(host(), QStringLiteral("surface"), PictureBox::Border::Sunken);
    box.setGeometryTwips(0, 0, 3210, 2820);
    EXPECT_DOUBLE_EQ(box.ScaleHeight(), 2820 - 4 * 15);
    box.drawOnSurface([](QPainter& p) { p.fillRect(QRect(10, 10, 5, 5), Qt::red); });
    box.noteDrawn(QStringLiteral("Ace of Spades"));
    box.noteDrawn(QStringLiteral("Ten of Hearts"));
    EXPECT_EQ(box.accessibleDescription(), QStringLiteral("Ace of Spades, Ten of Hearts"));
    box.hide();
    box.show();
    box.setGeometryTwips(0, 0, 4000, 3000);  // growing keeps the drawing at the top left
    EXPECT_EQ(QColor(box.surfacePixel(12, 12)), QColor(Qt::red));
    box.Cls();
    EXPECT_EQ(qAlpha(box.surfacePixel(12, 12)), 0);
    EXPECT_TRUE(box.accessibleDescription().isEmpty());
    box.drawOnSurface([](QPainter& p) { p.fillRect(QRect(10, 10, 5, 5), Qt::red); });
    box.setBackColor(0x008000);
    EXPECT_EQ(qAlpha(box.surfacePixel(12, 12)), 0);
}

TEST_F(ControlsTest, ApplicationPathsFollowTheProgramsFolder) {
    platform::setApplicationFolder(QStringLiteral("/opt/tw"));
    EXPECT_EQ(platform::AppPath(QStringLiteral("\\html\\intro.html")),
              QStringLiteral("/opt/tw/html/intro.html"));
    EXPECT_EQ(platform::AppPath(QStringLiteral("\\wavs\\no.wav")),
              QStringLiteral("/opt/tw/wavs/no.wav"));
    platform::setApplicationFolder(QString());
}

TEST_F(ControlsTest, WaitServesEventsAndEndsOnItsDeadlineOrItsStop) {
    bool served = false;
    QTimer::singleShot(10, [&] { served = true; });
    QElapsedTimer clock;
    clock.start();
    platform::WaitServingEvents(120);
    EXPECT_TRUE(served);
    EXPECT_GE(clock.elapsed(), 110);  // not earlier than asked: a floor, not a timing target

    bool stop = false;
    QTimer::singleShot(10, [&] { stop = true; });
    clock.restart();
    platform::WaitServingEvents(60'000, [&] { return stop; });
    EXPECT_TRUE(stop);
    EXPECT_LT(clock.elapsed(), 60'000);

    bool interrupted = false;
    QTimer::singleShot(10, [&] {
        interrupted = true;
        platform::InterruptWaits();
    });
    platform::WaitServingEvents(60'000, [&] { return interrupted; });
    EXPECT_TRUE(interrupted);
}

TEST_F(ControlsTest, ZeroWaitServesNothingAndEndingProgramEndsEveryWait) {
    bool served = false;
    QTimer::singleShot(0, [&] { served = true; });
    platform::WaitServingEvents(0);
    EXPECT_FALSE(served);

    std::vector<int> ends;
    platform::seams().endProgram = [&](int code) { ends.push_back(code); };
    QTimer::singleShot(5, [] { platform::EndProgram(0); });
    platform::WaitServingEvents(60'000);
    EXPECT_TRUE(platform::programEnding());
    EXPECT_EQ(ends, std::vector<int>{0});
    platform::WaitServingEvents(60'000);  // returns at once once the program is ending
}

}  // namespace

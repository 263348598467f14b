// The controls keep the design's twips and semantics; waits end on time, on a stop or at the end.
#include <QElapsedTimer>
#include <QTimer>

#include "platform/controls.h"
#include "platform/mDefs.h"
#include "support/window_fixture.h"

namespace {

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

// The built program run for real on a desktop of its own, and left the ways a user leaves
// it: each way ends the process cleanly, with code 0 and no window left. The limits below
// only keep a hang from stalling the suite.
#include <gtest/gtest.h>

#include <QRandomGenerator>

#include "../support/folders.h"
#include "x_session.h"

namespace {

using system_test::kMainTitle;
using system_test::kPromotionTitle;

constexpr int kAppearMs = 60'000;  // start-up on a busy machine
// Long enough for the animation to be inside one of its waits.
constexpr unsigned long kWatchMs = 1500;
// The centre of the promotion window's Home Page button, in pixels from its corner.
constexpr QPoint kHomePageButton{(2325 + 2070 / 2) / 15, (6465 + 750 / 2) / 15};
// The sample hand's steps after the first, which its tree entry plays.
constexpr int kSampleNexts = 33;
const QString kMessageTitle = QStringLiteral("Tablewright");

class WaysOutSystemTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { system_test::startApplication(); }

    void SetUp() override { start(); }

    // Starts the program and waits for its window; with `messageFirst`, a message box comes
    // up before the window and is closed.
    void start(const QString& program = {}, const QStringList& arguments = {},
               bool messageFirst = false) {
        ASSERT_TRUE(desktop.running()) << "Xvfb or the session bus did not start";
        ASSERT_TRUE(desktop.startProgram(arguments, {}, program));
        if (messageFirst) {
            const unsigned long box = desktop.waitForWindow(kMessageTitle, kAppearMs);
            ASSERT_NE(box, 0u) << "no message";
            EXPECT_TRUE(desktop.windowsTitled(kMainTitle).empty()) << "the message comes first";
            desktop.requestClose(box);
        }
        mainWindow = desktop.waitForWindow(kMainTitle, kAppearMs);
        ASSERT_NE(mainWindow, 0u) << "the main window did not come up";
        EXPECT_TRUE(desktop.windowsTitled(kMessageTitle).empty()) << "a message with the window";
    }

    // Closes the main window as a window manager's close box does; the promotion window
    // takes its place.
    unsigned long closeMainWindow() {
        desktop.requestClose(mainWindow);
        const unsigned long promotion = desktop.waitForWindow(kPromotionTitle, kAppearMs);
        EXPECT_NE(promotion, 0u) << "no promotion window";
        EXPECT_TRUE(desktop.windowsTitled(kMainTitle).empty()) << "the main window stayed";
        return promotion;
    }

    // The process ends (its windows with it) with code 0, without a crash and with nothing
    // on stderr but the platform's notices.
    void expectCleanEnd() {
        ASSERT_TRUE(desktop.waitForExit(kAppearMs)) << "the program did not end";
        EXPECT_FALSE(desktop.crashed());
        EXPECT_EQ(desktop.exitCode(), 0);
        EXPECT_EQ(desktop.unexpectedErrorLines().join(QLatin1Char('\n')).toStdString(), "")
            << desktop.errors().toStdString();
    }

    system_test::Desktop desktop;
    unsigned long mainWindow = 0;
};

// The promotion window ends the program by its close box or (true), with the school's page
// opened, by its Home Page button, pressed inside its animation's waits; a second close of
// the main window meanwhile opens no second promotion.
class PromotionSystemTest : public WaysOutSystemTest, public ::testing::WithParamInterface<bool> {};

TEST_P(PromotionSystemTest, ThePromotionWindowEndsTheProgram) {
    const bool homePage = GetParam();
    const unsigned long promotion = closeMainWindow();
    ASSERT_NE(promotion, 0u);
    desktop.requestClose(mainWindow);
    QThread::msleep(kWatchMs);
    EXPECT_EQ(desktop.windowsTitled(kPromotionTitle).size(), 1u);
    if (homePage)
        ASSERT_TRUE(desktop.click(desktop.origin(promotion) + kHomePageButton));
    else
        desktop.requestClose(promotion);
    expectCleanEnd();
    EXPECT_EQ(desktop.openedAddresses(homePage ? kAppearMs : 0),
              homePage ? QStringList{TABLEWRIGHT_SCHOOL_URL} : QStringList{});
}

INSTANTIATE_TEST_SUITE_P(CloseBoxOrHomePage, PromotionSystemTest, ::testing::Bool());

// The program driven by the pointer alone; the driver beside it only says where the
// controls are and what changed (visit_driver.cpp, --report). A tree entry's place is only
// told, never clicked by the driver: the sample's controls showing prove the real click.
// With true, the close box is hit in the same breath as the last click.
class ByHandSystemTest : public WaysOutSystemTest, public ::testing::WithParamInterface<bool> {
  protected:
    void SetUp() override { start(QStringLiteral(VISIT_DRIVER_PROGRAM), {"--report"}); }

    // Where the driver says the tree entry or the control is, once it is on the screen.
    QPoint placeOf(const QString& what) const {
        const auto match = desktop.waitForErrorLine(
            QRegularExpression("^visit: " + QRegularExpression::escape(what) +
                               " at (\\d+),(\\d+)$"),
            kAppearMs);
        EXPECT_TRUE(match.hasMatch()) << what.toStdString() << " never on the screen";
        return {match.captured(1).toInt(), match.captured(2).toInt()};
    }

    // Opens the sample hand by its tree entry and clicks its Next button `times` times.
    void playSample(int times) {
        ASSERT_TRUE(desktop.click(placeOf("entry 'Sample Poker Game'")));
        const QPoint next = placeOf("cmdNext");
        for (int step = 0; step < times; ++step)
            ASSERT_TRUE(desktop.click(next));
    }

    // After the end: how often the driver saw a promotion window shown, be it for a moment.
    qsizetype promotionsShown() const {
        return desktop.errors().count("visit: window shown " + kPromotionTitle);
    }
};

// The second Next starts the deal's scene (the hand's third step); the close comes while that
// scene waits, and the promotion then runs inside the scene's wait.
TEST_F(ByHandSystemTest, ClosingDuringASceneWaitOpensOnePromotionAndEndsWithCodeZero) {
    ASSERT_NO_FATAL_FAILURE(playSample(2));
    desktop.requestClose(mainWindow);
    const auto depth = desktop.waitForErrorLine(
        QRegularExpression(QStringLiteral(R"(^visit: close at loop depth (\d+)$)")), kAppearMs);
    ASSERT_TRUE(depth.hasMatch()) << "the close never came";
    EXPECT_GE(depth.captured(1).toInt(), 2) << "the close came outside the scene's waits";
    const unsigned long promotion = desktop.waitForWindow(kPromotionTitle, kAppearMs);
    ASSERT_NE(promotion, 0u) << "no promotion window";
    QThread::msleep(kWatchMs);
    EXPECT_EQ(desktop.windowsTitled(kPromotionTitle).size(), 1u);
    EXPECT_TRUE(desktop.windowsTitled(kMainTitle).empty());

    desktop.requestClose(promotion);
    expectCleanEnd();
    EXPECT_EQ(promotionsShown(), 1);
}

// The link at the end of the sample hand opens the page and ends the program with no
// promotion, also when the close box is hit in the same breath: that close is served while
// the link hands the address on, and must find nothing left to promote.
TEST_P(ByHandSystemTest, TheLinkOpensThePageAndEndsTheProgramWithNoPromotion) {
    ASSERT_NO_FATAL_FAILURE(playSample(kSampleNexts));
    ASSERT_TRUE(desktop.click(placeOf("lblEnough")));
    if (GetParam())
        desktop.requestClose(mainWindow);
    expectCleanEnd();
    EXPECT_EQ(desktop.openedAddresses(kAppearMs),
              QStringList{QStringLiteral(TABLEWRIGHT_SCHOOL_URL)});
    EXPECT_EQ(promotionsShown(), 0);
}

INSTANTIATE_TEST_SUITE_P(ClickAloneOrWithClose, ByHandSystemTest, ::testing::Bool());

// The program started with a file missing or damaged beside it: it says only what it says of
// that file (the table's message, nothing for pages and sounds), and leaves cleanly.
struct Damage {
    const char* name;
    const char* path;  // removed, then put back as below
    enum { Removed, Folder, Noise } becomes;
    bool tableMessage;  // "error in load169 -..." before the window opens
};

class MissingFilesSystemTest : public WaysOutSystemTest,
                               public ::testing::WithParamInterface<Damage> {
  protected:
    void SetUp() override {}
};

TEST_P(MissingFilesSystemTest, StartsSaysWhatItShouldAndEndsCleanly) {
    QTemporaryDir app;
    test_support::copyFolder(QFileInfo(QStringLiteral(TABLEWRIGHT_PROGRAM)).absolutePath(),
                             app.path());
    const QString path = app.filePath(GetParam().path);
    QDir(path).removeRecursively();
    QFile::remove(path);
    if (GetParam().becomes == Damage::Folder)
        QDir().mkdir(path);
    if (QFile noise(path);
        GetParam().becomes == Damage::Noise && noise.open(QIODevice::WriteOnly)) {
        QByteArray bytes(200'000, '\0');
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32*>(bytes.data()), bytes.size() / 4);
        noise.write(bytes);
    }
    start(app.filePath("tablewright"), {}, GetParam().tableMessage);
    if (HasFatalFailure())
        return;
    desktop.requestClose(closeMainWindow());
    expectCleanEnd();
}

INSTANTIATE_TEST_SUITE_P(
    EveryFile, MissingFilesSystemTest,
    ::testing::Values(Damage{"NoTable", "169.txt", Damage::Removed, true},
                      Damage{"NoLessonFolder", "html", Damage::Removed, false},
                      Damage{"NoHomePage", "html/intro.html", Damage::Removed, false},
                      Damage{"NoSounds", "wavs", Damage::Removed, false},
                      Damage{"GarbageTable", "169.txt", Damage::Noise, false},
                      Damage{"FolderForTable", "169.txt", Damage::Folder, true}),
    [](const ::testing::TestParamInfo<Damage>& info) { return std::string(info.param.name); });

}  // namespace

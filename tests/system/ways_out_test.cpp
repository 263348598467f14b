// The built program run for real on a desktop of its own, and left the ways a user leaves
// it: each way ends the process cleanly, with code 0 and no window left. The limits below
// only keep a hang from stalling the suite.
#include <gtest/gtest.h>

#include <QThread>
#include <functional>
#include <random>

#include "../support/folders.h"
#include "x_session.h"

namespace {

using system_test::kMainTitle;
using system_test::kPromotionTitle;

constexpr int kAppearMs = 60'000;  // start-up on a busy machine
constexpr int kEndMs = 60'000;
// Long enough for the animation to be inside one of its waits.
constexpr unsigned long kWatchMs = 1500;
// The centre of the promotion window's Home Page button, in pixels from its corner.
constexpr QPoint kHomePageButton{(2325 + 2070 / 2) / 15, (6465 + 750 / 2) / 15};
// The sample hand's steps after the first, which its tree entry plays.
constexpr int kSampleNexts = 33;

class WaysOutSystemTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { system_test::startApplication(); }

    void SetUp() override { start(); }

    void start(const QString& program = {}, const QStringList& arguments = {}) {
        ASSERT_TRUE(desktop.running()) << "Xvfb or the session bus did not start";
        run = desktop.startProgram(arguments, {}, program);
        ASSERT_TRUE(run->started());
        mainWindow = desktop.waitForWindow(kMainTitle, kAppearMs);
        ASSERT_NE(mainWindow, 0u) << "the main window did not come up";
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

    // The program's windows go after the last action, and the process ends with code 0,
    // without a crash and with nothing on stderr but the platform's notices.
    void expectCleanEnd() {
        ASSERT_GE(desktop.waitUntilGone({kMainTitle, kPromotionTitle}, kEndMs), 0)
            << "a window stayed";
        ASSERT_GE(run->waitForExit(kEndMs), 0) << "the program did not end";
        EXPECT_FALSE(run->crashed());
        EXPECT_EQ(run->exitCode(), 0);
        EXPECT_EQ(run->unexpectedErrorLines().join(QLatin1Char('\n')).toStdString(), "")
            << run->errors().toStdString();
    }

    system_test::DesktopSession desktop;
    std::unique_ptr<system_test::ProgramRun> run;
    unsigned long mainWindow = 0;
};

// The promotion window ends the program by its close box or, with the school's page opened,
// by its Home Page button, pressed inside its animation's waits; a second close of the main
// window meanwhile opens no second promotion.
class PromotionSystemTest : public WaysOutSystemTest, public ::testing::WithParamInterface<bool> {};

TEST_P(PromotionSystemTest, ThePromotionWindowEndsTheProgram) {
    const bool homePage = GetParam();
    const unsigned long promotion = closeMainWindow();
    ASSERT_NE(promotion, 0u);
    desktop.requestClose(mainWindow);
    QThread::msleep(kWatchMs);
    EXPECT_EQ(desktop.windowsTitled(kPromotionTitle).size(), 1u);
    if (homePage)
        ASSERT_TRUE(desktop.click(desktop.geometry(promotion).topLeft() + kHomePageButton));
    else
        desktop.requestClose(promotion);
    expectCleanEnd();
    EXPECT_EQ(run->openedAddresses(homePage ? kEndMs : 0),
              homePage ? QStringList{TABLEWRIGHT_SCHOOL_URL} : QStringList{});
}

INSTANTIATE_TEST_SUITE_P(CloseBox, PromotionSystemTest, ::testing::Values(false));
INSTANTIATE_TEST_SUITE_P(HomePage, PromotionSystemTest, ::testing::Values(true));

// The program driven by the pointer alone; the driver beside it only says where the
// controls are and what changed (visit_driver.cpp, --report). A tree entry's place is only
// told, never clicked by the driver: the sample's controls showing prove the real click.
class ByHandSystemTest : public WaysOutSystemTest {
  protected:
    void SetUp() override { start(QStringLiteral(VISIT_DRIVER_PROGRAM), {"--report"}); }

    // Where the driver says the tree entry or the control is, once it is on the screen.
    QPoint placeOf(const QString& what) const {
        const auto match =
            run->waitForErrorLine(QRegularExpression("^visit: " + QRegularExpression::escape(what) +
                                                     " at (\\d+),(\\d+)$"),
                                  kAppearMs);
        EXPECT_TRUE(match.hasMatch()) << what.toStdString() << " never on the screen";
        return {match.captured(1).toInt(), match.captured(2).toInt()};
    }

    // After the end: how often the driver saw a promotion window shown, be it for a moment.
    qsizetype promotionsShown() const {
        return run->errors().count("visit: window shown " + kPromotionTitle);
    }
};

// The second Next starts the deal's scene (the hand's third step); the close comes while that
// scene waits, and the promotion then runs inside the scene's wait.
TEST_F(ByHandSystemTest, ClosingDuringASceneWaitOpensOnePromotionAndEndsWithCodeZero) {
    ASSERT_TRUE(desktop.click(placeOf("entry 'Sample Poker Game'")));
    const QPoint next = placeOf("cmdNext");
    ASSERT_TRUE(desktop.click(next));
    ASSERT_TRUE(desktop.clickAndClose(next, mainWindow));
    const auto depth = run->waitForErrorLine(
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
class LinkSystemTest : public ByHandSystemTest, public ::testing::WithParamInterface<bool> {};

TEST_P(LinkSystemTest, TheLinkOpensThePageAndEndsTheProgramWithNoPromotion) {
    ASSERT_TRUE(desktop.click(placeOf("entry 'Sample Poker Game'")));
    const QPoint next = placeOf("cmdNext");
    for (int step = 0; step < kSampleNexts; ++step)
        ASSERT_TRUE(desktop.click(next));
    const QPoint link = placeOf("lblEnough");
    ASSERT_TRUE(GetParam() ? desktop.clickAndClose(link, mainWindow) : desktop.click(link));
    expectCleanEnd();
    EXPECT_EQ(run->openedAddresses(kEndMs), QStringList{QStringLiteral(TABLEWRIGHT_SCHOOL_URL)});
    EXPECT_EQ(promotionsShown(), 0);
}

INSTANTIATE_TEST_SUITE_P(ClickAlone, LinkSystemTest, ::testing::Values(false));
INSTANTIATE_TEST_SUITE_P(ClickAndCloseBox, LinkSystemTest, ::testing::Values(true));

// The program started with a file missing or damaged beside it: it says only what it says of
// that file (the table's message, nothing for pages and sounds), and leaves cleanly.
struct Damage {
    const char* name;
    std::function<void(const QDir&)> done;
    bool tableMessage;  // "error in load169 -..." before the window opens
};

class MissingFilesSystemTest : public WaysOutSystemTest,
                               public ::testing::WithParamInterface<Damage> {
  protected:
    void SetUp() override {}
};

TEST_P(MissingFilesSystemTest, StartsSaysWhatItShouldAndEndsCleanly) {
    const QString messageTitle = "Tablewright";
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    test_support::copyFolder(QFileInfo(QStringLiteral(TABLEWRIGHT_PROGRAM)).absolutePath(),
                             folder.path());
    GetParam().done(QDir(folder.path()));
    ASSERT_TRUE(desktop.running()) << "Xvfb or the session bus did not start";
    run = desktop.startProgram({}, {}, QDir(folder.path()).filePath("tablewright"));
    if (GetParam().tableMessage) {
        const unsigned long box = desktop.waitForWindow(messageTitle, kAppearMs);
        ASSERT_NE(box, 0u) << "no message about the table";
        EXPECT_TRUE(desktop.windowsTitled(kMainTitle).empty()) << "the message comes first";
        desktop.requestClose(box);
    }
    mainWindow = desktop.waitForWindow(kMainTitle, kAppearMs);
    ASSERT_NE(mainWindow, 0u) << "the main window did not come up";
    EXPECT_TRUE(desktop.windowsTitled(messageTitle).empty()) << "a message with the window";

    const unsigned long promotion = closeMainWindow();
    ASSERT_NE(promotion, 0u);
    desktop.requestClose(promotion);
    expectCleanEnd();
}

// Noise where the table should be.
void garbageTable(const QDir& app) {
    std::mt19937 engine(7);
    QByteArray bytes(200'000, '\0');
    for (auto& b : bytes)
        b = static_cast<char>(engine());
    QFile table(app.filePath("169.txt"));
    if (table.open(QIODevice::WriteOnly))
        table.write(bytes);
}

INSTANTIATE_TEST_SUITE_P(
    EveryFile, MissingFilesSystemTest,
    ::testing::Values(
        Damage{"NoTable", [](const QDir& d) { QFile::remove(d.filePath("169.txt")); }, true},
        Damage{"NoLessonFolder",
               [](const QDir& d) { QDir(d.filePath("html")).removeRecursively(); }, false},
        Damage{"NoHomePage", [](const QDir& d) { QFile::remove(d.filePath("html/intro.html")); },
               false},
        Damage{"NoSounds", [](const QDir& d) { QDir(d.filePath("wavs")).removeRecursively(); },
               false},
        Damage{"GarbageTable", garbageTable, false},
        Damage{"FolderForTable",
               [](const QDir& d) {
                   QFile::remove(d.filePath("169.txt"));
                   d.mkdir("169.txt");
               },
               true}),
    [](const ::testing::TestParamInfo<Damage>& info) { return std::string(info.param.name); });

}  // namespace

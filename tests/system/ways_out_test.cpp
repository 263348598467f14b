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

    // A copy of the program's folder, to change before the start.
    void SetUp() override {
        test_support::copyFolder(QFileInfo(QStringLiteral(TABLEWRIGHT_PROGRAM)).absolutePath(),
                                 app.path());
    }

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
        EXPECT_EQ(desktop.exitCode(), 0);
        EXPECT_EQ(desktop.unexpectedErrorLines().join(QLatin1Char('\n')).toStdString(), "")
            << desktop.errors().toStdString();
    }

    QTemporaryDir app;
    system_test::Desktop desktop;
    unsigned long mainWindow = 0;
};

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    file.write(content);
}

// The program started with a file missing or damaged beside it, or with none, says only what
// it says of that file (the table's message, nothing for pages and sounds). Then the
// promotion window ends it by its close box or, with the school's page opened, by its Home
// Page button, pressed inside its animation's waits; a second close of the main window
// meanwhile opens no second promotion.
struct Way {
    const char* name;
    const char* damaged;  // removed, then put back as below
    enum Becomes { Removed, Folder, Noise } becomes;
    bool tableMessage;  // "error in load169 -..." before the window opens
    bool homePage;
};

void damage(const QString& path, Way::Becomes becomes) {
    QDir(path).removeRecursively();
    QFile::remove(path);
    if (becomes == Way::Folder)
        QDir().mkdir(path);
    if (becomes == Way::Noise) {
        QByteArray noise(200'000, '\0');
        QRandomGenerator(7).fillRange(reinterpret_cast<quint32*>(noise.data()), noise.size() / 4);
        writeFile(path, noise);
    }
}

class PromotionSystemTest : public WaysOutSystemTest, public ::testing::WithParamInterface<Way> {};

TEST_P(PromotionSystemTest, StartsSaysWhatItShouldAndThePromotionWindowEndsTheProgram) {
    const Way& way = GetParam();
    if (way.damaged != nullptr)
        damage(app.filePath(way.damaged), way.becomes);
    ASSERT_NO_FATAL_FAILURE(start(app.filePath("tablewright"), {}, way.tableMessage));
    const unsigned long promotion = closeMainWindow();
    ASSERT_NE(promotion, 0u);
    desktop.requestClose(mainWindow);
    QThread::msleep(kWatchMs);
    EXPECT_EQ(desktop.windowsTitled(kPromotionTitle).size(), 1u);
    if (way.homePage)
        desktop.click(desktop.origin(promotion) + kHomePageButton);
    else
        desktop.requestClose(promotion);
    expectCleanEnd();
    EXPECT_EQ(desktop.openedAddresses(way.homePage ? kAppearMs : 0),
              way.homePage ? QStringList{TABLEWRIGHT_SCHOOL_URL} : QStringList{});
}

INSTANTIATE_TEST_SUITE_P(
    EveryWay, PromotionSystemTest,
    ::testing::Values(Way{"CloseBox", nullptr, Way::Removed, false, false},
                      Way{"HomePage", nullptr, Way::Removed, false, true},
                      Way{"NoTable", "169.txt", Way::Removed, true, false},
                      Way{"NoLessonFolder", "html", Way::Removed, false, false},
                      Way{"NoHomePage", "html/intro.html", Way::Removed, false, false},
                      Way{"NoSounds", "wavs", Way::Removed, false, false},
                      Way{"GarbageTable", "169.txt", Way::Noise, false, false},
                      Way{"FolderForTable", "169.txt", Way::Folder, true, false}),
    [](const ::testing::TestParamInfo<Way>& info) { return std::string(info.param.name); });

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
            "^visit: " + QRegularExpression::escape(what) + " at (\\d+),(\\d+)$", kAppearMs);
        EXPECT_TRUE(match.hasMatch()) << what.toStdString() << " never on the screen";
        return {match.captured(1).toInt(), match.captured(2).toInt()};
    }

    // Opens the sample hand by its tree entry and clicks its Next button `times` times.
    void playSample(int times) {
        desktop.click(placeOf("entry 'Sample Poker Game'"));
        const QPoint next = placeOf("cmdNext");
        for (int step = 0; step < times; ++step)
            desktop.click(next);
    }
};

// The second Next starts the deal's scene (the hand's third step); the close comes while that
// scene waits, and the promotion then runs inside the scene's wait.
TEST_F(ByHandSystemTest, ClosingDuringASceneWaitOpensOnePromotionAndEndsWithCodeZero) {
    playSample(2);
    const unsigned long promotion = closeMainWindow();
    ASSERT_NE(promotion, 0u);
    const auto depth = desktop.waitForErrorLine(R"(^visit: close at loop depth (\d+)$)", kAppearMs);
    EXPECT_GE(depth.captured(1).toInt(), 2) << "the close came outside the scene's waits";
    QThread::msleep(kWatchMs);  // the promotion at work inside the scene's wait
    desktop.requestClose(promotion);
    expectCleanEnd();
    // The driver saw one promotion window shown, and no other even for a moment.
    EXPECT_EQ(desktop.errors().count("window shown " + kPromotionTitle), 1);
}

// The link at the end of the sample hand opens the page and ends the program with no
// promotion, also when the close box is hit in the same breath: that close is served while
// the link hands the address on, and must find nothing left to promote.
TEST_P(ByHandSystemTest, TheLinkOpensThePageAndEndsTheProgramWithNoPromotion) {
    playSample(kSampleNexts);
    desktop.click(placeOf("lblEnough"));
    if (GetParam())
        desktop.requestClose(mainWindow);
    expectCleanEnd();
    EXPECT_EQ(desktop.openedAddresses(kAppearMs),
              QStringList{QStringLiteral(TABLEWRIGHT_SCHOOL_URL)});
    EXPECT_EQ(desktop.errors().count("window shown " + kPromotionTitle), 0);
}

INSTANTIATE_TEST_SUITE_P(ClickAloneOrWithClose, ByHandSystemTest, ::testing::Bool());

#ifdef TABLEWRIGHT_WEBPANE
// The lesson pane leaves the lessons for the web and comes back: a link in a lesson to a page
// served on 127.0.0.1 shows that page in the pane, drawn by the browser engine, and a click
// on the tree shows a lesson again. Only where the engine module is built beside the program.
TEST_F(WaysOutSystemTest, ALinkShowsTheWebPageInThePaneAndTheTreeBringsTheLessonsBack) {
    constexpr unsigned long kWebGround = 0x2266aa;
    constexpr unsigned long kLessonGround = 0xfbf8f1;  // style.css, body
    // Where the pane, the link and the tree's second entry lie in the window, in pixels.
    constexpr QPoint kInPane{500, 300};
    constexpr QPoint kOnLink{280, 70};
    constexpr QPoint kOnSecondEntry{80, 30};
    writeFile(app.filePath("html/page.html"),
              "<title>Served</title><body style='background:#2266aa'><h1>Served page</h1>");
    // python3's own web server on a free port: "Serving HTTP on 127.0.0.1 port N ...".
    QProcess web;
    const QString serving =
        system_test::startServer(web, "python3",
                                 {"-u", "-m", "http.server", "0", "--bind", "127.0.0.1",
                                  "--directory", app.filePath("html")});
    const int port = QRegularExpression(R"(port (\d+))").match(serving).captured(1).toInt();
    ASSERT_NE(port, 0) << "the web server did not start";
    // The home page: a lesson with one big link to the served page.
    writeFile(app.filePath("html/intro.html"),
              QStringLiteral("<title>Test lesson</title><p style='font-size:48px'>"
                             "<a href='http://127.0.0.1:%1/page.html'>Outside page</a></p>")
                  .arg(port)
                  .toUtf8());
    ASSERT_NO_FATAL_FAILURE(start(app.filePath("tablewright")));
    const QPoint origin = desktop.origin(mainWindow);
    const auto paneShows = [&](unsigned long colour) {
        return system_test::pollUntil(kAppearMs,
                                      [&] { return desktop.colourAt(origin + kInPane) == colour; });
    };
    ASSERT_TRUE(paneShows(0xffffff)) << "the test lesson is not on show";
    desktop.click(origin + kOnLink);
    EXPECT_TRUE(paneShows(kWebGround)) << "the served page is not drawn in the pane";
    desktop.click(origin + kOnSecondEntry);  // "How this works.."
    EXPECT_TRUE(paneShows(kLessonGround)) << "the lesson did not come back";
    desktop.requestClose(closeMainWindow());
    expectCleanEnd();
}
#endif

}  // namespace

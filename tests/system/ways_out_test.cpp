// The built program run for real in an X server of its own, and left the ways a user leaves
// it: each way ends the process promptly and cleanly.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QThread>
#include <cstdio>

#include "x_session.h"

namespace {

using system_test::kMainTitle;
using system_test::kPromotionTitle;
using system_test::ProgramRun;
using system_test::XServer;

constexpr int kAppearMs = 30'000;  // start-up on a busy machine
constexpr int kEndMs = 10'000;
// How soon after the last action the program's windows must be gone and the process ended.
// A sanitizer build checks the whole heap for leaks on its way out, which takes its time.
constexpr qint64 kPromptMs = 500;
#ifdef TABLEWRIGHT_SANITIZED
constexpr qint64 kExitMs = 2000;
#else
constexpr qint64 kExitMs = kPromptMs;
#endif
// Long enough for the animation to be inside one of its waits.
constexpr unsigned long kWatchMs = 1500;
// The centre of the promotion window's Home Page button, in pixels from its corner.
constexpr QPoint kHomePageButton{(2325 + 2070 / 2) / 15, (6465 + 750 / 2) / 15};

class WaysOutSystemTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { system_test::startApplication(); }

    void SetUp() override {
        ASSERT_TRUE(server.running()) << "Xvfb did not start";
        run = std::make_unique<ProgramRun>(server);
        ASSERT_TRUE(run->started());
        mainWindow = server.waitForWindow(kMainTitle, kAppearMs);
        ASSERT_NE(mainWindow, 0u) << "the main window did not come up";
    }

    // Closes the main window as a window manager's close box does; the promotion window
    // takes its place.
    unsigned long closeMainWindow() {
        server.requestClose(mainWindow);
        const unsigned long promotion = server.waitForWindow(kPromotionTitle, kAppearMs);
        EXPECT_NE(promotion, 0u) << "no promotion window";
        EXPECT_TRUE(server.windowsTitled(kMainTitle).empty()) << "the main window stayed";
        return promotion;
    }

    // The program's windows go at once after the last action, and the process ends with
    // code 0, without a crash and with nothing on stderr but the platform's notices.
    void expectCleanEnd() {
        const qint64 goneMs = server.waitUntilGone({kMainTitle, kPromotionTitle}, kEndMs);
        const qint64 exitMs = run->waitForExit(kEndMs);
        ASSERT_GE(goneMs, 0) << "a window stayed";
        ASSERT_GE(exitMs, 0) << "the program did not end";
        std::printf("[ figure   ] windows gone %lld ms, process ended %lld ms later\n",
                    static_cast<long long>(goneMs), static_cast<long long>(exitMs));
        EXPECT_LE(goneMs, kPromptMs);
        EXPECT_LE(goneMs + exitMs, kExitMs);
        EXPECT_FALSE(run->crashed());
        EXPECT_EQ(run->exitCode(), 0);
        EXPECT_EQ(run->unexpectedErrorLines().join(QLatin1Char('\n')).toStdString(), "")
            << run->errors().toStdString();
    }

    XServer server;
    std::unique_ptr<ProgramRun> run;
    unsigned long mainWindow = 0;
};

TEST_F(WaysOutSystemTest, ClosingThePromotionWindowInItsWaitEndsTheProgram) {
    const unsigned long promotion = closeMainWindow();
    ASSERT_NE(promotion, 0u);
    QThread::msleep(kWatchMs);
    EXPECT_EQ(server.windowsTitled(kPromotionTitle).size(), 1u);

    server.requestClose(promotion);
    expectCleanEnd();
    EXPECT_TRUE(run->openedAddresses().isEmpty());
}

TEST_F(WaysOutSystemTest, ASecondCloseOfTheMainWindowOpensNoSecondPromotion) {
    const unsigned long promotion = closeMainWindow();
    ASSERT_NE(promotion, 0u);
    server.requestClose(mainWindow);
    QThread::msleep(kWatchMs);
    EXPECT_EQ(server.windowsTitled(kPromotionTitle).size(), 1u);

    server.requestClose(promotion);
    expectCleanEnd();
}

TEST_F(WaysOutSystemTest, TheHomePageButtonOpensTheSchoolPageAndEndsTheProgram) {
    const unsigned long promotion = closeMainWindow();
    ASSERT_NE(promotion, 0u);
    QThread::msleep(kWatchMs);
    ASSERT_TRUE(server.click(server.geometry(promotion).topLeft() + kHomePageButton));
    expectCleanEnd();

    // The browser is started and not waited for: its stand-in may write after the end.
    QElapsedTimer clock;
    clock.start();
    while (run->openedAddresses().isEmpty() && clock.elapsed() < kEndMs)
        QThread::msleep(50);
    EXPECT_EQ(run->openedAddresses(), QStringList{QStringLiteral(TABLEWRIGHT_SCHOOL_URL)});
}

}  // namespace

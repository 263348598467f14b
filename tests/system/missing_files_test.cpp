// The program started for real with files missing or damaged beside it: each run starts,
// says only what the program says of that file (the table's message, nothing for pages and
// sounds), and leaves cleanly through the promotion window.
#include <gtest/gtest.h>

#include <unistd.h>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <functional>
#include <random>

#include "../support/folders.h"
#include "x_session.h"

namespace {

using system_test::DesktopSession;
using system_test::kMainTitle;
using system_test::kPromotionTitle;
using system_test::ProgramRun;
using test_support::copyFolder;

const QString kMessageTitle = QStringLiteral("Tablewright");
constexpr int kAppearMs = 30'000;
constexpr int kEndMs = 10'000;

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

struct Case {
    const char* name;
    std::function<void(const QDir&)> damage;
    bool tableMessage;  // "error in load169 -..." before the window opens
};

class MissingFilesTest : public ::testing::TestWithParam<Case> {
  protected:
    static void SetUpTestSuite() { system_test::startApplication(); }
    DesktopSession server;
};

TEST_P(MissingFilesTest, StartsSaysWhatItShouldAndEndsCleanly) {
    ASSERT_TRUE(server.running()) << "Xvfb or the session bus did not start";
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    copyFolder(QFileInfo(QStringLiteral(TABLEWRIGHT_PROGRAM)).absolutePath(), folder.path());
    const QDir app(folder.path());
    GetParam().damage(app);

    ProgramRun run(server, app.filePath(QStringLiteral("tablewright")));
    ASSERT_TRUE(run.started());
    if (GetParam().tableMessage) {
        const unsigned long box = server.waitForWindow(kMessageTitle, kAppearMs);
        ASSERT_NE(box, 0u) << "no message about the table";
        EXPECT_TRUE(server.windowsTitled(kMainTitle).empty())
            << "the message comes before the window";
        server.requestClose(box);
    }
    const unsigned long mainWindow = server.waitForWindow(kMainTitle, kAppearMs);
    ASSERT_NE(mainWindow, 0u) << "the main window did not come up";
    if (!GetParam().tableMessage) {
        EXPECT_TRUE(server.windowsTitled(kMessageTitle).empty());
    }

    server.requestClose(mainWindow);
    const unsigned long promotion = server.waitForWindow(kPromotionTitle, kAppearMs);
    ASSERT_NE(promotion, 0u) << "no promotion window";
    server.requestClose(promotion);
    ASSERT_GE(server.waitUntilGone({kMainTitle, kPromotionTitle}, kEndMs), 0) << "a window stayed";
    ASSERT_GE(run.waitForExit(kEndMs), 0) << "the program did not end";
    EXPECT_FALSE(run.crashed());
    EXPECT_EQ(run.exitCode(), 0);
    EXPECT_TRUE(run.unexpectedErrorLines().isEmpty()) << run.errors().toStdString();
}

QByteArray garbage(std::size_t size, std::uint32_t seed) {
    std::mt19937 engine(seed);
    QByteArray bytes(static_cast<qsizetype>(size), '\0');
    for (auto& b : bytes)
        b = static_cast<char>(engine());
    return bytes;
}

const bool kRoot = geteuid() == 0;

INSTANTIATE_TEST_SUITE_P(
    EveryFile, MissingFilesTest,
    ::testing::Values(
        Case{"NoTable", [](const QDir& d) { QFile::remove(d.filePath("169.txt")); }, true},
        Case{"NoLessonFolder", [](const QDir& d) { QDir(d.filePath("html")).removeRecursively(); },
             false},
        Case{"NoHomePage", [](const QDir& d) { QFile::remove(d.filePath("html/intro.html")); },
             false},
        Case{"NoSounds", [](const QDir& d) { QDir(d.filePath("wavs")).removeRecursively(); },
             false},
        Case{"GarbageTable",
             [](const QDir& d) { writeBytes(d.filePath("169.txt"), garbage(200'000, 7)); }, false},
        Case{"FolderForTable",
             [](const QDir& d) {
                 QFile::remove(d.filePath("169.txt"));
                 d.mkdir("169.txt");
             },
             true},
        // Root reads a file whatever its mode says; anyone else gets the table's message.
        Case{"UnreadableTable",
             [](const QDir& d) {
                 QFile::setPermissions(d.filePath("169.txt"), QFileDevice::Permissions{});
             },
             !kRoot}),
    [](const ::testing::TestParamInfo<Case>& info) { return std::string(info.param.name); });

}  // namespace

// The lesson pane leaves the lessons for the web and comes back: a link in a lesson to a page
// served on 127.0.0.1 shows that page in the pane, drawn by the browser engine, and a click
// on the tree shows a lesson again. Built only where the engine module is built beside the
// program.
#include <gtest/gtest.h>

#include "../support/folders.h"
#include "x_session.h"

namespace {

using system_test::kMainTitle;
using system_test::kPromotionTitle;

constexpr int kAppearMs = 30'000;
constexpr int kEngineMs = 60'000;  // a cold engine on a busy machine
constexpr unsigned long kWebGround = 0x2266aa;
constexpr unsigned long kLessonGround = 0xfbf8f1;  // style.css, body
// Where the pane and the tree's second entry lie in the window, in pixels: well inside the
// pane, and on the entry's text.
constexpr QPoint kInPane{500, 300};
constexpr QPoint kOnLink{280, 70};
constexpr QPoint kOnSecondEntry{80, 30};

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    file.write(content);
}

TEST(WebLinkTest, ALinkShowsTheWebPageInThePaneAndTheTreeBringsTheLessonsBack) {
    system_test::startApplication();
    system_test::Desktop desktop;
    ASSERT_TRUE(desktop.running()) << "Xvfb or the session bus did not start";
    QTemporaryDir site, app, home;
    writeFile(site.filePath("page.html"),
              "<title>Served</title><body style='background:#2266aa'><h1>Served page</h1>");
    // python3's own web server on a free port of 127.0.0.1: "Serving HTTP on ... port N ...".
    QProcess web;
    const QString serving = system_test::startServer(
        web, "python3",
        {"-u", "-m", "http.server", "0", "--bind", "127.0.0.1", "--directory", site.path()});
    const int port = QRegularExpression(R"(port (\d+))").match(serving).captured(1).toInt();
    ASSERT_NE(port, 0) << "the web server did not start";

    // The home page: a lesson with one big link to the served page.
    test_support::copyFolder(QFileInfo(QStringLiteral(TABLEWRIGHT_PROGRAM)).absolutePath(),
                             app.path());
    writeFile(app.filePath("html/intro.html"),
              QStringLiteral("<title>Test lesson</title><p style='font-size:48px'>"
                             "<a href='http://127.0.0.1:%1/page.html'>Outside page</a></p>")
                  .arg(port)
                  .toUtf8());
    QProcessEnvironment ownHome;
    ownHome.insert("HOME", home.path());
    ASSERT_TRUE(desktop.startProgram({}, ownHome, QDir(app.path()).filePath("tablewright")));
    const unsigned long mainWindow = desktop.waitForWindow(kMainTitle, kAppearMs);
    ASSERT_NE(mainWindow, 0u) << "the main window did not come up";
    const QPoint inPane = desktop.origin(mainWindow) + kInPane;
    const auto showsInPane = [&](unsigned long colour, int timeoutMs) {
        return system_test::pollUntil(timeoutMs,
                                      [&] { return desktop.colourAt(inPane) == colour; });
    };
    ASSERT_TRUE(showsInPane(0xffffff, kAppearMs)) << "the test lesson is not on show";

    ASSERT_TRUE(desktop.click(desktop.origin(mainWindow) + kOnLink));
    EXPECT_TRUE(showsInPane(kWebGround, kEngineMs)) << "the served page is not drawn in the pane";
    ASSERT_TRUE(desktop.click(desktop.origin(mainWindow) + kOnSecondEntry));  // "How this works.."
    EXPECT_TRUE(showsInPane(kLessonGround, kAppearMs)) << "the lesson did not come back";

    desktop.requestClose(mainWindow);
    const unsigned long promotion = desktop.waitForWindow(kPromotionTitle, kAppearMs);
    ASSERT_NE(promotion, 0u) << "no promotion window";
    desktop.requestClose(promotion);
    ASSERT_TRUE(desktop.waitForExit(kAppearMs)) << "the program did not end";
    EXPECT_EQ(desktop.exitCode(), 0);
    EXPECT_TRUE(desktop.errors().isEmpty()) << desktop.errors().toStdString();
}

}  // namespace

// The lesson pane leaves the lessons for the web and comes back: a link in a lesson to a page
// served on 127.0.0.1 shows that page in the pane, drawn by the browser engine, and a click
// on the tree shows a lesson again. Run where the engine module is built beside the program.
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <functional>

#include "../support/folders.h"
#include "x_session.h"

// Last: Xlib's macros (None, Bool, Status...) would clash with Qt's names.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

using system_test::kMainTitle;
using system_test::kPromotionTitle;
using system_test::ProgramRun;
using system_test::XServer;

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

// python3's own web server on a free port of 127.0.0.1, serving one folder.
class WebServer {
  public:
    explicit WebServer(const QString& folder) {
        process_.setProcessChannelMode(QProcess::MergedChannels);
        process_.start(QStringLiteral("python3"),
                       {QStringLiteral("-u"), QStringLiteral("-m"), QStringLiteral("http.server"),
                        QStringLiteral("0"), QStringLiteral("--bind"), QStringLiteral("127.0.0.1"),
                        QStringLiteral("--directory"), folder});
        static const QRegularExpression serving(QStringLiteral(R"(port (\d+))"));
        QElapsedTimer clock;
        clock.start();
        QByteArray said;
        while (port_ == 0 && clock.elapsed() < 20'000) {
            process_.waitForReadyRead(200);
            said += process_.readAll();
            port_ = serving.match(QString::fromLatin1(said)).captured(1).toInt();
        }
    }
    ~WebServer() {
        process_.kill();
        process_.waitForFinished(5000);
    }
    int port() const { return port_; }

  private:
    QProcess process_;
    int port_ = 0;
};

// The colour of one pixel of the screen.
class ScreenReader {
  public:
    explicit ScreenReader(const QString& display)
        : display_(XOpenDisplay(display.toLatin1().constData())) {}
    ~ScreenReader() {
        if (display_ != nullptr)
            XCloseDisplay(display_);
    }
    unsigned long colourAt(QPoint at) const {
        XImage* image = XGetImage(display_, DefaultRootWindow(display_), at.x(), at.y(), 1, 1,
                                  AllPlanes, ZPixmap);
        if (image == nullptr)
            return 0;
        const unsigned long pixel = XGetPixel(image, 0, 0) & 0xffffff;
        XDestroyImage(image);
        return pixel;
    }
    bool waitForColour(QPoint at, unsigned long colour, int timeoutMs) const {
        QElapsedTimer clock;
        clock.start();
        while (colourAt(at) != colour) {
            if (clock.elapsed() > timeoutMs)
                return false;
            QThread::msleep(50);
        }
        return true;
    }

  private:
    Display* display_;
};

class WebLinkTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { system_test::startApplication(); }
    XServer server;
};

TEST_F(WebLinkTest, ALinkShowsTheWebPageInThePaneAndTheTreeBringsTheLessonsBack) {
    if (!system_test::engineModuleBuilt())
        GTEST_SKIP() << "no browser-engine module beside the program";
    ASSERT_TRUE(server.running()) << "Xvfb did not start";
    QTemporaryDir site, app, home;
    writeFile(site.filePath("page.html"),
              "<title>Served</title><body style='background:#2266aa'><h1>Served page</h1>");
    WebServer web(site.path());
    ASSERT_NE(web.port(), 0) << "the web server did not start";

    // The home page: a lesson with one big link to the served page.
    test_support::copyFolder(QFileInfo(QStringLiteral(TABLEWRIGHT_PROGRAM)).absolutePath(),
                             app.path());
    writeFile(app.filePath("html/intro.html"),
              QStringLiteral("<title>Test lesson</title><p style='font-size:48px'>"
                             "<a href='http://127.0.0.1:%1/page.html'>Outside page</a></p>")
                  .arg(web.port())
                  .toUtf8());
    // Set up as a desktop is: a home and a runtime folder of the user's.
    QDir(home.path()).mkdir("runtime");
    QFile::setPermissions(home.filePath("runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment desktop;
    desktop.insert("HOME", home.path());
    desktop.insert("XDG_RUNTIME_DIR", home.filePath("runtime"));
    ProgramRun run(server, QDir(app.path()).filePath("tablewright"), {}, desktop);
    ASSERT_TRUE(run.started());
    const unsigned long mainWindow = server.waitForWindow(kMainTitle, kAppearMs);
    ASSERT_NE(mainWindow, 0u) << "the main window did not come up";
    const QPoint origin = server.geometry(mainWindow).topLeft();
    const ScreenReader screen(server.display());
    ASSERT_TRUE(screen.waitForColour(origin + kInPane, 0xffffff, kAppearMs))
        << "the test lesson is not on show";

    ASSERT_TRUE(server.click(origin + kOnLink));
    EXPECT_TRUE(screen.waitForColour(origin + kInPane, kWebGround, kEngineMs))
        << "the served page is not drawn in the pane";
    ASSERT_TRUE(server.click(origin + kOnSecondEntry));  // "How this works.."
    EXPECT_TRUE(screen.waitForColour(origin + kInPane, kLessonGround, kAppearMs))
        << "the lesson did not come back";

    server.requestClose(mainWindow);
    const unsigned long promotion = server.waitForWindow(kPromotionTitle, kAppearMs);
    ASSERT_NE(promotion, 0u) << "no promotion window";
    server.requestClose(promotion);
    ASSERT_GE(run.waitForExit(kAppearMs), 0) << "the program did not end";
    EXPECT_EQ(run.exitCode(), 0);
    EXPECT_TRUE(run.errors().isEmpty()) << run.errors().toStdString();
}

}  // namespace

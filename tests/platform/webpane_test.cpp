// The lesson pane: the text pane's pages and links, the host's kept navigation and its
// fallback, and (suite WebEngine) the browser-engine module on the real lesson pages.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <functional>
#include <memory>

#include "platform/mDefs.h"
#include "platform/webbrowser.h"

namespace {

using platform::WebBrowser;

const QString kLessons = QStringLiteral(TABLEWRIGHT_TEST_LESSONS);

// A home of its own for the whole process, so that anything written there is ours to see.
QTemporaryDir& home() {
    static QTemporaryDir dir;
    return dir;
}

// The platform the tests can show windows on: offscreen, or else an X display; empty
// when there is neither.
QByteArray displayPlatform() {
    const QString plugins =
        QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms/");
    const QByteArray asked = qgetenv("QT_QPA_PLATFORM");
    if (asked != "xcb" && QFile::exists(plugins + QStringLiteral("libqoffscreen.so")))
        return "offscreen";
    if (!qgetenv("DISPLAY").isEmpty() && QFile::exists(plugins + QStringLiteral("libqxcb.so")))
        return "xcb";
    return {};
}

QApplication& app() {
    static int argc = 1;
    static char name[] = "webpane_test";
    static char* argv[] = {name, nullptr};
    static QApplication* application = [] {
        for (const char* variable :
             {"HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME"}) {
            qputenv(variable, home().path().toUtf8());
        }
        qputenv("QT_QPA_PLATFORM", displayPlatform());
        return new QApplication(argc, argv);
    }();
    return *application;
}

bool waitUntil(const std::function<bool()>& done, int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        QTest::qWait(10);
    }
    return true;
}

void writeFile(const QString& path, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    file.write(content);
}

// A real mouse click on the link whose text is given.
void clickLinkIn(QTextBrowser* browser, const QString& linkText) {
    QTextCursor found = browser->document()->find(linkText);
    ASSERT_FALSE(found.isNull()) << linkText.toStdString();
    QTextCursor inside(browser->document());
    inside.setPosition(found.selectionStart() + 1);
    browser->setTextCursor(inside);
    browser->ensureCursorVisible();
    QTest::mouseClick(browser->viewport(), Qt::LeftButton, {},
                      browser->cursorRect(inside).center());
    QCoreApplication::processEvents();
}

QString titleOfFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression title(QStringLiteral("<title>(.*?)</title>"));
    return title.match(QString::fromUtf8(file.readAll())).captured(1);
}

class LessonPaneTest : public ::testing::Test {
  protected:
    void SetUp() override {
        app();
        ASSERT_TRUE(folder.isValid());
        platform::setApplicationFolder(folder.path());
        WebBrowser::setEngineAllowed(false);
        browser = std::make_unique<WebBrowser>(nullptr, QStringLiteral("WebBrowser1"));
        browser->resize(700, 500);
        browser->show();
    }
    void TearDown() override {
        browser.reset();
        WebBrowser::setEngineAllowed(true);
        platform::setApplicationFolder(QString());
    }

    QTextBrowser* text() const { return browser->findChild<QTextBrowser*>(); }
    void showPage(const QString& address) {
        browser->startPane();
        browser->Navigate2(address);
        QCoreApplication::processEvents();
    }
    QString shownText() const { return text()->document()->toPlainText(); }
    QString shownTitle() const { return text()->documentTitle(); }
    // The colour of the first level-1 heading, as the document shows it.
    QString headingColour() const {
        for (QTextBlock block = text()->document()->begin(); block.isValid();
             block = block.next()) {
            if (block.blockFormat().headingLevel() == 1) {
                return block.begin().fragment().charFormat().foreground().color().name();
            }
        }
        return {};
    }
    void clickLink(const QString& linkText) { clickLinkIn(text(), linkText); }
    QString lesson(const QString& name) const { return kLessons + u'/' + name; }
    QString scratch(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    std::unique_ptr<WebBrowser> browser;
};

TEST_F(LessonPaneTest, LessonShowsWithItsLinkedStylesheet) {
    showPage(lesson(QStringLiteral("intro.html")));
    ASSERT_EQ(browser->backend(), WebBrowser::Backend::Text);
    EXPECT_EQ(shownTitle(), titleOfFile(lesson(QStringLiteral("intro.html"))));
    EXPECT_EQ(headingColour(), QStringLiteral("#1d5a34"));  // h1 in style.css
    EXPECT_EQ(text()->document()->rootFrame()->frameFormat().background().color().name(),
              QStringLiteral("#fbf8f1"));  // body in style.css
}

// The many ways a page may link its stylesheet, and those that are not a stylesheet for it.
TEST_F(LessonPaneTest, OnlyLinkedStylesheetsApply) {
    writeFile(scratch(QStringLiteral("css/sheet.css")), "h1 { color: #123456; }");
    struct Case {
        const char* head;
        bool applies;
    };
    const Case cases[] = {
        {R"(<link rel="stylesheet" href="css/sheet.css">)", true},
        {R"(<link href='css/sheet.css' rel=stylesheet>)", true},
        {R"(<LINK REL="StyleSheet" HREF="./css/../css/sheet.css">)", true},
        {R"(<link rel="stylesheet" type="text/css" href="css/sheet.css">)", true},
        {R"(<link rel="alternate stylesheet" href="css/sheet.css">)", false},
        {R"(<link rel="icon" href="css/sheet.css">)", false},
        {R"(<link rel="stylesheet" type="text/plain" href="css/sheet.css">)", false},
        {R"(<!-- <link rel="stylesheet" href="css/sheet.css"> -->)", false},
        {R"(<link rel="stylesheet" href="css/missing.css">)", false},
    };
    browser->startPane();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.head);
        writeFile(scratch(QStringLiteral("page.html")),
                  QByteArray("<html><head><title>T</title>") + c.head +
                      "</head><body><h1>Head</h1></body></html>");
        browser->Navigate2(scratch(QStringLiteral("page.html")));
        EXPECT_EQ(shownTitle(), QStringLiteral("T"));
        EXPECT_EQ(headingColour() == QStringLiteral("#123456"), c.applies)
            << headingColour().toStdString();
    }
}

TEST_F(LessonPaneTest, LinkIsFollowedRelativeToThePage) {
    QSignalSpy before(browser.get(), &WebBrowser::BeforeNavigate2);
    showPage(lesson(QStringLiteral("intro.html")));
    clickLink(QStringLiteral("How this works"));
    EXPECT_EQ(text()->source(), QUrl::fromLocalFile(lesson(QStringLiteral("usage.html"))));
    EXPECT_EQ(shownTitle(), titleOfFile(lesson(QStringLiteral("usage.html"))));
    EXPECT_EQ(headingColour(), QStringLiteral("#1d5a34"));
    ASSERT_EQ(before.count(), 2);  // the Navigate2, then the link
    EXPECT_EQ(before.at(1).at(0).toString(), lesson(QStringLiteral("usage.html")));
    EXPECT_EQ(browser->LocationURL(), lesson(QStringLiteral("intro.html")));
}

// What the pane can't show it says so, naming the address, without the lesson's style.
TEST_F(LessonPaneTest, UnshowableAddressesGetAPageSayingWhy) {
    struct Case {
        QString address;
        QString shown;
        const char* title;
    };
    const Case cases[] = {
        {lesson(QStringLiteral("nowhere.html")), lesson(QStringLiteral("nowhere.html")),
         "can't be found"},
        {kLessons, kLessons, "can't be found"},  // a folder is not a page
        {QStringLiteral("https://www.example.com/poker?x=1"),
         QStringLiteral("https://www.example.com/poker?x=1"), "can't be shown here"},
        {QStringLiteral("http://example.org/"), QStringLiteral("http://example.org/"),
         "can't be shown here"},
    };
    browser->startPane();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.address.toStdString());
        browser->Navigate2(lesson(QStringLiteral("intro.html")));
        browser->Navigate2(c.address);
        EXPECT_TRUE(shownTitle().contains(QLatin1String(c.title))) << shownTitle().toStdString();
        EXPECT_TRUE(shownText().contains(c.shown)) << shownText().toStdString();
        EXPECT_NE(headingColour(), QStringLiteral("#1d5a34"));
    }
}

TEST_F(LessonPaneTest, OutsideLinkGetsTheCantShowPageAndTheLessonComesBack) {
    writeFile(scratch(QStringLiteral("out.html")),
              "<html><head><title>Out</title></head><body><p><a "
              "href='https://example.net/'>away</a></p></body></html>");
    showPage(scratch(QStringLiteral("out.html")));
    clickLink(QStringLiteral("away"));
    EXPECT_TRUE(shownText().contains(QStringLiteral("https://example.net/")));
    browser->Navigate2(scratch(QStringLiteral("out.html")));
    EXPECT_EQ(shownTitle(), QStringLiteral("Out"));
}

TEST_F(LessonPaneTest, SamePageAgainIsReadAgain) {
    const QString page = scratch(QStringLiteral("again.html"));
    showPage(page);
    EXPECT_TRUE(shownTitle().contains(QLatin1String("can't be found")));
    writeFile(page, "<html><head><title>First</title></head><body>one</body></html>");
    browser->Navigate2(page);
    EXPECT_EQ(shownTitle(), QStringLiteral("First"));
    writeFile(page, "<html><head><title>Second</title></head><body>two</body></html>");
    browser->Navigate2(page);
    EXPECT_EQ(shownTitle(), QStringLiteral("Second"));
}

TEST_F(LessonPaneTest, NavigationBeforeThePaneIsKeptAndTheLastOneCarriedOut) {
    QSignalSpy before(browser.get(), &WebBrowser::BeforeNavigate2);
    browser->Navigate2(lesson(QStringLiteral("basics.html")));
    browser->Navigate2(lesson(QStringLiteral("intro.html")));
    EXPECT_EQ(browser->backend(), WebBrowser::Backend::Pending);
    EXPECT_EQ(text(), nullptr);
    EXPECT_EQ(before.count(), 2);  // each call is told, even before the pane exists

    QSignalSpy ready(browser.get(), &WebBrowser::paneReady);
    browser->startPane();
    browser->startPane();  // once only
    EXPECT_EQ(ready.count(), 1);
    EXPECT_EQ(browser->findChildren<QTextBrowser*>().size(), 1);
    EXPECT_EQ(text()->source(), QUrl::fromLocalFile(lesson(QStringLiteral("intro.html"))));
    EXPECT_EQ(browser->LocationURL(), lesson(QStringLiteral("intro.html")));
}

TEST_F(LessonPaneTest, EngineThatCannotLoadFallsBackToText) {
    WebBrowser::setEngineAllowed(true);
    // The application folder holds no module at first, then a file that is not one.
    for (const bool brokenModule : {false, true}) {
        if (brokenModule) {
            writeFile(
                scratch(QString::fromLatin1(platform::kWebPaneModuleName) + QStringLiteral(".so")),
                "not a module");
        }
        WebBrowser pane(nullptr, QStringLiteral("WebBrowser1"));
        pane.show();
        pane.Navigate2(lesson(QStringLiteral("intro.html")));
        pane.startPane();
        QTest::qWait(50);  // the engine is tried once the text pane is painted
        EXPECT_EQ(pane.backend(), WebBrowser::Backend::Text);
        EXPECT_EQ(pane.findChild<QWidget*>(QStringLiteral("lessonEnginePane")), nullptr);
        ASSERT_NE(pane.findChild<QTextBrowser*>(), nullptr);
        EXPECT_EQ(pane.findChild<QTextBrowser*>()->documentTitle(),
                  titleOfFile(lesson(QStringLiteral("intro.html"))));
    }
}

// ---- The browser-engine module -------------------------------------------------------

// Serves one fixed page over HTTP on the loopback, standing for a page on the web.
class OutsidePage {
  public:
    OutsidePage() {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
            while (QTcpSocket* socket = server_.nextPendingConnection()) {
                QObject::connect(socket, &QTcpSocket::readyRead, socket, [socket] {
                    const QByteArray body =
                        "<html><head><title>Outside page</title></head><body>web</body></html>";
                    socket->readAll();
                    socket->write(
                        "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: "
                        "close\r\nContent-Length: " +
                        QByteArray::number(body.size()) + "\r\n\r\n" + body);
                    socket->disconnectFromHost();
                });
                QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
    }
    QString address() const {
        return QStringLiteral("http://127.0.0.1:%1/").arg(server_.serverPort());
    }

  private:
    QTcpServer server_;
};

class WebEngine : public ::testing::Test {
  protected:
    static constexpr int kPatience = 60000;  // a cold engine on a busy machine

    void SetUp() override {
        if (displayPlatform().isEmpty()) {
            GTEST_SKIP() << "no display: neither the offscreen platform plugin nor an X display "
                            "(DISPLAY unset or no xcb plugin)";
        }
        app();
        platform::setApplicationFolder(QStringLiteral(TABLEWRIGHT_TEST_MODULE_DIR));
        WebBrowser::setEngineAllowed(true);
        browser = std::make_unique<WebBrowser>(nullptr, QStringLiteral("WebBrowser1"));
        browser->resize(800, 600);
        browser->show();
    }
    void TearDown() override {
        finished.reset();
        browser.reset();
        platform::setApplicationFolder(QString());
    }

    // Starts the pane and waits for the engine to take over from the text pane.
    void startEngine() {
        browser->startPane();
        ASSERT_TRUE(
            waitUntil([&] { return browser->backend() == WebBrowser::Backend::Engine; }, kPatience))
            << "the module did not load from " << TABLEWRIGHT_TEST_MODULE_DIR;
        view = browser->findChild<QWidget*>(QStringLiteral("lessonEnginePane"));
        ASSERT_NE(view, nullptr);
        finished = std::make_unique<QSignalSpy>(view, SIGNAL(loadFinished(bool)));
    }
    QString title() const { return view->property("title").toString(); }
    bool waitForTitle(const QString& expected) {
        return waitUntil([&] { return title() == expected; }, kPatience);
    }
    bool waitForLoads(int count) {
        return waitUntil([&] { return finished->count() >= count; }, kPatience);
    }

    std::unique_ptr<WebBrowser> browser;
    QWidget* view = nullptr;
    std::unique_ptr<QSignalSpy> finished;
    QTemporaryDir folder;
};

TEST_F(WebEngine, LessonLoadsAndAMissingPageFails) {
    ASSERT_NO_FATAL_FAILURE(startEngine());
    const QString intro = kLessons + QStringLiteral("/intro.html");
    browser->Navigate2(intro);
    ASSERT_TRUE(waitForTitle(titleOfFile(intro))) << "title: " << title().toStdString();
    ASSERT_TRUE(waitForLoads(1));
    EXPECT_TRUE(finished->last().at(0).toBool());

    const QUrl missing = QUrl::fromLocalFile(kLessons + QStringLiteral("/nowhere.html"));
    browser->Navigate2(missing.toLocalFile());
    ASSERT_TRUE(waitForLoads(2));
    EXPECT_FALSE(finished->last().at(0).toBool());
    EXPECT_EQ(view->property("url").toUrl(), missing);  // the engine's own error page
}

// Links are not filtered: one to the web loads in the pane, also one for a new window.
TEST_F(WebEngine, OutsideLinksLoadInThePane) {
    ASSERT_NO_FATAL_FAILURE(startEngine());
    OutsidePage outside;
    QSignalSpy before(browser.get(), &WebBrowser::BeforeNavigate2);
    struct Case {
        const char* path;
        const char* target;
    };
    for (const Case c : {Case{"same", ""}, Case{"new", " target='_blank'"}}) {
        SCOPED_TRACE(c.target);
        before.clear();
        const QString away = outside.address() + QLatin1String(c.path);
        const QString page = folder.filePath(QStringLiteral("%1.html").arg(QLatin1String(c.path)));
        writeFile(page, QStringLiteral("<html><head><title>Links</title></head>"
                                       "<body onload=\"document.getElementById('away').click()\">"
                                       "<a id='away' href='%1'%2>away</a></body></html>")
                            .arg(away, QLatin1String(c.target))
                            .toUtf8());
        browser->Navigate2(page);
        EXPECT_TRUE(
            waitUntil([&] { return view->property("url").toUrl() == QUrl(away); }, kPatience));
        EXPECT_TRUE(waitForTitle(QStringLiteral("Outside page")))
            << "title: " << title().toStdString();
        ASSERT_EQ(before.count(), 2);  // the Navigate2, then the link, each told once
        EXPECT_EQ(before.at(1).at(0).toString(), away);
    }
}

// The home page shows at once in the text pane; the engine takes over once it has the page
// the user is on, also one reached by a link meanwhile.
TEST_F(WebEngine, TextPaneShowsThePageUntilTheEngineHasIt) {
    const QString intro = kLessons + QStringLiteral("/intro.html");
    const QString usage = kLessons + QStringLiteral("/usage.html");
    browser->Navigate2(intro);
    browser->startPane();
    ASSERT_EQ(browser->backend(), WebBrowser::Backend::Text);
    QTextBrowser* text = browser->findChild<QTextBrowser*>();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->documentTitle(), titleOfFile(intro));
    clickLinkIn(text, QStringLiteral("How this works"));

    ASSERT_TRUE(
        waitUntil([&] { return browser->backend() == WebBrowser::Backend::Engine; }, kPatience));
    view = browser->findChild<QWidget*>(QStringLiteral("lessonEnginePane"));
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(waitForTitle(titleOfFile(usage))) << "title: " << title().toStdString();
    EXPECT_EQ(view->property("url").toUrl(), QUrl::fromLocalFile(usage));
    EXPECT_EQ(browser->findChild<QTextBrowser*>(), nullptr);
}

TEST_F(WebEngine, NothingIsWrittenToTheHome) {
    ASSERT_NO_FATAL_FAILURE(startEngine());
    browser->Navigate2(kLessons + QStringLiteral("/intro.html"));
    ASSERT_TRUE(waitForLoads(1));
    browser.reset();  // the engine has had its chance to write on closing the profile
    QTest::qWait(500);
    QStringList written;
    QDirIterator it(home().path(), QDir::Files | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        written << it.next();
    EXPECT_TRUE(written.isEmpty()) << written.join(u'\n').toStdString();
}

}  // namespace

// The lesson pane: the text pane's pages, stylesheets and links, the host's kept navigation
// and its fallback, and (suite WebEngine) the browser-engine module on the real lesson pages.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <memory>

#include "platform/mDefs.h"
#include "platform/webbrowser.h"

namespace {

using platform::WebBrowser;

const QString kLessons = QStringLiteral(TABLEWRIGHT_TEST_LESSONS);
const QString kIntro = kLessons + "/intro.html";
const QString kUsage = kLessons + "/usage.html";
const QString kGreen = "#1d5a34";  // the headings' colour in style.css

constexpr int kPatience = 60'000;  // for a cold engine on a busy machine

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    file.write(content);
}

QString titleOfFile(const QString& path) {
    QFile file(path);
    const QRegularExpression title("<title>(.*?)</title>");
    return file.open(QIODevice::ReadOnly) ? title.match(QString(file.readAll())).captured(1) : "";
}

// A real mouse click on the link whose text is given.
void clickLinkIn(QTextBrowser* browser, const QString& linkText) {
    const QTextCursor found = browser->document()->find(linkText);
    ASSERT_FALSE(found.isNull()) << linkText.toStdString();
    QTextCursor inside(browser->document());
    inside.setPosition(found.selectionStart() + 1);
    browser->setTextCursor(inside);
    browser->ensureCursorVisible();
    QTest::mouseClick(browser->viewport(), Qt::LeftButton, {},
                      browser->cursorRect(inside).center());
    QCoreApplication::processEvents();
}

class PaneTest : public ::testing::Test {
  protected:
    // One application, offscreen unless an X server is asked for, with a home of its own so
    // that the engine's profile stays out of the user's.
    static void SetUpTestSuite() {
        static QTemporaryDir home;
        static int argc = 1;
        static char name[] = "webpane_test";
        static char* argv[] = {name, nullptr};
        for (const char* variable : {"HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME"})
            qputenv(variable, home.path().toUtf8());
        if (qgetenv("QT_QPA_PLATFORM") != "xcb")
            qputenv("QT_QPA_PLATFORM", "offscreen");
        if (QCoreApplication::instance() == nullptr)
            new QApplication(argc, argv);  // never destroyed: the engine outlives it
    }
    void start(const QString& folder, bool engine) {
        platform::setApplicationFolder(folder);
        WebBrowser::setEngineAllowed(engine);
        browser = std::make_unique<WebBrowser>(nullptr, QStringLiteral("WebBrowser1"));
        browser->resize(800, 600);
        browser->show();
    }
    void TearDown() override {
        browser.reset();
        WebBrowser::setEngineAllowed(true);
        platform::setApplicationFolder(QString());
    }
    QTextBrowser* text() const { return browser->findChild<QTextBrowser*>(); }
    QString shownTitle() const { return text()->documentTitle(); }
    // The colour of the first level-1 heading, as the document shows it.
    QString headingColour() const {
        for (QTextBlock block = text()->document()->begin(); block.isValid(); block = block.next())
            if (block.blockFormat().headingLevel() == 1)
                return block.begin().fragment().charFormat().foreground().color().name();
        return {};
    }

    QTemporaryDir folder;
    std::unique_ptr<WebBrowser> browser;
};

class LessonPaneTest : public PaneTest {
  protected:
    void SetUp() override { start(folder.path(), false); }
};

TEST_F(LessonPaneTest, LessonShowsWithItsStylesheetAndALinkIsFollowedRelativeToThePage) {
    QSignalSpy before(browser.get(), &WebBrowser::BeforeNavigate2);
    browser->startPane();
    browser->Navigate2(kIntro);
    ASSERT_EQ(browser->backend(), WebBrowser::Backend::Text);
    EXPECT_EQ(shownTitle(), titleOfFile(kIntro));
    EXPECT_EQ(headingColour(), kGreen);
    EXPECT_EQ(text()->document()->rootFrame()->frameFormat().background().color().name(),
              "#fbf8f1");  // body in style.css

    clickLinkIn(text(), "How this works");
    EXPECT_EQ(text()->source(), QUrl::fromLocalFile(kUsage));
    EXPECT_EQ(shownTitle(), titleOfFile(kUsage));
    EXPECT_EQ(headingColour(), kGreen);
    ASSERT_EQ(before.count(), 2);  // the Navigate2, then the link
    EXPECT_EQ(before.at(1).at(0).toString(), kUsage);
    EXPECT_EQ(browser->LocationURL(), kIntro) << "the address of the last Navigate2";
}

// What the pane can't show it says so, naming the address, without the lesson's style; a
// page asked for again is read again from the disk.
TEST_F(LessonPaneTest, UnshowableAddressesGetAPageSayingWhyAndAPageAskedAgainIsReadAgain) {
    const std::pair<QString, const char*> cases[] = {
        {kLessons + "/nowhere.html", "can't be found"},
        {kLessons, "can't be found"},  // a folder is not a page
        {"https://www.example.com/poker?x=1", "can't be shown here"},
        {"http://example.org/", "can't be shown here"},
    };
    browser->startPane();
    for (const auto& [address, title] : cases) {
        browser->Navigate2(kIntro);
        browser->Navigate2(address);
        EXPECT_TRUE(shownTitle().contains(title)) << shownTitle().toStdString();
        EXPECT_TRUE(text()->toPlainText().contains(address)) << address.toStdString();
        EXPECT_NE(headingColour(), kGreen);
    }
    const QString page = folder.filePath("page.html");  // the page on show, asked again
    writeFile(page, "<title>First</title>");
    browser->Navigate2(page);
    writeFile(page, "<title>Changed</title>");
    browser->Navigate2(page);
    EXPECT_EQ(shownTitle(), "Changed");
}

TEST_F(LessonPaneTest, NavigationBeforeThePaneIsKeptAndTheLastOneCarriedOut) {
    QSignalSpy before(browser.get(), &WebBrowser::BeforeNavigate2);
    browser->Navigate2(kLessons + "/basics.html");
    browser->Navigate2(kIntro);
    EXPECT_EQ(browser->backend(), WebBrowser::Backend::Pending);
    EXPECT_EQ(text(), nullptr);
    EXPECT_EQ(before.count(), 2) << "each call is told, even before the pane exists";

    QSignalSpy ready(browser.get(), &WebBrowser::paneReady);
    browser->startPane();
    browser->startPane();  // once only
    EXPECT_EQ(ready.count(), 1);
    EXPECT_EQ(browser->findChildren<QTextBrowser*>().size(), 1);
    EXPECT_EQ(text()->source(), QUrl::fromLocalFile(kIntro));
}

TEST_F(LessonPaneTest, EngineThatCannotLoadFallsBackToText) {
    // The application folder holds no module at first, then a file that is not one.
    for (const bool brokenModule : {false, true}) {
        if (brokenModule)
            writeFile(folder.filePath(QString(platform::kWebPaneModuleName) + ".so"),
                      "not a module");
        start(folder.path(), true);
        browser->Navigate2(kIntro);
        browser->startPane();
        QTest::qWait(50);  // the engine is tried once the text pane is painted
        EXPECT_EQ(browser->backend(), WebBrowser::Backend::Text);
        EXPECT_EQ(browser->findChild<QWidget*>("lessonEnginePane"), nullptr);
        ASSERT_NE(text(), nullptr);
        EXPECT_EQ(shownTitle(), titleOfFile(kIntro));
    }
}

// ---- The browser-engine module, beside the program ----------------------------------

class WebEngine : public PaneTest {
  protected:
    void SetUp() override { start(TABLEWRIGHT_TEST_MODULE_DIR, true); }
    // Waits for the engine to take over from the text pane.
    void waitForEngine() {
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return browser->backend() == WebBrowser::Backend::Engine; }, kPatience))
            << "the module did not load from " << TABLEWRIGHT_TEST_MODULE_DIR;
        view = browser->findChild<QWidget*>("lessonEnginePane");
        ASSERT_NE(view, nullptr);
    }
    QString title() const { return view->property("title").toString(); }
    QUrl url() const { return view->property("url").toUrl(); }

    QWidget* view = nullptr;
};

// The home page shows at once in the text pane; the engine takes over once it has the page
// the user is on, also one reached by a link meanwhile.
TEST_F(WebEngine, TextPaneShowsThePageUntilTheEngineHasIt) {
    browser->Navigate2(kIntro);
    browser->startPane();
    ASSERT_EQ(browser->backend(), WebBrowser::Backend::Text);
    EXPECT_EQ(shownTitle(), titleOfFile(kIntro));
    clickLinkIn(text(), "How this works");

    ASSERT_NO_FATAL_FAILURE(waitForEngine());
    EXPECT_TRUE(QTest::qWaitFor([&] { return title() == titleOfFile(kUsage); }, kPatience))
        << title().toStdString();
    EXPECT_EQ(url(), QUrl::fromLocalFile(kUsage));
    EXPECT_EQ(text(), nullptr);
}

// Links are not filtered: one to the web loads in the pane, also one for a new window.
TEST_F(WebEngine, OutsideLinksLoadInThePane) {
    browser->startPane();
    ASSERT_NO_FATAL_FAILURE(waitForEngine());
    QTcpServer web;  // one page on the loopback, standing for a page on the web
    ASSERT_TRUE(web.listen(QHostAddress::LocalHost));
    QObject::connect(&web, &QTcpServer::newConnection, [&web] {
        QTcpSocket* socket = web.nextPendingConnection();
        socket->waitForReadyRead(5000);
        socket->write(
            "HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n<title>Outside page</title>");
        socket->disconnectFromHost();
    });
    QSignalSpy before(browser.get(), &WebBrowser::BeforeNavigate2);
    for (const QString target : {"", " target='_blank'"}) {
        before.clear();
        const QString away =
            QString("http://127.0.0.1:%1/%2").arg(web.serverPort()).arg(target.size());
        const QString page = folder.filePath(QString("links%1.html").arg(target.size()));
        writeFile(page, QString("<body onload=\"document.getElementById('a').click()\">"
                                "<a id='a' href='%1'%2>away</a>")
                            .arg(away, target)
                            .toUtf8());
        browser->Navigate2(page);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return url() == QUrl(away) && title() == "Outside page"; }, kPatience))
            << target.toStdString() << ": " << title().toStdString();
        ASSERT_EQ(before.count(), 2);  // the Navigate2, then the link, each told once
        EXPECT_EQ(before.at(1).at(0).toString(), away);
    }
}

}  // namespace

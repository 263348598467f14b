// The lesson pane: which pane shows an address, the native pane's lessons, messages and links,
// and (suite WebEngine) the browser-engine module taking over for a page on the web and
// giving the pane back for a lesson.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <memory>

#include "lessonpane/webbrowser.h"
#include "platform/mDefs.h"
#include "platform/startup.h"

namespace {

using platform::WebBrowser;
using Backend = WebBrowser::Backend;

const QString kLessons = QStringLiteral(TABLEWRIGHT_TEST_LESSONS);
const QString kIntro = kLessons + "/intro.html";
const QString kUsage = kLessons + "/usage.html";
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

// The warnings the pane prints, counted.
QStringList g_warnings;
void recordWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtWarningMsg)
        g_warnings << text;
}

class PaneTest : public ::testing::Test {
  protected:
    // Offscreen unless an X server is asked for; a home of its own keeps the engine's
    // profile out of the user's.
    static void SetUpTestSuite() {
        static QTemporaryDir home;
        static int argc = 1;
        static char name[] = "webpane_test";
        static char* argv[] = {name, nullptr};
        for (const char* variable : {"HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME"})
            qputenv(variable, home.path().toUtf8());
        if (qgetenv("QT_QPA_PLATFORM") != "xcb")
            qputenv("QT_QPA_PLATFORM", "offscreen");
        if (QCoreApplication::instance() == nullptr) {
            platform::prepareApplication();
            new QApplication(argc, argv);  // never destroyed: the engine outlives it
        }
    }
    void start(const QString& folder) {
        platform::setApplicationFolder(folder);
        browser = std::make_unique<WebBrowser>(nullptr, QStringLiteral("WebBrowser1"));
        browser->resize(800, 600);
        browser->show();
    }
    void TearDown() override {
        browser.reset();
        platform::setApplicationFolder(QString());
    }
    QTextBrowser* text() const { return browser->findChild<QTextBrowser*>(); }
    QString shownTitle() const { return text()->documentTitle(); }
    bool styled() const {  // style.css gives the body this background
        return text()->document()->rootFrame()->frameFormat().background().color().name() ==
               "#fbf8f1";
    }

    QTemporaryDir folder;
    std::unique_ptr<WebBrowser> browser;
};

// Without the engine module (here: a file that is not one) every address shows in the native
// pane: lessons styled, links followed and told, and a page of its own for what it can't
// show, with one line on stderr saying why.
TEST_F(PaneTest, NativePaneShowsLessonsFollowsLinksAndSaysWhatItCannotShow) {
    writeFile(folder.filePath(QString(platform::kWebPaneModuleName) + ".so"), "not one");
    start(folder.path());
    QSignalSpy before(browser.get(), &WebBrowser::BeforeNavigate2);
    browser->Navigate2(kIntro);
    EXPECT_EQ(browser->backend(), Backend::Native);
    EXPECT_EQ(shownTitle(), titleOfFile(kIntro));
    EXPECT_TRUE(styled());
    // A call-out is a box of its own, not a tail of the paragraph before it.
    const QTextCursor tip = text()->document()->find("Poker is learned by doing");
    ASSERT_FALSE(tip.isNull());
    EXPECT_NE(tip.currentTable(), nullptr);

    emit text()->anchorClicked(QUrl("usage.html"));  // as a click on the link does
    EXPECT_EQ(shownTitle(), titleOfFile(kUsage));
    ASSERT_EQ(before.count(), 2);  // the Navigate2, then the link
    EXPECT_EQ(before.at(1).at(0).toString(), kUsage);
    EXPECT_EQ(browser->LocationURL(), kIntro) << "the address of the last Navigate2";

    g_warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(recordWarning);
    const std::pair<QString, const char*> cases[] = {
        {kLessons + "/nowhere.html", "can't be found"},
        {kLessons, "can't be found"},  // a folder is not a page
        {"https://www.example.com/poker?x=1", "can't be shown here"},
        {"http://127.0.0.1:9/", "can't be shown here"},
    };
    for (const auto& [address, title] : cases) {
        browser->Navigate2(kIntro);
        browser->Navigate2(address);
        EXPECT_EQ(browser->backend(), Backend::Native);
        EXPECT_TRUE(shownTitle().contains(title)) << shownTitle().toStdString();
        EXPECT_TRUE(text()->toPlainText().contains(address)) << address.toStdString();
        EXPECT_FALSE(styled());
    }
    qInstallMessageHandler(previous);
#ifdef TABLEWRIGHT_WEBENGINE_MODULE
    EXPECT_EQ(g_warnings.size(), 1) << g_warnings.join('\n').toStdString();
#endif
    const QString page = folder.filePath("page.html");
    writeFile(page, "<title>First</title>");
    browser->Navigate2(page);
    writeFile(page, "<title>Changed</title>");
    browser->Navigate2(page);
    EXPECT_EQ(shownTitle(), "Changed");
    // Broken markup shows as the reader makes it out.
    writeFile(page, "<h1>Broken</h2><aside class=tip><span class=\"card h\">A&hearts; <table><td>");
    browser->Navigate2(page);
    EXPECT_TRUE(text()->toPlainText().contains("Broken"));
}

// Answers every request on 127.0.0.1 with one page.
class PageServer {
  public:
    explicit PageServer(QByteArray page) : page_(std::move(page)) {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
            QTcpSocket* socket = server_.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                socket->write("HTTP/1.0 200 OK\r\nContent-Type: text/html\r\nContent-Length: " +
                              QByteArray::number(page_.size()) + "\r\n\r\n" + page_);
                socket->disconnectFromHost();
            });
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        });
    }
    QString address() const {
        return QStringLiteral("http://127.0.0.1:%1/").arg(server_.serverPort());
    }

  private:
    QTcpServer server_;
    QByteArray page_;
};

class WebEngine : public PaneTest {
  protected:
    void SetUp() override { start(TABLEWRIGHT_TEST_MODULE_DIR); }
    QWidget* view() const { return browser->findChild<QWidget*>("lessonEnginePane"); }
    bool showsWebPage(const QString& title) const {
        return QTest::qWaitFor(
            [&] { return view() != nullptr && view()->property("title").toString() == title; },
            kPatience);
    }
};

// Lessons stay native; a web address, by Navigate2 or by a link, loads the engine and shows
// in it; a lesson after it gives the pane back to the native pane and the engine goes.
TEST_F(WebEngine, TakesOverForTheWebAndGivesThePaneBackForALesson) {
    PageServer server("<title>Served page</title><p>From the test.</p>");
    QSignalSpy before(browser.get(), &WebBrowser::BeforeNavigate2);
    browser->Navigate2(kIntro);
    EXPECT_EQ(browser->backend(), Backend::Native);
    EXPECT_EQ(view(), nullptr) << "the engine loads only for the web";

    emit text()->anchorClicked(QUrl(server.address()));
    EXPECT_EQ(browser->backend(), Backend::Engine);
    ASSERT_TRUE(showsWebPage("Served page"))
        << "the module did not load from " << TABLEWRIGHT_TEST_MODULE_DIR;
    EXPECT_EQ(before.count(), 2);
    EXPECT_EQ(before.last().at(0).toString(), server.address());

    browser->Navigate2(kUsage);
    EXPECT_EQ(browser->backend(), Backend::Native);
    EXPECT_EQ(shownTitle(), titleOfFile(kUsage));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view() == nullptr; })) << "the engine stayed";

    browser->Navigate2(server.address());
    EXPECT_EQ(browser->backend(), Backend::Engine);
    EXPECT_TRUE(showsWebPage("Served page"));
}

}  // namespace

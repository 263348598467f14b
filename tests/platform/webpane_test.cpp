// The lesson pane: the text pane's pages, stylesheets and links, the host's kept navigation
// and its fallback, and (suite WebEngine) the browser-engine module on the real lesson pages.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTextFrame>
#include <memory>

#include "platform/mDefs.h"
#include "lessonpane/webbrowser.h"

namespace {

using platform::WebBrowser;

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
        if (QCoreApplication::instance() == nullptr)
            new QApplication(argc, argv);  // never destroyed: the engine outlives it
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

// Early Navigate2 calls are each told, the last one carried out once the pane is there. A file
// that is not the engine module where the module should be leaves the text pane on.
TEST_F(PaneTest, TextPaneShowsStyledLessonsFollowsLinksAndSaysWhatItCannotShow) {
    writeFile(folder.filePath(QString(platform::kWebPaneModuleName) + ".so"), "not one");
    start(folder.path());
    QSignalSpy before(browser.get(), &WebBrowser::BeforeNavigate2);
    QSignalSpy ready(browser.get(), &WebBrowser::paneReady);
    browser->Navigate2(kLessons + "/basics.html");
    browser->Navigate2(kIntro);
    EXPECT_EQ(browser->backend(), WebBrowser::Backend::Pending);
    EXPECT_EQ(text(), nullptr);
    browser->startPane();
    browser->startPane();  // once only
    EXPECT_EQ(ready.count(), 1);
    EXPECT_EQ(browser->findChildren<QTextBrowser*>().size(), 1);
    ASSERT_EQ(browser->backend(), WebBrowser::Backend::Text);
    EXPECT_EQ(shownTitle(), titleOfFile(kIntro));
    EXPECT_TRUE(styled());

    emit text()->anchorClicked(QUrl("usage.html"));  // as a click on the link does
    EXPECT_EQ(shownTitle(), titleOfFile(kUsage));
    EXPECT_TRUE(styled());
    ASSERT_EQ(before.count(), 3);  // two Navigate2, then the link
    EXPECT_EQ(before.at(2).at(0).toString(), kUsage);
    EXPECT_EQ(browser->LocationURL(), kIntro) << "the address of the last Navigate2";

    const std::pair<QString, const char*> cases[] = {
        {kLessons + "/nowhere.html", "can't be found"},
        {kLessons, "can't be found"},  // a folder is not a page
        {"https://www.example.com/poker?x=1", "can't be shown here"},
    };
    for (const auto& [address, title] : cases) {
        browser->Navigate2(kIntro);
        browser->Navigate2(address);
        EXPECT_TRUE(shownTitle().contains(title)) << shownTitle().toStdString();
        EXPECT_TRUE(text()->toPlainText().contains(address)) << address.toStdString();
        EXPECT_FALSE(styled());
    }
    const QString page = folder.filePath("page.html");
    writeFile(page, "<title>First</title>");
    browser->Navigate2(page);
    writeFile(page, "<title>Changed</title>");
    browser->Navigate2(page);
    EXPECT_EQ(shownTitle(), "Changed");
    QTest::qWait(50);  // the engine is tried once the text pane is painted
    EXPECT_EQ(browser->backend(), WebBrowser::Backend::Text);
}

class WebEngine : public PaneTest {
  protected:
    void SetUp() override { start(TABLEWRIGHT_TEST_MODULE_DIR); }
    QWidget* view() const { return browser->findChild<QWidget*>("lessonEnginePane"); }
    QString title() const { return view()->property("title").toString(); }
};

// The text pane shows the home page at once; the engine takes over once it has the page the
// user is on, also one reached by a link meanwhile.
TEST_F(WebEngine, TextPaneShowsThePageUntilTheEngineHasIt) {
    browser->Navigate2(kIntro);
    browser->startPane();
    ASSERT_EQ(browser->backend(), WebBrowser::Backend::Text);
    emit text()->anchorClicked(QUrl("usage.html"));  // as a click on the link does
    ASSERT_TRUE(QTest::qWaitFor([&] { return browser->backend() == WebBrowser::Backend::Engine; },
                                kPatience))
        << "the module did not load from " << TABLEWRIGHT_TEST_MODULE_DIR;
    ASSERT_NE(view(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return title() == titleOfFile(kUsage); }, kPatience))
        << title().toStdString();
    EXPECT_EQ(view()->property("url").toUrl(), QUrl::fromLocalFile(kUsage));
    EXPECT_EQ(text(), nullptr);
}

}  // namespace

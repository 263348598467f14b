// The native lesson pane: lessons shown, links followed and told, and a page of its own for
// what it can't show. (tests/system follows a link to the web in the browser engine and back.)
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>

#include "lessonpane/webbrowser.h"
#include "platform/mDefs.h"

namespace {

using platform::WebBrowser;

const QString kLessons = QStringLiteral(TABLEWRIGHT_TEST_LESSONS);
const QString kIntro = kLessons + "/intro.html";
const QString kUsage = kLessons + "/usage.html";

QString titleOfFile(const QString& path) {
    QFile file(path);
    const QRegularExpression title("<title>(.*?)</title>");
    return file.open(QIODevice::ReadOnly) ? title.match(QString(file.readAll())).captured(1) : "";
}

// Without the engine module every address shows in the native pane.
TEST(NativePane, ShowsLessonsFollowsLinksAndSaysWhatItCannotShow) {
    int argc = 1;
    char name[] = "test_webpane";
    char* argv[] = {name, nullptr};
    QApplication app(argc, argv);
    platform::setApplicationFolder(kLessons);  // no engine module there
    WebBrowser browser(nullptr, QStringLiteral("WebBrowser1"));
    browser.show();
    auto* text = browser.findChild<QTextBrowser*>();
    QSignalSpy before(&browser, &WebBrowser::BeforeNavigate2);
    browser.Navigate2(kIntro);
    EXPECT_EQ(text->documentTitle(), titleOfFile(kIntro));
    // A call-out is a box of its own, not a tail of the paragraph before it.
    EXPECT_NE(text->document()->find("Poker is learned by doing").currentTable(), nullptr);

    emit text->anchorClicked(QUrl("usage.html"));  // as a click on the link does
    EXPECT_EQ(text->documentTitle(), titleOfFile(kUsage));
    ASSERT_EQ(before.count(), 2);  // the Navigate2, then the link
    EXPECT_EQ(before.at(1).at(0).toString(), kUsage);
    EXPECT_EQ(browser.LocationURL(), kIntro) << "the address of the last Navigate2";

    const std::pair<QString, const char*> cases[] = {
        {kLessons + "/nowhere.html", "can't be found"},
        {kLessons, "can't be found"},  // a folder is not a page
        {"https://www.example.com/poker?x=1", "can't be shown here"},
    };
    for (const auto& [address, title] : cases) {
        browser.Navigate2(kIntro);
        browser.Navigate2(address);
        EXPECT_EQ(browser.backend(), WebBrowser::Backend::Native);
        EXPECT_TRUE(text->documentTitle().contains(title)) << address.toStdString();
        EXPECT_TRUE(text->toPlainText().contains(address)) << address.toStdString();
    }
    platform::setApplicationFolder(QString());
}

}  // namespace

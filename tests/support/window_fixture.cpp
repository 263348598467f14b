#include "window_fixture.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include "lessonpane/webbrowser.h"
#include "support/folders.h"

namespace test_support {

QApplication& app() {
    static int argc = 1;
    static char name[] = "tablewright_tests";
    static char* argv[] = {name, nullptr};
    static QApplication* application = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        auto* a = new QApplication(argc, argv);
        a->setApplicationName(QStringLiteral("Tablewright"));
        return a;
    }();
    return *application;
}

float ScriptedRandom::Rnd() {
    if (!script.empty()) {
        const float u = script.front();
        script.pop_front();
        return u;
    }
    return std::uniform_real_distribution<float>(0.0f, 0.99999994f)(engine_);
}

void WindowTest::SetUp() {
    app();
    ASSERT_TRUE(folder_.isValid());
    copyFolder(QStringLiteral(TABLEWRIGHT_TEST_APP_SOURCE), folder_.path());
    platform::resetSeams();
    platform::setApplicationFolder(folder_.path());
    platform::WebBrowser::setEngineAllowed(false);
    auto& seams = platform::seams();
    seams.messageBox = [this](const QString& text) { recorded.messages.push_back(text); };
    seams.playSound = [this](const QString& path) { recorded.sounds.push_back(path); };
    seams.openAddress = [this](const QString& address) { recorded.addresses.push_back(address); };
    seams.endProgram = [this](int code) { recorded.ends.push_back(code); };
    seams.screenWidthPixels = [] { return 1280; };
    seams.waitScale = 0;
    auto scripted = std::make_unique<ScriptedRandom>();
    random = scripted.get();
    seams.random = std::move(scripted);
}

void WindowTest::TearDown() {
    form.reset();
    platform::resetSeams();
    platform::setApplicationFolder(QString());
}

void WindowTest::startWindow() {
    form = std::make_unique<frmMain>();
    form->Form_Load();
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    serveEvents();
}

void WindowTest::clickTopic(const QString& text) {
    for (int index = 1; index <= form->TreeView1->nodeCount(); ++index) {
        if (form->TreeView1->nodeText(index) == text) {
            form->TreeView1_NodeClick(index);
            return;
        }
    }
    ADD_FAILURE() << "no tree entry " << text.toStdString();
}

void WindowTest::serveEvents(int milliseconds) {
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    if (milliseconds > 0)
        QTest::qWait(milliseconds);
}

int WindowTest::markedName() const {
    for (std::size_t i = 0; i < form->lblName.size(); ++i) {
        if (form->lblName[i]->BackColor() == 0 && form->lblName[i]->ForeColor() == 0xE0E0E0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

std::vector<int> WindowTest::enabledKeys() const {
    std::vector<int> keys;
    for (std::size_t i = 0; i < form->cmdKey.size(); ++i) {
        if (form->cmdKey[i]->isEnabledTo(form->picKeys))
            keys.push_back(static_cast<int>(i));
    }
    return keys;
}

}  // namespace test_support

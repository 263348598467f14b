#include "window_fixture.h"

#include <QTest>

#include "lessonpane/webbrowser.h"
#include "platform/treeview.h"
#include "support/folders.h"

namespace test_support {

QApplication& app() {
    static int argc = 1;
    static char name[] = "tablewright_tests";
    static char* argv[] = {name, nullptr};
    if (qApp == nullptr) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        new QApplication(argc, argv);  // lives as long as the process
        QApplication::setApplicationName(QStringLiteral("Tablewright"));
    }
    return *qApp;
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
    seams.random = std::make_unique<ScriptedRandom>();
    random = static_cast<ScriptedRandom*>(seams.random.get());
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
    QCoreApplication::processEvents();
}

void WindowTest::clickTopic(const QString& text) {
    const auto* tree = child<platform::TreeView>(QStringLiteral("TreeView1"));
    int index = tree->nodeCount();
    while (index > 0 && tree->nodeText(index) != text)
        --index;
    ASSERT_GT(index, 0) << "no tree entry " << text.toStdString();
    form->TreeView1_NodeClick(index);
}

std::vector<int> WindowTest::enabledKeys() const {
    std::vector<int> keys;
    for (int i = 0; i < 52; ++i)
        if (key(i)->isEnabledTo(key(i)->parentWidget()))
            keys.push_back(i);
    return keys;
}

}  // namespace test_support

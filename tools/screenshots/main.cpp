// Writes docs/screenshots/<scene>.png for every scene (or the ones named on the command
// line). Run under a real X server (Xvfb) so the lesson pane uses the browser engine.
#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QTest>
#include <cstdio>
#include <random>

#include "platform/mDefs.h"
#include "platform/startup.h"
#include "scenes.h"

namespace screenshots {

std::vector<Scene>& scenes() {
    static std::vector<Scene> all;
    return all;
}

void settle(int milliseconds) {
    QTest::qWait(milliseconds);
}

namespace {
QPointer<QWidget> windowInstead;
}  // namespace

void saveWindowInstead(QWidget* window) {
    windowInstead = window;
}

void clickTopic(frmMain& form, const QString& text) {
    auto* tree = control<platform::TreeView>(form, QStringLiteral("TreeView1"));
    for (int index = 1; index <= tree->nodeCount(); ++index) {
        if (tree->nodeText(index) == text) {
            tree->setSelected(index);
            form.TreeView1_NodeClick(index);
            return;
        }
    }
}

namespace {

// Fixed values, so the screenshots are the same at every run.
class SeededRandom final : public cards::RandomSource {
  public:
    void Randomize() override {}
    float Rnd() override {
        return std::uniform_real_distribution<float>(0.0f, 0.99999994f)(engine_);
    }

  private:
    std::mt19937 engine_{20261122};
};

}  // namespace
}  // namespace screenshots

int main(int argc, char* argv[]) {
    platform::prepareApplication();
    QApplication app(argc, argv);
    platform::configureApplication(app);
    // Absolute now: the window's start-up changes the working folder.
    const QString outFolder =
        QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("docs/screenshots"))
            .absolutePath();
    QDir().mkpath(outFolder);
    platform::setApplicationFolder(
        QDir(QCoreApplication::applicationDirPath() + QStringLiteral("/../../app")).absolutePath());
    platform::seams().openAddress = [](const QString&) {};
    platform::seams().endProgram = [](int) {};
    // A message (a missing 169.txt, say) is printed rather than shown: nothing may block.
    platform::seams().messageBox = [](const QString& text) {
        std::fprintf(stderr, "message: %s\n", qPrintable(text));
    };
    int written = 0;
    for (const auto& scene : screenshots::scenes()) {
        bool wanted = argc <= 2;
        for (int i = 2; i < argc; ++i)
            wanted |= QString::fromLocal8Bit(argv[i]) == QLatin1String(scene.name);
        if (!wanted)
            continue;
        platform::seams().random = std::make_unique<screenshots::SeededRandom>();
        frmMain form;
        form.Form_Load();
        form.show();
        if (!QTest::qWaitForWindowExposed(&form))
            std::fprintf(stderr, "%s: window not shown\n", scene.name);
        screenshots::settle(1500);
        screenshots::saveWindowInstead(nullptr);
        scene.play(form);
        screenshots::settle(300);
        const QString file =
            QDir(outFolder).filePath(QString::fromLatin1(scene.name) + QStringLiteral(".png"));
        QWidget* shown = screenshots::windowInstead ? screenshots::windowInstead.data() : &form;
        shown->grab().save(file);
        std::printf("%s\n", qPrintable(file));
        ++written;
        form.Unload();
    }
    return written > 0 ? 0 : 1;
}

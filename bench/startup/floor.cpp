// The floor of the start-up figures: the least a Qt window with a topic tree and the home
// page can do. A tree of 34 entries and a text browser showing intro.html, nothing else.
#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QTextBrowser>
#include <QTreeWidget>

namespace {

constexpr int kParents = 6;
constexpr int kEntries = 34;

QTreeWidget* makeTree() {
    auto* tree = new QTreeWidget;
    tree->setHeaderHidden(true);
    QTreeWidgetItem* parent = nullptr;
    for (int entry = 0; entry < kEntries; ++entry) {
        const QStringList text{QStringLiteral("Topic %1").arg(entry + 1)};
        if (entry % (kEntries / kParents + 1) == 0) {
            parent = new QTreeWidgetItem(tree, text);
            parent->setExpanded(true);
        } else {
            new QTreeWidgetItem(parent, text);
        }
    }
    return tree;
}

QTextBrowser* makePage(const QString& folder) {
    auto* page = new QTextBrowser;
    // Qt reads a linked stylesheet only with type="text/css", which the lessons leave out;
    // the sheet goes in as the document's own so that the heading shows in its colour.
    QFile sheet(folder + QStringLiteral("/style.css"));
    if (sheet.open(QIODevice::ReadOnly))
        page->document()->setDefaultStyleSheet(QString::fromUtf8(sheet.readAll()));
    page->setSource(QUrl::fromLocalFile(folder + QStringLiteral("/intro.html")));
    return page;
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("Startup floor"));
    auto* layout = new QHBoxLayout(&window);
    layout->addWidget(makeTree(), 1);
    layout->addWidget(makePage(QStringLiteral(STARTUP_FLOOR_FOLDER)), 3);
    window.resize(921, 653);  // the main window's inner size
    window.show();
    return QApplication::exec();
}

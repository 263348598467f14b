// The floor of the start-up figures: the least a Qt window with a topic tree and the home
// page can do. A tree of 34 entries and a text browser showing intro.html, nothing else.
// Moving through the tree shows the lessons in turn (one per entry, in the order of their
// file names), so that a walk through it can be measured as the program's is.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

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

// Each entry of the tree shows a lesson: the n-th entry the n-th file.
void showLessonsFromTree(QTreeWidget* tree, QTextBrowser* page, const QString& folder) {
    const QStringList lessons =
        QDir(folder).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
    QObject::connect(tree, &QTreeWidget::currentItemChanged, page, [=](QTreeWidgetItem* item) {
        QTreeWidgetItemIterator it(tree);
        int index = 0;
        for (; *it && *it != item; ++it)
            ++index;
        if (!lessons.isEmpty())
            page->setSource(
                QUrl::fromLocalFile(QDir(folder).filePath(lessons[index % lessons.size()])));
    });
}

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("Startup floor"));
    auto* layout = new QHBoxLayout(&window);
    const QString folder = QStringLiteral(STARTUP_FLOOR_FOLDER);
    QTreeWidget* tree = makeTree();
    QTextBrowser* page = makePage(folder);
    layout->addWidget(tree, 1);
    layout->addWidget(page, 3);
    tree->setFocus();
    showLessonsFromTree(tree, page, folder);
    window.resize(921, 653);  // the main window's inner size
    window.show();
    return QApplication::exec();
}

// make_icons FOLDER NAME SIZE...: writes the program's icon as FOLDER/<size>x<size>/apps/NAME.png
// for each SIZE, the layout of a freedesktop icon theme, so the files install as they are.
#include <QDir>
#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>

#include "artwork/artwork.h"

namespace {

bool writeIcon(const QDir& root, const QString& name, int size) {
    const QString folder = QStringLiteral("%1x%1/apps").arg(size);
    if (!root.mkpath(folder)) {
        std::fprintf(stderr, "make_icons: cannot make %s\n", qPrintable(root.filePath(folder)));
        return false;
    }
    const QString path = root.filePath(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
    const QImage icon = platform::artwork::iconImage(size);
    if (icon.size() != QSize(size, size) || !icon.save(path, "PNG")) {
        std::fprintf(stderr, "make_icons: cannot write %s\n", qPrintable(path));
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    // Painting needs fonts, hence a GUI application; no window is ever shown.
    QGuiApplication app(argc, argv);
    if (argc < 4) {
        std::fprintf(stderr, "usage: make_icons FOLDER NAME SIZE...\n");
        return 2;
    }
    const QDir root(QString::fromLocal8Bit(argv[1]));
    const QString name = QString::fromLocal8Bit(argv[2]);
    bool ok = true;
    for (int i = 3; i < argc; ++i) {
        const int size = std::atoi(argv[i]);
        if (size <= 0) {
            std::fprintf(stderr, "make_icons: bad size %s\n", argv[i]);
            return 2;
        }
        ok = writeIcon(root, name, size) && ok;
    }
    return ok ? 0 : 1;
}

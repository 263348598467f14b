// Copies a folder tree, permissions kept: tests build application folders of their own.
#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QString>

namespace test_support {

inline void copyFolder(const QString& from, const QString& to) {
    QDirIterator it(from, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString target = to + path.mid(from.size());
        if (it.fileInfo().isDir())
            QDir().mkpath(target);
        else if (QFile::copy(path, target))
            QFile::setPermissions(target, it.fileInfo().permissions());
    }
}

}  // namespace test_support

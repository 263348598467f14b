// Copies a folder tree, permissions kept: tests build application folders of their own.
#pragma once

#include <QString>
#include <filesystem>

namespace test_support {

inline void copyFolder(const QString& from, const QString& to) {
    using std::filesystem::copy_options;
    std::filesystem::copy(from.toStdString(), to.toStdString(),
                          copy_options::recursive | copy_options::overwrite_existing);
}

}  // namespace test_support

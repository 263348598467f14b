// The program writes nothing: a whole scripted visit (every entry, every exercise, the sample
// hand, the promotion) runs under strace, and no process of it (the browser engine's
// included) opens a file for writing or creates, renames or removes one, except in the few
// places below that belong to the platform and hold nothing on disk.
#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "x_session.h"

namespace {

constexpr int kVisitMs = 600'000;

// What may be opened for writing.
QRegularExpression allowanceFor(const QString& runtimeFolder) {
    return QRegularExpression(
        // The browser engine's shared memory between its processes: in RAM, unlinked at once.
        R"(^(/dev/shm/\.org\.chromium\.Chromium\.\w+$|)"
        // A device (the null device, the terminal, a GPU or sound card): a driver, not a file.
        R"(/dev/(null|tty|dri/\w+|snd/\w+)$|)"
        // The browser engine ranks its processes for the kernel's out-of-memory killer.
        R"(/proc/(\d+|self)/oom_score_adj$|)"
        // The sound client's folder in the session's runtime folder, which is in memory and
        // goes at logout; a desktop session has made it already.
        + QRegularExpression::escape(runtimeFolder) + "/pulse(/|$))");
}

// The system calls that can change a file or folder; opens count only with a writing flag.
constexpr const char* kChangingCalls =
    "open,openat,openat2,creat,mkdir,mkdirat,link,linkat,symlink,symlinkat,rename,renameat,"
    "renameat2,mknod,mknodat,truncate,unlink,unlinkat,rmdir";

// The files changed in one strace log line (strace -y -z: successful calls, descriptors as
// paths).
QStringList changesIn(const QString& line) {
    static const QRegularExpression call(QStringLiteral(R"(^(\w+)\((.*)\) += )"));
    static const QRegularExpression writing(
        QStringLiteral(R"(O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_APPEND|O_TMPFILE)"));
    // A quoted path, with the folder descriptor before it when there is one: 5</home/x>, "a".
    // A relative path with no folder shown stays relative, and so matches no allowance.
    static const QRegularExpression path(
        QStringLiteral(R"re((?:(?:AT_FDCWD|-?\d+)(?:<([^>]*)>)?, )?"((?:[^"\\]|\\.)*)")re"));
    const auto match = call.match(line);
    if (!match.hasMatch() || (match.captured(1).startsWith(QLatin1String("open")) &&
                              !writing.match(match.captured(2)).hasMatch()))
        return {};
    QStringList changes;
    for (auto it = path.globalMatch(match.captured(2)); it.hasNext();) {
        const auto quoted = it.next();
        QString file = quoted.captured(2);
        if (!file.startsWith(QLatin1Char('/')) && !quoted.captured(1).isEmpty())
            file = quoted.captured(1) + QLatin1Char('/') + file;
        changes.append(QDir::cleanPath(file));
    }
    return changes;
}

TEST(NoWritesTest, AWholeVisitWritesNothing) {
    system_test::startApplication();
    if (QProcess::execute(QStringLiteral(STRACE_PROGRAM), {"-o", "/dev/null", "/bin/true"}) != 0)
        GTEST_SKIP() << "this machine lets no process be traced";
    system_test::Desktop desktop;
    ASSERT_TRUE(desktop.running()) << "Xvfb or the session bus did not start";
    QTemporaryDir traces;
    QProcessEnvironment environment;
    // Where strace's own tracing stops a sanitizer's leak check from working.
    environment.insert("ASAN_OPTIONS", "detect_leaks=0");
    ASSERT_TRUE(
        desktop.startProgram({"-f", "-ff", "-qq", "-z", "-y", "-s", "4096", "-e",
                              "trace=" + QLatin1String(kChangingCalls), "-o",
                              traces.filePath("trace"), QStringLiteral(VISIT_DRIVER_PROGRAM)},
                             environment, QStringLiteral(STRACE_PROGRAM)));
    ASSERT_TRUE(desktop.waitForExit(kVisitMs)) << "the visit did not end";
    // The driver ends with another code when a part of the visit could not be made.
    ASSERT_EQ(desktop.exitCode(), 0) << desktop.errors().toStdString();

    const QRegularExpression allowed = allowanceFor(desktop.runtimeFolder());
    const QStringList logs = QDir(traces.path()).entryList({"trace.*"}, QDir::Files);
    ASSERT_FALSE(logs.isEmpty()) << "strace wrote no log";
    QStringList notAllowed;
    for (const QString& name : logs) {
        QFile log(traces.filePath(name));
        ASSERT_TRUE(log.open(QIODevice::ReadOnly));
        for (const QString& line : QString::fromLocal8Bit(log.readAll()).split(QLatin1Char('\n'))) {
            for (const QString& file : changesIn(line)) {
                if (!allowed.match(file).hasMatch())
                    notAllowed.append(line);
            }
        }
    }
    EXPECT_EQ(notAllowed.join(QLatin1Char('\n')).toStdString(), "");
}

}  // namespace

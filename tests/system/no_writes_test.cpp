// The program writes nothing: run under strace, every process it starts (the browser
// engine's included) opens no file for writing and creates, renames or removes none,
// except in the few places below that belong to the platform and hold nothing on disk.
// Once for the real program started and left, once for a whole scripted visit.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <cstdio>
#include <map>

#include "x_session.h"

namespace {

using system_test::DesktopSession;
using system_test::kMainTitle;
using system_test::kPromotionTitle;
using system_test::ProgramRun;

constexpr int kAppearMs = 60'000;  // start-up under strace on a busy machine
constexpr int kVisitMs = 600'000;
constexpr int kEndMs = 30'000;

// What may be opened for writing, each with why it is no write to the disk.
struct Allowance {
    QRegularExpression pattern;
    const char* why;
};

std::vector<Allowance> allowancesFor(const QString& runtimeFolder) {
    return {
        {QRegularExpression(QStringLiteral(R"(^/dev/shm/\.org\.chromium\.Chromium\.\w+$)")),
         "the browser engine's shared memory between its processes: in RAM, unlinked at once"},
        {QRegularExpression(QStringLiteral(R"(^/dev/(null|tty|dri/\w+|snd/\w+)$)")),
         "a device (the null device, the terminal, a GPU or sound card): a driver, not a file"},
        {QRegularExpression(QStringLiteral(R"(^/proc/(\d+|self)/oom_score_adj$)")),
         "the browser engine ranks its processes for the kernel's out-of-memory killer"},
        {QRegularExpression(QStringLiteral("^") + QRegularExpression::escape(runtimeFolder) +
                            QStringLiteral("/pulse(/|$)")),
         "the sound client's folder in the session's runtime folder, which is in memory and goes "
         "at logout; a desktop session has made it already"},
    };
}

// The system calls that can change a file or folder; opens count only with a writing flag.
constexpr const char* kChangingCalls =
    "open,openat,openat2,creat,mkdir,mkdirat,link,linkat,symlink,symlinkat,rename,renameat,"
    "renameat2,mknod,mknodat,truncate,unlink,unlinkat,rmdir";

struct Change {
    QString path;
    QString line;
};

// The changes in one strace log line (strace -y -z: successful calls, descriptors as paths).
std::vector<Change> changesIn(const QString& line) {
    static const QRegularExpression call(QStringLiteral(R"(^(\w+)\((.*)\) += )"));
    static const QRegularExpression writing(
        QStringLiteral(R"(O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_APPEND|O_TMPFILE)"));
    // A quoted path, with the folder descriptor before it when there is one: 5</home/x>, "a".
    // A relative path with no folder shown stays relative, and so matches no allowance.
    static const QRegularExpression path(
        QStringLiteral(R"re((?:(?:AT_FDCWD|-?\d+)(?:<([^>]*)>)?, )?"((?:[^"\\]|\\.)*)")re"));
    const auto match = call.match(line);
    if (!match.hasMatch())
        return {};
    const QString name = match.captured(1);
    const QString arguments = match.captured(2);
    if (name.startsWith(QLatin1String("open")) && !writing.match(arguments).hasMatch())
        return {};
    std::vector<Change> changes;
    for (auto it = path.globalMatch(arguments); it.hasNext();) {
        const auto quoted = it.next();
        QString file = quoted.captured(2);
        if (!file.startsWith(QLatin1Char('/')) && !quoted.captured(1).isEmpty())
            file = quoted.captured(1) + QLatin1Char('/') + file;
        changes.push_back({QDir::cleanPath(file), line});
    }
    return changes;
}

const Allowance* allowanceFor(const std::vector<Allowance>& allowances, const QString& file) {
    for (const Allowance& allowance : allowances) {
        if (allowance.pattern.match(file).hasMatch())
            return &allowance;
    }
    return nullptr;
}

// One run of a program under strace, with a home of its own, empty, and the desktop's runtime
// folder, which holds nothing but the bus's socket.
class TracedRun {
  public:
    TracedRun(const DesktopSession& desktop, const QString& program)
        : runtimeFolder_(desktop.runtimeFolder()) {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("HOME"), home_.path());
        // Where strace's own tracing stops a sanitizer's leak check from working.
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        const QStringList arguments{QStringLiteral("-f"),
                                    QStringLiteral("-ff"),
                                    QStringLiteral("-qq"),
                                    QStringLiteral("-z"),
                                    QStringLiteral("-y"),
                                    QStringLiteral("-s"),
                                    QStringLiteral("4096"),
                                    QStringLiteral("-e"),
                                    QStringLiteral("trace=") + QLatin1String(kChangingCalls),
                                    QStringLiteral("-o"),
                                    traces_.filePath(QStringLiteral("trace")),
                                    program};
        run = desktop.startProgram(arguments, environment, QStringLiteral(STRACE_PROGRAM));
    }

    // Every change outside the allowances; prints how many each allowance let through.
    QStringList changesNotAllowed() const {
        QStringList found;
        const std::vector<Allowance> allowances = allowancesFor(runtimeFolder_);
        std::map<const Allowance*, QStringList> allowed;
        int processes = 0;
        QDirIterator logs(traces_.path(), {QStringLiteral("trace.*")}, QDir::Files);
        while (logs.hasNext()) {
            QFile log(logs.next());
            if (!log.open(QIODevice::ReadOnly))
                continue;
            ++processes;
            for (const QString& line :
                 QString::fromLocal8Bit(log.readAll()).split(QLatin1Char('\n'))) {
                for (const Change& change : changesIn(line)) {
                    if (const Allowance* allowance = allowanceFor(allowances, change.path)) {
                        allowed[allowance].append(change.path);
                    } else {
                        found.append(change.line);
                    }
                }
            }
        }
        std::printf("[ figure   ] %d processes and threads traced\n", processes);
        for (const auto& [allowance, paths] : allowed) {
            std::printf("[ figure   ] %lld allowed, e.g. %s: %s\n",
                        static_cast<long long>(paths.size()), qPrintable(paths.front()),
                        allowance->why);
        }
        return found;
    }

    // Files left in the run's home.
    QStringList leftBehind() const {
        QStringList files;
        QDirIterator it(home_.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext())
            files.append(it.next());
        return files;
    }

    bool traced() const {
        return QDir(traces_.path()).entryList({QStringLiteral("trace.*")}).size() > 0;
    }

    std::unique_ptr<ProgramRun> run;

  private:
    QTemporaryDir traces_, home_;
    QString runtimeFolder_;
};

class NoWritesTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { system_test::startApplication(); }

    void SetUp() override {
        ASSERT_TRUE(server.running()) << "Xvfb or the session bus did not start";
        QProcess probe;
        probe.start(
            QStringLiteral(STRACE_PROGRAM),
            {QStringLiteral("-o"), QStringLiteral("/dev/null"), QStringLiteral("/bin/true")});
        if (!probe.waitForFinished(10'000) || probe.exitCode() != 0) {
            GTEST_SKIP() << "this machine lets no process be traced: "
                         << probe.readAllStandardError().toStdString();
        }
    }

    void expectNothingWritten(const TracedRun& traced) {
        ASSERT_TRUE(traced.traced()) << "strace wrote no log";
        const QStringList changes = traced.changesNotAllowed();
        EXPECT_TRUE(changes.isEmpty()) << changes.join(QLatin1Char('\n')).toStdString();
        EXPECT_EQ(traced.leftBehind().join(QLatin1Char('\n')).toStdString(), "");
    }

    DesktopSession server;
};

TEST_F(NoWritesTest, TheProgramStartedAndLeftThroughThePromotionWritesNothing) {
    TracedRun traced(server, QStringLiteral(TABLEWRIGHT_PROGRAM));
    ProgramRun& run = *traced.run;
    ASSERT_TRUE(run.started());
    const unsigned long mainWindow = server.waitForWindow(kMainTitle, kAppearMs);
    ASSERT_NE(mainWindow, 0u) << "the main window did not come up";
    server.requestClose(mainWindow);
    const unsigned long promotion = server.waitForWindow(kPromotionTitle, kAppearMs);
    ASSERT_NE(promotion, 0u) << "no promotion window";
    QThread::msleep(1500);
    server.requestClose(promotion);
    ASSERT_GE(run.waitForExit(kEndMs), 0) << "the program did not end";
    EXPECT_EQ(run.exitCode(), 0) << run.errors().toStdString();
    expectNothingWritten(traced);
}

TEST_F(NoWritesTest, AWholeVisitWritesNothing) {
    TracedRun traced(server, QStringLiteral(VISIT_DRIVER_PROGRAM));
    ProgramRun& run = *traced.run;
    ASSERT_TRUE(run.started());
    ASSERT_GE(run.waitForExit(kVisitMs), 0) << "the visit did not end";
    const QStringList said = run.errors()
                                 .split(QLatin1Char('\n'))
                                 .filter(QRegularExpression(QStringLiteral("^visit: ")));
    for (const QString& line : said)
        std::printf("[ figure   ] %s\n", qPrintable(line));
    ASSERT_EQ(run.exitCode(), 0) << run.errors().toStdString();
    // Every entry, every page, the seven Start buttons, the sample hand to its last step.
    const auto tally =
        QRegularExpression(
            QStringLiteral(R"(^visit: 34 entries, (\d+) pages, 7 rounds, (\d+) keys, )"
                           R"((\d+) answers, sample at step (\d+)$)"),
            QRegularExpression::MultilineOption)
            .match(said.join(QLatin1Char('\n')));
    ASSERT_TRUE(tally.hasMatch()) << said.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(tally.captured(1).toInt(), 29);  // the lessons
    EXPECT_GE(tally.captured(2).toInt(), 19);  // 5 + 10 + 2 + 2 cards picked
    EXPECT_GE(tally.captured(3).toInt(), 3);
    EXPECT_EQ(tally.captured(4).toInt(), 34);
    EXPECT_TRUE(said.contains(QStringLiteral("visit: promotion window closed")));
    expectNothingWritten(traced);
}

}  // namespace

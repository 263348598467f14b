// How much of one core the sample game's wait uses while no event comes: the process's CPU
// time (user + system) over the wall-clock time of shortDelay(2500), offscreen.
#include <sys/resource.h>

#include <QApplication>
#include <chrono>
#include <cstdio>

#include "platform/mDefs.h"
#include "shell/frmMain.h"

namespace {

double cpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    auto seconds = [](const timeval& t) { return static_cast<double>(t.tv_sec) + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// Percent of one core used while the form waits `milliseconds`.
double corePercentDuring(frmMain& form, std::int32_t milliseconds) {
    const double cpuBefore = cpuSeconds();
    const auto wallBefore = std::chrono::steady_clock::now();
    form.shortDelay(milliseconds);
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - wallBefore;
    return 100.0 * (cpuSeconds() - cpuBefore) / wall.count();
}

}  // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    frmMain form;
    form.findChild<QTimer*>(QStringLiteral("Timer1"))
        ->stop();          // the message line's blink is the only timer; nothing else comes
    form.shortDelay(200);  // first use: lazy set-up of the event loop is not the wait's cost
    const double idle = corePercentDuring(form, 2500);
    std::printf("shortDelay(2500), no events: %.2f %% of one core\n", idle);

    form.show();
    form.findChild<QTimer*>(QStringLiteral("Timer1"))->start();
    form.shortDelay(200);
    const double blinking = corePercentDuring(form, 2500);
    std::printf("shortDelay(2500), window shown, Timer1 ticking: %.2f %% of one core\n", blinking);
    return 0;
}

// A steered deal of the Poker Hand Names screen with r = 1, the row that retries most: from
// the click on Start of exercise 2 to the last card drawn, on the offscreen platform.
// Prints the median and the 99th percentile over 200 deals.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <optional>
#include <random>
#include <vector>

#include "platform/mDefs.h"
#include "shell/frmMain.h"

namespace {

constexpr int kDeals = 200;

// Gives u = 0 (so r = 1) once after each Start, then a seeded sequence for the shuffles.
class RowOneSource final : public cards::RandomSource {
  public:
    void Randomize() override { ++reseeds; }
    float Rnd() override {
        if (next)
            return std::exchange(next, std::nullopt).value();
        return std::uniform_real_distribution<float>(0.0f, 0.99999994f)(engine_);
    }
    std::optional<float> next;
    long reseeds = 0;

  private:
    std::mt19937 engine_{7};
};

double percentile(std::vector<double> samples, double fraction) {
    std::sort(samples.begin(), samples.end());
    const auto rank =
        static_cast<std::size_t>(std::ceil(fraction * static_cast<double>(samples.size())));
    return samples[std::clamp<std::size_t>(rank, 1, samples.size()) - 1];
}

void SteeredDealRowOne(benchmark::State& state) {
    auto source = std::make_unique<RowOneSource>();
    RowOneSource* random = source.get();
    platform::seams().random = std::move(source);

    frmMain form;
    form.Form_Load();
    form.show();
    if (!QTest::qWaitForWindowExposed(&form))
        state.SkipWithError("the window never showed");
    form.findChild<QTimer*>(QStringLiteral("Timer1"))->stop();
    for (int index = 1;
         index <= form.findChild<platform::TreeView*>(QStringLiteral("TreeView1"))->nodeCount();
         ++index) {
        if (form.findChild<platform::TreeView*>(QStringLiteral("TreeView1"))->nodeText(index) ==
            QLatin1String("Poker Hand Names"))
            form.TreeView1_NodeClick(index);
    }
    QCoreApplication::processEvents();

    std::vector<double> milliseconds;
    long deals = 0;
    for (auto _ : state) {
        random->next = 0.0f;
        const long reseedsBefore = random->reseeds;
        const auto start = std::chrono::steady_clock::now();
        QTest::mouseClick(form.findChild<QWidget*>(QStringLiteral("cmdStart1B")), Qt::LeftButton);
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
        milliseconds.push_back(elapsed.count() * 1000.0);
        deals += random->reseeds - reseedsBefore - 1;  // one reseed draws r, one per shuffle
        QCoreApplication::processEvents();
    }
    const double median = percentile(milliseconds, 0.5);
    const double p99 = percentile(milliseconds, 0.99);
    state.counters["median_ms"] = median;
    state.counters["p99_ms"] = p99;
    state.counters["deals_per_start"] =
        static_cast<double>(deals) / static_cast<double>(milliseconds.size());
    std::printf(
        "steered deal, r = 1, %zu Starts: median %.2f ms, p99 %.2f ms, %.1f deals per Start\n",
        milliseconds.size(), median, p99,
        static_cast<double>(deals) / static_cast<double>(milliseconds.size()));
    form.Unload();
}

BENCHMARK(SteeredDealRowOne)->Iterations(kDeals)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    platform::setApplicationFolder(QStringLiteral(TABLEWRIGHT_BENCH_APP_DIR));
    platform::seams().messageBox = [](const QString&) {};
    platform::seams().playSound = [](const QString&) {};
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

#include <benchmark/benchmark.h>

#include "memory.h"
#include "open_shell.h"

namespace velmo::bench {
namespace {

struct ScreenCosts {
  Durations open, previous;
  double megabytes = 0;
};

ScreenCosts costsIn(const demo::LargeCompany& size) {
  enterCompany(size);
  OpenShell shell;
  ScreenCosts costs;
  shell.openInvoices();  // what only the first screen of a process pays
  shell.closeScreens();
  const double before = memory("VmRSS");
  for (int round = 0; round < 7; ++round) {
    QWidget* screen = nullptr;
    costs.open.measure([&] { screen = shell.openInvoices(); });
    QPushButton* previous = screen->findChild<QPushButton*>("PrevBttn");
    for (int step = 0; step < 10; ++step)
      costs.previous.measure([&] {
        previous->click();
        QApplication::processEvents();
      });
    costs.megabytes = memory("VmRSS") - before;
    shell.closeScreens();
  }
  return costs;
}

// A year of 200,000 invoices beside a year of 200.
void SaleInvoicesInALargeYear(benchmark::State& state) {
  for (auto _ : state) {
    const ScreenCosts small = costsIn({.invoices = 200, .items = 200000, .accounts = 20000});
    const ScreenCosts large = costsIn({.invoices = 200000, .items = 200000, .accounts = 20000});
    state.counters["open_ms"] = large.open.percentile(0.5) * 1e3;
    state.counters["open_ratio_to_small"] = large.open.percentile(0.5) / small.open.percentile(0.5);
    state.counters["previous_ms"] = large.previous.percentile(0.5) * 1e3;
    state.counters["previous_ratio_to_small"] = large.previous.percentile(0.5) / small.previous.percentile(0.5);
    state.counters["more_megabytes"] = large.megabytes - small.megabytes;
  }
}
BENCHMARK(SaleInvoicesInALargeYear)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench

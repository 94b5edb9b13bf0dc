#include <benchmark/benchmark.h>

#include "figures.h"
#include "forms/look.h"
#include "stall_clock.h"
#include "start_bench.h"

// Figures that a reader compares are ratios to hand-written SQLite, or to the small company, on the same data in the
// same run, as counters beside the times; behind them come those that have a goal of their own.
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (const std::optional<int> ended = velmo::bench::startedToSayWhen(argc, argv)) return *ended;
  velmo::bench::StallApplication::useOwnLoop();
  velmo::bench::StallApplication application(argc, argv);
  velmo::forms::applyLook(application, velmo::forms::Brightness::Light);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  velmo::bench::printFigures();
  return 0;
}

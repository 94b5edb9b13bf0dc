#include <benchmark/benchmark.h>

#include <QApplication>

#include "forms/look.h"

// Every figure that a reader compares is a ratio to hand-written SQLite, or to the small company, on the same data in
// the same run: a counter beside the time.
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  velmo::forms::applyLook(application, velmo::forms::Brightness::Light);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

#include "memory.h"
#include "shell/catalogue/screen_catalogue.h"
#include "year.h"

namespace velmo::bench {
namespace {

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void open(OpenShell& shell, const shell::ScreenEntry& entry) {
  session::LoginContext& context = shell.context();
  context.SearchText = "hinge";
  context.HelpTopicID = 1;
  if (entry.kind == shell::ScreenKind::Dialog)
    shell.screens().openDialog(entry.name);
  else
    shell.screens().openScreen(entry.name);
}

// Each screen of the catalogue through the shell: until it stands there, and the longest stall meanwhile and until
// nothing more happens. The first opening, and the median of three that follow.
void EveryScreen(benchmark::State& state) {
  Year year;
  OpenShell& shell = year.shell();
  StallApplication& application = stallApplication();
  shell.closeScreens();
  double slowest = 0;
  for (auto _ : state) {
    for (const shell::ScreenEntry& entry : shell::screenCatalogue()) {
      std::vector<double> painted;
      double first = 0;
      Stall longest;
      for (int round = 0; round < 4; ++round) {
        application.reset();
        application.watchFor(QString::fromUtf8(entry.name.data(), static_cast<int>(entry.name.size())));
        const double took = application.perform([&] { open(shell, entry); });
        if (!application.isPainted()) throw std::logic_error("never painted: " + std::string(entry.name));
        application.watchFor({});
        if (round == 0) first = took;
        if (round > 0) painted.push_back(took);
        if (application.longest().milliseconds >= longest.milliseconds) longest = application.longest();
        shell.closeScreens();
      }
      char words[160];
      std::snprintf(words, sizeof words, "first %.0f; its longest stall %.0f, worked %.0f", first, longest.milliseconds,
                    longest.processor);
      tell({.group = "A screen until it is painted, median of three, with its longest stall of four openings",
            .name = std::string(entry.name),
            .value = median(painted),
            .goal = longestStall,
            .remark = words});
      slowest = std::max(slowest, median(painted));
    }
  }
  state.counters["slowest_ms"] = slowest;
}
BENCHMARK(EveryScreen)->Iterations(1)->Unit(benchmark::kMillisecond);

// What the process keeps of 200 openings of each screen after the first few, or as many as a few seconds allow.
void ScreensOpenedAgainAndAgain(benchmark::State& state) {
  constexpr int fewFirst = 20;
  constexpr int openings = 200;
  constexpr double longest = 4;  // seconds for one screen
  Year year;
  OpenShell& shell = year.shell();
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, &closer, [] {
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
  });
  const auto openAndClose = [&](const shell::ScreenEntry& entry) {
    if (entry.kind == shell::ScreenKind::Dialog) closer.start(0);
    open(shell, entry);
    closer.stop();
    QApplication::processEvents();
    shell.closeScreens();
  };
  double most = 0, all = 0;
  for (auto _ : state)
    for (const shell::ScreenEntry& entry : shell::screenCatalogue()) {
      for (int round = 0; round < fewFirst; ++round) openAndClose(entry);
      malloc_trim(0);
      const double before = memory("VmRSS");
      const auto began = std::chrono::steady_clock::now();
      int opened = fewFirst;
      for (; opened < openings && std::chrono::steady_clock::now() - began < std::chrono::duration<double>(longest);
           ++opened)
        openAndClose(entry);
      malloc_trim(0);
      const double grown = memory("VmRSS") - before;
      tell({.group = "Memory kept of a screen that is opened 200 times, since the twentieth",
            .name = std::string(entry.name),
            .value = grown,
            .unit = "MB",
            .goal = 2,
            .remark = std::to_string(opened) + " times"});
      most = std::max(most, grown);
      all += grown;
    }
  state.counters["most_megabytes"] = most;
  state.counters["all_megabytes"] = all;
}
BENCHMARK(ScreensOpenedAgainAndAgain)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench

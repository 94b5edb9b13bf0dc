#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <QPushButton>
#include <fstream>
#include <memory>

#include "forms/file_dialogs.h"
#include "large_company_folder.h"
#include "session/login.h"
#include "shell/login/login_form.h"
#include "shell/window/main_shell.h"
#include "shell/window/screen_windows.h"
#include "support/stand_ins.h"

namespace velmo::bench {
namespace {

double residentMegabytes() {
  std::ifstream file("/proc/self/statm");
  double pages = 0, resident = 0;
  file >> pages >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

// The shell on the current folder's company, with user 1 logged in.
class OpenShell {
 public:
  OpenShell() {
    prompts_.answer = [](const session::Prompt& prompt) {
      if (prompt.buttons == session::Buttons::Ok) throw std::logic_error("unexpected message: " + prompt.text);
      return session::Answer::No;
    };
    login_.measure([&] {
      form_ = std::make_unique<shell::LoginForm>(schema::companyCatalog(), schema::plainConnectionString, prompts_);
      form_->show();
      QApplication::processEvents();
    });
    form_->findChild<QPushButton*>("OkBttn")->click();
    start_.measure([&] {
      shell_ = std::make_unique<shell::MainShell>(
          form_->takeContext(),
          shell::Surroundings{
              .clock = clock_, .prompts = prompts_, .files = files_, .programFolder = ".", .screenWidth = 1920});
      shell_->resize(1366, 768);
      shell_->show();
      QApplication::processEvents();
    });
  }
  ~OpenShell() {
    shell_->SkipBackUpPrompt = true;
    shell_->close();
  }

  double loginSeconds() const { return login_.mean(); }
  double startSeconds() const { return start_.mean(); }
  shell::ScreenWindows& screens() { return shell_->screens(); }

  QWidget* openInvoices() {
    screens().openScreen("SaleInvoicesSimple");
    QApplication::processEvents();
    return screens().openWindow("SaleInvoicesSimple");
  }

 private:
  session::SystemClock clock_;
  test::AgreeingPrompts prompts_;
  forms::FileDialogs files_;
  Durations login_, start_;
  std::unique_ptr<shell::LoginForm> form_;
  std::unique_ptr<shell::MainShell> shell_;
};

struct ScreenCosts {
  Durations open, previous;
  double megabytes = 0;
};

ScreenCosts costsIn(const demo::LargeCompany& size) {
  enterCompany(size);
  OpenShell shell;
  ScreenCosts costs;
  shell.openInvoices();  // what only the first screen of a process pays
  shell.screens().closeAll();
  QApplication::processEvents();
  const double before = residentMegabytes();
  for (int round = 0; round < 7; ++round) {
    QWidget* screen = nullptr;
    costs.open.measure([&] { screen = shell.openInvoices(); });
    QPushButton* previous = screen->findChild<QPushButton*>("PrevBttn");
    for (int step = 0; step < 10; ++step)
      costs.previous.measure([&] {
        previous->click();
        QApplication::processEvents();
      });
    costs.megabytes = residentMegabytes() - before;
    shell.screens().closeAll();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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

void LoginAndStart(benchmark::State& state) {
  enterCompany({.invoices = 200000, .items = 200000, .accounts = 20000});
  for (auto _ : state) {
    OpenShell shell;
    state.counters["to_login_ms"] = shell.loginSeconds() * 1e3;
    state.counters["login_to_shell_ms"] = shell.startSeconds() * 1e3;
  }
}
BENCHMARK(LoginAndStart)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench

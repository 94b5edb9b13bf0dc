#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <memory>

#include "large_company_folder.h"
#include "schema/company_file.h"
#include "session/login.h"
#include "support/stand_ins.h"

// What the benchmarks of single screens share.
namespace velmo::bench {

inline constexpr demo::LargeCompany manyItems = {.invoices = 200000, .items = 200000, .accounts = 20000};

// User 1 at work on a copy of a large company, a quarter of whose items stand in one sub category.
class Desk {
 public:
  Desk() : company_(enter()) {
    prompts_.answer = [this](const session::Prompt& prompt) {
      if (prompt.title != std::exchange(expected_, {})) throw std::logic_error("unexpected message: " + prompt.text);
      return session::Answer::Ok;
    };
    context_.KORDconn.open(schema::plainConnectionString);
    for (const char* other : {"G02", "G03", "G04", "G05"})
      context_.KORDconn.execute(std::string("UPDATE StockLevel3 SET SubCatID = 'G01' WHERE SubCatID = '") + other +
                                "'");
    session::fillLoginContext(context_, session::LoginRecords(context_.KORDconn));
  }

  session::LoginContext& context() { return context_; }
  // The message that may come next, by its title.
  void expect(std::string title) {
    prompts_.told.clear();
    expected_ = std::move(title);
  }
  test::AgreeingPrompts& prompts() { return prompts_; }
  test::NamedFile& files() { return files_; }

  template <typename Make>
  QWidget& open(Make make, Durations& durations) {
    screen_.reset();
    durations.measure([&] {
      screen_.reset(make(workplace_, nullptr));
      screen_->show();
      QApplication::setActiveWindow(screen_.get());
      QApplication::processEvents();
    });
    return *screen_;
  }

 private:
  static CompanyCopy enter() {
    enterCompany(manyItems);
    return {};
  }

  CompanyCopy company_;
  session::SystemClock clock_;
  std::string expected_;
  test::AgreeingPrompts prompts_;
  test::NotedScreens screens_;
  test::NamedFile files_;
  session::LoginContext context_{schema::companyCatalog()};
  session::Workplace workplace_{context_, clock_, prompts_, files_, screens_};
  std::unique_ptr<QWidget> screen_;
};

template <typename Control>
Control& control(QWidget& screen, const char* name) {
  if (auto* found = screen.findChild<Control*>(QLatin1String(name))) return *found;
  throw std::logic_error(std::string("no control ") + name);
}

inline void press(QWidget& widget, int key, const QString& text = {}) {
  QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(&widget, &down);
  QApplication::processEvents();
}

inline void reportOnce(benchmark::State& state, const std::string& name, const Durations& durations) {
  state.counters[name + "_ms"] = durations.mean() * 1e3;
}

inline void report(benchmark::State& state, const std::string& name, const Durations& durations) {
  state.counters[name + "_p95_ms"] = durations.percentile(0.95) * 1e3;
  state.counters[name + "_max_ms"] = durations.percentile(1) * 1e3;
}

}  // namespace velmo::bench

#pragma once

#include <QLabel>

#include "forms/table_view.h"
#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"
#include "frame/shop_fixture.h"
#include "support/typing.h"

namespace velmo::test {

// Rows from 1 to `count`, as fast as they are asked for; the reading of one fails when it is said to.
class Counted : public frame::ReportRows {
 public:
  explicit Counted(int count, int failsAt = -1) : count_(count), failsAt_(failsAt) {}

  std::int64_t ready() const override { return ready_; }
  bool hasMore() const override { return ready_ < count_; }
  bool pauses() const override { return true; }
  void read(int rows) override {
    ready_ = std::min<std::int64_t>(ready_ + rows, count_);
    if (failsAt_ >= 0 && ready_ > failsAt_) throw store::StoreError(store::ErrorKind::Failed, "The disk is gone.");
  }
  int field(std::string_view name) const override { return name == "Number" ? 0 : -1; }
  store::Value value(std::int64_t row, int) const override { return row + 1; }

 private:
  int count_;
  int failsAt_;
  std::int64_t ready_ = 0;
};

// A report of the test's own, at which a user sits.
class SampleReport : public Shop {
 protected:
  static frame::ReportType numbers() {
    return {.screen = "Numbers",
            .caption = "Numbers",
            .grids = {{.name = "Grid", .columns = {{.caption = "Number", .field = "Number"}}}},
            .totals = {{.name = "Total", .sum = "Number", .format = "0.00"}},
            .view = {"ViewBttn", "&View"},
            .print = {"PrintBttn", "&Print"},
            .sheet = {"ExcelBttn", "&Export"}};
  }
  void open(frame::ReportType type) {
    screen = std::make_unique<frame::ReportScreen>(std::move(type), workplace, nullptr);
    focus(*screen);
  }
  template <typename Control>
  Control& control(const char* name) {
    auto* found = screen->findChild<Control*>(QLatin1String(name));
    if (!found) throw std::logic_error(std::string("no control ") + name);
    return *found;
  }
  bool isEnabled(const char* name) { return control<QWidget>(name).isEnabled(); }
  std::string message() { return control<QLabel>("MessageLbl").text().toStdString(); }

  std::unique_ptr<frame::ReportScreen> screen;
};

}  // namespace velmo::test

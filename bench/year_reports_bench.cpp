#include <QLineEdit>

#include "forms/date_picker.h"
#include "memory.h"
#include "printing/preview_window.h"
#include "year.h"

namespace velmo::bench {
namespace {

constexpr const char* sales = "40001001";
constexpr const char* cash = "10001001";
constexpr double firstPage = 100;      // milliseconds
constexpr double previewMemory = 100;  // megabytes
constexpr double memoryLeft = 10;      // megabytes

printing::PreviewWindow* openPreview() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* preview = qobject_cast<printing::PreviewWindow*>(window); preview && preview->isVisible()) return preview;
  return nullptr;
}

void tellMemory(const std::string& name, double megabytes, double goal) {
  tell({.group = "Memory, beyond what the process had before",
        .name = name,
        .value = megabytes,
        .unit = "MB",
        .goal = goal});
}

// Preview to its last page, and what the process keeps when it is closed.
void preview(Year& year, const std::string& name, QPushButton& print) {
  StallApplication& application = stallApplication();
  const PeakMemory peak;
  application.watchFor("PreviewWindow");
  bool isThrough = false;
  int pages = 0;
  const double first = year.tellStall(
      name + ", print to the last page of the preview", [&] { print.click(); }, longestStall,
      [&] {
        printing::PreviewWindow* window = openPreview();
        isThrough = window && window->pages().complete();
        if (isThrough) pages = window->pages().total();
        return isThrough;
      });
  application.watchFor({});
  tell({.group = "A preview's first page",
        .name = name,
        .value = first,
        .goal = firstPage,
        .remark = std::to_string(pages) + " pages"});
  tellMemory(name + ", preview", peak.grown(), previewMemory);
  year.tellStall(name + ", the preview closed", [] {
    if (printing::PreviewWindow* window = openPreview()) window->close();
  });
  tellMemory(name + ", preview closed", peak.kept(), memoryLeft);
}

void exportSheet(Year& year, const std::string& name, QPushButton& sheet) {
  const PeakMemory peak;
  year.shell().files().name = (std::filesystem::current_path() / "sheet.xlsx").string();
  year.tellStall(name + ", exported", [&] { sheet.click(); });
  tellMemory(name + ", exported", peak.grown(), previewMemory);
}

void ledgerOf(Year& year, const std::string& name, const char* account) {
  QWidget& screen = year.shell().open("AccLedgers");
  control<QLineEdit>(screen, "ACodeTxt").setText(account);
  stallApplication().perform([] {});
  year.tellStall(
      name + ", viewed to the last row", [&] { control<QPushButton>(screen, "ViewBttn").click(); }, longestStall,
      [&] { return !control<QLineEdit>(screen, "Balance").text().isEmpty(); });
  preview(year, name, control<QPushButton>(screen, "PrintBttn"));
  exportSheet(year, name, control<QPushButton>(screen, "ExcelBttn"));
  year.shell().closeScreens();
}

void Ledgers(benchmark::State& state) {
  Year year;
  for (auto _ : state) {
    ledgerOf(year, "ledger of Sales", sales);
    ledgerOf(year, "ledger of Cash in Hand", cash);
    ledgerOf(year, "ledger of a customer", "12002005");
  }
}
BENCHMARK(Ledgers)->Iterations(1)->Unit(benchmark::kMillisecond);

// The other reports as they open, with all rows, and what they print and export.
void OtherReports(benchmark::State& state) {
  Year year;
  struct Report {
    const char* screen;
    const char* name;
  };
  for (auto _ : state) {
    for (const Report& report : {Report{"DailyJournal", "journal of the year"},
                                 {"AccBalances", "trial balance"},
                                 {"CustomerBalances", "customers' balances"},
                                 {"CashBalances", "cash balances"},
                                 {"JobLedgers", "job ledgers"},
                                 {"UnbalancedDocuments", "unbalanced documents"}}) {
      QWidget& screen = year.shell().open(report.screen);
      const QList<forms::DatePicker*> days = screen.findChildren<forms::DatePicker*>();
      if (days.size() == 2) {
        days[0]->setDay(year.shell().context().FinancialYearStart);
        days[1]->setDay(year.shell().context().FinancialYearEnd);
      }
      stallApplication().perform([] {});
      if (auto* view = screen.findChild<QPushButton*>("ViewBttn"))
        year.tellStall(std::string(report.name) + ", viewed to the last row", [&] { view->click(); });
      auto* print = screen.findChild<QPushButton*>("PrintBttn");
      if (print && print->isEnabled()) preview(year, report.name, *print);
      auto* sheet = screen.findChild<QPushButton*>("ExcelBttn");
      if (sheet && sheet->isEnabled()) exportSheet(year, report.name, *sheet);
      year.shell().closeScreens();
    }
  }
}
BENCHMARK(OtherReports)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench

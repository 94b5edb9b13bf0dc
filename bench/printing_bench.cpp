#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>
#include <chrono>

#include "memory.h"
#include "printing/pdf_writer.h"
#include "printing/pieces.h"
#include "printing/preview_window.h"
#include "support/stand_ins.h"

namespace velmo::bench {
namespace {

using namespace printing;

using Seconds = std::chrono::duration<double>;

// The lines of a ledger, made up as they are read, so that the memory which the benchmark sees is that of printing.
class LedgerRows : public ReportRows {
 public:
  explicit LedgerRows(int count) : count_(count) {}

  bool next() override { return ++line_ <= count_; }

  store::Value value(std::string_view field) const override {
    const double amount = 17.35 * (line_ % 4999) + 0.01 * (line_ % 97);
    if (field == "trandate") return text::DateTime::fromCalendar(2026, 1 + line_ % 12, 1 + line_ % 28);
    if (field == "docno") return std::string("SI-") + std::to_string(100000 + line_);
    if (field == "desc") return std::string(Words[line_ % std::size(Words)]) + " " + std::to_string(line_ % 313);
    if (field == "debit") return line_ % 2 == 0 ? amount : 0.0;
    if (field == "credit") return line_ % 2 == 1 ? amount : 0.0;
    return amount - 21000;
  }

  std::unique_ptr<ReportRows> children(std::string_view) const override { return nullptr; }

 private:
  static constexpr const char* Words[] = {"Goods sold on account to Harbour Timber", "Received by cheque",
                                          "Freight and carriage outwards", "Returned: wrong size of hinge",
                                          "Discount allowed for prompt payment"};
  int count_;
  int line_ = 0;
};

class LedgerData : public ReportData {
 public:
  explicit LedgerData(int count) : count_(count) {}
  std::unique_ptr<ReportRows> rows() const override { return std::make_unique<LedgerRows>(count_); }

 private:
  int count_;
};

Report ledger(int lines) {
  constexpr const char* AmountFormat = "#,##0.00;(#,##0.00)";
  Report report{.title = "Ledger", .author = "Velmo Trading", .data = std::make_shared<LedgerData>(lines)};
  const Letterhead head{.companyName = "Velmo Trading", .address = "12 Harbour Road", .telephones = "555 0100"};
  const Twips width = report.design.bodyWidth();
  const auto amount = [&](const char* heading, const char* field, const char* total) {
    return Column{.heading = heading,
                  .dataField = field,
                  .width = AmountColumn,
                  .align = Align::Right,
                  .format = AmountFormat,
                  .totalName = total};
  };
  const std::vector<ColumnPlace> columns =
      placeColumns({{.heading = "Date", .dataField = "trandate", .width = mm(19), .format = "dd-MM-yyyy"},
                    {.heading = "Document", .dataField = "docno", .width = mm(22)},
                    {.heading = "Description", .dataField = "desc"},
                    amount("Debit", "debit", "DebitSum"),
                    amount("Credit", "credit", "CreditSum"),
                    amount("Balance", "balance", "")},
                   width);
  report.design.pageHeader = Section{.name = "Section2"};
  addCompanyLines(report, *report.design.pageHeader, head);
  addColumnHeadings(*report.design.pageHeader, columns, width);
  report.design.detail = tableLine(columns, width);
  report.design.reportFooter = Section{.name = "Section5"};
  addTotalsRow(*report.design.reportFooter, columns, width, "TtlLbl");
  report.design.pageFooter = pageFoot(report, head, width);
  return report;
}

constexpr int LinesOfAPage = 43;

// Pagination and file of a ledger. `megabytes_grown` is what the process gained between the hundredth page and the
// last.
void LedgerToPdf(benchmark::State& state) {
  const QTemporaryDir folder;
  const std::string path = folder.filePath(QStringLiteral("ledger.pdf")).toStdString();
  const Report report = ledger(static_cast<int>(state.range(0)) * LinesOfAPage);
  int pages = 0;
  double grown = 0;
  for (auto _ : state) {
    double early = 0;
    const auto problem = writePdf(report, path, [&](int written, int) {
      if (written == 100) early = memory("VmRSS");
      ++pages;
      return true;
    });
    if (problem) state.SkipWithError(problem->c_str());
    grown = std::max(grown, memory("VmRSS") - early);
  }
  state.counters["pages_per_second"] = benchmark::Counter(pages, benchmark::Counter::kIsRate);
  state.counters["megabytes_grown"] = grown;
}
BENCHMARK(LedgerToPdf)->Arg(1000)->Arg(4000)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);

// From the command to the first page painted on the screen.
void FirstPreviewPage(benchmark::State& state) {
  test::NamedFile files;
  double slowest = 0;
  for (auto _ : state) {
    const auto begin = std::chrono::steady_clock::now();
    PreviewWindow* window = showPreview(nullptr, ledger(static_cast<int>(state.range(0)) * LinesOfAPage), files);
    window->grab();
    slowest = std::max(slowest, Seconds(std::chrono::steady_clock::now() - begin).count());
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  state.counters["first_page_ms"] = slowest * 1e3;
}
BENCHMARK(FirstPreviewPage)->Arg(1)->Arg(1000)->Arg(100000)->Iterations(5)->Unit(benchmark::kMillisecond);

// All pages of a preview, and from one to another that was not looked at before: `jump_ms` at most. `megabytes_grown`
// is what the process has at the end of it, beyond what it had before, and `megabytes_kept` when the preview is closed.
void LongPreview(benchmark::State& state) {
  test::NamedFile files;
  double jump = 0;
  double grown = 0;
  double kept = 0;
  for (auto _ : state) {
    const double before = memory("VmRSS");
    PreviewWindow* window = showPreview(nullptr, ledger(static_cast<int>(state.range(0)) * LinesOfAPage), files);
    while (!window->pages().complete()) QCoreApplication::processEvents();
    for (int step = 1; step < 50; ++step) {
      const auto begin = std::chrono::steady_clock::now();
      window->view().showPage(static_cast<int>(step * 7919LL % window->pages().total()));
      window->view().viewport()->grab();
      jump = std::max(jump, Seconds(std::chrono::steady_clock::now() - begin).count());
    }
    grown = std::max(grown, memory("VmRSS") - before);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    kept = std::max(kept, memory("VmRSS") - before);
  }
  state.counters["jump_ms"] = jump * 1e3;
  state.counters["megabytes_grown"] = grown;
  state.counters["megabytes_kept"] = kept;
}
BENCHMARK(LongPreview)->Arg(1000)->Arg(20000)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench

#include "frame/report/sample_report.h"
#include "support/waiting.h"

namespace velmo::frame {
namespace {

using test::Counted;
using test::waitFor;

class ReportRunsOf : public test::SampleReport {
 protected:
  void openNumbers(int count, int failsAt = -1, ReportRuns runs = ReportRuns::OneByOne) {
    ReportType type = numbers();
    type.runs = runs;
    type.check = [this](ReportScreen& report, ReportUse use) {
      return use != refused || report.refuse("Not Now", "Choose something.");
    };
    type.load = [this, count, failsAt](ReportScreen& report) {
      ++loads;
      report.setRows("Grid", std::make_shared<Counted>(count, failsAt));
    };
    type.printOut = [this](ReportScreen& report) {
      printedRows = report.model().ready();
      return std::optional<printing::Report>();
    };
    type.drillDown = [](ReportScreen&, std::int64_t) {
      throw store::StoreError(store::ErrorKind::Failed, "The document is gone.");
    };
    open(std::move(type));
  }
  void click(const char* button) { control<QAbstractButton>(button).click(); }
  void readAPart() {
    while (screen->model().rowCount() == 0) QApplication::processEvents();
    ASSERT_FALSE(screen->model().isComplete());
  }
  std::string total() { return screen->figure("Total"); }

  std::optional<ReportUse> refused;
  int loads = 0;
  std::int64_t printedRows = 0;
};

TEST_F(ReportRunsOf, ShowTheFirstRowsAtOnceAndSumsBehindTheLast) {
  openNumbers(200000);
  click("ViewBttn");
  EXPECT_FALSE(isEnabled("ViewBttn") || isEnabled("PrintBttn") || isEnabled("ExcelBttn")) << "one by one";
  readAPart();
  EXPECT_EQ(message().substr(0, 11), "Reading ...");
  EXPECT_EQ(total(), "") << "a sum of some of the rows is no sum";
  ASSERT_TRUE(waitFor([this] { return isEnabled("ViewBttn"); }));
  EXPECT_EQ(message(), "200,000 rows");
  EXPECT_EQ(total(), "20000100000.00");
  EXPECT_EQ(screen->model().rowCount(), 200000);
}

TEST_F(ReportRunsOf, PrintAndExportHaveAllRows) {
  openNumbers(50000);
  click("PrintBttn");
  EXPECT_EQ(printedRows, 50000);
  click("ExcelBttn");  // no file is chosen
  EXPECT_EQ(screen->model().ready(), 50000);
  EXPECT_EQ(total(), "1250025000.00");
  EXPECT_FALSE(control<QWidget>("WaitPic").isVisible());
  EXPECT_EQ(loads, 1) << "the rows that are there serve";
}

TEST_F(ReportRunsOf, ReadAgainWhenWhatIsShownMayBeOutOfDate) {
  ReportType type = numbers();
  type.filters = {{ReportOption{.name = "AllOpt", .caption = "&All"}}};
  type.load = [this](ReportScreen& report) {
    ++loads;
    report.setRows("Grid", std::make_shared<Counted>(100, loads == 5 ? 10 : -1));
  };
  open(std::move(type));
  const struct {
    const char* change;
    std::function<void()> happens;
    int loads;
  } cases[] = {
      {"", [] {}, 1},
      {"", [] {}, 1},
      {"by this program", [this] { addItem("102", "Mallet", 5); }, 2},
      {"by another program",
       [] { test::NewCompany::run({"INSERT INTO BizSectors (SectorID, SectorName) VALUES (77, 'North')"}); }, 3},
      {"in the filters", [this] { screen->filters().choose("AllOpt"); }, 4},
      {"", [] {}, 4},
      {"of the day", [this] { clock.moment = text::DateTime::fromCalendar(2026, 11, 23); }, 5}};
  for (const auto& one : cases) {
    one.happens();
    if (one.loads == 5) prompts.expect("Spreadsheet Not Saved", "The disk is gone.");
    click("ExcelBttn");
    EXPECT_EQ(loads, one.loads) << "a change " << one.change;
  }
  click("ExcelBttn");
  EXPECT_EQ(loads, 6) << "a failed reading does not serve";
  EXPECT_EQ(total(), "5050.00");
  click("ViewBttn");
  EXPECT_EQ(loads, 7) << "to see is to look again";
}

TEST_F(ReportRunsOf, BeginAgainWhileRowsAreStillRead) {
  openNumbers(100000, -1, ReportRuns::AtAnyTime);
  click("ViewBttn");
  readAPart();
  click("ViewBttn");
  ASSERT_TRUE(waitFor([this] { return !total().empty(); }));
  EXPECT_EQ(loads, 2);
  EXPECT_EQ(total(), "5000050000.00") << "not the rows of both";
}

TEST_F(ReportRunsOf, ReadNothingThatTheFiltersDoNotAllow) {
  openNumbers(10);
  const struct {
    ReportUse use;
    const char* button;
  } uses[] = {{ReportUse::View, "ViewBttn"}, {ReportUse::Print, "PrintBttn"}, {ReportUse::Export, "ExcelBttn"}};
  for (const auto& [use, button] : uses) {
    refused = use;
    prompts.expect("Not Now", "Choose something.");
    click(button);
    EXPECT_EQ(loads, 0) << button;
    EXPECT_TRUE(isEnabled("ViewBttn")) << button;
  }
}

TEST_F(ReportRunsOf, TellAFailureOnceAndCanRunAgain) {
  openNumbers(5000, 2000);
  prompts.expect("Cannot Show", "The disk is gone.");
  click("ViewBttn");
  ASSERT_TRUE(waitFor([this] { return isEnabled("ViewBttn"); }));
  EXPECT_EQ(message(), "");
  EXPECT_EQ(total(), "");
  prompts.expect("Cannot Print", "The disk is gone.");
  click("PrintBttn");
  EXPECT_TRUE(isEnabled("PrintBttn"));
  EXPECT_EQ(printedRows, 0);
}

TEST_F(ReportRunsOf, GoOnReadingWhenARowCannotBeOpened) {
  openNumbers(200000);
  click("ViewBttn");
  readAPart();
  prompts.expect("Cannot Open", "The document is gone.");
  Q_EMIT screen->grid().doubleClicked(screen->model().index(0, 0));
  EXPECT_TRUE(waitFor([this] { return total() == "20000100000.00"; }, 4000));
}

}  // namespace
}  // namespace velmo::frame

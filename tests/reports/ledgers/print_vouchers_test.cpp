#include "reports/ledgers/print_vouchers.h"

#include <gmock/gmock.h>

#include "forms/date_picker.h"
#include "printing/vector_data.h"
#include "reports/ledger_company.h"

namespace velmo::reports {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The layouts are told instead of printed.
class PrintVouchers : public test::LedgerCompany {
 protected:
  PrintVouchers() {
    for (const int number : {3, 1, 2})
      post({.day = "11-20-2026",
            .tranType = 32,
            .lines = {{12001002, 5, 0}, {40001009, 0, 5}, {12001003, 0, 0}},
            .cancelled = number == 2,
            .docNo = number});
    post({.day = "11-22-2026", .tranType = 32, .lines = {{12001002, 1, 0}}, .docNo = 12});
    post({.day = "11-22-2026", .tranType = 38, .lines = {{12001002, 1, 0}}, .docNo = 4});
    const auto layout = [this](const char* name) {
      return [this, name](const session::LoginContext&, std::shared_ptr<const printing::ReportData> vouchers, int type,
                          text::DateTime) {
        layoutUsed = name + std::string(" of ") + std::to_string(type);
        for (const auto rows = vouchers->rows(); rows->next();) {
          int lines = 0;
          for (const auto below = rows->children("ChildCmd"); below->next();) ++lines;
          shown.push_back(store::textOf(rows->value("docno")) + store::textOf(rows->value("CStatus")) + "/" +
                          std::to_string(lines));
        }
        return printing::Report{.title = "Vouchers", .data = std::make_shared<printing::VectorData>()};
      };
    };
    dialog.reset(
        makePrintVouchers(*workplace, nullptr, {.voucher1 = layout("Voucher1"), .voucher2 = layout("Voucher2")}));
    dialog->show();
    choose("TypeOpt_4");
  }
  void choose(const char* button) { control<QAbstractButton>(button).setChecked(true); }
  std::vector<std::string> preview() {
    shown.clear();
    layoutUsed.clear();
    click("PreviewBttn");
    if (!layoutUsed.empty()) printed();
    return shown;
  }
  void serials(const char* from, const char* to) {
    write("SerialFrom", from);
    write("SerialTo", to);
  }

  std::string layoutUsed;
  std::vector<std::string> shown;
};

TEST_F(PrintVouchers, TakesTheYearAPeriodOrARangeOfNumbers) {
  EXPECT_THAT(preview(), ElementsAre("1/2", "2CANCELLED/2", "3/2", "12/1"));
  EXPECT_EQ(layoutUsed, "Voucher2 of 32");
  EXPECT_EQ(context->PrintKind, 32);
  choose("Selection_1");
  EXPECT_EQ(control<forms::DatePicker>("DateFrom").day(), clock.today());
  EXPECT_THAT(preview(), ElementsAre("12/1"));
  choose("Selection_2");
  serials("2", "3");
  EXPECT_THAT(preview(), ElementsAre("2CANCELLED/2", "3/2"));
  serials("3", "3");
  EXPECT_THAT(preview(), ElementsAre("3/2"));
  serials("9999999998", "9999999999");
  EXPECT_THAT(preview(), IsEmpty());
  choose("TypeOpt_6");
  choose("Selection_0");
  EXPECT_THAT(preview(), ElementsAre("4/1"));
  EXPECT_EQ(layoutUsed, "Voucher1 of 38");
}

TEST_F(PrintVouchers, EachSelectionHasItsOwnBoxes) {
  const auto enabled = [&] {
    return std::vector<bool>{control<QWidget>("DateFrom").isEnabled(), control<QWidget>("DateTo").isEnabled(),
                             control<QWidget>("SerialFrom").isEnabled(), control<QWidget>("SerialTo").isEnabled()};
  };
  EXPECT_THAT(enabled(), ElementsAre(false, false, false, false));
  choose("Selection_1");
  EXPECT_THAT(enabled(), ElementsAre(true, true, false, false));
  choose("Selection_2");
  EXPECT_THAT(enabled(), ElementsAre(false, false, true, true));
  auto& from = control<QLineEdit>("SerialFrom");
  test::focus(from);
  test::type(from, "-1a2.3'4567890123");
  EXPECT_EQ(from.text(), "1234567890") << "ten digits and nothing else";
  control<QWidget>("SerialTo").setFocus();
  test::focus(from);
  EXPECT_EQ(from.selectedText(), "1234567890");
  choose("Selection_0");
  EXPECT_EQ(from.text(), "");
}

TEST_F(PrintVouchers, RefusesNumbersThatAreNone) {
  choose("Selection_2");
  const auto refuse = [&](const char* from, const char* to, const char* text) {
    serials(from, to);
    prompts.expect("Invalid Document No.", text);
    click("PreviewBttn");
  };
  refuse("", "4", "The document no. must be a numeric.");
  refuse("4", "", "The document no. must be a numeric.");
  refuse("4", "3", "The starting document no. must be greater than the ending document no.");
  EXPECT_EQ(layoutUsed, "");
}

}  // namespace
}  // namespace velmo::reports

#include "vouchers/settlement/find_settlements.h"

#include <QComboBox>
#include <QDialog>

#include "forms/date_picker.h"
#include "frame/document/find_screen.h"
#include "frame/document/find_statement.h"
#include "vouchers/settlement/settlement_company.h"

namespace velmo::vouchers {
namespace {

using test::SettlementCompany;

// A receipt or payment as the screens write it: at no location of stock.
void save(SettlementCompany& company, const SettlementKind& kind, int docNo, const char* party = "O'Brien & Sons") {
  company.run(
      "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Nature, Text1, Text2, Text4, D1, D1Date, Received, "
      "Carriage, AdditionalTax, Discount, Tax1, TrAmount, Balance, LocationFrom, LocationTo, UserAdded, UserEdited, "
      "Cancel, InvLedger) VALUES (" +
      std::to_string(docNo) + ", #03-05-2026#, " + std::to_string(kind.form.tranType) + ", 1, 'x', " +
      store::quoted(party) + ", 'City Bank', 'Harbour Bank', 'C-" + std::to_string(docNo) +
      "/77', '3/5/2026', 960.5, 30, 5, 4.5, 2, 1000, 0, 0, 0, 1, 2, No, No)");
}

const SettlementKind* const kinds[] = {&cashReceipts(), &bankReceipts(), &cashPayments(), &bankPayments()};

TEST(FindSettlements, FindsByEveryColumnOfItsKindAndRefusesWhatCannotBeFound) {
  struct Search {
    const char* column;
    const char* value;
    const char* other;  // a value that no document has
    const char* refusal;
  };
  SettlementCompany company;
  for (const SettlementKind* kind : kinds) save(company, *kind, 7);
  for (const SettlementKind* kind : kinds) {
    const bool receipt = isReceipt(*kind);
    const frame::FindType type = findSettlements(*kind);
    SCOPED_TRACE(kind->form.screen);
    std::vector<Search> searches = {{"Serial No.", "7", "8", "Give serial no. to find."},
                                    {"Date", "", "", ""},
                                    {receipt ? "Customer Name" : "Vendor Name", "o'b", "x'y",
                                     receipt ? "Give customer name to find." : "Give vendor name to find."},
                                    {"Cash or Bank", "ty b", "cash", "Give cash or bank name to find."},
                                    {"Cheque No.", "7/7", "9", "Give cheque no. to find."},
                                    {"With-holding Tax", "30.00", "5", "Give with-holding tax amount to find."},
                                    {"Sales Tax", "2", "30", "Give sales tax amount to find."},
                                    {"Discount", "4.5", "5", "Give discount amount to find."},
                                    {receipt ? "Amount Received" : "Amount Paid", "960.5", "1000",
                                     receipt ? "Give amount received to find." : "Give amount paid to find."}};
    if (kind->by == PaidBy::Cash) searches.erase(searches.begin() + 4);
    ASSERT_EQ(type.columns.size(), searches.size());
    const text::DateTime day = text::DateTime::fromCalendar(2026, 3, 5);
    const auto count = [&](const std::string& condition) {
      const store::Recordset rows(company.context.KORDconn,
                                  frame::findStatement(type, kind->form.tranType, 1, condition));
      const store::Recordset counted(company.context.KORDconn,
                                     frame::findCountStatement(type, kind->form.tranType, 1, condition));
      EXPECT_EQ(rows.recordCount(), counted.integer("Documents"));
      return rows.recordCount();
    };
    EXPECT_EQ(count(""), 1);
    for (std::size_t at = 0; at < searches.size(); ++at) {
      const frame::FindColumn& column = type.columns[at];
      const Search& search = searches[at];
      SCOPED_TRACE(search.column);
      EXPECT_EQ(column.caption, search.column);
      EXPECT_EQ(count(frame::findCondition(column, search.value, day).value()), 1);
      EXPECT_EQ(count(frame::findCondition(column, search.other, day.addDays(1)).value()), 0);
      if (*search.refusal) {
        EXPECT_EQ(frame::findCondition(column, "", day).error(), search.refusal);
      }
    }
  }
}

TEST(FindSettlements, APickAsksForTheRightOfItsKindAndShowsTheDocument) {
  const std::pair<const SettlementKind*, int> rights[] = {
      {&cashReceipts(), 108}, {&bankReceipts(), 104}, {&cashPayments(), 70}, {&bankPayments(), 66}};
  for (const auto& [kind, right] : rights) {
    SettlementCompany company;
    save(company, *kind, 7);
    save(company, *kind, 9, "Mills");
    const frame::FindType type = findSettlements(*kind);
    int shown = 0;
    frame::FindScreen find(
        type, kind->form, company.workplace, [&] { ++shown; }, nullptr);
    EXPECT_EQ(find.objectName().toStdString(), kind->form.findScreen);
    find.show();
    auto& grid = *find.findChild<QTableView*>("TranGrid");
    QStringList headings;
    for (int column = 0; column < grid.model()->columnCount(); ++column) {
      headings << grid.model()->headerData(column, Qt::Horizontal).toString();
      EXPECT_TRUE(grid.model()->index(1, column).data().isValid()) << headings.back().toStdString();
    }
    EXPECT_EQ(headings.contains("Cheque No."), kind->by == PaidBy::Cheque);
    EXPECT_EQ(headings.contains("Cheque Bank"), kind == &bankReceipts());
    const int editor = static_cast<int>(headings.indexOf("Edited By"));
    EXPECT_EQ(grid.model()->index(1, editor).data().toString().toStdString(), "Clerk");
    grid.selectRow(1);
    company.run("update userrights set operator1=yes where rightid=" + std::to_string(right));
    company.context.UserID = 2;
    company.prompts.expectTitle("Not Allowed");
    test::press(grid, Qt::Key_Return);
    EXPECT_EQ(shown, 0);
    company.context.UserID = 1;
    test::press(grid, Qt::Key_Return);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(company.context.OpenTranNo,
              std::stoll(company.one("select tranno from transactions where docno = 9 and trantype = " +
                                     std::to_string(kind->form.tranType))));
  }
}

}  // namespace
}  // namespace velmo::vouchers

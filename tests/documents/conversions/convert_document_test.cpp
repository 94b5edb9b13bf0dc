#include "documents/conversions/convert_document.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "documents/invoice_company.h"
#include "session/stock_movement.h"

namespace {

using namespace velmo;
using namespace velmo::test;
using Rows = std::vector<std::string>;

const Rows none;

// Documents as screens saved them, with something in every column that a conversion may take or leave.
class Books : public InvoiceCompany {
 public:
  Books() {
    context.stocklocationid = 3;
    session::applyStockMovement(context, std::int64_t{22});
  }

  // 94.50 with 20.00 added below its lines, which are 74.50 net.
  std::int64_t save(int tranType) {
    const std::string number = std::to_string(++number_);
    context.KORDconn.execute(
        "INSERT INTO Transactions (DocNo, DocNo2, TranDate, Nature, EmpID, JobIDFrom, JobIDTo, [Desc], TranType, D1, "
        "D1Date, D2, D2Date, PartyCode, PartyCode2, Text1, Text2, Text3, Text4, Text5, Text6, Text7, Text8, Text9, "
        "Text10, Text11, Text12, Discount, Carriage, TrAmount, Received, Balance, WordsAmt, LocationFrom, LocationTo, "
        "FYID, UserAdded, UserEdited, Cancel, InvLedger) VALUES (" +
        number + ", 1, #11-05-2026#, 'Net 30', 1, 7, 7, 'As agreed', " + std::to_string(tranType) +
        ", 'R-1', '01-11-2026', 'R-2', '02-11-2026', 1, 12001002, 'O''Brien', 'High St', '555', 't4', 't5', 't6', "
        "'t7', 't8', 't9', 't10', 't11', 't12', 5, 25, 94.5, 3, 91.5, 'words', 2, 2, 1, 2, 2, No, No)");
    const std::string tranNo = one("select max(tranno) as n from transactions");
    const std::string quantity = tranType == 92 || tranType == 20 ? "StockIn" : "StockOut";
    for (const std::string line :
         {"1, 'H1', 'Hammer', 'S-1', 1.5, 'Pcs', 50, 75, 10, 7.5, 67.5, 'Box'",
          "2, NULL, 'No item', '', 1, '', 1, 0, NULL, 0, 0, ''", "3, 'N1', 'Nail', '', 7, 'Pcs', 1, 7, NULL, 0, 7, ''"})
      context.KORDconn.execute(
          "INSERT INTO StockFlow (TranNo, LocationID, Packs, PackPcs, Serial, ItemCode, ItemName, ProductSerials, " +
          quantity + ", Unit, Rate, GrossAmt, DiscRate, DiscAmt, ItemValue, Packing) VALUES (" + tranNo +
          ", 2, 1, 1, " + line + ")");
    return std::stoll(tranNo);
  }
  std::int64_t convert(const documents::Conversion& conversion, std::int64_t tranNo) {
    return documents::convertDocument(context, conversion, tranNo, clock.now());
  }
  std::string of(std::int64_t tranNo, const char* columns, const char* table = "transactions") {
    std::string all;
    for (store::Recordset found(context.KORDconn, std::string("select ") + columns + " from " + table +
                                                      " where tranno = " + std::to_string(tranNo));
         !found.eof(); found.moveNext()) {
      if (!all.empty()) all += " / ";
      const char* between = "";
      for (const store::FieldInfo& field : found.fields()) {
        all += std::exchange(between, "|") + found.text(field.name);
      }
    }
    return all;
  }
  std::string everything() {
    std::string all;
    for (const char* table : {"transactions", "stockflow", "subtransactions", "agingdr", "agingcr"})
      for (const std::string& row : rows(std::string("select * from ") + table)) all += row + "\n";
    return all;
  }

 private:
  int number_ = 11;
};

const documents::Conversion& way(int from, int to) {
  for (const documents::Conversion& conversion : documents::conversions())
    if (conversion.from == from && conversion.to == to) return conversion;
  throw std::logic_error("no such conversion");
}

struct Expected {
  int from, to;
  const char* references;  // D1, D1Date, D2, D2Date
  const char* transport;   // Text6, Text7, Text8
  const char* amounts;     // TrAmount, Balance, WordsAmt
  const char* account;     // PartyCode, InvLedger
  const char* ledger;
  const char* receivable;  // AgingDr: TranType, VendorInvNo (of AgingCr), TrAmount
  const char* payable;
  const char* trace;  // on the converted document: D2, D2Date, Text9, Text10, Text11
};

constexpr const char* net = "74.5|74.5|seventy-four and 50/100 only.";
constexpr const char* sale = "12001002|O'Brien||74.5| / 40001001|Sales|O'Brien -||74.5";
constexpr const char* purchase = "50001002|Purchases|O'Brien -|74.5| / 12001002|O'Brien|||74.5";

// The setting is 22: bills and challans move stock.
const Expected ways[] = {
    {91, 93, "|||", "||", net, "12001002|-1", "", "", "", "R-2|02-11-2026|Order No. 1|t10|t11"},
    {91, 94, "|||", "10:30:15 AM||", net, "12001002|0", "", "", "", "R-2|02-11-2026|t9|D.C. No. 1|t11"},
    {91, 32, "|||", "||", net, "40001001|-1", sale, "32|74.5", "", "R-2|02-11-2026|t9|t10|Invoice No. 1"},
    {93, 94, "R-1|05-11-2026||", "10:30:15 AM||", net, "12001002|0", "", "", "", "R-2|02-11-2026|D.C. No. 1|t10|t11"},
    {93, 32, "R-1|05-11-2026||", "||", net, "40001001|-1", sale, "32|74.5", "", "R-2|02-11-2026|t9|Invoice No. 1|t11"},
    {94, 32, "R-1|01-11-2026|12|05-11-2026", "||", net, "40001001|-1", sale, "32|74.5", "",
     "R-2|02-11-2026|t9|Invoice No. 1|t11"},
    {94, 30, "R-1|01-11-2026|12|05-11-2026", "t6|t7|t8", net, "12001002|-1", "", "", "",
     "R-2|02-11-2026|O.G.P. No. 1|t10|t11"},
    {30, 32, "R-1|01-11-2026|R-2|02-11-2026", "||", net, "40001001|-1", sale, "32|74.5", "",
     "R-2|02-11-2026|Invoice No. 1|t10|t11"},
    {32, 94, "R-1|01-11-2026||", "10:30:15 AM||", "94.5|74.5|ninety-four and 50/100 only.", "12001002|0", "", "", "",
     "1|22-11-2026|t9|t10|t11"},
    {32, 30, "R-1|01-11-2026|R-2|02-11-2026", "10:30:15 AM||", "74.5|74.5|ninety-four and 50/100 only.", "12001002|-1",
     "", "", "", "R-2|02-11-2026|t9|O.G.P. No. 1|t11"},
    {92, 20, "||12|05-11-2026", "10:30:15 AM||", net, "12001002|-1", "", "", "", "R-2|02-11-2026|I.G.P. No. 1|t10|t11"},
    {92, 22, "||12|05-11-2026", "||", net, "50001002|0", purchase, "", "22||74.5",
     "R-2|02-11-2026|t9|Purchase No. 1|t11"},
    {20, 22, "||R-2|02-11-2026", "||", net, "50001002|0", purchase, "22|74.5", "",
     "R-2|02-11-2026|Purchase No. 1|t10|t11"},
};

class EveryConversion : public testing::TestWithParam<Expected> {};

TEST_P(EveryConversion, WritesTheRowsOfItsKind) {
  const Expected& expected = GetParam();
  Books books;
  books.run("delete from transactions where trantype=93 and fyid=1");
  const std::int64_t source = books.save(expected.from);
  const std::string before = books.of(source, "*");
  const std::int64_t made = books.convert(way(expected.from, expected.to), source);

  EXPECT_EQ(books.of(made, "D1, D1Date, D2, D2Date"), expected.references);
  EXPECT_EQ(books.of(made, "Text6, Text7, Text8"), expected.transport);
  EXPECT_EQ(books.of(made, "TrAmount, Balance, WordsAmt"), expected.amounts);
  EXPECT_EQ(books.of(made, "PartyCode, InvLedger+0"), expected.account);
  EXPECT_EQ(
      books.of(made,
               "TranType, DocNo, DocNo2, TranDate, Nature, EmpID, JobIDFrom, JobIDTo, [Desc], PartyCode2, Text1, "
               "Text2, Text3, LocationFrom, LocationTo, FYID, Cancel"),
      std::to_string(expected.to) + "|1|1|11/22/2026|Net 30|1|7|7|As agreed|12001002|O'Brien|High St|555|2|2|1|False");
  EXPECT_EQ(
      books.of(made, "Text4, Text5, Text9, Text10, Text11, Text12, Numeric1, Numeric2, Discount, Carriage, Received"),
      "||||||0|0|0|0|0");
  EXPECT_EQ(books.of(made, "UserAdded, UserEdited, TimeAdded, TimeEdited"),
            "1|1|11/22/2026 10:30:15 AM|11/22/2026 10:30:15 AM");
  const bool inward = expected.to == 20 || expected.to == 22;
  EXPECT_EQ(books.of(made,
                     inward ? "Serial, ItemCode, ItemName, ProductSerials, Packs, PackPcs, StockIn, StockOut, Unit, "
                              "Rate, GrossAmt, DiscRate, DiscAmt, ItemValue, Packing, LocationID, JobID"
                            : "Serial, ItemCode, ItemName, ProductSerials, Packs, PackPcs, StockOut, StockIn, Unit, "
                              "Rate, GrossAmt, DiscRate, DiscAmt, ItemValue, Packing, LocationID, JobID",
                     "stockflow"),
            "1|H1|Hammer|S-1|1|1|1.5||Pcs|50|75|10|7.5|67.5||3|7 / 3|N1|Nail||1|1|7||Pcs|1|7||0|7||3|7");
  EXPECT_EQ(books.of(made, "AccCode, AccName, [Desc], Debit, Credit", "subtransactions"), expected.ledger);
  EXPECT_EQ(books.of(made, "TranType, TrAmount", "agingdr"), expected.receivable);
  EXPECT_EQ(books.of(made, "TranType, VendorInvNo, TrAmount", "agingcr"), expected.payable);
  for (const char* aging : {"agingdr", "agingcr"})
    for (const std::string& row : books.rows(
             std::string(
                 "select docno, docno2, trandate, trandate2, partycode, [return], payment, totpayment, fyid from ") +
             aging))
      EXPECT_EQ(row, "1|1|11/22/2026|11/22/2026|12001002|0|0|0|1");

  EXPECT_EQ(books.of(source, "D2, D2Date, Text9, Text10, Text11"), expected.trace);
  books.run(
      "update transactions set D2='R-2', D2Date='02-11-2026', Text9='t9', Text10='t10', Text11='t11' where tranno=" +
      std::to_string(source));
  EXPECT_EQ(books.of(source, "*"), before) << "nothing else of it moves";
}

INSTANTIATE_TEST_SUITE_P(Conversions, EveryConversion, testing::ValuesIn(ways), [](const auto& row) {
  return std::to_string(row.param.from) + "to" + std::to_string(row.param.to);
});

TEST(Conversion, TakesTheNextNumberOfItsKindAndYearAndMaySaysSoAgain) {
  Books books;
  const std::int64_t order = books.save(93);
  const std::int64_t made = books.convert(way(93, 94), order);
  NewCompany::run(
      {"INSERT INTO Transactions (DocNo, TranType, FYID, TranDate, Cancel, InvLedger) VALUES (5, 94, 1, #11-22-2026#, "
       "Yes, No)",
       "INSERT INTO Transactions (DocNo, TranType, FYID, TranDate, Cancel, InvLedger) VALUES (70, 94, 2, #11-22-2026#, "
       "No, No)"});
  const std::int64_t again = books.convert(way(93, 94), order);
  EXPECT_EQ(books.of(made, "docno"), "1");
  EXPECT_EQ(books.of(again, "docno"), "6");
  EXPECT_EQ(books.of(order, "text9"), "D.C. No. 6");
}

// Whatever breaks off, neither the new document nor the note of it stays.
TEST(Conversion, IsWholeOrNothing) {
  Books books;
  const std::int64_t order = books.save(93);
  const std::int64_t bill = books.save(20);
  books.run("update transactions set partycode2 = 12009999 where tranno=" + std::to_string(bill));
  const std::int64_t cancelled = books.save(94);
  books.run("update transactions set cancel = Yes where tranno=" + std::to_string(cancelled));
  const std::string before = books.everything();
  const auto refusal = [&](int from, int to, std::int64_t tranNo) -> std::string {
    try {
      books.convert(way(from, to), tranNo);
    } catch (const store::StoreError& error) {
      return error.what();
    }
    return "converted";
  };
  EXPECT_EQ(refusal(94, 30, cancelled),
            "This delivery challan is cancelled. A cancelled delivery challan cannot be converted.");
  EXPECT_EQ(refusal(93, 94, 4711).substr(0, 38), "This document is not there any more: i");
  EXPECT_EQ(refusal(20, 22, bill).substr(0, 17), "Account 12009999 ");
  for (const char* table : {"Transactions", "StockFlow", "SubTransactions", "AgingDr"})
    for (const char* event : {"INSERT", "UPDATE"}) {
      const std::string trigger = std::string("CREATE TEMP TRIGGER broken BEFORE ") + event + " ON " + table +
                                  " BEGIN SELECT RAISE(ABORT, 'broken off'); END";
      if (event == std::string("UPDATE") && table != std::string("Transactions")) continue;
      sqlite3* file = books.context.KORDconn.handle();
      ASSERT_EQ(sqlite3_exec(file, trigger.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
      EXPECT_NE(refusal(93, 32, order), "converted") << event << " " << table;
      sqlite3_exec(file, "DROP TRIGGER broken", nullptr, nullptr, nullptr);
      EXPECT_EQ(books.everything(), before) << event << " " << table;
    }
  EXPECT_EQ(refusal(93, 32, order), "converted");
}

}  // namespace

#include "documents/trade/trade_kind.h"

#include <QLabel>

#include "documents/invoice_company.h"
#include "documents/trade/find_screens.h"
#include "documents/trade/trade_body.h"
#include "documents/trade/trade_rules.h"
#include "frame/document/document_screen.h"

namespace velmo {
namespace {

// Goods that a customer is given: only the sums of the lines count, and it may become two other documents.
QWidget* makeHandOvers(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  frame::DocumentType type{
      .form = schema::documentForm("DeliveryChallans"),
      .title = "HAND-OVERS",
      .duplicateText = "Taken.",
      .find = documents::findSReturns(),
      .makeBody =
          documents::tradeBody({.party = documents::customers(), .figures = documents::TradeFigures::OfLinesOnly}),
      .header = [](const frame::DocumentValues& values, const session::LoginContext&,
                   frame::HeaderRow& row) { row.set("TrAmount", documents::netTotalOf(values)); },
      .marks = {{.column = "Text9", .label = "ConvLbl1"}, {.column = "Text10", .label = "ConvLbl2"}}};
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

TEST(TradeKind, ADocumentOfLinesOnlyHasNoOtherFiguresAndPostsNothing) {
  test::InvoiceCompany shop;
  shop.context.DCInvLedger = true;
  test::InvoiceScreen screen(shop, {}, makeHandOvers);
  for (const char* absent : {"Discount", "GTotal", "Carriage", "NetTotal", "Received", "Balance", "IncomeCode"})
    EXPECT_EQ(screen.widget().findChild<QWidget*>(absent), nullptr) << absent;
  screen.type("PartyCodeTxt", "12001002");
  screen.line(0, "H1", "2");
  EXPECT_EQ(screen.text("TExc"), "100.00");
  EXPECT_EQ(screen.find<QLabel>("AmtWords").text(), "Rupees one hundred and 00/100 only.");
  test::press(screen.find<QTableView>("Grid"), Qt::Key_F6);
  EXPECT_EQ(QApplication::focusWidget(), &screen.box("PartyCodeTxt")) << "no amount is between";
  screen.press("SaveBttn");
  const std::string tranNo = shop.one("select tranno from transactions where trantype = 94 and invledger = yes");
  EXPECT_EQ(shop.one("select tramount, received, balance from transactions where tranno = " + tranNo), "100|0|0");
  EXPECT_EQ(shop.one("select stockout, itemvalue from stockflow where tranno = " + tranNo), "2|100");
  for (const char* table : {"SubTransactions", "AgingDr", "AgingCr"})
    EXPECT_EQ(shop.one(std::string("select count(*) as n from ") + table + " where tranno = " + tranNo), "0") << table;
}

TEST(TradeKind, MarksOfConversionsAreShownAndKept) {
  test::InvoiceCompany shop;
  test::InvoiceScreen screen(shop, {}, makeHandOvers);
  screen.saveInvoice("12001002");
  shop.run("update transactions set text10 = 'Invoice No. 8' where trantype = 94");
  const auto shown = [&] {
    std::string all;
    if (const auto& label = screen.find<QLabel>("ConvLbl"); !label.isHidden()) all += label.text().toStdString() + "|";
    for (const char* name : {"ConvLbl1", "ConvLbl2"})
      if (const auto& mark = screen.find<QAbstractButton>(name); !mark.isHidden())
        all += mark.text().toStdString() + "|";
    return all;
  };
  EXPECT_EQ(shown(), "");
  screen.press("PrevBttn");
  EXPECT_EQ(shown(), "Converted To:|Invoice No. 8|");
  shop.run("update transactions set text9 = 'O.G.P. No. 3' where trantype = 94");
  screen.press("SaveBttn");
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(shop.one("select text9, text10 from transactions where trantype = 94"), "O.G.P. No. 3|Invoice No. 8");
  screen.press("PrevBttn");
  EXPECT_EQ(shown(), "Converted To:|O.G.P. No. 3|Invoice No. 8|");
}

}  // namespace
}  // namespace velmo

#include <gtest/gtest.h>

#include <QPlainTextEdit>

#include "documents/invoice_company.h"
#include "documents/orders/order_screens.h"
#include "documents/print/order_prints.h"
#include "documents/print/paper_reading.h"
#include "printing/preview_window.h"

namespace {

using namespace velmo;
using namespace velmo::documents;
using namespace velmo::documents::test;
using session::LoginContext;

const char* const address = "Plot 7, Bund Road";

struct Paper {
  const char* name;
  int tranType;
  const OrderPrint& (*print)();
  velmo::test::InvoiceScreen::Make make;
  std::vector<std::pair<const char*, const char*>> typed;
  std::vector<const char*> says;  // beside what all say
  int LoginContext::*format;      // none: always under the company's head
  int LoginContext::*topMargin;
  int onLetterhead;
};

const std::vector<Paper>& papers() {
  static const std::pair<const char*, const char*> supply{"SupplyTime", "9:30 AM"}, vehicle{"Vehicle", "LXR 4711"},
      driver{"Driver", "R. Ahmed"}, first{"D1", "PO-4711"}, second{"D2", "17"};
  static const std::vector<Paper> all{
      {"Quotation",
       91,
       quotationPrint,
       makeQuotations,
       {{"Subject", "Tools for the workshop"}, {"PartyContact", "Ms. Fry"}, {"Conditions", "Half in advance"}},
       {"QUOTATION", "Quotation No.", "Customer", "Subject", "Tools for the workshop", "Contact Person", "Ms. Fry",
        "Terms & Conditions", "Half in advance", "Prices hold", "for 14 days", "Total  Rs."},
       &LoginContext::qf,
       &LoginContext::qtm,
       11},
      {"SaleOrder",
       93,
       saleOrderPrint,
       makeSaleOrders,
       {first, {"D1Dt", "18-11-2026"}},
       {"SALE ORDER", "Order No.", "Customer Order Ref.", "PO-4711", "18-11-2026", "Net Total  Rs."},
       nullptr,
       nullptr,
       0},
      {"DeliveryChallan",
       94,
       deliveryChallanPrint,
       makeDeliveryChallans,
       {supply, first, vehicle, driver},
       {"DELIVERY CHALLAN", "Delivery Challan No.", "PO-4711", "Time of Supply", "9:30 AM", "Vehicle", "LXR 4711",
        "Driver", "R. Ahmed", "Received By"},
       &LoginContext::dcf,
       &LoginContext::dctm,
       2},
      {"OGP",
       30,
       outwardGatePassPrint,
       makeGatePassesOut,
       {supply, first, second, vehicle, driver},
       {"OUTWARD GATE PASS", "Delivery Challan No.", "17", "PO-4711", "9:30 AM", "LXR 4711", "R. Ahmed", "Remarks",
        "two crates"},
       nullptr,
       nullptr,
       0},
      {"PurchaseOrder",
       92,
       purchaseOrderPrint,
       makePurchaseOrders,
       {{"D1Dt", "30-11-2026"}, {"Conditions", "Carriage paid"}},
       {"PURCHASE ORDER", "Vendor", "Delivery Date", "30-11-2026", "Carriage paid", "Deliver on weekdays"},
       &LoginContext::pof,
       &LoginContext::potm,
       2},
      {"IGP",
       20,
       inwardGatePassPrint,
       makeGatePassesIn,
       {supply, first, second, vehicle, driver},
       {"INWARD GATE PASS", "Vendor", "Purchase Order No.", "17", "9:30 AM", "LXR 4711", "R. Ahmed", "two crates"},
       nullptr,
       nullptr,
       0}};
  return all;
}

class OrderPrintOut : public testing::TestWithParam<Paper> {
 protected:
  OrderPrintOut() {
    office.context.CompanyName = "Velmo Traders";
    office.context.UserName = "Ayesha";
    office.context.stocklocationid = 1;
    office.run("delete from transactions where trantype=93");
    office.run("update businessinfo set TermsQuote = 'Prices hold\nfor 14 days', TermsPO = 'Deliver on weekdays'");
    velmo::test::InvoiceScreen screen(office, {}, GetParam().make);
    screen.type("PartyCodeTxt", "12001002");
    screen.box("PartyAddress").setText(address);
    for (const auto& [box, text] : GetParam().typed) screen.type(box, text);
    screen.find<QPlainTextEdit>("Desc").setPlainText("Two pallets\ntwo crates");
    screen.line(0, "H1", "40000", "12345678.91");
    screen.press("SaveBttn");
  }

  printing::Report report(DocumentState state = DocumentState::Valid) {
    const std::string type = std::to_string(GetParam().tranType);
    const store::Recordset document(office.context.KORDconn, "Select * from transactions where trantype=" + type);
    const store::Recordset lines(office.context.KORDconn,
                                 "Select * from stockflow where tranno=" + document.text("tranno"));
    return orderPrint(GetParam().print(), {office.context, document, lines, state, office.clock.today()});
  }
  // Each text on a line of its own.
  std::string textOf(const printing::Report& report) { return "\n" + wholeText(cleanPages(report, GetParam().name)); }

  const InFolder noLogo;
  velmo::test::InvoiceCompany office;
};

TEST_P(OrderPrintOut, SaysWhatTheDocumentHolds) {
  const std::string text = textOf(report());
  std::vector<const char*> expected = GetParam().says;
  for (const char* words : {"Velmo Traders", "O'Brien & Sons", address, "22-11-2026", "Hammer", "40,000.00",
                            "12,345,678.91", "493,827,156,400.00", "Prepared By: Ayesha", "Authorised Signature"})
    expected.push_back(words);
  for (const char* words : expected) EXPECT_NE(text.find("\n" + std::string(words) + "\n"), std::string::npos) << words;
  EXPECT_NE(solid(text).find("Rupeesfourhundredninety"), std::string::npos);
  for (const char* absent : {"CANCELLED", "Discount", "Balance", "\nTel: \n"})
    EXPECT_EQ(text.find(absent), std::string::npos) << absent;

  office.run("update stockflow set discamt = 6.48, grossamt = 493827156406.48");
  const std::string discounted = textOf(report(DocumentState::Cancelled));
  for (const char* words : {"Gross Amount", "Discount", "493,827,156,406.48", "6.48", "CANCELLED"})
    EXPECT_NE(discounted.find("\n" + std::string(words) + "\n"), std::string::npos) << words;
}

TEST_P(OrderPrintOut, BeginsBelowTheOwnLetterheadWhereTheSettingAsksForIt) {
  const Paper& paper = GetParam();
  for (int format = 0; format <= 12; ++format) {
    for (const auto set : {&LoginContext::qf, &LoginContext::pof, &LoginContext::dcf}) office.context.*set = format;
    for (const auto set : {&LoginContext::qtm, &LoginContext::potm, &LoginContext::dctm}) office.context.*set = 300;
    if (paper.topMargin) office.context.*paper.topMargin = 4000;
    const printing::Report made = report();
    const bool own = paper.format && format == paper.onLetterhead;
    EXPECT_EQ(made.design.margins.top == 4000, own) << format;
    EXPECT_EQ(made.variables.contains("CoName"), !own) << format;
  }
}

TEST_P(OrderPrintOut, HoldsTextsOfAnyLength) {
  std::string terms;
  for (int clause = 1; clause <= 200; ++clause) terms += "Clause " + std::to_string(clause) + "\n\n";
  auto& company = office.context.KORDconn;
  company.execute("update businessinfo set TermsQuote = " + store::quoted(terms) +
                  ", TermsPO = " + store::quoted(terms));
  company.execute("update transactions set d1 = " + store::quoted(std::string(250, 'W')) +
                  ", text7 = 'a lorry and its trailer, both of them green, with the name of the carrier on the doors'");
  const std::string text = textOf(report());
  const bool hasTerms = GetParam().print().standingTerms.has_value();
  EXPECT_EQ(text.find("\nClause 200\n") != std::string::npos, hasTerms);
  EXPECT_NE(text.find("Authorised Signature"), std::string::npos);
  company.execute("update businessinfo set TermsQuote = '  \n ', TermsPO = null");
  company.execute("update transactions set text8 = '', desc = ''");
  const std::string bare = textOf(report());
  for (const char* heading : {"Terms & Conditions", "Remarks"}) EXPECT_EQ(bare.find(heading), std::string::npos);
}

TEST_P(OrderPrintOut, IsShownByTheScreen) {
  velmo::test::InvoiceScreen screen(office, {}, GetParam().make);
  screen.type("PartyCodeTxt", "12001003");
  if (GetParam().tranType == 93) screen.type("D1", "PO-1");
  screen.press("PrintBill_0");
  auto* preview = screen.widget().findChild<printing::PreviewWindow*>();
  ASSERT_NE(preview, nullptr);
  EXPECT_EQ(preview->pages().report().variables.at("partyname"), "Zoe Builders");
  preview->close();
}

INSTANTIATE_TEST_SUITE_P(Papers, OrderPrintOut, testing::ValuesIn(papers()),
                         [](const auto& paper) { return std::string(paper.param.name); });

}  // namespace

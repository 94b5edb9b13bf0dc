#include <QComboBox>
#include <QLabel>

#include "documents/invoice_company.h"
#include "documents/invoices/purchase_bill_type.h"
#include "documents/invoices/purchase_return_type.h"
#include "documents/invoices/sale_invoice_type.h"
#include "documents/invoices/sale_return_type.h"
#include "documents/invoices/trade_screens.h"
#include "documents/print/invoice_print.h"
#include "documents/trade/find_screens.h"
#include "forms/date_picker.h"
#include "frame/document/find_statement.h"
#include "printing/page_pictures.h"
#include "text/number.h"

namespace {

using namespace velmo;
using frame::DocumentValues;
using frame::LedgerLine;
using test::InvoiceCompany;
using test::InvoiceScreen;
using Rows = std::vector<std::string>;

// A company that also has a vendor to buy from.
class TradingCompany : public InvoiceCompany {
 public:
  TradingCompany() {
    context.KORDconn.execute(
        "INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID, CreditTerms) VALUES (21001002, 'Ahmed''s Mills', "
        "210, 21001, 'Net 15')");
    context.AccountsRS.requery();
  }
};

DocumentValues trade(const char* gTotal, const char* carriage, const char* netTotal, const char* received,
                     const char* balance) {
  DocumentValues values;
  values.DocNo = "7";
  values.PartyCodeTxt = "21001002";
  values.PartyNameTxt = "Mills";
  values.IncomeCode = "50001002";
  values.IncomeAcc = "Head";
  values.fields = {{"D1", "A'9"}, {"D2", "4"}};
  values.totals = {.GrTot = gTotal,
                   .Disc = "0.00",
                   .TExc = gTotal,
                   .Discount = "0.00",
                   .GTotal = gTotal,
                   .Carriage = carriage,
                   .NetTotal = netTotal,
                   .Received = received,
                   .Balance = balance,
                   .AmtWords = {}};
  return values;
}

// "head D100 | cash C40": who, which side, how much.
std::string posted(const frame::DocumentType& type, const DocumentValues& values) {
  const auto lines = frame::ledgerLines(*type.posting, values, "(lines) ");
  if (!lines) return lines.error();
  std::string all;
  for (const LedgerLine& line : *lines) {
    const bool debit = line.debit.has_value();
    all += (all.empty() ? "" : " | ") + line.accName + (debit ? " D" : " C") +
           text::numberText(debit ? *line.debit : *line.credit);
  }
  return all;
}

TEST(TradePosting, RowsStandInTheirOrder) {
  const DocumentValues paid = trade("100.00", "0.00", "100.00", "100.00", "0.00");
  const DocumentValues credit = trade("100.00", "10.00", "110.00", "0.00", "110.00");
  const DocumentValues part = trade("100.00", " (5.00)", "95.00", "40.00", "55.00");
  const std::string out = "Carriage & Freight Outwards";
  const std::string in = "Carriage & Freight Inwards";
  EXPECT_EQ(posted(documents::saleInvoiceType(), paid), "Cash in Hand D100 | Head C100");
  EXPECT_EQ(posted(documents::saleInvoiceType(), trade("100.00", "12.50", "112.50", "112.50", "0.00")),
            "Cash in Hand D112.5 | Head C100 | " + out + " C12.5");
  EXPECT_EQ(posted(documents::saleInvoiceType(), credit), "Mills D110 | Head C100 | " + out + " C10");
  EXPECT_EQ(posted(documents::saleInvoiceType(), part),
            "Cash in Hand D40 | Mills D95 | Mills C40 | Head C100 | " + out + " D5");
  EXPECT_EQ(posted(documents::saleInvoiceType(), trade("0.00", "0.00", "0.00", "0.00", "0.00")), "Head C0");
  EXPECT_EQ(posted(documents::saleInvoiceType(), trade("10.00", "-10.00", "0.00", "0.00", "0.00")),
            "Head C10 | " + out + " D10");
  EXPECT_EQ(posted(documents::saleReturnType(), paid), "Head D100 | Cash in Hand C100");
  EXPECT_EQ(posted(documents::saleReturnType(), credit), "Head D100 | " + out + " D10 | Mills C110");
  EXPECT_EQ(posted(documents::saleReturnType(), part),
            "Head D100 | " + out + " C5 | Mills D40 | Cash in Hand C40 | Mills C95");
  EXPECT_EQ(posted(documents::purchaseBillType(), paid), "Head D100 | Cash in Hand C100");
  EXPECT_EQ(posted(documents::purchaseBillType(), credit), "Head D100 | " + in + " D10 | Mills C110");
  EXPECT_EQ(posted(documents::purchaseBillType(), part),
            "Head D100 | " + in + " C5 | Mills D40 | Cash in Hand C40 | Mills C95");
  EXPECT_EQ(posted(documents::purchaseReturnType(), paid), "Cash in Hand D100 | Head C100");
  EXPECT_EQ(posted(documents::purchaseReturnType(), credit), "Mills D110 | Head C100 | " + in + " C10");
  EXPECT_EQ(posted(documents::purchaseReturnType(), part),
            "Cash in Hand D40 | Mills D95 | Mills C40 | Head C100 | " + in + " D5");

  const auto narration = [&](const frame::DocumentType& type) {
    const auto lines = frame::ledgerLines(*type.posting, credit, "(lines) ");
    for (const LedgerLine& line : *lines)
      if (line.accName == "Mills") return line.desc;
    return std::string();
  };
  EXPECT_EQ(narration(documents::saleReturnType()), "Mills - Invoice No 7/A'9");
  EXPECT_EQ(narration(documents::purchaseBillType()), "Mills - Invoice No 7/A'9");
  EXPECT_EQ(narration(documents::purchaseReturnType()), "Mills - Invoice No 7/4/A'9");
}

TEST(TradePosting, RefusesToBeUnbalanced) {
  for (const DocumentValues& values :
       {trade(" (5.00)", "0.00", " (5.00)", " (5.00)", "0.00"),  // a negative total has no debit row
        trade("100.00", "0.00", "90.00", "0.00", "90.00"),       // a total that is not the sum of its parts
        trade("1e308", "1e308", "1e308", "0.00", "1e308")})
    EXPECT_NE(posted(documents::saleInvoiceType(), values).find("do not balance"), std::string::npos);
}

struct Mend {
  const char* text;
  void (*mend)(DocumentValues&);
};

void expectRefusals(const frame::DocumentType& type, DocumentValues values, const std::vector<Mend>& steps) {
  const auto firstFailure = [&]() -> std::string_view {
    for (const frame::ValidationStep& step : type.validation)
      if (step.fails(values, {})) return step.text;
    return "";
  };
  for (const Mend& step : steps) {
    EXPECT_EQ(firstFailure(), step.text);
    step.mend(values);
  }
  EXPECT_EQ(firstFailure(), "");
}

TEST(TradeValidation, RefusalsComeInTheirOrder) {
  DocumentValues wrong = trade("100.00", "0.00", "100.00", "150.00", " (50.00)");
  wrong.PartyNameTxt = " \u00A0";
  wrong.IncomeAcc = "";
  wrong.fields = {{"D1", " "}, {"D2", "x"}};
  wrong.JobList.text = wrong.EmpList.text = "unknown";
  const std::vector<Mend> lists = {
      {"Select a correct location of inventory.",
       [](DocumentValues& v) {
         v.LocationList = {"Store", 1, true};
       }},
      {"Select a correct job or leave it blank if you do not want to save a job reference.",
       [](DocumentValues& v) { v.JobList = {.text = " "}; }},
      {"Select a correct employee or leave it blank if you do not want to save an employee reference.",
       [](DocumentValues& v) { v.EmpList = {}; }}};
  const auto pay = [](DocumentValues& v) {
    v.totals.Received = "100.00";
    v.totals.Balance = "0.00";
  };
  const auto account = [](DocumentValues& v) { v.IncomeAcc = "Head"; };
  const auto party = [](DocumentValues& v) { v.PartyNameTxt = "Mills"; };
  const auto known = [](DocumentValues& v) { v.PartyCodeTxt = "21001002"; };
  const auto steps = [&](std::vector<Mend> first, Mend last) {
    first.insert(first.end(), lists.begin(), lists.end());
    first.push_back(last);
    return first;
  };

  wrong.PartyCodeTxt = "12001001";
  DocumentValues sale = wrong;
  sale.fields["InvTypeList"] = "0";
  sale.CreditLimit = 10;
  sale.PartyBalance = 500;
  std::vector<Mend> ofSale = steps(
      {{"Select a correct income account.", account},
       {"Select a correct customer. You may select Account Code '12001001' for a Walk-in (Cash) Customer.", party},
       {"Select a correct customer to give debit for balance amount. Debit cannot be given to a Walk-in (Cash) "
        "Customer.",
        known},
       {"You are saving a Point of Sale Invoice. You must receive full amount of invoice.",
        [](DocumentValues& v) { v.fields["InvTypeList"] = "1"; }}},
      {"Amount received cannot be greater then the total receivable.", [](DocumentValues& v) {
         v.totals.Received = "0.00";
         v.totals.Balance = "100.00";
       }});
  ofSale.push_back({"This will increase the balance of party from assigned credit limit. Do you want to continue?",
                    [](DocumentValues& v) { v.CreditLimit = 0; }});
  expectRefusals(documents::saleInvoiceType(), sale, ofSale);
  expectRefusals(
      documents::saleReturnType(), wrong,
      steps(
          {{"Sale invoice number must be a numeric figure.", [](DocumentValues& v) { v.fields["D1"] = "12"; }},
           {"Select a correct income account.", account},
           {"Select a correct customer. You may select Account Code '12001001' for a Walk-in (Cash) Customer.", party},
           {"Select a correct customer to give credit for balance amount. Credit cannot be given to a Walk-in (Cash) "
            "Customer.",
            known}},
          {"Amount paid cannot be greater then the total payable.", pay}));
  wrong.PartyCodeTxt = "21001001";
  expectRefusals(
      documents::purchaseBillType(), wrong,
      steps({{"Select correct vendor invoice number.", [](DocumentValues& v) { v.fields["D1"] = "V'1"; }},
             {"Select a correct expense account.", account},
             {"Select a correct vendor. You may select Account Code '21001001' for a Retail / Cash Purchase.", party},
             {"Select a correct vendor to give credit for balance amount. Credit cannot be given to a Retail / Cash "
              "Purchase Account.",
              known}},
            {"Amount paid cannot be greater then the total payable.", pay}));
  expectRefusals(
      documents::purchaseReturnType(), wrong,
      steps({{"Purchase number must be a numeric figure.", [](DocumentValues& v) { v.fields["D2"] = "3"; }},
             {"Select correct vendor invoice number.", [](DocumentValues& v) { v.fields["D1"] = "V'1"; }},
             {"Select a correct expense account.", account},
             {"Select a correct vendor. You may select Account Code '21001001' for a Retail / Cash Purchase Return.",
              party},
             {"Select a correct vendor to give debit for balance amount. Debit cannot be given to a Retail / Cash "
              "Purchase account.",
              known}},
            {"Amount received cannot be greater then the total receivable.", pay}));
}

const char* const lineQuantities =
    "select stockflow.rate, stockflow.stockin, stockflow.stockout, transactions.invledger from transactions inner join "
    "stockflow on transactions.tranno = stockflow.tranno where transactions.trantype = ";

TEST(TradeSaving, ABillEntersStockAtThePurchasePriceAndOpensAnItem) {
  TradingCompany shop;
  shop.run(
      "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, Cancel, InvLedger, UserAdded, UserEdited) VALUES "
      "(4, #09-03-2026#, 92, 1, No, Yes, 1, 1)");
  InvoiceScreen screen(shop, {}, documents::makePurchaseBillsSimple);
  EXPECT_EQ(screen.text("IncomeAcc"), "Purchases");
  screen.type("PartyCodeTxt", "21001002");
  EXPECT_TRUE(screen.box("PartyNameTxt").isReadOnly());
  screen.type("D1", "V'9");
  screen.type("D2", "4");
  EXPECT_EQ(screen.text("D2Dt"), "03-09-2026") << "the date of the purchase order";
  screen.line(0, "H1", "2");
  screen.type("Received", "10");
  screen.press("SaveBttn");
  EXPECT_EQ(shop.rows(lineQuantities + std::string("22")), Rows{"30|2||False"});
  EXPECT_EQ(shop.one("select partycode, partycode2, text4, text7, text12, d1, d2, tramount, received, balance from "
                     "transactions where trantype=22"),
            "50001002|21001002||||V'9|4|60|10|50");
  EXPECT_EQ(shop.one("select docno, docno2, vendorInvNo, partycode, trantype, tramount, return, payment, totpayment "
                     "from agingcr"),
            "1|1|V'9|21001002|22|60|0|10|10");
  // A cash purchase is paid by hand, or refused.
  screen.type("PartyCodeTxt", "21001001");
  screen.type("D1", "V10");
  screen.line(0, "H1", "1");
  EXPECT_EQ(screen.text("Received"), "0.00");
  shop.prompts.expect("Cannot Save",
                      "Select a correct vendor to give credit for balance amount. Credit cannot be given to a Retail / "
                      "Cash Purchase Account.");
  screen.press("SaveBttn");
  screen.type("Received", "30");
  screen.press("SaveBttn");
  EXPECT_EQ(shop.rows("select accname, debit, credit from subtransactions where desc like '%2/V10%' or debit = 30"),
            (Rows{"Purchases|30|", "Cash in Hand||30"}));
}

TEST(TradeSaving, ReturnsTakeOffTheInvoiceTheyNameAndMoveStockUnlessTheRateIsAdjusted) {
  struct Return {
    InvoiceScreen::Make make;
    int tranType;
    const char* party;
    const char* reference;  // the box with the number that is returned against
    const char* quantities;
    const char* openItem;
  };
  const char* const openDr =
      "select docno, docno2, trandate, partycode, tramount, return, payment, totpayment from agingdr";
  const char* const openCr =
      "select docno, docno2, trandate, partycode, tramount, return, payment, totpayment from agingcr";
  for (const Return& kind : {Return{documents::makeSaleReturns, 35, "12001002", "D1", "50|2||", openDr},
                             Return{documents::makePurchaseReturns, 25, "21001002", "D2", "30||2|", openCr}}) {
    SCOPED_TRACE(kind.tranType);
    for (const int note : {0, 1})
      for (const bool billsLeaveStock : {false, true}) {
        TradingCompany shop;
        shop.context.BillInvLedger = billsLeaveStock;
        InvoiceScreen screen(shop, {}, kind.make);
        screen.find<QComboBox>("NoteType").setCurrentIndex(note);
        screen.type("PartyCodeTxt", kind.party);
        screen.type("D1", "12");
        screen.type(kind.reference, "12");
        screen.find<forms::DatePicker>((std::string(kind.reference) + "Dt").c_str())
            .setDay(text::DateTime::fromCalendar(2026, 10, 1));
        screen.line(0, "H1", "2");
        screen.type("Received", "10");
        const std::string net = screen.text("NetTotal");
        const std::string balance = screen.text("Balance");
        screen.press("SaveBttn");
        const std::string type = std::to_string(kind.tranType);
        EXPECT_EQ(shop.rows(lineQuantities + type),
                  Rows{kind.quantities + std::string(note == 1 || billsLeaveStock ? "True" : "False")});
        EXPECT_EQ(shop.one("select text7 from transactions where trantype=" + type), std::to_string(note));
        EXPECT_EQ(shop.one(kind.openItem), "12|1|10/1/2026|" + std::string(kind.party) + "|0|" +
                                               text::numberText(text::amountFrom(net)) + "|-10|" +
                                               text::numberText(text::amountFrom(balance)));
        shop.context.OpenTranNo = std::stoll(shop.one("select tranno from transactions where trantype=" + type));
        screen.press("PrevBttn");
        EXPECT_EQ(screen.find<QComboBox>("NoteType").currentIndex(), note);
        EXPECT_EQ(screen.find<forms::DatePicker>((std::string(kind.reference) + "Dt").c_str()).day(),
                  text::DateTime::fromCalendar(2026, 10, 1));
      }
  }
}

TEST(TradeScreens, NameTheirPriceWithTheCurrency) {
  TradingCompany shop;
  shop.context.ccode = "Rs.";
  for (const auto& [make, caption] :
       {std::pair<InvoiceScreen::Make, const char*>{documents::makeSaleReturns, "Selling Price Rs.:"},
        {documents::makePurchaseBillsSimple, "Purchase Price Rs.:"},
        {documents::makePurchaseReturns, "Purchase Price Rs.:"}}) {
    InvoiceScreen screen(shop, {}, make);
    EXPECT_EQ(screen.find<QLabel>("PriceLbl").text().toStdString(), caption);
  }
}

TEST(TradePrint, SaysWhatItIsAndCountsWhatMoved) {
  TradingCompany shop;
  struct Printed {
    InvoiceScreen::Make make;
    documents::InvoiceKind kind;
    int tranType;
    const char* party;
    std::vector<const char*> words;
  };
  for (const Printed& printed :
       {Printed{documents::makeSaleReturns,
                documents::InvoiceKind::SaleReturn,
                35,
                "12001002",
                {"SALE RETURN / CREDIT NOTE", "Sale Invoice No.", "Amount Received", "O'Brien & Sons"}},
        Printed{documents::makePurchaseBillsSimple,
                documents::InvoiceKind::Purchase,
                22,
                "21001002",
                {"PURCHASE BILL", "Vendor Invoice No.", "Amount Paid", "Ahmed's Mills"}},
        Printed{documents::makePurchaseReturns,
                documents::InvoiceKind::PurchaseReturn,
                25,
                "21001002",
                {"PURCHASE RETURN / DEBIT NOTE", "Purchase No.", "Amount Received", "Ahmed's Mills"}}}) {
    SCOPED_TRACE(printed.tranType);
    InvoiceScreen screen(shop, {}, printed.make);
    screen.type("PartyCodeTxt", printed.party);
    screen.type("D1", "12");
    if (printed.tranType == 25) screen.type("D2", "13");
    screen.line(0, "H1", "7");
    screen.press("SaveBttn");
    const store::Recordset document(shop.context.KORDconn,
                                    "select * from transactions where trantype=" + std::to_string(printed.tranType));
    const store::Recordset lines(shop.context.KORDconn,
                                 "Select * from stockflow where tranno = " + document.text("tranno"));
    const auto pages = printing::test::pagesOf(
        documents::tradePrint({shop.context, document, lines, {}, shop.clock.today()}, printed.kind));
    ASSERT_EQ(pages.size(), 1u);
    QString all;
    for (const printing::TextRun& run : pages[0].drawing.texts)
      all += printing::drawnText(pages[0].drawing, run, 1) + u'\n';
    for (const char* words : printed.words) EXPECT_TRUE(all.contains(QString::fromUtf8(words))) << words;
    EXPECT_TRUE(all.contains(QStringLiteral("7.00"))) << "the quantity";
  }
}

// What a document of its kind has in the columns of its Find screen.
TEST(TradeFind, FindsADocumentByEveryColumnAndNotByAnother) {
  TradingCompany shop;
  struct Found {
    InvoiceScreen::Make make;
    frame::FindType find;
    int tranType;
    const char* party;
    const char* d1;
    const char* d2;
  };
  for (const Found& kind :
       {Found{documents::makeSaleReturns, documents::findSReturns(), 35, "12001002", "12", nullptr},
        Found{documents::makePurchaseBillsSimple, documents::findPurchasesSimple(), 22, "21001002", "V'9", "12"},
        Found{documents::makePurchaseReturns, documents::findPReturns(), 25, "21001002", "V'9", "12"},
        Found{documents::makeSaleInvoicesSimple, documents::findSalesPOS(), 32, "12001002", "PO'9", "12"}}) {
    SCOPED_TRACE(kind.tranType);
    InvoiceScreen screen(shop, {}, kind.make);
    screen.type("PartyCodeTxt", kind.party);
    screen.type("D1", kind.d1);
    if (kind.d2) screen.type("D2", kind.d2);
    screen.line(0, "H1", "1");
    screen.press("SaveBttn");
    const store::Recordset saved(shop.context.KORDconn,
                                 "select * from transactions where trantype=" + std::to_string(kind.tranType));
    const auto count = [&](const std::string& condition) {
      return store::Recordset(shop.context.KORDconn, frame::findStatement(kind.find, kind.tranType, 1, condition))
          .recordCount();
    };
    EXPECT_EQ(count({}), 1);
    for (const frame::FindColumn& column : kind.find.columns) {
      SCOPED_TRACE(column.caption);
      const std::string field(column.column.substr(column.column.rfind('.') + 1));
      std::string value = saved.fieldIndex(field) >= 0 ? saved.text(field) : "dmin";  // of the user Administrator
      if (field == "EmpName") value = shop.one("select empname from employees where empid = " + saved.text("EmpID"));
      if (value.empty()) value = "%";
      EXPECT_EQ(count(frame::findCondition(column, value, shop.clock.today()).value()), 1) << value;
      const text::DateTime otherDay = shop.clock.today().addDays(1);
      const std::string other = column.condition == frame::FindCondition::Number ? "77777" : "no such' text";
      EXPECT_EQ(count(frame::findCondition(column, other, otherDay).value()), 0);
    }
  }
}

}  // namespace

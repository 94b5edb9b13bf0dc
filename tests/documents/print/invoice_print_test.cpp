#include "documents/print/invoice_print.h"

#include <cmath>

#include "documents/invoice_company.h"
#include "documents/print/invoice_design.h"
#include "documents/print/paper_reading.h"
#include "support/parted.h"

namespace {

using namespace velmo;
using namespace velmo::printing;
using documents::InvoiceSheet;
using namespace velmo::documents::test;

using Design = Report (*)(const InvoiceSheet&, const documents::InvoiceLines&);

struct Layout {
  const char* name;
  Design design;
  Paper paper;
  const char* words;           // of its own: headings, captions and 10250 as it writes it
  const char* discountAmount;  // 50 on the whole; without a discount column 10 of the lines with it
};

const Layout layouts[] = {
    {"Invoice", documents::designInvoice, A4,
     "Gross Amount|Discount|Net Amount|Additional Discount  Rs.|Amount Received  Rs.|10,250.00", "50.00"},
    {"Invoice0", documents::designInvoice0, A4, "Quantity|Rate|Amount|Discount  Rs.|Amount Received  Rs.|10,250.00",
     "60.00"},
    {"Invoice01", documents::designInvoice01, A5Landscape,
     "Gross Amount|Discount|Net Amount|Additional Discount  Rs.|Amount Received  Rs.|10,250.00", "50.00"},
    {"Invoice02", documents::designInvoice02, A5,
     "Rate|Discount|Net Amount|Additional Discount  Rs.|Amount Received  Rs.|10,250.00", "50.00"},
    {"Invoice6", documents::designInvoice6, Roll80,
     "Quantity|Rate|Discount|Amount|Discount  Rs.|Amount Received  Rs.|10250.00|Velmo Point of Sale", "(50.00)"},
    {"Invoice7", documents::designInvoice7, Roll80,
     "Quantity|Rate|Amount|Discount  Rs.|Received  Rs.|10250.00|Velmo Point of Sale", "(60.00)"}};

DataRow line(int number, const std::string& name, double gross = 100, double discount = 10) {
  return {.fields = {{"serial", std::int64_t{number}},
                     {"itemcode", "HAM-" + std::to_string(number)},
                     {"itemname", name},
                     {"stockout", 2.0},
                     {"unit", std::string("Pcs")},
                     {"rate", gross / 2},
                     {"grossamt", gross},
                     {"discamt", discount},
                     {"itemvalue", gross - discount}},
          .chapters = {}};
}

std::vector<DataRow> lines(int count) {
  std::vector<DataRow> all;
  for (int number = 1; number <= count; ++number) all.push_back(line(number, "Claw hammer, ash handle"));
  return all;
}

InvoiceSheet sheet() {
  return {.letterhead = {"Velmo Traders", "12 Canal Road, Lahore", "Tel: 042-555-0101   Fax: 042-555-0102",
                         "E-Mail: shop@velmo.example", "Ayesha"},
          .currencyCode = "Rs.",
          .docno = "4711",
          .trandate = text::DateTime::fromCalendar(2026, 11, 22),
          .partyname = "O'Brien & Sons",
          .partyadd = "1 High Street, Lahore",
          .partytel = "555-1",
          .nature = "Net 30",
          .d1txt = "PO-9",
          .d1dttxt = "20-11-2026",
          .d2txt = "17",
          .d2dttxt = "21-11-2026",
          .lineDiscount = 10,
          .discount = 50,
          .carriage = 250,
          .netTotal = 10250,
          .received = 250,
          .balance = 10000,
          .words = "Rupees Ten Thousand Two Hundred Fifty only.",
          .request = {.today = text::DateTime::fromCalendar(2026, 11, 23)}};
}

// Nothing on them is over another thing; left as pictures under the layout's name.
std::vector<Page> pagesOf(const Layout& layout, const InvoiceSheet& invoice, std::vector<DataRow> data,
                          const std::string& picture) {
  return cleanPages(layout.design(invoice, std::make_shared<VectorData>(std::move(data))), layout.name + picture);
}

TEST(InvoicePrint, EveryLayoutSaysWhatAnInvoiceSays) {
  const InFolder noLogo;
  for (const Layout& layout : layouts) {
    SCOPED_TRACE(layout.name);
    const Report report = layout.design(sheet(), std::make_shared<VectorData>(lines(3)));
    const auto pages = cleanPages(report, std::string(layout.name) + "-3-lines");
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(report.title, "Sale Invoice");
    EXPECT_EQ(pages[0].width, layout.paper.width);
    if (!layout.paper.endless()) {
      EXPECT_EQ(pages[0].height, layout.paper.height);
    }
    const std::string text = "\n" + wholeText(pages);
    for (const char* list :
         {"Velmo Traders|12 Canal Road, Lahore|E-Mail: shop@velmo.example|SALE INVOICE|Invoice "
          "No.|4711|22-11-2026|O'Brien & Sons|1 High Street, Lahore|Tel: 555-1|Net "
          "30|PO-9|20-11-2026|17|21-11-2026|Description|Totals  Rs.|Gross Total  Rs.|Carriage & Freight  Rs.|Net Total "
          " Rs.|Balance  Rs.|Prepared By: Ayesha|Page  1  of  1|Date 23-11-2026",
          layout.words})
      for (const std::string_view words : velmo::test::parted(list))
        EXPECT_NE(text.find("\n" + std::string(words) + "\n"), std::string::npos) << words;
    EXPECT_NE(solid(text).find(solid(sheet().words)), std::string::npos);
    EXPECT_EQ(text.find("CANCELLED"), std::string::npos);
    EXPECT_EQ(report.variables.at("DiscountAmt"), layout.discountAmount);
  }
}

TEST(InvoicePrint, ServiceCancelledAndNegative) {
  const InFolder noLogo;
  for (const Layout& layout : layouts) {
    SCOPED_TRACE(layout.name);
    InvoiceSheet invoice = sheet();
    invoice.request.kind = documents::InvoiceKind::Service;
    invoice.request.state = documents::DocumentState::Cancelled;
    invoice.carriage = -5;
    invoice.partytel = invoice.nature = invoice.d1txt = invoice.d1dttxt = invoice.d2txt = invoice.d2dttxt = "";
    const auto pages = pagesOf(layout, invoice, lines(1), "-service");
    const std::string text = "\n" + wholeText(pages);
    for (const char* words :
         {"SERVICE INVOICE", "Service Invoice No.", "Description of Service", "CANCELLED", " (5.00)"})
      EXPECT_NE(text.find("\n" + std::string(words) + "\n"), std::string::npos) << words;
    for (const char* words : {"SALE INVOICE", "Purchase Order No.", "Dated", "Tel: \n"})
      EXPECT_EQ(text.find("\n" + std::string(words)), std::string::npos) << words;
  }
}

TEST(InvoicePrint, OwnLetterheadBeginsAtItsMarginWithoutTheCompany) {
  for (const Layout& layout : layouts)
    for (const Twips margin : {200, 4000})
      for (const int count : {0, 60}) {
        SCOPED_TRACE(std::string(layout.name) + " " + std::to_string(margin));
        InvoiceSheet invoice = sheet();
        invoice.headStyle = HeadStyle::OwnLetterhead;
        invoice.topMargin = margin;
        invoice.partyadd = std::string(250, 'W');
        const auto pages = pagesOf(layout, invoice, lines(count), "-letterhead-" + std::to_string(margin));
        EXPECT_EQ(wholeText(pages).find("Velmo Traders"), std::string::npos);
        Twips highest = pages[0].height;
        for (const TextRun& run : pages[0].drawing.texts) highest = std::min(highest, run.at.top);
        EXPECT_NEAR(highest, margin, mm(3));
      }
}

TEST(InvoicePrint, NothingOverlapsOrIsCutWhateverItHolds) {
  const InFolder noLogo;
  const std::string urdu = "ہتھوڑا لکڑی کے دستے والا مضبوط اور پائیدار";
  const std::string arabic = "مطرقة حديد مع مقبض خشبي طويل جدا للنجارين";
  std::vector<DataRow> extremes{line(1, "least", -99999999.99, -99999999.99), line(2, "most", 9999999999.99, 0),
                                line(3, urdu, 0.01, 0), line(4, arabic)};
  const std::pair<const char*, std::vector<DataRow>> cases[] = {{"0-lines", {}},
                                                                {"60-lines", lines(60)},
                                                                {"500-lines", lines(500)},
                                                                {"250-wide", {line(1, std::string(250, 'W'))}},
                                                                {"extremes", extremes}};
  for (const Layout& layout : layouts)
    for (const auto& [name, data] : cases) {
      SCOPED_TRACE(std::string(layout.name) + " " + name);
      InvoiceSheet invoice = sheet();
      if (data.size() == 4) {
        invoice.letterhead.companyName = urdu + " " + urdu;
        invoice.partyname = arabic;
        invoice.partyadd = std::string(250, 'M');
        invoice.netTotal = invoice.balance = 9999999999.99;
        invoice.received = invoice.carriage = -99999999.99;
        invoice.words =
            "Rupees Nine Billion Nine Hundred Ninety Nine Million Nine Hundred Ninety Nine Thousand Nine "
            "Hundred Ninety Nine and Paisas Ninety Nine only.";
      }
      const auto pages = pagesOf(layout, invoice, data, std::string("-") + name);
      const std::string text = solid(wholeText(pages));
      for (const DataRow& row : data)
        EXPECT_NE(text.find(solid(store::textOf(row.fields.at("itemname")))), std::string::npos);
      const std::string all = "\n" + wholeText(pages);
      if (data.size() == 4) {
        const bool slip = layout.paper.endless();
        for (const char* figure :
             {slip ? "9999999999.99" : "9,999,999,999.99", slip ? " (99999999.99)" : " (99,999,999.99)"})
          EXPECT_NE(all.find("\n" + std::string(figure) + "\n"), std::string::npos) << "broken: " << figure;
      }
      if (layout.paper.endless()) {
        EXPECT_EQ(pages.size(), 1U);
        const auto count = static_cast<Twips>(data.size());
        EXPECT_GT(pages[0].height, count * mm(6)) << "a slip is as long as its lines";
        EXPECT_LT(pages[0].height, mm(160) + std::max(count, 12) * mm(10));
      } else if (data.size() == 500) {
        EXPECT_GT(pages.size(), 5U);
        for (const Page& page : pages) {
          const std::string sheetText = printing::test::textsOf(page);
          const bool hasLines =
              sheetText.find("HAM-") != std::string::npos || sheetText.find("hammer") != std::string::npos;
          EXPECT_EQ(sheetText.find("Description") != std::string::npos, hasLines)
              << "headings above lines, on every page";
        }
      } else if (data.size() == 1 || data.empty()) {
        EXPECT_EQ(pages.size(), 1U);
      }
    }
}

// The count of lines at which the totals find no room below them any more.
TEST(InvoicePrint, TotalsAloneOverleafHaveNoEmptyTableAboveThem) {
  const InFolder noLogo;
  for (const Layout& layout : layouts) {
    if (layout.paper.endless()) continue;
    SCOPED_TRACE(layout.name);
    int count = 1;
    std::vector<Page> pages;
    while (pages.size() < 2 && count < 200) pages = pagesOf(layout, sheet(), lines(count++), "-totals-overleaf");
    ASSERT_EQ(pages.size(), 2U);
    const std::string overleaf = printing::test::textsOf(pages[1], 2);
    ASSERT_EQ(overleaf.find("Claw hammer"), std::string::npos);
    EXPECT_EQ(overleaf.find("Description"), std::string::npos);
    EXPECT_NE(overleaf.find("Net Total"), std::string::npos);
  }
}

TEST(InvoicePrint, CodesStandOnOneLine) {
  const InFolder noLogo;
  for (const Layout& layout : layouts) {
    SCOPED_TRACE(layout.name);
    std::vector<DataRow> data = lines(6);
    for (DataRow& row : data) row.fields["itemcode"] = std::string("2000000013985");
    data[0].fields["itemcode"] = std::string("HH-2026/MAHOGANY-99");
    data[1].fields["itemcode"] = std::string("a code of words");
    const auto pages = pagesOf(layout, sheet(), data, "-codes");
    EXPECT_EQ(pages.size(), 1U);
    const std::string text = "\n" + wholeText(pages);
    if (text.find("Item Code") == std::string::npos) continue;
    for (const char* code : {"2000000013985", "HH-2026/MAHOGANY-99"})
      EXPECT_NE(text.find("\n" + std::string(code) + "\n"), std::string::npos) << "broken: " << code;
  }
}

TEST(InvoicePrint, AnyLogoIsShownWholeOrLeftOut) {
  const QImage picture = [] {
    QImage drawn(640, 400, QImage::Format_RGB32);
    drawn.fill(QColor(31, 122, 94));
    return drawn;
  }();
  struct Case {
    const char* name;
    QSize size;
    const char* format;
    bool shown;
  };
  for (const Case& logo : {Case{"fit", {640, 400}, "jpg", true}, Case{"wide", {3000, 60}, "jpg", true},
                           Case{"tall", {60, 3000}, "jpg", true}, Case{"huge", {12000, 9000}, "jpg", true},
                           Case{"PNG", {300, 300}, "png", true}, Case{"broken", {}, "", false}}) {
    const InFolder folder;
    if (logo.size.isEmpty()) {
      QFile file("mylogo.jpg");
      ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("not a picture") > 0);
    } else {
      ASSERT_TRUE(picture.scaled(logo.size).save("mylogo.jpg", logo.format));
    }
    for (const Layout& layout : layouts) {
      SCOPED_TRACE(std::string(layout.name) + " " + logo.name);
      const auto pages = pagesOf(layout, sheet(), lines(2), std::string("-logo-") + logo.name);
      ASSERT_EQ(pages[0].drawing.pictures.size(), logo.shown ? 1U : 0U);
      if (!logo.shown) continue;
      const PlacedPicture& placed = pages[0].drawing.pictures[0];
      const double ratio = double(logo.size.width()) / logo.size.height();
      EXPECT_NEAR(double(placed.at.width) / placed.at.height / ratio, 1, 0.05) << "distorted";
      EXPECT_LE(placed.image.width(), 1600) << "more than paper shows";
    }
  }
}

// From the stored document, in the layout that the company's settings choose.
TEST(InvoicePrint, SettingsChooseTheLayout) {
  velmo::test::InvoiceCompany shop;
  {
    velmo::test::InvoiceScreen screen(shop);
    screen.saveInvoice("12001002", "40");
  }
  store::Recordset document(shop.context.KORDconn, "Select * from transactions where trantype=32");
  store::Recordset rows(shop.context.KORDconn, "Select * from stockflow where tranno = " + document.text("tranno"));
  shop.context.sitm = 3000;
  using documents::InvoiceLayout;
  const std::map<int, InvoiceLayout> chosen{{1, InvoiceLayout::Invoice},   {2, InvoiceLayout::Invoice0},
                                            {3, InvoiceLayout::Invoice01}, {4, InvoiceLayout::Invoice02},
                                            {6, InvoiceLayout::Invoice6},  {7, InvoiceLayout::Invoice7}};
  for (int sif = -1; sif <= 21; ++sif) {
    SCOPED_TRACE(sif);
    shop.context.sif = sif;
    const auto report = documents::invoicePrint({shop.context, document, rows, {}, shop.clock.today()});
    const auto expected = chosen.find(sif > 10 ? sif - 10 : sif);
    ASSERT_EQ(report.has_value(), expected != chosen.end());
    if (!report) continue;
    EXPECT_EQ(documents::invoiceLayout(sif), expected->second);
    EXPECT_EQ(report->design.margins.top == 3000, sif > 10);
    EXPECT_EQ(report->variables.contains("CoName"), sif < 10);
    const std::string text = wholeText(printing::test::pagesOf(*report));
    for (const char* words : {"O'Brien & Sons", "Hammer", "100.00", "Rupees one hundred", "40.00", "60.00"})
      EXPECT_NE(text.find(words), std::string::npos) << words;
    EXPECT_EQ(text.find("E-Mail:"), std::string::npos) << "the company has none";
  }
  shop.context.sif = 11;
  EXPECT_TRUE(
      documents::invoicePrint(InvoiceLayout::Invoice7, {shop.context, document, rows}).variables.contains("CoName"))
      << "only the layout's own number asks for a letterhead";
}

}  // namespace

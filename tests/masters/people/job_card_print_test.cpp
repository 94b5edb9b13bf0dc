#include "masters/people/job_card_print.h"

#include <gtest/gtest.h>

#include "printing/page_pictures.h"
#include "schema/company_schema.h"
#include "support/new_company.h"

namespace velmo::masters {
namespace {

using namespace printing;

class JobCard : public testing::Test {
 protected:
  JobCard() {
    context.KORDconn.open(schema::plainConnectionString);
    context.CompanyName = "Harbour Timber";
    context.CompanyAddress = "12 Dock Road";
    context.CompanyEmailLine = "E-Mail: yard@harbour.example";
    context.ccode = "Rs.";
    context.UserName = "Ayesha";
    context.KORDconn.execute("INSERT INTO Employees (EmpID, EmpName, Status) VALUES (7, 'Omar (left us)', Yes)");
  }

  std::vector<Page> cardOf(std::initializer_list<store::FieldValue> fields, const char* picture) {
    store::Recordset jobs(context.KORDconn, "select * from jobs");
    jobs.addNew(fields);
    store::Recordset job(context.KORDconn, "Select * from Jobs where jobid=" + jobs.text("JobID"));
    const Report report = jobCardPrint(context, job, text::DateTime::fromCalendar(2026, 11, 22));
    EXPECT_EQ(report.title, "Job Card");
    std::vector<Page> pages = printing::test::pagesOf(report);
    for (const Page& page : pages) printing::test::expectNothingOverlaps(page, report.design);
    printing::test::leavePictures(picture, pages);
    return pages;
  }

  // The text that stands directly under a caption.
  static std::string under(const Page& page, const std::string& caption) {
    const auto& runs = page.drawing.texts;
    const auto textOf = [&](const TextRun& run) { return page.drawing.textOf(run).toStdString(); };
    const auto found = std::find_if(runs.begin(), runs.end(), [&](const TextRun& run) {
      return textOf(run) == caption && run.font.weight == Weight::Regular;
    });
    if (found == runs.end()) return "no caption " + caption;
    for (const TextRun& run : runs)
      if (run.boxLeft == found->boxLeft && run.at.top >= found->at.bottom() && run.at.top < found->at.bottom() + mm(4))
        return textOf(run);
    return "";
  }

  velmo::test::NewCompany company;
  session::LoginContext context{schema::companyCatalog()};
};

TEST_F(JobCard, EveryFieldStandsUnderItsCaptionOnOnePage) {
  const std::vector<Page> pages = cardOf({{"JobNo", 41},
                                          {"JobDate", text::DateTime::fromCalendar(2026, 3, 5)},
                                          {"JobDesc", "Two oak doors"},
                                          {"OrderRefDate", "PO-9 of 1 March"},
                                          {"ExpDeliveryDate", "end of April"},
                                          {"CustomerCode", 12001002},
                                          {"CustomerName", "O'Brien & Sons"},
                                          {"Address", "1 High St"},
                                          {"Telephone", "555-1"},
                                          {"Contact", "Mr. Khan"},
                                          {"EstimatedCost", 1234567.5},
                                          {"ValueofWork", -80},
                                          {"InchargeID", 7},
                                          {"CompletionDate", "30 April"},
                                          {"Status", true},
                                          {"DeliveryRefDate", "DC-3"},
                                          {"Remarks", "100%d seasoned oak"}},
                                         "job-card");
  ASSERT_EQ(pages.size(), 1U);
  const std::pair<const char*, const char*> fields[] = {{"Job No.", "41"},
                                                        {"Job Date", "05-03-2026"},
                                                        {"In Charge", "Omar (left us)"},
                                                        {"Description", "Two oak doors"},
                                                        {"Customer Code", "12001002"},
                                                        {"Customer Name", "O'Brien & Sons"},
                                                        {"Address", "1 High St"},
                                                        {"Telephone", "555-1"},
                                                        {"Contact", "Mr. Khan"},
                                                        {"Order Ref. & Date", "PO-9 of 1 March"},
                                                        {"Expected Delivery", "end of April"},
                                                        {"Delivery Ref. & Date", "DC-3"},
                                                        {"Completion Date", "30 April"},
                                                        {"Estimated Cost (Rs.)", "1,234,567.50"},
                                                        {"Value of Work (Rs.)", "(80.00)"}};
  for (const auto& [caption, text] : fields) EXPECT_EQ(under(pages[0], caption), text) << caption;
  const std::string all = printing::test::textsOf(pages[0], 1);
  for (const char* words : {"Harbour Timber", "12 Dock Road", "yard@harbour.example", "JOB CARD", "CLOSED",
                            "100%d seasoned oak", "Page  1  of  1", "Printed By: Ayesha"})
    EXPECT_NE(all.find(words), std::string::npos) << words;
  EXPECT_EQ(all.find("OPEN"), std::string::npos);
}

TEST_F(JobCard, AnEmptyJobIsAFormAndALongOneGrows) {
  const std::vector<Page> empty = cardOf({{"JobNo", 1}, {"Status", false}}, "job-card-empty");
  ASSERT_EQ(empty.size(), 1U);
  EXPECT_EQ(under(empty[0], "In Charge"), "");
  EXPECT_EQ(under(empty[0], "Job Date"), "");
  EXPECT_NE(printing::test::textsOf(empty[0], 1).find("OPEN"), std::string::npos);
  const std::string words = "لکڑی کے دروازے " + std::string(70, 'W');
  const std::vector<Page> grown = cardOf({{"JobNo", 2},
                                          {"JobDesc", words},
                                          {"CustomerName", words},
                                          {"Address", words},
                                          {"Contact", words},
                                          {"OrderRefDate", words},
                                          {"Remarks", words}},
                                         "job-card-long");
  EXPECT_EQ(grown.size(), 1U);
}

}  // namespace
}  // namespace velmo::masters

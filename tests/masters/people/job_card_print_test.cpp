#include "masters/people/job_card_print.h"

#include <gmock/gmock.h>

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
    return printing::test::cleanPages(report, picture);
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
  std::vector<std::string> shown;
  for (const char* caption : {"Job No.", "Job Date", "In Charge", "Description", "Customer Code", "Customer Name",
                              "Address", "Telephone", "Contact", "Order Ref. & Date", "Expected Delivery",
                              "Delivery Ref. & Date", "Completion Date", "Estimated Cost (Rs.)", "Value of Work (Rs.)"})
    shown.push_back(under(pages[0], caption));
  EXPECT_THAT(shown, testing::ElementsAre("41", "05-03-2026", "Omar (left us)", "Two oak doors", "12001002",
                                          "O'Brien & Sons", "1 High St", "555-1", "Mr. Khan", "PO-9 of 1 March",
                                          "end of April", "DC-3", "30 April", "1,234,567.50", "(80.00)"));
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

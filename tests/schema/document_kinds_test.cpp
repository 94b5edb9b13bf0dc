#include "schema/document_kinds.h"

#include <algorithm>

#include "schema/open_company.h"

namespace velmo::schema {
namespace {

// "add sale invoices.", "view sale invoices." -> "sale invoices."
std::string withoutVerb(const std::string& words) {
  for (const std::string verb : {"add and view ", "add ", "view ", "go through "})
    if (words.starts_with(verb)) return words.substr(verb.size());
  return words;
}

TEST(DocumentKinds, EveryFormIsOfAKindAndItsRightsAreAboutTheSameDocuments) {
  test::OpenCompany company;
  const auto words = [&](int right) {
    return company.rows("select RightType from UserRights where RightID=" + std::to_string(right)).text("RightType");
  };
  for (const DocumentForm& form : documentForms) {
    SCOPED_TRACE(form.screen);
    EXPECT_EQ(&documentForm(form.screen), &form) << "a name of its own";
    EXPECT_NO_THROW(documentKind(form.tranType));
    const std::string opened = words(form.openRight);
    EXPECT_TRUE(opened.starts_with("add ") || form.tranType == tran_type::OpeningBalance) << opened;
    EXPECT_EQ(withoutVerb(words(form.viewRight)), withoutVerb(opened));
    if (form.browseRight != 0) {
      EXPECT_EQ(withoutVerb(words(form.browseRight)), withoutVerb(opened));
    }
  }
  EXPECT_THROW(documentForm("PurchaseBill"), std::logic_error);
  EXPECT_THROW(documentKind(23), std::logic_error);
}

// A ledger opens what posts to it, a list of goods what may move them, and no kind more than one screen.
TEST(DocumentKinds, ReportsOpenTheDocumentsThatTheyList) {
  for (const DocumentKind& kind : documentKinds()) {
    SCOPED_TRACE(kind.name);
    const auto screens = [&](std::initializer_list<LedFrom> ledFrom) {
      return std::ranges::count_if(documentForms, [&](const DocumentForm& form) {
        return form.tranType == kind.tranType &&
               (ledFrom.size() == 0 || std::ranges::find(ledFrom, form.ledFrom) != ledFrom.end());
      });
    };
    EXPECT_LE(screens({LedFrom::Ledgers, LedFrom::Both}), 1);
    EXPECT_LE(screens({LedFrom::Goods, LedFrom::Both}), 1);
    if (screens({}) == 0) continue;
    const bool movesGoods = kind.stock != StockRule::NoGoods && kind.stock != StockRule::Never;
    EXPECT_TRUE(kind.ledger == Ledger::None || formFromReport(kind.tranType, LedFrom::Ledgers));
    EXPECT_TRUE(!movesGoods || formFromReport(kind.tranType, LedFrom::Goods));
  }
}

}  // namespace
}  // namespace velmo::schema

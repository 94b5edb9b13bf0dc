#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <random>

#include "attack/process.h"
#include "documents/production/production_costs.h"
#include "documents/production/production_posting.h"
#include "documents/production/production_sheets.h"
#include "documents/production/production_type.h"
#include "documents/production/recipe_type.h"
#include "frame/document/compose_document.h"
#include "support/new_company.h"
#include "support/plain_rows.h"

namespace velmo::attack {
namespace {

const text::DateTime workTime = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);

// Writes recipes and makes goods, every third time in a document that is there.
class WorkshopAtRisk {
 public:
  explicit WorkshopAtRisk(unsigned seed) : random_(seed), context_(schema::companyCatalog()) {
    context_.KORDconn.open(schema::plainConnectionString);
    context_.FYID = context_.UserID = context_.stocklocationid = 1;
  }

  void step() {
    const bool makes = pick(2) == 0;
    const frame::DocumentType& type = makes ? documents::productionType() : documents::billOfMaterialType();
    std::int64_t& last = last_[makes ? 0 : 1];
    const std::int64_t shown = pick(3) == 0 ? last : 0;
    store::Recordset tran(context_.KORDconn, "select * from transactions where tranno = " + std::to_string(shown));
    documents::ProductionSheets sheets;
    sheets.open(context_.KORDconn, shown);
    const double material = fillInputs(sheets.SubTranIn);
    frame::DocumentValues values;
    values.DocNo = shown == 0 ? std::to_string(nextNumber(type.form.tranType)) : tran.text("docno");
    values.TrDate = workTime.date();
    values.Cancel = !makes;
    if (makes) {
      fillProduction(values, sheets.SubTranOut, material);
    } else {
      values.fields = documents::recipeCosts(material, {{"Labour", "5.00"}, {"FOH", "3.00"}}, "Rs.");
      values.fields["ICode"] = values.fields["IName"] = "P1";
      values.fields["QtyBox"] = "1";
    }
    auto document = frame::composeHeader(type, values, context_, workTime,
                                         shown == 0 ? frame::HeaderWrite::Add : frame::HeaderWrite::Update);
    if (makes) document.ledger = documents::productionLedger(values);
    last = frame::writeDocument(context_.KORDconn, document, tran,
                                [&](std::int64_t tranNo) { sheets.write({.tranNo = tranNo, .locationId = 1}); });
  }

 private:
  int pick(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  std::int64_t nextNumber(int tranType) {
    const store::Recordset last(context_.KORDconn, "select Max(DocNo) as LastNo from transactions where trantype = " +
                                                       std::to_string(tranType));
    return last.integer("LastNo") + 1;
  }
  static void put(store::Recordset& sheet, std::int64_t row, const char* code, const char* field, double quantity,
                  double amount) {
    const auto set = [&](const char* name, const store::Value& value) {
      sheet.setAt(row, sheet.fieldIndex(name), value);
    };
    set("itemcode", std::string(code));
    set(field, quantity);
    set("grossamt", amount);
    set("itemvalue", amount);
  }
  double fillInputs(store::Recordset& sheet) {
    double material = 0;
    for (int row = 0, count = 1 + pick(12); row < count; ++row) {
      const double amount = 2.5 * (1 + pick(9));
      put(sheet, row, "H1", "stockout", 1, amount);
    }
    for (std::int64_t row = 0; row < sheet.recordCount(); ++row)
      material += store::numberOf(sheet.valueAt(row, sheet.fieldIndex("grossamt")));
    return material;
  }
  static void fillProduction(frame::DocumentValues& values, store::Recordset& sheet, double material) {
    values.fields = documents::productionCosts(material, material + 16,
                                               {{"TotL", "5.00"}, {"TotFOH", "3.00"}, {"TotOS", "8.00"}}, "Rs.");
    put(sheet, 0, "P1", "stockin", 4, material + 16);
    values.IncomeCode = "50001002";
    values.ACodeTxt = "50001008";
    values.PartyCodeTxt = "12001001";
    values.LocationList.id = 1;
  }

  std::mt19937 random_;
  session::LoginContext context_;
  std::int64_t last_[2] = {};
};

// Torn documents, as anybody sees them who only adds up.
std::vector<std::string> torn(test::PlainFile& file) {
  return test::plainTexts(
      file,
      "with doc as (select t.TranNo, t.TranType, t.TrAmount, t.Discount, t.Cancel, (select coalesce(sum(GrossAmt), 0) "
      "from StockFlow s where s.TranNo = t.TranNo and StockOut is not null) as Material, (select "
      "coalesce(sum(GrossAmt), 0) from StockFlow s where s.TranNo = t.TranNo and StockIn is not null) as Made, (select "
      "coalesce(sum(Debit), 0) from SubTransactions l where l.TranNo = t.TranNo) as Debits, (select "
      "coalesce(sum(Credit), 0) from SubTransactions l where l.TranNo = t.TranNo) as Credits from Transactions t where "
      "t.TranType in (42, 95)) select * from doc where abs(Discount - Material) > 0.001 or (TranType = 95 and (Debits "
      "+ Credits <> 0 or Cancel = 0 or abs(TrAmount - Material - 8) > 0.001)) or (TranType = 42 and (abs(TrAmount - "
      "Made) > 0.001 or abs(Debits - Made) > 0.001 or abs(Credits - Made) > 0.001 or abs(Made - Material - 16) > "
      "0.001))");
}

TEST(WorkshopAfterKill, EveryDocumentIsThereWholeOrNotAtAll) {
  const test::NewCompany company;
  std::mt19937 random(20261122);
  std::int64_t before = 0;
  int grown = 0;
  for (int kill = 0; kill < 60 && !testing::Test::HasFailure(); ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    Process program([seed = static_cast<unsigned>(random())] {
      for (WorkshopAtRisk workshop(seed);;) workshop.step();
    });
    ::usleep(static_cast<useconds_t>(std::uniform_int_distribution(5000, 50000)(random)));
    program.send(SIGKILL);
    EXPECT_EQ(program.status(), -SIGKILL) << "it ended by itself";
    test::PlainFile file("Uninstall/Uninstall.MDB");
    EXPECT_EQ(torn(file), std::vector<std::string>{});
    const std::int64_t now =
        std::stoll(test::plainTexts(file, "select count(*) from Transactions where TranType in (42, 95)").front());
    grown += now > before ? 1 : 0;
    before = now;
  }
  EXPECT_GT(grown, 15) << "the kills missed the saves";
}

}  // namespace
}  // namespace velmo::attack

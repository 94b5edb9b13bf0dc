#include "demo_company/workshop.h"

#include <stdexcept>

#include "demo_company/next_number.h"
#include "demo_company/parties.h"
#include "documents/production/production_costs.h"
#include "documents/production/production_posting.h"
#include "documents/production/production_type.h"
#include "documents/production/recipe_import.h"
#include "documents/production/recipe_type.h"
#include "frame/document/compose_document.h"
#include "frame/posting/document_writer.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::demo {
namespace {

constexpr std::uint32_t seed = 4295;

struct Component {
  const char* item;
  double quantity;
};

struct KnownRecipe {
  const char* product;
  std::vector<Component> components;
  double labour;
  double overhead;
  const char* remarks;
};

const KnownRecipe recipes[] = {
    {"Garden Hose 15 m",
     {{"Garden Hose 50 m", 0.3}, {"Hose Connector 1/2\"", 2}},
     0.40,
     0.10,
     "Cut from the long roll, a connector at each end"},
    {"Tile Adhesive 5 kg", {{"Tile Adhesive 25 kg", 0.2}}, 0.15, 0.05, "Packed from the large bag"},
    {"Interior Emulsion White 1 L", {{"Interior Emulsion White 20 L", 0.05}}, 0.35, 0.15, "Filled from the drum"},
    {"Braided Hose 300 mm", {{"Braided Hose 800 mm", 0.4}, {"Thread Tape 10 m", 0.1}}, 0.20, 0.05, "Cut and sealed"},
    {"Distribution Board 4 Way",
     {{"Distribution Board 6 Way", 1},
      {"Circuit Breaker 10 A", 2},
      {"Circuit Breaker 16 A", 2},
      {"Cable Tie 100 mm", 0.1}},
     2.50,
     0.75,
     "Wired and tested"},
};

// At the counter the same is written by a screen, in one change.
std::int64_t write(session::LoginContext& context, const frame::DocumentType& type, const frame::DocumentValues& values,
                   const text::DateTime& moment, store::Recordset* sheets[2], std::vector<frame::LedgerLine> ledger) {
  frame::DocumentWrite document = frame::composeHeader(type, values, context, moment, frame::HeaderWrite::Add);
  if (!ledger.empty()) document.ledger = std::move(ledger);
  store::Recordset tran(context.KORDconn, "SELECT * from transactions where tranno = 0");
  return frame::writeDocument(context.KORDconn, document, tran, [&](std::int64_t tranNo) {
    for (int i = 0; i < 2 && sheets[i]; ++i)
      frame::writeLines(*sheets[i], {.tranNo = tranNo, .locationId = context.stocklocationid, .jobId = 0});
  });
}

store::Recordset blankSheet(session::LoginContext& context) {
  return {context.KORDconn, "Select * from stockflow where tranno = 0", store::LockType::BatchOptimistic};
}

double money(double amount) {
  return text::amountFrom(text::formatNumber(amount, "0.00"));
}

std::string shown(double amount) {
  return text::formatNumber(amount, "0.00");
}

}  // namespace

Workshop::Workshop(session::LoginContext& context, std::map<std::string, double>& stock, const text::DateTime& moment)
    : context_(context), stock_(stock), dice_(seed) {
  for (const KnownRecipe& known : recipes) {
    const Item product = itemNamed(known.product);
    store::Recordset sheet = blankSheet(context_);
    double material = 0;
    for (const Component& component : known.components) {
      const Item item = itemNamed(component.item);
      const double amount = money(component.quantity * item.cost);
      addLine(sheet, "StockOut", item, component.quantity, amount);
      material += amount;
    }
    frame::DocumentValues values;
    values.DocNo = std::to_string(nextNumber(context_, schema::tran_type::BillOfMaterial));
    values.TrDate = moment.date();
    values.Desc = known.remarks;
    values.Cancel = true;
    values.fields = documents::recipeCosts(material, {{"Labour", shown(known.labour)}, {"FOH", shown(known.overhead)}},
                                           context_.currencyname);
    for (const auto& [field, text] : std::initializer_list<std::pair<const char*, std::string>>{
             {"ICode", product.code}, {"IName", product.name}, {"UnitBox", product.unit}, {"QtyBox", "1"}})
      values.fields[field] = text;
    store::Recordset* sheets[2] = {&sheet, nullptr};
    write(context_, documents::billOfMaterialType(), values, moment, sheets, {});
    products_.push_back(product.code);
  }
}

void Workshop::work(const text::DateTime& day, const text::DateTime& now) {
  if (text::formatDate(day, "ddd") != "Sat") return;
  const text::DateTime moment{day.day, 14 * 3600 + dice_.between(0, 3599)};
  const std::string& product = dice_.pick(products_);
  const int pieces = dice_.between(2, 6) * 2;
  if (moment <= now) make(product, pieces, moment);
}

Workshop::Item Workshop::itemNamed(const std::string& name) {
  const store::Recordset found(context_.KORDconn, "SELECT * FROM StockLevel3 WHERE ItemName = " + store::quoted(name));
  if (found.isEmpty()) throw std::logic_error("the workshop knows no item " + name);
  return {
      .code = found.text("ItemCode"), .name = name, .unit = found.text("Unit"), .cost = found.number("ValuationCost2")};
}

void Workshop::addLine(store::Recordset& sheet, const char* quantityField, const Item& item, double quantity,
                       double amount) {
  sheet.addNew({{"ItemCode", item.code},
                {"ItemName", item.name},
                {quantityField, quantity},
                {"Unit", item.unit},
                {"Rate", item.cost},
                {"GrossAmt", amount},
                {"DiscRate", 0.0},
                {"DiscAmt", 0.0},
                {"ItemValue", amount}});
}

// As long as there is enough of everything; every fourth time a part of the work is done outside.
void Workshop::make(const std::string& product, double pieces, const text::DateTime& moment) {
  const auto recipe = documents::recipeFor(pieces, documents::recipeOf(context_.KORDconn, product), 500);
  if (!recipe) throw std::logic_error(recipe.error());
  const bool outside = dice_.inHundred(25);
  store::Recordset in = blankSheet(context_);
  double material = 0;
  for (const documents::RecipeLine& line : recipe->lines) {
    if (stock_[line.itemCode] < line.quantity) return;
    addLine(in, "StockOut",
            {.code = line.itemCode,
             .name = store::textOf(line.itemName),
             .unit = store::textOf(line.unit),
             .cost = store::numberOf(line.rate)},
            line.quantity, line.amount);
    material += line.amount;
  }
  const documents::Costs typed{{"TotL", shown(recipe->labour)},
                               {"TotFOH", shown(recipe->overhead)},
                               {"TotOS", outside ? shown(pieces * 0.25) : "0.00"}};
  const double cost =
      text::amountFrom(documents::productionCosts(material, 0, typed, context_.currencyname).at("TotCOP"));
  const store::Recordset made(context_.KORDconn,
                              "SELECT * FROM StockLevel3 WHERE ItemCode = " + store::quoted(product));
  store::Recordset out = blankSheet(context_);
  addLine(out, "StockIn",
          {.code = product, .name = made.text("ItemName"), .unit = made.text("Unit"), .cost = cost / pieces}, pieces,
          cost);
  frame::DocumentValues values;
  values.DocNo = std::to_string(nextNumber(context_, schema::tran_type::Production));
  values.TrDate = moment.date();
  values.LocationList.id = context_.stocklocationid;
  values.fields = documents::productionCosts(material, cost, typed, context_.currencyname);
  values.IncomeCode = "50001002";
  values.IncomeAcc = "Purchases";
  values.ACodeTxt = "50001008";
  values.Acc =
      store::Recordset(context_.KORDconn, "select accname from acclevel3 where acccode=50001008").text("accname");
  if (outside) {
    values.PartyCodeTxt = std::to_string(firstVendor);
    values.PartyNameTxt =
        store::Recordset(context_.KORDconn, "select accname from acclevel3 where acccode=" + values.PartyCodeTxt)
            .text("accname");
  }
  store::Recordset* sheets[2] = {&in, &out};
  write(context_, documents::productionType(), values, moment, sheets, documents::productionLedger(values));
  for (const documents::RecipeLine& line : recipe->lines) stock_[line.itemCode] -= line.quantity;
  stock_[product] += pieces;
}

}  // namespace velmo::demo

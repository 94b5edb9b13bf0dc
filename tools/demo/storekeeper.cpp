#include "demo_company/storekeeper.h"

#include <stdexcept>

#include "demo_company/next_number.h"
#include "documents/stock/stock_lines.h"
#include "documents/stock/stock_types.h"
#include "frame/document/compose_document.h"
#include "frame/items/line_arithmetic.h"
#include "frame/posting/item_lines.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::demo {
namespace {

using namespace schema::tran_type;

constexpr std::uint32_t seed = 4347;
constexpr int shop = 1;
constexpr int otherPlaces[] = {2, 3};
constexpr const char* reasons[] = {"Broken in the store", "Not found at the count", "Taken as samples"};

}  // namespace

Storekeeper::Storekeeper(session::LoginContext& context, std::map<std::string, double>& stock)
    : context_(context),
      stock_(stock),
      dice_(seed),
      items_(context.KORDconn, "SELECT * FROM StockLevel3 WHERE CatID not like 'Service' ORDER BY ItemCode") {}

void Storekeeper::work(const text::DateTime& day, const text::DateTime& now) {
  const text::DateTime moment{day.day, 17 * 3600 + dice_.between(0, 3599)};
  if (moment > now) return;
  context_.UserID = 3;
  if (text::formatDate(day, "ddd") == "Sat") moveGoods(moment);
  if (day.addDays(1).calendar().dayOfMonth == 1) adjust(moment);
}

void Storekeeper::moveGoods(const text::DateTime& moment) {
  homewards_ = dice_.inHundred(25);
  write(documents::inventoryTransfersType(), moment, homewards_ ? "Back to the shop" : "For the building sites",
        dice_.between(2, 6));
}

void Storekeeper::adjust(const text::DateTime& moment) {
  write(documents::reduceInventoryType(), moment, dice_.pick(reasons), dice_.between(1, 4));
  write(documents::addInventoryType(), moment, "Found at the count", dice_.between(1, 3));
}

// What comes back to the shop was taken there before; it is not counted to what can be sold.
void Storekeeper::addLine(store::Recordset& sheet, const frame::DocumentType& type) {
  const bool transfer = type.form.tranType == InventoryTransfer;
  items_.moveTo(dice_.between(0, static_cast<int>(items_.recordCount()) - 1));
  const std::string code = items_.text("ItemCode");
  const int quantity = transfer ? dice_.between(2, 12) : dice_.between(1, 3);
  const bool taken = type.form.tranType == InventoryReduced || (transfer && !homewards_);
  if (taken && stock_[code] < 2 * quantity) return;
  if (taken) stock_[code] -= quantity;
  const double rate = items_.number(transfer ? "PurchasePrice" : "ValuationCost2");
  const double amount = text::amountFrom(frame::lineAmounts({.quantity = text::numberText(quantity),
                                                             .rate = text::numberText(rate),
                                                             .discountRate = {},
                                                             .discount = "0.00"})
                                             .gross);
  sheet.addNew({{"ItemCode", code},
                {"ItemName", items_.text("ItemName")},
                {type.form.tranType == InventoryAdded ? "StockIn" : "StockOut", static_cast<double>(quantity)},
                {"Unit", items_.text("Unit")},
                {"Rate", rate},
                {"GrossAmt", amount},
                {"DiscAmt", 0.0},
                {"ItemValue", amount}});
}

void Storekeeper::write(const frame::DocumentType& type, const text::DateTime& moment, const std::string& remarks,
                        int lines) {
  store::Recordset sheet(context_.KORDconn, "Select * from stockflow where tranno = 0",
                         store::LockType::BatchOptimistic);
  while (sheet.recordCount() < lines) addLine(sheet, type);
  const bool transfer = type.form.tranType == InventoryTransfer;
  const int other = dice_.pick(otherPlaces);
  frame::DocumentValues values;
  values.DocNo = std::to_string(nextNumber(context_, type.form.tranType));
  values.TrDate = moment.date();
  values.Desc = remarks;
  values.LocationList.id = transfer && homewards_ ? other : shop;
  values.LocationListTo.id = homewards_ ? shop : other;
  values.totals =
      frame::RecalculateTotals(frame::sumLines(sheet), {}, frame::ReceivedRule::AsTyped, context_.currencyname);
  const auto document = frame::composeDocument(type, values, context_, moment, {}, frame::HeaderWrite::Add);
  if (!document) throw std::logic_error(document.error());
  store::Recordset tran(context_.KORDconn, "SELECT * from transactions where tranno = 0");
  frame::writeDocument(context_.KORDconn, *document, tran, [&](std::int64_t tranNo) {
    documents::writeStockLines(context_.KORDconn, sheet,
                               transfer ? documents::StockMovement::BetweenPlaces : documents::StockMovement::OneWay,
                               values, tranNo);
  });
}

}  // namespace velmo::demo

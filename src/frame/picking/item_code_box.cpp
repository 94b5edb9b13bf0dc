#include "frame/picking/item_code_box.h"

#include "forms/caption.h"
#include "text/like.h"

namespace velmo::frame {
namespace {

constexpr const char* services = "Service";  // the category

}  // namespace

PickListSource itemsOf(ItemKinds kinds) {
  return {
      .select = "SELECT ItemCode, ItemName, (ItemCode & '  (' & ItemName & ')') as InvItem from Stocklevel3",
      .condition = std::string(kinds == ItemKinds::Goods ? "CatId not like " : "CatId like ") + store::quoted(services),
      .order = "ItemCode",
      .displayColumn = "InvItem",
      .keyColumn = "ItemCode",
      .beforeName = "  (",
      .behindName = ")",
      .tables = {"StockLevel3"}};
}

ItemCodeBox::ItemCodeBox(session::LoginContext& context, CodeDropList& list, ItemKinds kinds, QWidget* parent)
    : CodeBox(context.KORDconn, itemsOf(kinds), list, parent), context_(context), kinds_(kinds) {}

bool ItemCodeBox::isOfKind(const store::Recordset& item) const {
  const bool isService = text::foldedText(item.text("catid")) == text::foldedText(services);
  return isService == (kinds_ == ItemKinds::Services);
}

void ItemCodeBox::lookUp() {
  store::Recordset& items = context_.ItemsRS;
  const std::string typed = text().toStdString();
  code_ = {};
  bool isFound = false;
  if (!typed.empty() && items.isOpen() && !items.isEmpty()) {
    items.moveFirst();
    isFound = items.find("ItemCode = " + store::quoted(typed)) && isOfKind(items);
  }
  if (isFound) code_ = items.value("itemcode");
  Q_EMIT named(isFound ? forms::shownText(items.text("itemname")) : QString());
}

}  // namespace velmo::frame

#include "masters/catalogue/catalogue_prints.h"

#include "frame/master/master_dialog.h"
#include "masters/catalogue/stock_hierarchies.h"
#include "masters/catalogue/stock_list1_print.h"
#include "masters/catalogue/stock_list2_print.h"
#include "masters/catalogue/stock_list3_print.h"
#include "masters/catalogue/stock_list4_print.h"
#include "masters/labels/bar_code_labels.h"
#include "masters/labels/label_copies.h"

namespace velmo::masters {
namespace {

using frame::MasterDialog;
using frame::MasterPrint;
using Layout = printing::Report (*)(const session::LoginContext&, const store::Recordset&, text::DateTime);
// The hierarchy to print, from what is chosen in the dialog; "" when nothing is.
using Hierarchy = std::function<std::string(MasterDialog&)>;

MasterPrint print(const std::string& caption, Layout layout, const Hierarchy& hierarchy) {
  return {caption, [=](MasterDialog& dialog) -> std::optional<printing::Report> {
            const std::string statement = hierarchy(dialog);
            if (statement.empty()) return std::nullopt;
            session::LoginContext& context = dialog.workplace().context;
            store::Recordset rows;
            rows.openShape(context.KORDconn, statement);
            return layout(context, rows, dialog.workplace().clock.today());
          }};
}

std::string key(MasterDialog& dialog, int level) {
  return dialog.panel(level).key();
}

std::string chosenCategory(MasterDialog& dialog) {
  const std::string category = key(dialog, 0);
  return category.empty() ? std::string() : inventoryOfCategory(category);
}

std::string chosenSubCategory(MasterDialog& dialog) {
  const std::string subCategory = key(dialog, 1);
  return subCategory.empty() ? std::string() : inventoryOfSubCategory(key(dialog, 0), subCategory);
}

// Labels of the chosen item, as many as the user wants.
MasterPrint barCodes(const std::string& caption, LabelSheet sheet) {
  return {caption, [=](MasterDialog& dialog) -> std::optional<printing::Report> {
            const std::string code = key(dialog, dialog.levels() - 1);
            if (code.empty()) return std::nullopt;
            const std::optional<int> copies = askLabelCopies(&dialog, MostLabelCopies);
            if (!copies) return std::nullopt;
            const session::LoginContext& context = dialog.workplace().context;
            const store::Recordset items(dialog.workplace().context.KORDconn, barCodeStatement(code, context.ccode),
                                         store::LockType::ReadOnly);
            auto labels = barCodeLabels(context, items, sheet, *copies, dialog.workplace().clock.today());
            if (labels) return std::move(*labels);
            dialog.workplace().prompts.tell("Cannot Print", labels.error());
            return std::nullopt;
          }};
}

}  // namespace

std::vector<MasterPrint> inventoryPrints() {
  const Hierarchy whole = [](MasterDialog&) { return wholeInventory(); };
  return {print("Chart, all", stockList1Print, whole),
          print("Chart, selected category", stockList1Print, chosenCategory),
          print("Chart, selected sub category", stockList1Print, chosenSubCategory),
          print("Price List, all", stockList2Print, whole),
          print("Price List, selected category", stockList2Print, chosenCategory),
          print("Price List, selected sub category", stockList2Print, chosenSubCategory),
          barCodes("Bar Codes, 24 on a sheet", LabelSheet::BarCodesPrint),
          barCodes("Bar Codes, 40 on a sheet", LabelSheet::BarCodesPrint2)};
}

std::vector<MasterPrint> servicePrints() {
  return {print("All services", stockList4Print, [](MasterDialog&) { return allServices(); }),
          print("Services of the selected category", stockList4Print, [](MasterDialog& dialog) {
            const std::string subCategory = key(dialog, 0);
            return subCategory.empty() ? std::string() : servicesOfSubCategory(subCategory);
          })};
}

std::vector<MasterPrint> brandPrints() {
  return {print("Items of the selected brand", stockList3Print, [](MasterDialog& dialog) {
    const std::string brand = key(dialog, 0);
    return brand.empty() ? std::string() : itemsOfBrand(std::stoll(brand));
  })};
}

}  // namespace velmo::masters

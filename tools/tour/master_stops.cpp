#include <QPushButton>
#include <QTableView>

#include "guide.h"

namespace velmo::tour {
namespace {

// A dialog, and the rows that its lists stand on in the picture, by their first column.
struct MasterStop {
  const char* dialog;
  const char* picture;
  std::vector<std::pair<const char*, const char*>> rows = {};
};

const std::vector<MasterStop>& masterStops() {
  static const std::vector<MasterStop> stops = {
      {"ModifyAccounts", "chart-of-accounts", {{"L1List", "120"}}},
      {"ModifyCustomers", "customers", {{"L3List", "12001003"}}},
      {"ModifySuppliers", "suppliers", {{"L3List", "21001002"}}},
      {"ModifyBanks", "banks"},
      {"ModifyInventory", "chart-of-inventory"},
      {"ModifyServices", "services"},
      {"Regions", "regions"},
      {"Sectors", "sectors"},
      {"InvBrands", "brands"},
      {"InvLocations", "locations"},
      {"Employees", "employees"},
      {"InvPrices", "item-prices"},
      {"InvReorderSettings", "re-order-levels"},
      {"InvValuation", "valuation-methods"},
      {"UserLogins", "user-logins"},
      {"UserRights", "user-rights"},
      {"Password", "password"},
  };
  return stops;
}

void choose(Guide& guide, QWidget& dialog, const char* list, const QString& code) {
  auto& view = guide.control<QTableView>(dialog, list);
  for (int row = 0; row < view.model()->rowCount(); ++row)
    if (view.model()->index(row, 0).data().toString() == code) return view.selectRow(row);
  throw std::logic_error(std::string("no row ") + code.toStdString() + " in " + list);
}

void visitPicker(Guide& guide, QWidget& dialog, const char* name, const QString& typed) {
  guide.inDialog([&] { guide.control<QPushButton>(dialog, "FindBttn").click(); },
                 [&](QWidget& picker) {
                   guide.type(typed);
                   guide.picture(picker, name);
                 });
}

void visitStock(Guide& guide, shell::Parent& shell) {
  session::ScreenOpener& screens = shell.workplace().screens;
  shell.workplace().context.SearchText = "04";
  guide.inDialog([&] { screens.openDialog("SearchItem"); },
                 [&](QWidget& dialog) { guide.picture(dialog, "search-item"); });
  screens.openScreen("InvBelowReorder");
  guide.rest();
  guide.picture(shell, "below-reorder");
  guide.press(Qt::Key_Escape);
}

}  // namespace

void visitMasters(Guide& guide, shell::Parent& shell) {
  session::ScreenOpener& screens = shell.workplace().screens;
  for (const MasterStop& stop : masterStops())
    guide.inDialog([&] { screens.openDialog(stop.dialog); },
                   [&](QWidget& dialog) {
                     for (const auto& [list, code] : stop.rows) choose(guide, dialog, list, code);
                     guide.picture(dialog, stop.picture);
                     const std::string name = stop.dialog;
                     if (name == "ModifyAccounts") visitPicker(guide, dialog, "find-account", "bank");
                     if (name == "ModifyInventory") visitPicker(guide, dialog, "find-item", "oil");
                   });
  visitStock(guide, shell);
}

}  // namespace velmo::tour

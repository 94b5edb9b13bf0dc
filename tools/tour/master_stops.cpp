#include <QPushButton>
#include <QTableView>
#include <filesystem>
#include <fstream>

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
      {"Jobs", "jobs"},
      {"InventorySettings", "inventory-settings"},
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

// A supplier's price list, with what goes wrong in such lists.
void visitImport(Guide& guide, QWidget& dialog) {
  std::ofstream(priceList) << "Barcode,Product,Category,Sub category,Brand,Unit,Cost,Price\n"
                              "2900000000017,Garden Hose 20 m,PLB,PLB01,Granite,Roll,9.40,13.95\n"
                              "2900000000024,Garden Hose 30 m,PLB,PLB01,Granite,Roll,13.10,18.95\n"
                              "2000000010014,Claw Hammer,HND,HND01,Bluefin,Pcs,4.10,5.70\n"
                              "2900000000031,Hose Connector,PLB,PLB01,Granite,Pcs,n/a,1.25\n"
                              "2900000000048,,PLB,PLB01,Granite,Pcs,0.60,0.95\n";
  guide.inDialog([&] { guide.control<QPushButton>(dialog, "ImportBttn").click(); },
                 [&](QWidget& import) {
                   auto& next = guide.control<QPushButton>(import, "NextBttn");
                   next.click();
                   guide.rest(50);
                   guide.picture(import, "import-file");
                   next.click();
                   guide.picture(import, "import-columns");
                   next.click();
                   guide.picture(import, "import-check");
                 });
  std::filesystem::remove(priceList);
}

void visitStock(Guide& guide, shell::MainShell& shell) {
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

void visitMasters(Guide& guide, shell::MainShell& shell) {
  session::ScreenOpener& screens = shell.workplace().screens;
  for (const MasterStop& stop : masterStops())
    guide.inDialog([&] { screens.openDialog(stop.dialog); },
                   [&](QWidget& dialog) {
                     for (const auto& [list, code] : stop.rows) choose(guide, dialog, list, code);
                     guide.picture(dialog, stop.picture);
                     const std::string name = stop.dialog;
                     if (name == "ModifyAccounts") visitPicker(guide, dialog, "find-account", "bank");
                     if (name == "ModifyInventory") visitPicker(guide, dialog, "find-item", "oil");
                     if (name == "ModifyInventory") visitImport(guide, dialog);
                   });
  visitStock(guide, shell);
}

}  // namespace velmo::tour

#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "guide.h"
#include "printing/preview_window.h"
#include "shell/window/screen_windows.h"

namespace velmo::tour {

namespace {

// A paper that is typed and converted, what it shows of that afterwards, and its print-out.
struct OrderStop {
  const char* screen;
  const char* picture;
  const char* paper;
  const char* party;
  std::vector<std::pair<const char*, const char*>> fields;
  std::vector<const char*> conversions;
};

const OrderStop orderStops[] = {
    {"Quotations",
     "quotation",
     "Quotation",
     "12001003",
     {{"Subject", "Tools for the new workshop"}, {"PartyContact", "Ms. Fry"}, {"Conditions", "Valid for 30 days"}},
     {"ConvertBttn", "ConvertBttn2", "ConvertBttn4"}},
    {"SaleOrders",
     "sale-order",
     "SaleOrder",
     "12001003",
     {{"D1", "PO-4711"}, {"D1Dt", "18-11-2026"}},
     {"ConvertBttn2", "ConvertBttn4"}},
    {"DeliveryChallans",
     "delivery-challan",
     "DeliveryChallan",
     "12001003",
     {{"SupplyTime", "9:30 AM"}, {"D1", "PO-4711"}, {"Vehicle", "LXR 4711"}, {"Driver", "R. Ahmed"}},
     {"ConvertBttn5", "ConvertBttn4"}},
    {"GatePassesOut",
     "outward-gate-pass",
     "OGP",
     "12001003",
     {{"SupplyTime", "9:45 AM"}, {"D1", "PO-4711"}, {"D2", "2"}, {"Vehicle", "LXR 4711"}, {"Driver", "R. Ahmed"}},
     {"ConvertBttn4"}},
    {"PurchaseOrders",
     "purchase-order",
     "PurchaseOrder",
     "21001002",
     {{"Conditions", "Carriage paid"}},
     {"ConvertBttn2", "ConvertBttn3"}},
    {"GatePassesIn",
     "inward-gate-pass",
     "IGP",
     "21001002",
     {{"SupplyTime", "8:15 AM"}, {"D2", "1"}, {"Vehicle", "KHI 0815"}, {"Driver", "S. Lind"}},
     {"ConvertBttn4"}},
};

void typeLines(Guide& guide, QWidget& screen) {
  guide.focus(guide.control<QTableView>(screen, "Grid"));
  for (const char* item : {"hammer", "wire"}) {
    guide.type(QString::fromLatin1(item));
    guide.press(Qt::Key_Down);
    guide.press(Qt::Key_Return);
    guide.press(Qt::Key_Return);
    guide.press(Qt::Key_Return);
    guide.type(QStringLiteral("4"));
    for (int cell = 0; cell < 5; ++cell) guide.press(Qt::Key_Return);
  }
}

void visitOrder(Guide& guide, shell::MainShell& shell, const OrderStop& stop) {
  session::ScreenOpener& screens = shell.workplace().screens;
  const auto open = [&]() -> QWidget& {
    screens.openScreen(stop.screen);
    guide.rest(50);
    return *shell.screens().openWindow(stop.screen);
  };
  QWidget& screen = open();
  guide.control<QPushButton>(screen, "AddBttn").click();
  guide.focus(guide.control<QLineEdit>(screen, "PartyCodeTxt"));
  guide.type(QString::fromLatin1(stop.party));
  for (const auto& [field, text] : stop.fields) {
    guide.focus(guide.control<QLineEdit>(screen, field));
    guide.type(QString::fromLatin1(text));
  }
  typeLines(guide, screen);
  guide.picture(shell, stop.picture);
  for (std::size_t i = 0; i < stop.conversions.size(); ++i) {
    if (i > 0) guide.control<QPushButton>(open(), "PrevBttn").click();
    guide.control<QPushButton>(screen, stop.conversions[i]).click();
    guide.rest(50);
  }
  guide.picture(shell, std::string(stop.picture) + "-converted");  // the last of what it became
  guide.control<QPushButton>(open(), "PrevBttn").click();
  guide.rest(20);
  guide.picture(shell, std::string(stop.picture) + "-shown");
  guide.control<QPushButton>(screen, "PrintBill_0").click();
  printing::PreviewWindow& preview = guide.preview();
  guide.paper(preview.pages(), std::string("paper-") + stop.paper);
  preview.close();
  guide.rest(20);
}

}  // namespace

void visitOrders(Guide& guide, shell::MainShell& shell) {
  for (const OrderStop& stop : orderStops) visitOrder(guide, shell, stop);
  QWidget& challans = *shell.screens().openWindow("DeliveryChallans");
  guide.inDialog([&] { guide.control<QPushButton>(challans, "EditBttn").click(); },
                 [&guide](QWidget& find) { guide.picture(find, "find-challans"); });
}

}  // namespace velmo::tour

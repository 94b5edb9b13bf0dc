#include "frame/report/report_drill_down.h"

#include <algorithm>
#include <array>

namespace velmo::frame {
namespace {

enum class Show { Document, ScreenAlone };

struct Way {
  int tranType;
  int right;
  std::string_view screen;
  Show show = Show::Document;
};

constexpr std::array ways{Way{11, 14, "OpeningBalancesAcc", Show::ScreenAlone},
                          Way{20, 154, "GatePassesIn"},
                          Way{22, 59, "PurchaseBillsSimple"},
                          Way{25, 62, "PurchaseReturns"},
                          Way{28, 66, "BankPayments"},
                          Way{29, 70, "CashPayments"},
                          Way{30, 158, "GatePassesOut"},
                          Way{32, 94, "SaleInvoicesSimple"},
                          Way{35, 100, "SaleReturns"},
                          Way{38, 104, "BankReceipts"},
                          Way{39, 108, "CashReceipts"},
                          Way{41, 124, "GeneralJournal"},
                          Way{42, 134, "Production"},
                          Way{43, 128, "InventoryTransfers"},
                          Way{45, 144, "AddInventory"},
                          Way{47, 144, "ReduceInventory"},
                          Way{94, 92, "DeliveryChallans"}};

}  // namespace

void openDocument(session::Workplace& workplace, int tranType, std::int64_t tranNo) {
  const auto* way = std::ranges::find(ways, tranType, &Way::tranType);
  if (way == ways.end() || !workplace.rights().demand(way->right)) return;
  if (!workplace.screens.hasScreen(way->screen)) {
    workplace.prompts.tell(
        "Cannot Open", "The screen of this document, " + std::string(way->screen) + ", is not part of this program.");
    return;
  }
  if (way->show == Show::Document) {
    workplace.context.OpenTranNo = tranNo;
    workplace.context.OpenTranFlag = true;
  }
  if (!workplace.screens.openScreen(way->screen)) workplace.context.OpenTranFlag = false;
}

}  // namespace velmo::frame

#include "vouchers/settlement/find_settlements.h"

#include "frame/document/find_columns.h"

namespace velmo::vouchers {

namespace {

using enum frame::FindCondition;

// These documents stand at no location of stock.
constexpr std::string_view select =
    "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.Nature, Transactions.Text1, "
    "Transactions.Text2, Transactions.D1, Transactions.D1Date, Transactions.Text4, Transactions.Received, "
    "Transactions.Carriage, Transactions.AdditionalTax, Transactions.Discount, Transactions.TrAmount, "
    "Transactions.Balance, Transactions.Desc, Employees.EmpName, iif(Transactions.Cancel=0, '', 'CANCELLED') AS "
    "CStatus, Users.UserName AS AddedBy, Transactions.TimeAdded, Users_1.UserName AS EditedBy, "
    "Transactions.TimeEdited";

std::vector<frame::FindColumn> searched(const SettlementKind& kind) {
  const bool receipt = isReceipt(kind);
  std::vector<frame::FindColumn> columns = {
      {"Serial No.", "Transactions.DocNo", Number, "Give serial no. to find."},
      {"Date", "Transactions.TranDate", OnDay},
      receipt ? frame::FindColumn{"Customer Name", "Transactions.Text1", Contains, "Give customer name to find."}
              : frame::FindColumn{"Vendor Name", "Transactions.Text1", Contains, "Give vendor name to find."},
      {"Cash or Bank", "Transactions.Text2", Contains, "Give cash or bank name to find."}};
  if (kind.by == PaidBy::Cheque)
    columns.push_back({"Cheque No.", "Transactions.D1", Contains, "Give cheque no. to find."});
  columns.insert(
      columns.end(),
      {{"With-holding Tax", "Transactions.Carriage", Number, "Give with-holding tax amount to find."},
       {"Sales Tax", "Transactions.Tax1", Number, "Give sales tax amount to find."},
       {"Discount", "Transactions.Discount", Number, "Give discount amount to find."},
       receipt ? frame::FindColumn{"Amount Received", "Transactions.Received", Number, "Give amount received to find."}
               : frame::FindColumn{"Amount Paid", "Transactions.Received", Number, "Give amount paid to find."}});
  return columns;
}

std::vector<forms::TableColumn> found(const SettlementKind& kind) {
  using frame::findAmount;
  const bool receipt = isReceipt(kind);
  std::vector<forms::TableColumn> columns = {
      {.caption = receipt ? "Customer Name" : "Vendor Name", .field = "Text1", .width = 28},
      {.caption = std::string(kind.accountCaption), .field = "Text2", .width = 18}};
  if (kind.by == PaidBy::Cheque) {
    columns.push_back({.caption = "Cheque No.", .field = "D1", .width = 12});
    columns.push_back({.caption = "Dated", .field = "D1Date", .width = 10});
    if (receipt) columns.push_back({.caption = "Cheque Bank", .field = "Text4", .width = 16});
  }
  columns.insert(columns.end(), {findAmount(receipt ? "Amount Received" : "Amount Paid", "Received"),
                                 findAmount("W.H. Tax", "Carriage"), findAmount("Advance Adj.", "AdditionalTax"),
                                 findAmount("Discount", "Discount"), findAmount("Total", "TrAmount"),
                                 findAmount("Prepayment", "Balance")});
  columns.push_back({.caption = receipt ? "Receipt Type" : "Payment Type", .field = "Nature", .width = 16});
  columns.push_back({.caption = "Remarks", .field = "Desc", .width = 20});
  return frame::findColumns(columns);
}

std::string_view titleOf(const SettlementKind& kind) {
  if (isReceipt(kind)) return kind.by == PaidBy::Cash ? "FIND CASH RECEIPTS" : "FIND BANK RECEIPTS";
  return kind.by == PaidBy::Cash ? "FIND CASH PAYMENTS" : "FIND BANK PAYMENTS";
}

}  // namespace

frame::FindType findSettlements(const SettlementKind& kind) {
  return {.title = titleOf(kind),
          .select = select,
          .columns = searched(kind),
          .result = found(kind),
          .location = frame::FindLocation::None};
}

}  // namespace velmo::vouchers

#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

#include "forms/recordset_model.h"
#include "session/workplace.h"
#include "vouchers/settlement/settlement_kind.h"

class QLineEdit;

namespace velmo::forms {
class TableView;
}

namespace velmo::vouchers {

// `PendingInvoices` and `PendingBills`: the open items of one party, with their totals, to pick one from. Typing
// anywhere goes to the invoice of that number.
class PendingScreen : public QDialog {
  Q_OBJECT

 public:
  // Throws StoreError when the items cannot be read.
  PendingScreen(const SettlementKind& kind, std::int64_t partyCode, const std::string& partyName,
                session::Workplace& workplace, QWidget* parent);

  // What was picked; nothing until then.
  const std::optional<PendingItem>& picked() const { return picked_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* buildHead(std::int64_t partyCode, const std::string& partyName);
  QWidget* buildTotals();
  QWidget* buildFoot();
  void placeTotals();
  void DetailTotals();
  void goTo(const QString& number);
  void pick();

  const SettlementKind& kind_;
  forms::RecordsetModel* pending_;
  forms::TableView* grid_;
  QLineEdit* number_ = nullptr;
  QWidget* strip_ = nullptr;
  std::vector<QLineEdit*> totals_;  // of the columns from the first amount on
  std::optional<PendingItem> picked_;
};

// Lets the user pick one of the party's open items. Nothing when none was picked; that they cannot be read is told.
std::optional<PendingItem> choosePending(const SettlementKind& kind, std::int64_t partyCode,
                                         const std::string& partyName, session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::vouchers

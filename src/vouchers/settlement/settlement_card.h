#pragma once

#include <QFrame>
#include <string>

#include "frame/picking/account_code_box.h"
#include "frame/picking/account_drop_list.h"
#include "session/workplace.h"
#include "vouchers/settlement/settlement_kind.h"
#include "vouchers/settlement/settlement_posting.h"

class QButtonGroup;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace velmo::vouchers {

// Where the money of a receipt or payment goes or comes from: the cash or bank account, and the party whose invoices it
// settles, each with its balance in the ledger; or the choice that it is a petty one without a party.
class SettlementCard : public QFrame {
  Q_OBJECT

 public:
  SettlementCard(const SettlementKind& kind, frame::AccountDropList& list, session::Workplace& workplace);

  struct AccountName {
    std::string code;
    std::string name;
  };
  SettlementMode mode() const;
  void setMode(SettlementMode mode);
  AccountName money() const;
  AccountName party() const;
  // The account of a document, with its balance and what is open of it at this moment, be it another one or the same.
  void setMoney(const std::string& code);
  void setParty(const std::string& code);
  void ShowCashBalance();
  void ShowPartyBalance();

  void focusFirst();
  QPushButton& newAccountCommand() { return *CA_; }

 Q_SIGNALS:
  void modeChanged();
  void partyChanged();  // to another account or none, or to the same of another document; party() tells which
  void employeeFound(qint64 empId);
  void moveOn();  // the user is done with the last box

 private:
  struct AccountRow {
    frame::AccountCodeBox* code;
    QLineEdit* name;
    QLabel* balance;
  };
  AccountRow addAccount(QGridLayout& grid, int row, std::string_view caption, std::string condition,
                        frame::AccountDropList& list, const char* code, const char* name, const char* balance,
                        const char* balanceLabel);
  void buildOptions(QGridLayout& grid);
  void buildMoney(QGridLayout& grid, frame::AccountDropList& list);
  void buildParty(QGridLayout& grid, frame::AccountDropList& list);
  void showMode();
  std::string balanceOf(const AccountRow& row) const;

  const SettlementKind& kind_;
  session::Workplace& workplace_;
  QButtonGroup* RecOpt_;
  AccountRow money_ = {};
  AccountRow party_ = {};
  QWidget* PartyFrame_ = nullptr;
  QPushButton* CA_ = nullptr;
};

}  // namespace velmo::vouchers

#pragma once

#include <QFrame>
#include <string>

#include "documents/trade/trade_kind.h"
#include "frame/picking/account_code_box.h"
#include "session/workplace.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace velmo::documents {

// The party of a document: its account, the name and address as they are written on this document, and its balance.
class PartyCard : public QFrame {
  Q_OBJECT

 public:
  PartyCard(const PartyRules& rules, frame::AccountDropList& list, session::Workplace& workplace, QWidget* parent);

  struct Party {
    std::string code;
    std::string name;
    std::string address;
    std::string telephone;
    std::string terms;
  };
  Party party() const;
  // As a saved document has it: the account's own name and terms give way.
  void show(const Party& party);
  void clear();

  void ShowPartyBalance();
  double PartyBalance() const { return balance_; }
  double CreditLimit() const { return creditLimit_; }
  bool isCashParty() const;  // the account of parties not known by name

  QPushButton& newPartyCommand() { return *CA_; }
  void focusCode();
  // The account is given by the document: its code is shown and not typed, and no other party is made from here.
  void fixCode(std::int64_t code, std::string_view termsWithoutParty);

 Q_SIGNALS:
  // The code stands for another account, or for none, or the name changed.
  void partyChanged();
  // The account brings an employee along; 0 for none.
  void employeeFound(qint64 empId);

 private:
  QLineEdit* makeLine(const char* name, const QString& accessibleName);
  void fill(const frame::Account& account);
  void blank();
  void openName();

  PartyRules rules_;
  session::Workplace& workplace_;
  double balance_ = 0;
  double creditLimit_ = 0;
  std::int64_t fixedCode_ = 0;  // 0 for none
  std::string termsWithoutParty_;
  frame::AccountCodeBox* code_;
  QLineEdit* name_;
  QLineEdit* address_;
  QLineEdit* telephone_;
  QLineEdit* terms_;
  QLabel* shownBalance_;
  QPushButton* CA_;
};

}  // namespace velmo::documents

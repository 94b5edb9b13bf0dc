#include "vouchers/settlement/settlement_card.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/name_box.h"
#include "frame/posting/party_balance.h"
#include "schema/account_types.h"

namespace velmo::vouchers {

namespace {

constexpr int codeWidth = 92;  // eight digits with room to type a part of a name

// Who may not open the balances of cash and banks does not see them here.
constexpr int cashBalancesRight = 242;

}  // namespace

SettlementCard::SettlementCard(const SettlementKind& kind, frame::AccountDropList& list, session::Workplace& workplace)
    : kind_(kind), workplace_(workplace), RecOpt_(new QButtonGroup(this)) {
  forms::makeCard(*this);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  buildOptions(*grid);
  buildMoney(*grid, list);
  buildParty(*grid, list);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(5, 1);
  connect(RecOpt_, &QButtonGroup::idClicked, this, [this] {
    showMode();
    Q_EMIT modeChanged();
  });
}

void SettlementCard::buildOptions(QGridLayout& grid) {
  auto* options = new QWidget;
  auto* row = new QHBoxLayout(options);
  forms::setGrid(*row, 0, forms::spacing::Section);
  const std::string_view captions[] = {kind_.partyOption, kind_.pettyOption};
  for (int i = 0; i < 2; ++i) {
    auto* option = new QRadioButton(forms::shownText(captions[i]));
    option->setObjectName(QStringLiteral("RecOpt_%1").arg(i));
    option->setAccessibleName(option->text());
    RecOpt_->addButton(option, i);
    row->addWidget(option);
  }
  row->addStretch(1);
  CA_ = new QPushButton(tr("New Account"));
  CA_->setObjectName("CA");
  CA_->setAccessibleName(CA_->text());
  CA_->setToolTip(tr("Opens the chart of accounts to add one"));
  forms::makeQuiet(*CA_);
  row->addWidget(CA_);
  RecOpt_->button(0)->setChecked(true);
  grid.addWidget(options, 0, 0, 1, 3);
}

SettlementCard::AccountRow SettlementCard::addAccount(QGridLayout& grid, int row, std::string_view caption,
                                                      std::string condition, frame::AccountDropList& list,
                                                      const char* code, const char* name, const char* balance,
                                                      const char* balanceLabel) {
  AccountRow account;
  account.code = new frame::AccountCodeBox(workplace_.context, list, {.listCondition = std::move(condition)});
  account.code->setObjectName(code);
  account.code->setFixedWidth(codeWidth);
  const QString shown = forms::shownText(caption).trimmed();
  account.name = new QLineEdit;
  account.name->setObjectName(name);
  forms::makeNameBox(*account.name);
  account.name->setAccessibleName(tr("%1 name").arg(shown));
  account.balance = new QLabel(QStringLiteral("0.00"));
  account.balance->setObjectName(balance);
  account.balance->setFont(forms::figureFont());
  account.balance->setTextFormat(Qt::PlainText);
  account.balance->setAccessibleName(tr("%1 balance").arg(shown));
  grid.addWidget(forms::captionFor(*account.code, shown), row, 0);
  grid.addWidget(account.code, row, 1);
  auto* label = new QLabel(tr("Balance "));
  label->setObjectName(balanceLabel);
  forms::makeCaption(*label);
  auto* balanceRow = new QHBoxLayout;
  balanceRow->addWidget(label);
  balanceRow->addWidget(account.balance, 1);
  grid.addLayout(balanceRow, row, 2);
  grid.addWidget(account.name, row + 1, 1, 1, 2);  // the name of a bank holds its account number
  connect(account.code, &frame::AccountCodeBox::accountResolved, account.name,
          [line = account.name](const frame::Account& found) { line->setText(QString::fromStdString(found.name)); });
  connect(account.code, &frame::AccountCodeBox::accountCleared, account.name, &QLineEdit::clear);
  return account;
}

void SettlementCard::buildMoney(QGridLayout& grid, frame::AccountDropList& list) {
  money_ = addAccount(grid, 1, kind_.accountCaption, kind_.accountCondition, list, "BankCode", "BankAcc", "CBBalance",
                      "BalLbl");
  connect(money_.code, &frame::AccountCodeBox::textChanged, this, &SettlementCard::ShowCashBalance);
  connect(money_.code, &frame::AccountCodeBox::moveOn, this, [this] {
    if (mode() == SettlementMode::Party)
      party_.code->setFocus(Qt::TabFocusReason);
    else
      Q_EMIT moveOn();
  });
  if (!workplace_.rights().allows(cashBalancesRight)) {
    findChild<QLabel*>("BalLbl")->hide();
    money_.balance->hide();
  }
}

void SettlementCard::buildParty(QGridLayout& grid, frame::AccountDropList& list) {
  PartyFrame_ = new QWidget;
  PartyFrame_->setObjectName("PartyFrame");
  auto* inner = new QGridLayout(PartyFrame_);
  forms::setGrid(*inner, 0);
  inner->setVerticalSpacing(forms::spacing::Tight);
  inner->setColumnStretch(2, 1);
  party_ = addAccount(*inner, 0, kind_.partyCaption, schema::account_type::parties(), list, "PartyCode", "PartyAcc",
                      "PartyBal", "PartyBalLbl");
  grid.addWidget(PartyFrame_, 3, 0, 1, 3);
  // Both captions begin their fields in one line.
  const int captions = std::max(grid.itemAtPosition(1, 0)->widget()->sizeHint().width(),
                                inner->itemAtPosition(0, 0)->widget()->sizeHint().width());
  grid.setColumnMinimumWidth(0, captions);
  inner->setColumnMinimumWidth(0, captions);
  connect(party_.code, &frame::AccountCodeBox::accountResolved, this, [this](const frame::Account& account) {
    if (isReceipt(kind_)) Q_EMIT employeeFound(account.empId);
  });
  connect(party_.code, &frame::AccountCodeBox::accountCleared, this, [this] {
    if (isReceipt(kind_)) Q_EMIT employeeFound(0);
  });
  connect(party_.code, &frame::AccountCodeBox::textChanged, this, [this] {
    ShowPartyBalance();
    Q_EMIT partyChanged();
  });
  connect(party_.code, &frame::AccountCodeBox::moveOn, this, &SettlementCard::moveOn);
}

SettlementMode SettlementCard::mode() const {
  return RecOpt_->checkedId() == 0 ? SettlementMode::Party : SettlementMode::Petty;
}

void SettlementCard::setMode(SettlementMode mode) {
  RecOpt_->button(mode == SettlementMode::Party ? 0 : 1)->setChecked(true);
  showMode();
  Q_EMIT modeChanged();
}

void SettlementCard::showMode() {
  PartyFrame_->setVisible(mode() == SettlementMode::Party);
}

SettlementCard::AccountName SettlementCard::money() const {
  return {money_.code->text().toStdString(), money_.name->text().toStdString()};
}

SettlementCard::AccountName SettlementCard::party() const {
  return {party_.code->text().toStdString(), party_.name->text().toStdString()};
}

void SettlementCard::setMoney(const std::string& code) {
  if (code == money().code) return ShowCashBalance();
  money_.code->setText(QString::fromStdString(code));
}

void SettlementCard::setParty(const std::string& code) {
  if (code != party().code) return party_.code->setText(QString::fromStdString(code));
  ShowPartyBalance();
  Q_EMIT partyChanged();
}

std::string SettlementCard::balanceOf(const AccountRow& row) const {
  frame::PartyBalance found;
  workplace_.attempt("Cannot Show Balance", [&] {
    if (const auto& account = row.code->account())
      found = frame::partyBalance(workplace_.context.KORDconn, account->code, workplace_.context.FYID);
  });
  return found.shown;
}

void SettlementCard::ShowCashBalance() {
  money_.balance->setText(QString::fromStdString(balanceOf(money_)));
}

void SettlementCard::ShowPartyBalance() {
  party_.balance->setText(QString::fromStdString(balanceOf(party_)));
}

void SettlementCard::focusFirst() {
  money_.code->setFocus(Qt::OtherFocusReason);
}

}  // namespace velmo::vouchers

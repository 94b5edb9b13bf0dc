#include "documents/trade/party_card.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "forms/caption.h"
#include "forms/figure_fit.h"
#include "forms/look.h"
#include "forms/name_box.h"
#include "frame/posting/party_balance.h"

namespace velmo::documents {

namespace {

constexpr int codeWidth = 92;  // eight digits with room to type a part of a name

}  // namespace

PartyCard::PartyCard(const PartyRules& rules, frame::AccountDropList& list, session::Workplace& workplace,
                     QWidget* parent)
    : QFrame(parent), rules_(rules), workplace_(workplace) {
  forms::makeCard(*this);
  setAccessibleName(forms::shownText(rules_.caption));
  code_ = new frame::AccountCodeBox(workplace.context, list, {.listCondition = rules_.listCondition});
  code_->setObjectName("PartyCodeTxt");
  code_->setAccessibleName(tr("%1 code").arg(forms::shownText(rules_.caption)));
  code_->setFixedWidth(codeWidth);
  name_ = makeLine("PartyNameTxt", tr("%1 name").arg(forms::shownText(rules_.caption)));
  address_ = makeLine("PartyAddress", tr("Address"));
  telephone_ = makeLine("PartyTel", tr("Telephone"));
  terms_ = makeLine("Terms", tr("Terms of Payment"));
  shownBalance_ = new QLabel;
  shownBalance_->setObjectName("PartyBal");
  shownBalance_->setAccessibleName(tr("%1 balance").arg(forms::shownText(rules_.caption)));
  shownBalance_->setFont(forms::figureFont());
  shownBalance_->setTextFormat(Qt::PlainText);
  CA_ = new QPushButton(forms::shownText(rules_.newParty.caption));
  CA_->setObjectName("CA");
  CA_->setAccessibleName(CA_->text());
  CA_->setToolTip(tr("Opens the list of accounts to add one"));
  CA_->setFocusPolicy(Qt::TabFocus);
  forms::makeQuiet(*CA_);

  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  grid->addWidget(forms::captionFor(*code_, forms::shownText(rules_.caption)), 0, 0);
  grid->addWidget(code_, 0, 1);
  grid->addWidget(name_, 0, 2);
  grid->addWidget(forms::captionFor(*address_, tr("Address")), 1, 0);
  grid->addWidget(address_, 1, 1, 1, 2);
  grid->addWidget(forms::captionFor(*telephone_, tr("Telephone")), 2, 0);
  grid->addWidget(telephone_, 2, 1, 1, 2);
  grid->addWidget(forms::captionFor(*terms_, tr("Terms of Payment")), 3, 0);
  grid->addWidget(terms_, 3, 1, 1, 2);
  grid->addWidget(forms::captionFor(*shownBalance_, tr("Balance")), 4, 0);
  // A long balance takes nothing from the name, and widens no screen.
  shownBalance_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* balance = new QHBoxLayout;
  balance->addWidget(shownBalance_, 1);
  balance->addWidget(CA_);
  grid->addLayout(balance, 4, 1, 1, 2);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(5, 1);

  connect(code_, &frame::AccountCodeBox::accountResolved, this, &PartyCard::fill);
  connect(code_, &frame::AccountCodeBox::accountCleared, this, &PartyCard::blank);
  connect(code_, &frame::AccountCodeBox::moveOn, this, [this] {
    if (name_->isReadOnly())
      terms_->setFocus(Qt::TabFocusReason);
    else
      name_->setFocus(Qt::TabFocusReason);
  });
  connect(name_, &QLineEdit::textEdited, this, &PartyCard::partyChanged);
  openName();
}

QLineEdit* PartyCard::makeLine(const char* name, const QString& accessibleName) {
  constexpr int longestText = 255;
  auto* line = new QLineEdit;
  line->setObjectName(name);
  line->setAccessibleName(accessibleName);
  line->setMaxLength(longestText);
  forms::showFromBeginning(*line);
  return line;
}

PartyCard::Party PartyCard::party() const {
  const auto textOf = [](const QLineEdit* line) { return line->text().toStdString(); };
  return {.code = textOf(code_),
          .name = textOf(name_),
          .address = textOf(address_),
          .telephone = textOf(telephone_),
          .terms = textOf(terms_)};
}

void PartyCard::show(const Party& party) {
  code_->setText(QString::fromStdString(party.code));
  name_->setText(QString::fromStdString(party.name));
  address_->setText(QString::fromStdString(party.address));
  telephone_->setText(QString::fromStdString(party.telephone));
  terms_->setText(QString::fromStdString(party.terms));
  Q_EMIT partyChanged();
}

void PartyCard::clear() {
  code_->clear();
  blank();
  if (fixedCode_ != 0) code_->setText(QString::number(fixedCode_));
}

void PartyCard::fixCode(std::int64_t code, std::string_view termsWithoutParty) {
  fixedCode_ = code;
  termsWithoutParty_ = termsWithoutParty;
  code_->setReadOnly(true);
  code_->setFocusPolicy(Qt::NoFocus);
  CA_->hide();
}

bool PartyCard::isCashParty() const {
  return rules_.cashCode && code_->account() && code_->account()->code == *rules_.cashCode;
}

void PartyCard::focusCode() {
  (fixedCode_ != 0 ? static_cast<QWidget*>(name_) : code_)->setFocus(Qt::OtherFocusReason);
}

void PartyCard::fill(const frame::Account& account) {
  name_->setText(QString::fromStdString(account.name));
  address_->setText(QString::fromStdString(account.address));
  telephone_->setText(QString::fromStdString(account.phone));
  terms_->setText(QString::fromStdString(account.terms));
  creditLimit_ = account.creditLimit;
  openName();
  Q_EMIT employeeFound(account.empId);
  ShowPartyBalance();
  Q_EMIT partyChanged();
}

void PartyCard::blank() {
  for (QLineEdit* line : {name_, address_, telephone_, terms_}) line->clear();
  terms_->setText(QString::fromStdString(termsWithoutParty_));
  creditLimit_ = 0;
  openName();
  Q_EMIT employeeFound(0);
  ShowPartyBalance();
  Q_EMIT partyChanged();
}

// The name on the document is the account's, except of parties who have none of their own.
void PartyCard::openName() {
  const bool open = isCashParty();
  name_->setReadOnly(!open);
  name_->setFocusPolicy(open ? Qt::StrongFocus : Qt::NoFocus);
}

void PartyCard::ShowPartyBalance() {
  frame::PartyBalance found;
  try {
    if (code_->account())
      found = frame::partyBalance(workplace_.context.KORDconn, code_->account()->code, workplace_.context.FYID);
  } catch (const store::StoreError& error) {
    workplace_.prompts.tell("Cannot Show Balance", error.what());
  }
  balance_ = found.amount;
  const QString shown = QString::fromStdString(found.shown);
  const int room = shownBalance_->isVisible() ? shownBalance_->width() : 0;  // not known before
  shownBalance_->setFont(forms::fittedFigureFont(forms::figureFont(), shown, room));
  shownBalance_->setText(shown);
  shownBalance_->setToolTip(shown);
}

}  // namespace velmo::documents

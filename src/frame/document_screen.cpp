#include "frame/document_screen.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>

#include "frame/account_code_box.h"
#include "frame/command_bar.h"
#include "frame/compose_document.h"
#include "frame/counter_strip.h"
#include "frame/document_card.h"
#include "frame/item_grid.h"
#include "frame/party_card.h"
#include "frame/payment_panel.h"
#include "frame/references_card.h"
#include "frame/totals_panel.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::frame {

namespace {

std::string shownAmount(const store::Recordset& tran, std::string_view column) {
  return text::formatNumber(tran.number(column), "#0.00; (#0.00)");
}

std::string codeText(std::int64_t code) {
  return code == 0 ? std::string() : std::to_string(code);
}

}  // namespace

DocumentScreen::DocumentScreen(DocumentType type, session::Workplace& workplace, PrintOuts printOuts, QWidget* parent)
    : QWidget(parent),
      type_(std::move(type)),
      workplace_(workplace),
      printOuts_(std::move(printOuts)),
      fields_(type_.fields) {
  buildLayout();
  connectParts();
  connectCommands();
  offerCommands();
  references_->loadLists();
  // Only the rows that are looked at are read: a year may hold very many documents.
  Tran_.open(workplace_.context.KORDconn,
             "SELECT * from transactions where trantype=" + std::to_string(type_.TranType) +
                 " and fyid = " + std::to_string(workplace_.context.FYID) + " order by docno",
             store::LockType::Optimistic, store::Fetch::AsNeeded);
  ClearForNewRecord();
  if (std::exchange(workplace_.context.OpenTranFlag, false)) ShowRecord();
}

DocumentScreen::~DocumentScreen() {
  lines_->detach();
}

void DocumentScreen::attempt(std::string_view title, const std::function<void()>& command) {
  try {
    command();
  } catch (const store::StoreError& error) {
    workplace_.prompts.tell(title, error.what());
  }
}

// A new document, and a document shown

void DocumentScreen::ClearForNewRecord() {
  AddMode_ = true;
  bindSheet(0);
  Tran_.requery();
  card_->setDocNo(nextDocNo(Tran_));
  showTranNo();
  card_->setDay(workplace_.clock.today());
  card_->setCancelled(false);
  party_->clear();
  fields_.setInitial(workplace_.clock.today());
  references_->setJob(0);
  references_->setEmployee(0);
  references_->setLocation(workplace_.context.stocklocationid);
  if (IncomeCode_) IncomeCode_->setText(QString::number(type_.head->initialCode));
  if (ACodeTxt_) ACodeTxt_->setText(QString::number(type_.counter->debitCode));
  Desc_->clear();
  showConversion({});
  if (counterStrip_) counterStrip_->clear();
  totals_->setCurrencyName(workplace_.context.currencyname);
  totals_->setTyped({.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"});
  recalculate();
  lines_->bind(SubTran_);
  commands_->setEnabled(true);
  if (type_.counter)
    lines_->focusFirstCell();
  else
    party_->focusCode();
}

void DocumentScreen::bindSheet(std::int64_t tranNo) {
  lines_->detach();
  openSheet(workplace_.context.KORDconn, SubTran_, tranNo);
}

bool DocumentScreen::moveToTran(std::int64_t tranNo) {
  if (Tran_.isEmpty()) return false;
  Tran_.moveFirst();
  return Tran_.find("tranno=" + std::to_string(tranNo));
}

void DocumentScreen::ShowRecord() {
  attempt("Cannot Show", [this] {
    workplace_.context.OpenTranFlag = false;
    const bool stood = !Tran_.bof() && !Tran_.eof();
    const std::int64_t shownTranNo = stood ? Tran_.integer("tranno") : 0;
    Tran_.requery();
    if (!moveToTran(workplace_.context.OpenTranNo)) {
      workplace_.prompts.tell("Record Not Found",
                              "Last saved record not found. You may have deleted it or you may not have saved any "
                              "record yet.");
      if (stood) moveToTran(shownTranNo);
      return;
    }
    AddMode_ = false;
    bindSheet(Tran_.integer("tranno"));
    fillFromTran();
    party_->ShowPartyBalance();
    recalculate();
    lines_->bind(SubTran_);
    commands_->setEnabled(true);
  });
}

void DocumentScreen::fillFromTran() {
  showTranNo();
  card_->setDocNo(Tran_.integer("docno"));
  card_->setDay(Tran_.date("TranDate"));
  card_->setCancelled(Tran_.yes("Cancel"));
  party_->show({.code = codeText(Tran_.integer("partycode2")),
                .name = Tran_.text("text1"),
                .address = Tran_.text("text2"),
                .telephone = Tran_.text("text3"),
                .terms = Tran_.text("Nature")});
  fields_.show(Tran_);
  references_->setJob(Tran_.integer("JobIDFrom"));
  references_->setEmployee(Tran_.integer("EmpID"));
  references_->setLocation(Tran_.integer("LocationFrom"));
  if (IncomeCode_) IncomeCode_->setText(QString::fromStdString(codeText(Tran_.integer("partycode"))));
  if (ACodeTxt_) ACodeTxt_->setText(QString::fromStdString(Tran_.text("text4")));
  Desc_->setPlainText(QString::fromStdString(Tran_.text("Desc")));
  showConversion(type_.convertedColumn.empty() ? std::string() : Tran_.text(type_.convertedColumn));
  totals_->setTyped({.Discount = shownAmount(Tran_, "Discount"),
                     .Carriage = shownAmount(Tran_, "Carriage"),
                     .Received = shownAmount(Tran_, "Received")});
}

void DocumentScreen::showTranNo() {
  TranNo_->setText(Tran_.isEmpty() ? QString() : QString::number(Tran_.integer("tranno")));
}

void DocumentScreen::showConversion(const std::string& mark) {
  ConvLbl2_->setText(QString::fromStdString(mark));
  for (QLabel* label : {ConvLbl_, ConvLbl2_}) label->setVisible(!mark.empty());
}

void DocumentScreen::recalculate() {
  totals_->setSums(sumLines(SubTran_));
}

void DocumentScreen::partyChanged() {
  const PartyCard::Party party = party_->party();
  lines_->setParty(party.code, party.name);
  if (type_.counter) return;
  totals_->setReceivedRule(party_->isCashParty() ? type_.party.cashRule : ReceivedRule::AsTyped);
}

DocumentValues DocumentScreen::values() const {
  const PartyCard::Party party = party_->party();
  DocumentValues values{.DocNo = card_->docNo(),
                        .TrDate = card_->day(),
                        .Desc = Desc_->toPlainText().toStdString(),
                        .Cancel = card_->isCancelled(),
                        .PartyCodeTxt = party.code,
                        .PartyNameTxt = party.name,
                        .PartyAddress = party.address,
                        .PartyTel = party.telephone,
                        .Terms = party.terms,
                        .PartyBalance = party_->PartyBalance(),
                        .CreditLimit = party_->CreditLimit(),
                        .IncomeCode = {},
                        .IncomeAcc = {},
                        .ACodeTxt = {},
                        .Acc = {},
                        .JobList = references_->job(),
                        .EmpList = references_->employee(),
                        .LocationList = references_->location(),
                        .fields = fields_.texts(),
                        .totals = totals_->totals()};
  if (IncomeCode_) {
    values.IncomeCode = IncomeCode_->text().toStdString();
    values.IncomeAcc = IncomeAcc_->text().toStdString();
  }
  if (ACodeTxt_) {
    values.ACodeTxt = ACodeTxt_->text().toStdString();
    values.Acc = Acc_->text().toStdString();
  }
  return values;
}

// Saving

void DocumentScreen::ValidateAndSave(PrintMode mode) {
  if (!commands_->save->isEnabled() || !lines_->commitEdit()) return;
  if (BalPic_)
    openPayment(mode);
  else
    save(mode);
}

// The money is taken before the document is saved.
void DocumentScreen::openPayment(PrintMode mode) {
  FormPic_->setEnabled(false);
  disconnect(BalPic_, &PaymentPanel::taken, this, nullptr);
  connect(BalPic_, &PaymentPanel::taken, this, [this, mode] {
    closePayment();
    save(mode);
  });
  BalPic_->open();
}

void DocumentScreen::closePayment() {
  BalPic_->hide();
  FormPic_->setEnabled(true);
  lines_->setFocus(Qt::OtherFocusReason);
}

void DocumentScreen::save(PrintMode mode) {
  attempt("Cannot Save", [&] {
    const DocumentValues values = this->values();
    if (passes(values) && PostDocument(values)) afterSave(mode, values);
  });
}

bool DocumentScreen::isFreeDocNo() {
  const std::optional<double> docNo = text::numberFrom(card_->docNo());
  if (!docNo) return true;  // refused as no number, in its turn
  const store::Recordset taken(workplace_.context.KORDconn,
                               "Select docno from transactions where docno = " + text::numberText(*docNo) +
                                   " and trantype = " + std::to_string(type_.TranType) +
                                   " and fyid = " + std::to_string(workplace_.context.FYID),
                               store::LockType::ReadOnly);
  return taken.isEmpty() || (!AddMode_ && taken.integer("docno") == Tran_.integer("docno"));
}

bool DocumentScreen::passes(const DocumentValues& values) {
  const auto focus = [this](std::string_view control) {
    if (auto* widget = findChild<QWidget*>(shownText(control))) widget->setFocus(Qt::OtherFocusReason);
  };
  if (!isFreeDocNo()) {
    workplace_.prompts.tell("Cannot Save", type_.duplicateText);
    focus("DocNo");
    return false;
  }
  const SaveSituation situation{.addMode = AddMode_,
                                .storedBalance = AddMode_ ? 0 : Tran_.number("Balance"),
                                .yearStart = workplace_.context.FinancialYearStart,
                                .yearEnd = workplace_.context.FinancialYearEnd};
  for (const auto* steps : {&documentSteps(), static_cast<const std::vector<ValidationStep>*>(&type_.validation)})
    for (const ValidationStep& step : *steps) {
      if (!step.fails(values, situation)) continue;
      const bool ask = step.onFailure == OnFailure::Ask;
      const session::Answer answer =
          workplace_.prompts.ask({.title = std::string(step.title),
                                  .text = std::string(step.text),
                                  .buttons = ask ? session::Buttons::YesNo : session::Buttons::Ok});
      if (ask && answer == session::Answer::Yes) continue;
      if (!step.control.empty()) focus(step.control);
      return false;
    }
  return true;
}

bool DocumentScreen::PostDocument(const DocumentValues& values) {
  const auto document = composeDocument(type_, values, workplace_.context, workplace_.clock.now(), SubTran_,
                                        AddMode_ ? HeaderWrite::Add : HeaderWrite::Update);
  if (!document) {
    workplace_.prompts.tell("Cannot Save", document.error());
    return false;
  }
  QWidget* const worked = focusWidget();
  commands_->setEnabled(false);  // a second click cannot post twice
  lines_->detach();
  try {
    LastSavedTranNo_ = writeDocument(workplace_.context.KORDconn, *document, Tran_, SubTran_);
  } catch (const store::StoreError&) {
    // Nothing was written, and the sheet has its rows again: the user can mend the cause and save once more.
    lines_->bind(SubTran_);
    commands_->setEnabled(true);
    if (worked) worked->setFocus(Qt::OtherFocusReason);
    throw;
  }
  Tran_.setSort("tranno asc");
  moveToTran(LastSavedTranNo_);
  showTranNo();
  return true;
}

void DocumentScreen::afterSave(PrintMode mode, const DocumentValues& values) {
  if (mode == PrintMode::Voucher) {
    PrintTimer_.start();
    return;
  }
  if (mode == PrintMode::Document) printDocument(values);
  ClearForNewRecord();
}

void DocumentScreen::printDocument(const DocumentValues& values) {
  session::LoginContext& context = workplace_.context;
  context.PrintKind = type_.TranType;
  context.PrintRS = Tran_.clone();
  context.PrintRS.setBookmark(Tran_.bookmark());
  attempt("Cannot Print", [&] { type_.print(workplace_, values, this); });
}

void DocumentScreen::printVoucher() {
  attempt("Cannot Print", [this] { printOuts_.voucher(workplace_, LastSavedTranNo_, this); });
  attempt("Cannot Add", [this] { ClearForNewRecord(); });
}

}  // namespace velmo::frame

#include "frame/document/document_screen.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "forms/caption.h"
#include "forms/stop_listening.h"
#include "frame/document/command_bar.h"
#include "frame/document/compose_document.h"
#include "frame/document/document_card.h"
#include "frame/document/references_card.h"
#include "frame/posting/document_number.h"
#include "frame/posting/posted_accounts.h"
#include "frame/sheets/sheet_grid.h"
#include "text/number.h"

namespace velmo::frame {

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
  orderTabs();
  references_->loadLists();
  // Only the rows that are looked at are read: a year may hold very many documents.
  Tran_.open(workplace_.context.KORDconn,
             "SELECT * from transactions where trantype=" + std::to_string(type_.form.tranType) +
                 yearCondition(type_.belongsTo, workplace_.context.FYID) + " order by docno",
             store::LockType::Optimistic, store::Fetch::AsNeeded);
  if (type_.costsOnOpening == CostsOnOpening::ToYearEnd) workplace_.context.Costs.arm();
  ClearForNewRecord();
  if (std::exchange(workplace_.context.OpenTranFlag, false)) showTran();
}

DocumentScreen::~DocumentScreen() {
  forms::stopListening(*this);
  body_->detach();
}

// A new document, and a document shown

void DocumentScreen::ClearForNewRecord() {
  AddMode_ = true;
  body_->open(0);
  proposeDocNo();
  card_->setDay(workplace_.clock.today());
  card_->setCancelled(false);
  body_->clear();
  fields_.setInitial(workplace_.clock.today());
  references_->setJobs(0, 0);
  references_->setEmployee(0);
  references_->setLocations(workplace_.context.stocklocationid, workplace_.context.stocklocationid);
  Desc_->clear();
  showMarks();
  bindAgain();
  GiveUp();
  body_->focusFirst();
}

void DocumentScreen::proposeDocNo() {
  Tran_.requery();
  card_->proposeDocNo(nextDocNo(Tran_));
  showTranNo();
}

void DocumentScreen::bindAgain() {
  body_->bind();
  commands_->setEnabled(true);
}

bool DocumentScreen::moveToTran(std::int64_t tranNo) {
  if (Tran_.isEmpty()) return false;
  Tran_.moveFirst();
  return Tran_.find("tranno=" + std::to_string(tranNo));
}

void DocumentScreen::ShowRecord() {
  workplace_.context.OpenTranFlag = false;
  if (MayLeave()) showTran();
}

void DocumentScreen::reopen() {
  if (workplace_.context.OpenTranFlag) ShowRecord();
}

void DocumentScreen::showTran() {
  workplace_.attempt("Cannot Show", [this] {
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
    body_->open(Tran_.integer("tranno"));
    fillFromTran();
    bindAgain();
    GiveUp();
  });
}

void DocumentScreen::fillFromTran() {
  showTranNo();
  card_->setDocNo(Tran_.integer("docno"));
  card_->setDay(Tran_.date("TranDate"));
  card_->setCancelled(Tran_.yes("Cancel"));
  body_->show(Tran_);
  fields_.show(Tran_);
  references_->setJobs(Tran_.integer("JobIDFrom"), Tran_.integer("JobIDTo"));
  references_->setEmployee(Tran_.integer("EmpID"));
  references_->setLocations(Tran_.integer("LocationFrom"), Tran_.integer("LocationTo"));
  Desc_->setPlainText(QString::fromStdString(Tran_.text("Desc")));
  showMarks();
}

void DocumentScreen::showTranNo() {
  TranNo_->setText(Tran_.isEmpty() ? QString() : QString::number(Tran_.integer("tranno")));
}

DocumentValues DocumentScreen::values() const {
  DocumentValues values;
  values.DocNo = card_->docNo();
  values.TrDate = card_->day();
  values.Desc = Desc_->toPlainText().toStdString();
  values.Cancel = card_->isCancelled();
  values.JobList = references_->job();
  values.JobListTo = references_->jobTo();
  values.EmpList = references_->employee();
  values.LocationList = references_->location();
  values.LocationListTo = references_->locationTo();
  if (type_.locationChoice == LocationChoice::OfCompany)
    values.LocationList = {.text = {}, .id = workplace_.context.stocklocationid, .matches = true};
  values.fields = fields_.texts();
  body_->fill(values);
  return values;
}

// Leaving

DocumentScreen::Written DocumentScreen::written() const {
  Written now{.values = values(), .sheets = {}};
  for (const SheetGrid* sheet : findChildren<SheetGrid*>()) now.sheets.push_back(sheet->written());
  return now;
}

bool DocumentScreen::MayLeave() {
  if (!workplace_.context.AskBeforeDropping || written() == kept_) return true;
  return workplace_.prompts.ask(
             {.title = "Not Saved",
              .text = "What you have typed in " + std::string(type_.title) + " is not saved. Do you want to drop it?",
              .buttons = session::Buttons::YesNo}) == session::Answer::Yes;
}

void DocumentScreen::closeEvent(QCloseEvent* event) {
  event->setAccepted(MayLeave());
}

// Saving

void DocumentScreen::ValidateAndSave(PrintMode mode, const ConversionCommand* conversion) {
  if (!commands_->save->isEnabled() || !body_->commitEdit()) return;
  body_->beforeSave([this, mode, conversion] {
    workplace_.attempt("Cannot Save", [&] {
      DocumentValues values = this->values();
      if (type_.dateChoice == DateChoice::DayOfSave) values.TrDate = workplace_.clock.today();
      if (!passes(values) || !PostDocument(values, conversion)) return;
      GiveUp();  // it is in the books
      conversion ? finishConversion(*conversion) : afterSave(mode, values);
    });
  });
}

bool DocumentScreen::isFreeDocNo() const {
  const std::string typed = card_->docNo();
  if (!text::isNumeric(typed)) return true;  // refused as no number, in its turn
  const std::int64_t docNo = store::integerOf(typed);
  if (!AddMode_ && docNo == Tran_.integer("docno")) return true;
  return !isTaken(
      workplace_.context.KORDconn,
      {.DocNo = docNo, .TranType = type_.form.tranType, .FYID = workplace_.context.FYID, .belongsTo = type_.belongsTo});
}

// What a person typed stays, and so does the number of a document that was saved from here; of the program's own
// proposals the next one takes the place.
void DocumentScreen::refuseDocNo() {
  workplace_.prompts.tell("Cannot Save", type_.duplicateText);
  if (card_->isDocNoProposed()) proposeDocNo();
  focusControl("DocNo");
}

bool DocumentScreen::passes(const DocumentValues& values) {
  if (!isFreeDocNo()) {
    refuseDocNo();
    return false;
  }
  const SaveSituation situation{.addMode = AddMode_,
                                .storedBalance = AddMode_ ? 0 : Tran_.number("Balance"),
                                .yearStart = workplace_.context.FinancialYearStart,
                                .yearEnd = workplace_.context.FinancialYearEnd};
  const auto& ofEvery = type_.dateChoice == DateChoice::Shown ? documentSteps() : undatedSteps();
  for (const auto* steps : {&ofEvery, static_cast<const std::vector<ValidationStep>*>(&type_.validation)})
    for (const ValidationStep& step : *steps) {
      if (!step.fails(values, situation)) continue;
      const bool ask = step.onFailure == OnFailure::Ask;
      const session::Answer answer =
          workplace_.prompts.ask({.title = std::string(step.title),
                                  .text = std::string(step.text),
                                  .buttons = ask ? session::Buttons::YesNo : session::Buttons::Ok});
      if (ask && answer == session::Answer::Yes) continue;
      if (!step.control.empty()) focusControl(step.control);
      return false;
    }
  return !body_->refuses(values);
}

void DocumentScreen::focusControl(std::string_view name) {
  if (auto* widget = findChild<QWidget*>(forms::shownText(name))) widget->setFocus(Qt::OtherFocusReason);
}

bool DocumentScreen::PostDocument(const DocumentValues& values, const ConversionCommand* conversion) {
  auto document = body_->compose(values, workplace_.clock.now(), AddMode_ ? HeaderWrite::Add : HeaderWrite::Update);
  if (!document) {
    workplace_.prompts.tell("Cannot Save", document.error());
    return false;
  }
  if (conversion && !AddMode_) document->demand = [this, conversion] { demandUnharmed(*conversion); };
  QWidget* const worked = focusWidget();
  commands_->setEnabled(false);  // a second click cannot post twice
  body_->detach();
  try {
    if (document->ledger) demandAccounts(workplace_.context.KORDconn, *document->ledger);
    LastSavedTranNo_ = writeDocument(workplace_.context.KORDconn, *document, Tran_,
                                     [&](std::int64_t tranNo) { body_->writeRows(values, tranNo); });
  } catch (const DocNoTaken&) {
    bindAgain();
    refuseDocNo();
    return false;
  } catch (const store::StoreError&) {
    // Nothing was written, and the sheet has its rows again: the user can mend the cause and save once more.
    bindAgain();
    if (worked) worked->setFocus(Qt::OtherFocusReason);
    throw;
  }
  card_->keepDocNo();
  Tran_.setSort("tranno asc");
  moveToTran(LastSavedTranNo_);
  showTranNo();
  return true;
}

void DocumentScreen::afterSave(PrintMode mode, const DocumentValues& values) {
  if (mode != PrintMode::Nothing && type_.afterPrint == AfterPrint::StayOnSaved)
    workplace_.attempt("Cannot Show", [this] {
      body_->reopen(LastSavedTranNo_, AddMode_ ? HeaderWrite::Add : HeaderWrite::Update);
      bindAgain();
      GiveUp();
    });
  if (mode != PrintMode::Nothing && type_.afterPrint == AfterPrint::ShowSaved) {
    workplace_.context.OpenTranNo = LastSavedTranNo_;
    showTran();
  }
  if (mode == PrintMode::Voucher) {
    PrintTimer_.start();
    return;
  }
  if (mode == PrintMode::Document) {
    printDocument(values);
    if (type_.afterPrint != AfterPrint::NewDocument) return;
  }
  ClearForNewRecord();
}

void DocumentScreen::printDocument(const DocumentValues& values) {
  session::LoginContext& context = workplace_.context;
  context.PrintKind = type_.form.tranType;
  workplace_.attempt("Cannot Print", [&] {
    context.PrintRS = body_->printRows(Tran_);
    type_.print(workplace_, values, this);
  });
}

void DocumentScreen::printVoucher() {
  workplace_.attempt("Cannot Print", [this] { printOuts_.voucher(workplace_, LastSavedTranNo_, this); });
  if (type_.afterPrint == AfterPrint::NewDocument) workplace_.attempt("Cannot Add", [this] { ClearForNewRecord(); });
}

}  // namespace velmo::frame

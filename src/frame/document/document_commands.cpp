#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "frame/document/command_bar.h"
#include "frame/document/document_screen.h"
#include "frame/document/find_screen.h"
#include "frame/document/references_card.h"

// The commands of a document screen, beside saving.
namespace velmo::frame {

void DocumentScreen::connectParts() {
  connect(body_.get(), &DocumentBody::employeeFound, references_, &ReferencesCard::setEmployee);
  connect(body_.get(), &DocumentBody::saveRequested, this, [this] { ValidateAndSave(PrintMode::Nothing); });
  PrintTimer_.setObjectName("PrintTimer");
  PrintTimer_.setSingleShot(true);
  PrintTimer_.setInterval(0);
  connect(&PrintTimer_, &QTimer::timeout, this, &DocumentScreen::printVoucher);
}

void DocumentScreen::connectCommands() {
  const auto on = [this](QPushButton* button, auto command) { connect(button, &QPushButton::clicked, this, command); };
  on(commands_->add, &DocumentScreen::addCommand);
  on(commands_->save, [this] { ValidateAndSave(PrintMode::Nothing); });
  if (commands_->print) on(commands_->print, [this] { ValidateAndSave(PrintMode::Document); });
  if (commands_->voucher) on(commands_->voucher, [this] { ValidateAndSave(PrintMode::Voucher); });
  on(commands_->cancel, &DocumentScreen::cancelCommand);
  on(commands_->remove, &DocumentScreen::deleteCommand);
  on(commands_->find, &DocumentScreen::findCommand);
  on(commands_->retrieve, &DocumentScreen::retrieveCommand);
  on(commands_->previous, &DocumentScreen::previousCommand);
  on(commands_->next, &DocumentScreen::nextCommand);
  if (commands_->settings) on(commands_->settings, [this] { workplace_.screens.openDialog(type_.printSettings); });
  auto* nextPart = new QShortcut(Qt::Key_F6, this);
  nextPart->setContext(Qt::WidgetWithChildrenShortcut);
  connect(nextPart, &QShortcut::activated, this, [this] { body_->focusNextPart(focusWidget()); });
}

// What this program does not have yet stands there disabled.
void DocumentScreen::offerCommands() {
  body_->addCommands(*commands_);
  connectConversions();
  if (commands_->print && !type_.print) commands_->forbid(*commands_->print);
  if (commands_->voucher && !printOuts_.voucher) commands_->forbid(*commands_->voucher);
  if (commands_->settings && !workplace_.screens.hasScreen(type_.printSettings))
    commands_->forbid(*commands_->settings);
}

void DocumentScreen::addCommand() {
  if (AddMode_) {
    workplace_.prompts.tell("Cannot Add",
                            "You have already been adding a new record. To clear the changes, click on CANCEL button.");
    return;
  }
  if (MayLeave()) workplace_.attempt("Cannot Add", [this] { ClearForNewRecord(); });
}

void DocumentScreen::cancelCommand() {
  if (!MayLeave()) return;
  if (AddMode_) {
    workplace_.attempt("Cannot Cancel", [this] { ClearForNewRecord(); });
    return;
  }
  workplace_.context.OpenTranNo = TranNo_->text().toLongLong();
  showTran();
}

void DocumentScreen::deleteCommand() {
  if (AddMode_) return workplace_.prompts.tell("No Record Found", "Select a record to be deleted.");
  if (Tran_.isEmpty()) return workplace_.prompts.tell("No Record Found", "There is no record to be deleted.");
  const session::Answer answer = workplace_.prompts.ask(
      {.title = "Delete Confirmation",
       .text = "Are you sure, you want to delete this transaction, Serial No. " + Tran_.text("docno") +
               "? Deleting this transaction will remove all the ledger entries in accounts relating to this "
               "transaction.",
       .buttons = session::Buttons::YesNo});
  if (answer != session::Answer::Yes) return;
  workplace_.attempt("Cannot Delete", [this] {
    store::Connection::Transaction transaction(workplace_.context.KORDconn);
    Tran_.remove();  // its lines, ledger entries and open items go with it
    transaction.commit();
    ClearForNewRecord();
  });
}

void DocumentScreen::findCommand() {
  FindScreen find(
      type_.find, type_.form, workplace_, [this] { ShowRecord(); }, this);
  find.exec();
}

void DocumentScreen::retrieveCommand() {
  if (Tran_.isEmpty() || !MayLeave()) return;
  workplace_.context.OpenTranNo = LastSavedTranNo_;
  showTran();
}

bool DocumentScreen::mayBrowse() {
  return type_.form.browseRight == 0 || workplace_.rights().demand(type_.form.browseRight);
}

void DocumentScreen::previousCommand() {
  if (Tran_.isEmpty() || !mayBrowse() || !MayLeave()) return;
  workplace_.attempt("Cannot Show", [this] {
    if (!AddMode_) Tran_.movePrevious();
    if (Tran_.bof()) Tran_.moveFirst();
    workplace_.context.OpenTranNo = Tran_.integer("tranno");
    showTran();
  });
}

void DocumentScreen::nextCommand() {
  if (Tran_.isEmpty() || !mayBrowse()) return;
  if (AddMode_) return workplace_.prompts.tell("Last Record", "You have aleady been on the last record.");
  if (!MayLeave()) return;
  workplace_.attempt("Cannot Show", [this] {
    Tran_.moveNext();
    if (Tran_.eof()) Tran_.moveLast();
    workplace_.context.OpenTranNo = Tran_.integer("tranno");
    showTran();
  });
}

}  // namespace velmo::frame

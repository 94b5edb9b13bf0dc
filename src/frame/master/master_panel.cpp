#include "frame/master/master_panel.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <stdexcept>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/recordset_model.h"
#include "forms/stop_listening.h"
#include "forms/table_view.h"
#include "spreadsheet/save_as_spreadsheet.h"
#include "store/connection/connection.h"

// What a level of a master dialog does; how it is laid out stands in master_panel_layout.cpp.
namespace velmo::frame {

MasterPanel::MasterPanel(const MasterLevel& level, session::Workplace& workplace, QWidget* parent)
    : QFrame(parent), level_(level), workplace_(workplace), parentKeys_(1) {
  setObjectName(forms::shownText(level_.frame));
  setAccessibleName(forms::shownText(level_.heading));
  forms::makeCard(*this);
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, forms::spacing::Normal + forms::spacing::Tight);
  buildHeading();
  buildList();
  buildForm();
  buildCommands();
  if (level_.furnish) level_.furnish(*this);
  setState(State::Browsing);
}

MasterPanel::~MasterPanel() {
  forms::stopListening(*this);
}

MasterBox& MasterPanel::box(std::string_view column) const {
  MasterBox* hidden = nullptr;
  for (const auto& box : boxes_) {
    if (box->field().column != column) continue;
    if (!box->isHidden()) return *box;
    hidden = box.get();
  }
  if (hidden) return *hidden;
  throw std::logic_error("no box for " + std::string(column));
}

void MasterPanel::load(std::vector<std::string> parentKeys) {
  parentKeys_ = std::move(parentKeys);
  openRows();
  selectRow(rows_.isOpen() && !rows_.isEmpty() ? 0 : -1);
}

void MasterPanel::openRows() {
  workplace_.attempt("Cannot Show", [this] {
    moving_ = true;
    rows_ = store::Recordset(workplace_.context.KORDconn, level_.statement(parent()), store::LockType::Optimistic,
                             store::Fetch::AsNeeded);
    model_->setRecordset(rows_);
    const std::int64_t count = rows_.recordCount();
    count_->setText(count == 0 ? tr("none yet") : QLocale(QLocale::English).toString(static_cast<qlonglong>(count)));
    moving_ = false;
  });
  moving_ = false;
}

bool MasterPanel::goTo(const std::string& key) {
  if (key.empty() || !rows_.isOpen() || rows_.isEmpty()) return false;
  rows_.moveFirst();
  if (!rows_.find(level_.key + " = " + literal(level_.key, key))) {
    rows_.moveFirst();
    return false;
  }
  selectRow(rows_.position());
  return true;
}

// The list and the rows go to the place together; -1 for none.
void MasterPanel::selectRow(std::int64_t row) {
  moving_ = true;
  if (row >= 0) {
    model_->showUpTo(static_cast<int>(row));
    rows_.moveTo(row);
    list_->setCurrentIndex(model_->index(static_cast<int>(row), 0));
  } else {
    list_->setCurrentIndex({});
  }
  moving_ = false;
  showRow();
}

void MasterPanel::rowChosen() {
  if (moving_ || isBusy() || !list_->currentIndex().isValid()) return;
  workplace_.attempt("Cannot Show", [this] {
    rows_.moveTo(list_->currentIndex().row());
    showRow();
  });
}

std::string MasterPanel::key() const {
  if (state_ == State::Adding || !rows_.isOpen() || rows_.bof() || rows_.eof()) return {};
  return rows_.text(level_.key);
}

void MasterPanel::showRow() {
  const bool there = rows_.isOpen() && !rows_.bof() && !rows_.eof();
  for (const auto& box : boxes_) {
    box->show(there ? rows_.value(box->field().column) : store::Value());
    box->setOpen(box->field().use == BoxUse::Open || box->isHidden());
  }
  if (level_.shown) level_.shown(*this);
  mirror();
  setState(State::Browsing);
  Q_EMIT currentChanged();
}

bool MasterPanel::isMirror(const MasterBox& box) const {
  return box.isHidden() && &this->box(box.field().column) != &box;
}

void MasterPanel::mirror() {
  for (const auto& box : boxes_)
    if (isMirror(*box)) box->show(this->box(box->field().column).value());
}

void MasterPanel::boxEdited(MasterBox& box) {
  if (isMirror(box)) this->box(box.field().column).show(box.value());
  if (state_ == State::Browsing) setState(State::Changing);
  if (level_.givenCode && state_ == State::Adding && box.field().column == level_.givenCode->follows) proposeCode();
  if (level_.changed) level_.changed(*this, box.field().column);
  mirror();
}

void MasterPanel::setState(State state) {
  const bool wasBusy = isBusy();
  state_ = state;
  list_->setEnabled(!isBusy());
  add_->setEnabled(!isBusy() && hasParent());
  cancel_->setEnabled(isBusy());
  if (remove_) remove_->setEnabled(!isBusy());
  if (wasBusy != isBusy()) Q_EMIT busyChanged();
}

void MasterPanel::add() {
  if (isBusy() || !hasParent()) return;
  workplace_.attempt("Cannot Add", [this] {
    keyBefore_ = key();
    setState(State::Adding);
    for (const auto& box : boxes_) {
      box->showInitial(workplace_.clock.today());
      box->setOpen(box->field().use != BoxUse::ShownOnly);
    }
    if (level_.shown) level_.shown(*this);
    mirror();
    proposeCode();
    if (level_.begin && !level_.begin(*this)) {
      setState(State::Browsing);
      if (!goTo(keyBefore_)) showRow();
      return;
    }
    Q_EMIT currentChanged();
    if (level_.firstColumn.empty())
      focusFirstBox();
    else
      focusBox(level_.firstColumn);
  });
}

MasterEntry MasterPanel::entry() const {
  MasterEntry entry{.workplace = workplace_,
                    .rows = rows_,
                    .texts = {},
                    .values = {},
                    .parentKeys = parentKeys_,
                    .isNew = state_ == State::Adding};
  for (const auto& box : boxes_) {
    if (isMirror(*box)) continue;
    entry.texts[box->field().column] = box->textToSave();
    entry.values[box->field().column] = box->value();
  }
  return entry;
}

void MasterPanel::save() {
  workplace_.attempt("Cannot Save", [this] {
    const bool nothing = state_ != State::Adding && (!rows_.isOpen() || rows_.isEmpty());
    if (nothing) return workplace_.prompts.tell("Cannot Save", level_.addFirst);
    const MasterEntry entry = this->entry();
    std::optional<Failure> failure = firstFailure(entry);
    if (!failure) failure = write(entry);
    if (!failure) return;
    workplace_.prompts.tell("Cannot Save", failure->words);
    if (isCodeTaken(entry)) proposeCode();
    if (!failure->column.empty()) focusBox(failure->column);
  });
}

std::optional<MasterPanel::Failure> MasterPanel::firstFailure(const MasterEntry& entry) const {
  for (const MasterTest& test : level_.tests)
    if (const std::optional<std::string> refusal = test.refusal(entry)) return Failure{*refusal, test.column};
  return std::nullopt;
}

void MasterPanel::proposeCode() {
  if (level_.givenCode) setText(level_.givenCode->column, level_.givenCode->next(entry()));
}

// Of a code that the program gave: whether a row has it by now.
bool MasterPanel::isCodeTaken(const MasterEntry& entry) const {
  if (!level_.givenCode || !entry.isNew) return false;
  const GivenCode& given = *level_.givenCode;
  const std::string code = entry.text(given.column);
  return !code.empty() && entry.finds("select " + given.column + " from " + given.table + " where " + given.column +
                                      " = " + literal(given.column, code));
}

// A code, which is a text or a number, as statements have it.
std::string MasterPanel::literal(std::string_view column, const std::string& code) const {
  const auto field = static_cast<std::size_t>(rows_.fieldIndex(column));
  return rows_.fields()[field].type == store::ColumnType::Text ? store::quoted(code) : code;
}

// Between the tests and here another program may have written. Nothing is written when it got in the way.
std::optional<MasterPanel::Failure> MasterPanel::write(MasterEntry entry) {
  {
    store::Connection::Transaction transaction(workplace_.context.KORDconn);
    if (isCodeTaken(entry)) {
      const GivenCode& given = *level_.givenCode;
      const std::string code = given.next(entry);
      entry.texts[given.column] = code;
      entry.values[given.column] = code;
    }
    if (const std::optional<Failure> failure = firstFailure(entry)) return failure;
    writeRow(entry);
    transaction.commit();
  }
  showSaved(rows_.text(level_.key));
  return std::nullopt;
}

void MasterPanel::writeRow(const MasterEntry& entry) {
  std::vector<store::FieldValue> values;
  for (const WrittenColumn& column : level_.written)
    values.push_back({column.column, column.value ? column.value(entry) : entry.value(column.column)});
  const std::string keyBefore = key();
  if (entry.isNew)
    rows_.addNew(values);
  else
    rows_.update(values);
  if (level_.alsoWrite) level_.alsoWrite(entry, keyBefore);
}

void MasterPanel::showSaved(const std::string& key) {
  setState(State::Browsing);
  openRows();
  if (!goTo(key)) selectRow(rows_.isEmpty() ? -1 : 0);
  focusList();
}

void MasterPanel::cancel() {
  if (!isBusy()) return;
  const std::string before = state_ == State::Adding ? keyBefore_ : key();
  setState(State::Browsing);
  openRows();
  if (!goTo(before)) selectRow(rows_.isOpen() && !rows_.isEmpty() ? 0 : -1);
  focusList();
}

void MasterPanel::remove() {
  if (!level_.deletion || isBusy()) return;
  const MasterDeletion& deletion = *level_.deletion;
  workplace_.attempt("Cannot Delete", [&] {
    if (!rows_.isOpen() || rows_.isEmpty() || rows_.bof() || rows_.eof())
      return workplace_.prompts.tell(deletion.none.title, deletion.none.text);
    const MasterEntry entry = this->entry();
    for (const auto& refuses : deletion.refusals)
      if (const std::optional<std::string> refusal = refuses(entry))
        return workplace_.prompts.tell("Cannot Delete", *refusal);
    const session::Answer answer = workplace_.prompts.ask(
        {.title = "Delete Confirmation", .text = deletion.question(entry), .buttons = session::Buttons::YesNo});
    if (answer != session::Answer::Yes) return;
    const std::int64_t place = rows_.position();
    rows_.remove();
    openRows();
    selectRow(std::min(place, rows_.recordCount() - 1));
    focusList();
  });
}

// Every row with the columns of the list and those of the boxes, secrets and choices' numbers aside.
void MasterPanel::saveSpreadsheet() {
  std::vector<forms::TableColumn> columns = level_.columns;
  for (const MasterField& field : level_.fields) {
    const bool listed = std::ranges::count(columns, field.column, &forms::TableColumn::field) > 0;
    const bool isSeen = field.kind != BoxKind::Secret && field.kind != BoxKind::Choice && field.use != BoxUse::Hidden;
    if (!listed && isSeen) columns.push_back({.caption = field.caption, .field = field.column});
  }
  workplace_.attempt("Cannot Save", [&] {
    forms::RecordsetModel all(columns);  // outlives the table
    all.setRecordset(store::Recordset(workplace_.context.KORDconn, level_.statement(parent()),
                                      store::LockType::ReadOnly, store::Fetch::AsNeeded));
    QTableView table(this);
    table.setModel(&all);
    spreadsheet::saveAsSpreadsheet(table, level_.heading, workplace_.files, workplace_.prompts);
  });
}

void MasterPanel::focusList() {
  list_->setFocus(Qt::OtherFocusReason);
}

void MasterPanel::focusBox(std::string_view column) {
  QWidget* control = box(column).control();
  control->setFocus(Qt::TabFocusReason);
  if (auto* line = qobject_cast<QLineEdit*>(control)) line->selectAll();
}

void MasterPanel::focusFirstBox() {
  for (const auto& box : boxes_) {
    const bool open = box->field().use != BoxUse::ShownOnly && !box->isHidden();
    if (open) return focusBox(box->field().column);
  }
}

}  // namespace velmo::frame

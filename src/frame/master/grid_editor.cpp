#include "frame/master/grid_editor.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <algorithm>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/stop_listening.h"
#include "forms/table_view.h"
#include "forms/wait_cursor.h"
#include "frame/master/grid_table.h"
#include "spreadsheet/save_as_spreadsheet.h"
#include "text/number.h"

namespace velmo::frame {
namespace {

// A price, a level or a cost: a text that is no number leaves the cell as it is.
class FiguresModel : public forms::RecordsetModel {
 public:
  using forms::RecordsetModel::RecordsetModel;
  bool setData(const QModelIndex& index, const QVariant& text, int role) override {
    if (role == Qt::EditRole && !text::isNumeric(text.toString().toStdString())) {
      Q_EMIT refused(tr("Only a number can stand here."));
      return false;
    }
    if (role == Qt::EditRole && text == data(index, Qt::EditRole)) return true;
    return forms::RecordsetModel::setData(index, text, role);
  }
};

QPushButton* makeButton(const QString& name, const QString& caption, const QString& hint) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setToolTip(hint);
  button->setAutoDefault(false);
  return button;
}

int widthOf(const forms::TableColumn& column, const QWidget& widget) {
  return column.width * widget.fontMetrics().averageCharWidth() + 16;
}

void spreadWidths(QTableView& grid, const std::vector<forms::TableColumn>& columns) {
  int widest = 0;
  for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
    const forms::TableColumn& column = columns[static_cast<std::size_t>(i)];
    grid.setColumnWidth(i, widthOf(column, grid));
    if (column.width > columns[static_cast<std::size_t>(widest)].width) widest = i;
  }
  grid.horizontalHeader()->setSectionResizeMode(widest, QHeaderView::Stretch);
}

}  // namespace

GridEditor::GridEditor(GridEditorType type, session::Workplace& workplace, QWidget* parent)
    : QWidget(parent), type_(std::move(type)), workplace_(workplace), model_(new FiguresModel(type_.columns, this)) {
  setObjectName(forms::shownText(type_.screen));
  setWindowTitle(forms::shownText(type_.title));
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, forms::spacing::Section);
  auto* filters = new QHBoxLayout;
  forms::setGrid(*filters, 0);
  column->addLayout(filters);
  if (!type_.hint.empty()) {
    auto* hint = new QLabel(forms::shownText(type_.hint));
    forms::makeCaption(*hint);
    column->addWidget(hint);
  }
  buildGrid();
  column->addWidget(grid_, 1);
  auto* foot = new QHBoxLayout;
  forms::setGrid(*foot, 0);
  buildFoot(*foot);
  column->addLayout(foot);
  connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this, &GridEditor::save);
  if (type_.filters) type_.filters(*this, *filters);
  grid_->setFocus();
}

GridEditor::~GridEditor() {
  forms::stopListening(*this);
}

void GridEditor::buildGrid() {
  grid_ = new GridTable;
  grid_->setObjectName(forms::shownText(type_.grid));
  grid_->setAccessibleName(forms::shownText(type_.title));
  grid_->setModel(model_);
  spreadWidths(*grid_, type_.columns);
  addAction(spreadsheet::addSaveAsSpreadsheet(*grid_, type_.title, workplace_.files, workplace_.prompts));
  if (!isEdited()) grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  connect(model_, &QAbstractItemModel::dataChanged, this, [this] {
    edited_ = true;
    count_->clear();
  });
  connect(model_, &forms::RecordsetModel::refused, this, [this](const QString& words) { count_->setText(words); });
  if (type_.doubleClicked)
    connect(grid_, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { type_.doubleClicked(*this, index.row()); });
}

void GridEditor::buildFoot(QHBoxLayout& foot) {
  count_ = new QLabel;
  forms::makeCaption(*count_);
  for (const GridCommand& command : type_.commands) {
    auto* button =
        makeButton(forms::shownText(command.name), forms::shownText(command.caption), forms::shownText(command.hint));
    connect(button, &QPushButton::clicked, this,
            [this, &command] { workplace_.attempt(command.failure, [&] { command.run(*this); }); });
    foot.addWidget(button);
  }
  foot.addWidget(count_, 1);
  if (type_.saves) {
    auto* save = makeButton("SaveBttn", tr("Save"), tr("Writes all changes (Ctrl+S)"));
    forms::makePrimary(*save);
    connect(save, &QPushButton::clicked, this, &GridEditor::save);
    foot.addWidget(save);
    auto* cancel = makeButton("CancelBttn", tr("Cancel"), tr("Drops all changes that were not saved"));
    connect(cancel, &QPushButton::clicked, this, &GridEditor::cancel);
    foot.addWidget(cancel);
  }
  auto* close = makeButton("CloseBttn", tr("&Close"), tr("Closes this window (Esc)"));
  connect(close, &QPushButton::clicked, this, &GridEditor::closeRequested);
  foot.addWidget(close);
}

bool GridEditor::show(const std::string& statement) {
  if (!mayDrop()) return false;
  statement_ = statement;
  read();
  return true;
}

void GridEditor::read() {
  workplace_.attempt("Cannot Show", [this] {
    const forms::WaitCursor wait;
    model_->setRecordset(store::Recordset(workplace_.context.KORDconn, statement_,
                                          type_.saves ? store::LockType::BatchOptimistic : store::LockType::ReadOnly,
                                          store::Fetch::All));
    edited_ = false;
    const auto& columns = model_->columns();
    const auto first = std::ranges::find(columns, forms::ColumnUse::Editable, &forms::TableColumn::use);
    if (model_->rowCount() > 0)
      grid_->setCurrentIndex(model_->index(0, isEdited() ? static_cast<int>(first - columns.begin()) : 0));
    showCount();
  });
}

bool GridEditor::isEdited() const {
  return std::ranges::any_of(model_->columns(),
                             [](const forms::TableColumn& column) { return column.use == forms::ColumnUse::Editable; });
}

void GridEditor::showCount() {
  if (model_->rowCount() == 0) return count_->setText(tr("No rows."));
  if (type_.saves) return count_->clear();
  const std::int64_t rows = model_->rows().recordCount();
  count_->setText(rows == 1 ? tr("1 row") : tr("%1 rows").arg(QLocale(QLocale::English).toString(qlonglong{rows})));
}

void GridEditor::noteEdits() {
  model_->refreshAll();
  edited_ = true;
}

void GridEditor::save() {
  if (!type_.saves || !model_->rows().isOpen()) return;
  workplace_.attempt("Cannot Save", [this] {
    const forms::WaitCursor wait;
    grid_->setFocus();  // takes what is being typed
    count_->setText(tr("Saving..."));
    count_->repaint();
    model_->rows().updateBatch();
    edited_ = false;
    count_->setText(tr("Saved."));
  });
  if (edited_) count_->clear();
}

void GridEditor::cancel() {
  const QModelIndex at = grid_->currentIndex();
  read();
  if (at.isValid() && at.row() < model_->rowCount()) grid_->setCurrentIndex(model_->index(at.row(), at.column()));
}

bool GridEditor::mayDrop() {
  if (!edited_) return true;
  const session::Answer answer =
      workplace_.prompts.ask({.title = "Not Saved",
                              .text = "There are changes that have not been saved. Do you want to drop them?",
                              .buttons = session::Buttons::YesNo});
  if (answer == session::Answer::Yes) edited_ = false;
  return answer == session::Answer::Yes;
}

GridDialog::GridDialog(GridEditorType type, session::Workplace& workplace, QWidget* parent) : QDialog(parent) {
  setWindowTitle(forms::shownText(type.title));
  editor_ = new GridEditor(std::move(type), workplace, this);
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, 0);
  column->addWidget(editor_);
  connect(editor_, &GridEditor::closeRequested, this, &QDialog::reject);
  resize(roomyWidth(), 600);
}

// For the columns side by side, as far as the window below is wide.
int GridDialog::roomyWidth() const {
  constexpr int narrowest = 900;
  int wanted = 4 * forms::spacing::Section;
  const auto& columns = editor_->model().columns();
  for (int i = 0; i < static_cast<int>(columns.size()); ++i)
    if (!editor_->grid().isColumnHidden(i)) wanted += widthOf(columns[static_cast<std::size_t>(i)], *this);
  const int room = parentWidget() ? parentWidget()->window()->width() - 40 : wanted;
  return std::max(narrowest, std::min(wanted, room));
}

void GridDialog::done(int result) {
  if (editor_->mayDrop()) QDialog::done(result);
}

}  // namespace velmo::frame

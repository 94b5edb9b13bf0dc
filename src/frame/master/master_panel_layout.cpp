#include <QAction>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/recordset_model.h"
#include "forms/table_view.h"
#include "frame/master/master_panel.h"

// How a level of a master dialog is laid out, from the top: heading, list, boxes, commands.
namespace velmo::frame {
namespace {

QString commandName(const char* name, const MasterLevel& level) {
  return QLatin1String(name) + forms::shownText(level.suffix);
}

}  // namespace

void MasterPanel::buildHeading() {
  heading_ = new QHBoxLayout;
  forms::setGrid(*heading_, 0);
  auto* heading = new QLabel(forms::shownText(level_.heading));
  QFont font = heading->font();
  font.setWeight(QFont::DemiBold);
  heading->setFont(font);
  count_ = new QLabel;
  forms::makeCaption(*count_);
  heading_->addWidget(heading);
  heading_->addWidget(count_);
  heading_->addStretch(1);
  static_cast<QVBoxLayout*>(layout())->addLayout(heading_);
}

void MasterPanel::buildList() {
  model_ = new forms::RecordsetModel(level_.columns, this);
  list_ = new forms::TableView;
  list_->setObjectName(forms::shownText(level_.list));
  list_->setAccessibleName(forms::shownText(level_.heading));
  list_->showModel(*model_);
  list_->setMinimumHeight(90);
  static_cast<QVBoxLayout*>(layout())->addWidget(list_, 1);
  addSpreadsheet();
  connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &MasterPanel::rowChosen);
  connect(list_, &forms::TableView::picked, this, &MasterPanel::focusFirstBox);
}

// Ctrl+E in the list; the button is for those who look for it.
void MasterPanel::addSpreadsheet() {
  auto* action = new QAction(tr("Save as Spreadsheet..."), this);
  action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  addAction(action);
  auto* button = new QPushButton(tr("Spreadsheet"));
  button->setObjectName(commandName("SpreadsheetBttn", level_));
  button->setToolTip(tr("Saves the rows of this list with all their columns as a spreadsheet (Ctrl+E)"));
  button->setAutoDefault(false);
  button->setFocusPolicy(Qt::NoFocus);
  forms::makeQuiet(*button);
  heading_->addWidget(button);
  connect(button, &QPushButton::clicked, action, &QAction::trigger);
  connect(action, &QAction::triggered, this, &MasterPanel::saveSpreadsheet);
}

void MasterPanel::buildForm() {
  auto* grid = new QGridLayout;
  forms::setGrid(*grid, 0, forms::spacing::Tight + 2);
  grid->setHorizontalSpacing(forms::spacing::Normal);
  int row = 0;
  int column = 0;
  for (const MasterField& field : level_.fields) {
    auto box = std::make_unique<MasterBox>(field, workplace_, *parentWidget());
    if (box->isHidden()) {
      addHidden(std::move(box));
      continue;
    }
    const int span = std::min(field.span, level_.formColumns);
    if (column + span > level_.formColumns) {
      column = 0;
      ++row;
    }
    if (!box->saysItsCaption()) {
      QWidget* caption = forms::captionFor(*box->control(), forms::shownText(field.caption));
      grid->addWidget(caption, row, 2 * column);
    }
    if (field.width > 0) box->place()->setFixedWidth(field.width * fontMetrics().averageCharWidth() + 20);
    grid->addWidget(box->place(), row, 2 * column + 1, 1, 2 * span - 1);
    if (field.width == 0) grid->setColumnStretch(2 * column + 1, 1);
    column += span;
    connect(box.get(), &MasterBox::edited, this, [this, edited = box.get()] { boxEdited(*edited); });
    boxes_.push_back(std::move(box));
  }
  static_cast<QVBoxLayout*>(layout())->addLayout(grid);
}

void MasterPanel::addHidden(std::unique_ptr<MasterBox> box) {
  box->place()->setParent(this);
  box->place()->hide();
  connect(box.get(), &MasterBox::edited, this, [this, edited = box.get()] { boxEdited(*edited); });
  boxes_.push_back(std::move(box));
}

QPushButton* MasterPanel::makeCommand(const char* name, const QString& caption, const QString& hint) {
  auto* button = new QPushButton(caption);
  button->setObjectName(commandName(name, level_));
  button->setAccessibleName(tr("%1, %2").arg(caption, forms::shownText(level_.heading)));
  button->setToolTip(hint);
  button->setAutoDefault(false);
  button->setMinimumWidth(64);
  commands_->addWidget(button);
  return button;
}

void MasterPanel::buildCommands() {
  commands_ = new QHBoxLayout;
  forms::setGrid(*commands_, 0);
  add_ = makeCommand("AddBttn", tr("Add"), tr("Begins a new row"));
  save_ = makeCommand("SaveBttn", tr("Save"), tr("Saves what stands in the boxes"));
  cancel_ = makeCommand("CancelBttn", tr("Cancel"), tr("Drops what was typed"));
  connect(add_, &QPushButton::clicked, this, &MasterPanel::add);
  connect(save_, &QPushButton::clicked, this, &MasterPanel::save);
  connect(cancel_, &QPushButton::clicked, this, &MasterPanel::cancel);
  if (level_.deletion) {
    remove_ = makeCommand("DelBttn", tr("Delete"), tr("Deletes the current row"));
    connect(remove_, &QPushButton::clicked, this, &MasterPanel::remove);
  }
  commands_->addStretch(1);
  static_cast<QVBoxLayout*>(layout())->addLayout(commands_);
}

}  // namespace velmo::frame

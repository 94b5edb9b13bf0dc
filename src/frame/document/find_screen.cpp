#include "frame/document/find_screen.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "forms/caption.h"
#include "forms/date_picker.h"
#include "forms/look.h"
#include "forms/recordset_model.h"
#include "forms/stop_listening.h"
#include "forms/table_view.h"
#include "forms/wait_cursor.h"
#include "frame/document/find_statement.h"
#include "frame/posting/day_text.h"

namespace velmo::frame {

namespace {

// The documents found; a date that was picked reads the same whichever form its document has it in.
class FoundDocuments : public forms::RecordsetModel {
 public:
  FoundDocuments(const FindType& type, QObject* parent)
      : RecordsetModel(type.result, parent), pickedDays_(type.pickedDays) {}

  QVariant data(const QModelIndex& index, int role) const override {
    QVariant shown = RecordsetModel::data(index, role);
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return shown;
    const std::string& field = columns()[static_cast<std::size_t>(index.column())].field;
    if (std::ranges::find(pickedDays_, field) == pickedDays_.end()) return shown;
    const auto day = dayFrom(shown.toString().toStdString());
    return day ? QString::fromStdString(dayText(*day)) : shown;
  }

 private:
  std::vector<std::string_view> pickedDays_;
};

}  // namespace

FindScreen::FindScreen(const FindType& type, const schema::DocumentForm& form, session::Workplace& workplace,
                       std::function<void()> showRecord, QWidget* parent)
    : QDialog(parent), type_(type), form_(form), workplace_(workplace), showRecord_(std::move(showRecord)) {
  setObjectName(forms::shownText(form.findScreen));
  setWindowTitle(forms::shownText(type.title));
  auto* layout = new QVBoxLayout(this);
  forms::setGrid(*layout, forms::spacing::Section);
  layout->addWidget(makeSearchRow());

  found_ = new FoundDocuments(type_, this);
  grid_ = new forms::TableView;
  grid_->setObjectName("TranGrid");
  grid_->setAccessibleName(tr("Documents found"));
  grid_->showModel(*found_);
  grid_->setSortingEnabled(false);
  grid_->horizontalHeader()->setSectionsClickable(true);
  grid_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  layout->addWidget(grid_, 1);

  count_ = new QLabel;
  forms::makeCaption(*count_);
  layout->addWidget(count_);
  tranNo_ = new QLineEdit(this);
  tranNo_->setObjectName("TranNo");
  tranNo_->hide();

  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this, &FindScreen::sortBy);
  connect(grid_, &forms::TableView::picked, this, &FindScreen::pick);
  connect(grid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &FindScreen::noteRow);
  connect(found_, &QAbstractItemModel::modelReset, this, &FindScreen::noteRow);
  resize(980, 560);
  columnChosen();
  showAll();
  value_->setFocus();
}

FindScreen::~FindScreen() {
  forms::stopListening(*this);
}

QWidget* FindScreen::makeSearchRow() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  forms::setGrid(*layout, 0);
  columns_ = new QComboBox;
  columns_->setObjectName("ColList");
  columns_->setAccessibleName(tr("Column to search"));
  for (const FindColumn& column : type_.columns) columns_->addItem(forms::shownText(column.caption));
  value_ = new QLineEdit;
  value_->setObjectName("ValueBox");
  value_->setAccessibleName(tr("Value to find"));
  value_->setClearButtonEnabled(true);
  day_ = new forms::DatePicker;
  day_->setObjectName("TrDate");
  day_->setAccessibleName(tr("Date to find"));
  const session::LoginContext& context = workplace_.context;
  const text::DateTime today = workplace_.clock.today();
  const bool inYear = today >= context.FinancialYearStart && today <= context.FinancialYearEnd;
  day_->setDay(inYear ? today : context.FinancialYearStart);
  auto* findButton = new QPushButton(tr("Find"));
  findButton->setObjectName("FindBttn");
  findButton->setToolTip(tr("Find (Enter)"));
  findButton->setDefault(true);
  forms::makePrimary(*findButton);
  auto* allButton = new QPushButton(tr("Show All"));
  allButton->setObjectName("RefBttn");
  allButton->setToolTip(tr("Show all documents of the year (F5)"));
  allButton->setShortcut(Qt::Key_F5);
  allButton->setAutoDefault(false);
  for (QWidget* part : std::initializer_list<QWidget*>{columns_, value_, day_, findButton, allButton})
    layout->addWidget(part, part == value_ || part == day_ ? 1 : 0);
  auto* down = new QShortcut(Qt::Key_Down, value_);
  down->setContext(Qt::WidgetShortcut);
  connect(down, &QShortcut::activated, this, [this] { grid_->setFocus(); });
  connect(columns_, &QComboBox::currentIndexChanged, this, &FindScreen::columnChosen);
  connect(findButton, &QPushButton::clicked, this, &FindScreen::find);
  connect(allButton, &QPushButton::clicked, this, &FindScreen::showAll);
  return row;
}

void FindScreen::columnChosen() {
  const FindColumn& column = type_.columns[static_cast<std::size_t>(columns_->currentIndex())];
  const bool byDay = column.condition == FindCondition::OnDay;
  day_->setVisible(byDay);
  value_->setVisible(!byDay);
}

void FindScreen::find() {
  const FindColumn& column = type_.columns[static_cast<std::size_t>(columns_->currentIndex())];
  const auto condition = findCondition(column, value_->text().toStdString(), day_->day());
  if (!condition) {
    workplace_.prompts.tell("Cannot Find", condition.error());
    value_->setFocus();
    return;
  }
  query(*condition);
}

void FindScreen::showAll() {
  query({});
}

// A long list is counted by the store, so that it is read only as far as it is looked at.
std::int64_t FindScreen::countFound(const std::string& condition) const {
  const store::Recordset& rows = found_->rows();
  if (!rows.hasMoreRows()) return rows.recordCount();
  const store::Recordset counted(workplace_.context.KORDconn,
                                 findCountStatement(type_, form_.tranType, workplace_.context.FYID, condition),
                                 store::LockType::ReadOnly);
  return counted.integer("Documents");
}

void FindScreen::query(const std::string& condition) {
  std::int64_t count = 0;
  if (!workplace_.attempt("Cannot Find", [&] {
        const forms::WaitCursor wait;
        found_->setRecordset(store::Recordset(workplace_.context.KORDconn,
                                              findStatement(type_, form_.tranType, workplace_.context.FYID, condition),
                                              store::LockType::ReadOnly, store::Fetch::AsNeeded));
        count = countFound(condition);
      }))
    return;
  count_->setText(count == 1 ? tr("1 document") : tr("%1 documents").arg(count));
  if (count > 0) grid_->selectRow(0);
}

void FindScreen::sortBy(int column) {
  if (column > 1 || !found_->rows().isOpen()) return;
  const forms::WaitCursor wait;
  found_->rows().setSort(column == 0 ? "docno asc" : "trandate asc");
  found_->reload();
  if (found_->rowCount() > 0) grid_->selectRow(0);
}

void FindScreen::noteRow() {
  const QModelIndex row = grid_->currentIndex();
  if (!row.isValid()) return tranNo_->clear();
  store::Recordset& rows = found_->rows();
  const store::Value tranNo = rows.valueAt(row.row(), rows.fieldIndex("TranNo"));
  tranNo_->setText(QString::fromStdString(store::textOf(tranNo)));
}

void FindScreen::pick() {
  noteRow();
  if (tranNo_->text().isEmpty() || !workplace_.rights().demand(form_.viewRight)) return;
  workplace_.context.OpenTranNo = tranNo_->text().toLongLong();
  showRecord_();
  accept();
}

}  // namespace velmo::frame

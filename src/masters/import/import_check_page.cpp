#include "masters/import/import_check_page.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/stop_listening.h"
#include "forms/table_view.h"
#include "spreadsheet/save_as_spreadsheet.h"

namespace velmo::masters {
namespace {

QString counted(std::size_t count, const QString& one, const QString& many) {
  return QStringLiteral("%L1 %2").arg(count).arg(count == 1 ? one : many);
}

}  // namespace

ImportCheckPage::ImportCheckPage(const ImportDescriptor& kind, session::Workplace& workplace, QWidget* parent)
    : QWidget(parent), kind_(kind), model_(new ImportCheckModel(kind, this)), grid_(new forms::TableView) {
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, 0, forms::spacing::Section);
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  summary_ = new QLabel;
  summary_->setObjectName(QStringLiteral("SummaryLbl"));
  summary_->setWordWrap(true);
  onlyProblems_ = new QCheckBox(QStringLiteral("Show only rows with &problems"));
  onlyProblems_->setObjectName(QStringLiteral("OnlyProblems"));
  row->addWidget(summary_, 1);
  row->addWidget(onlyProblems_);
  column->addLayout(row);
  grid_->setObjectName(QStringLiteral("CheckGrid"));
  grid_->setAccessibleName(QStringLiteral("Rows of the file"));
  grid_->setModel(model_);
  grid_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const int widths[] = {6, 14, 24, 22};
  for (int i = 0; i < 4; ++i) grid_->setColumnWidth(i, widths[i] * grid_->fontMetrics().averageCharWidth() + 16);
  grid_->horizontalHeader()->setStretchLastSection(true);
  spreadsheet::addSaveAsSpreadsheet(*grid_, kind.title, workplace.files, workplace.prompts);
  column->addWidget(grid_, 1);
  problem_ = new QLabel;
  problem_->setObjectName(QStringLiteral("ProblemLbl"));
  problem_->setAccessibleName(QStringLiteral("Problem of the row"));
  problem_->setTextFormat(Qt::PlainText);
  problem_->setWordWrap(true);
  problem_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  problem_->setMinimumHeight(2 * fontMetrics().lineSpacing());
  column->addWidget(problem_);
  connect(grid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &ImportCheckPage::showProblem);
  connect(model_, &QAbstractItemModel::modelReset, this, &ImportCheckPage::showProblem);
  leaveOut_ = new QCheckBox(QStringLiteral("&Leave out the rows with problems"));
  leaveOut_->setObjectName(QStringLiteral("LeaveOut"));
  column->addWidget(leaveOut_);
  connect(onlyProblems_, &QCheckBox::toggled, this, [this](bool only) {
    model_->setRows(only ? ImportCheckModel::Rows::WithProblems : ImportCheckModel::Rows::All);
    if (model_->rowCount() > 0) grid_->selectRow(0);
  });
  connect(leaveOut_, &QCheckBox::toggled, this, &ImportCheckPage::choiceChanged);
}

ImportCheckPage::~ImportCheckPage() {
  forms::stopListening(*this);
}

void ImportCheckPage::show(ImportPlan plan) {
  model_->setPlan(nullptr);
  plan_ = std::move(plan);
  model_->setPlan(&plan_);
  for (QCheckBox* box : {onlyProblems_, leaveOut_}) {
    box->setChecked(false);
    box->setVisible(plan_.problems > 0);
  }
  problem_->setVisible(plan_.problems > 0);
  onlyProblems_->setChecked(plan_.problems > 0 && plan_.good() > 0);
  summary_->setText(summary());
}

void ImportCheckPage::focusRows() {
  if (model_->rowCount() > 0) grid_->selectRow(0);
  grid_->setFocus();
}

void ImportCheckPage::showProblem() {
  const QModelIndex row = grid_->currentIndex();
  problem_->setText(row.siblingAtColumn(model_->columnCount() - 1).data().toString());
}

QString ImportCheckPage::hindrance() const {
  if (plan_.good() == 0) return QStringLiteral("No row of the file can be brought in.");
  if (plan_.problems == 0 || leaveOut_->isChecked()) return {};
  return QStringLiteral("Leave out the rows with problems, or mend them in the file.");
}

QString ImportCheckPage::summary() const {
  const QString one = QString::fromStdString(kind_.fresh + kind_.one);
  const QString many = QString::fromStdString(kind_.fresh + kind_.many);
  QString words = counted(plan_.good(), one, many) + QString::fromStdString(kind_.possible);
  if (!plan_.newBrands.empty())
    words += QStringLiteral(", with ") +
             counted(plan_.newBrands.size(), QStringLiteral("new brand"), QStringLiteral("new brands"));
  if (!plan_.newSubCategories.empty())
    words += (plan_.newBrands.empty() ? QStringLiteral(", with ") : QStringLiteral(" and ")) +
             counted(plan_.newSubCategories.size(), QStringLiteral("new sub category"),
                     QStringLiteral("new sub categories"));
  words += u'.';
  if (plan_.problems > 0)
    words +=
        u' ' + counted(plan_.problems, QStringLiteral("row has a problem."), QStringLiteral("rows have problems."));
  return words;
}

}  // namespace velmo::masters

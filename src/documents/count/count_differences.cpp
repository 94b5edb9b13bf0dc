#include "documents/count/count_differences.h"

#include <QAbstractTableModel>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/recordset_model.h"
#include "forms/table_view.h"
#include "spreadsheet/save_as_spreadsheet.h"
#include "text/format.h"

namespace velmo::documents {

namespace {

enum Column { Document, ItemCode, Description, Quantity, Unit, Rate, Amount, columnsInAll };

constexpr const char* captions[] = {"Document", "Item Code", "Description", "Quantity", "Unit", "Rate", "Amount"};

bool isFigure(int column) {
  return column == Quantity || column == Rate || column == Amount;
}

QString figure(double amount) {
  return QString::fromStdString(text::formatNumber(amount, "#,##0.00;(#,##0.00)"));
}

bool isAdded(const CountDocument& document) {
  return document.type->form.tranType == schema::tran_type::InventoryAdded;
}

// The lines of all documents, one under the other.
class DifferenceModel : public QAbstractTableModel {
 public:
  DifferenceModel(const std::vector<CountDocument>& documents, QObject* parent)
      : QAbstractTableModel(parent), documents_(documents) {
    for (std::size_t i = 0; i < documents.size(); ++i)
      for (std::size_t line = 0; line < documents[i].lines.size(); ++line) places_.push_back({i, line});
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(places_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columnsInAll; }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    if (role == Qt::TextAlignmentRole)
      return int((isFigure(index.column()) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role == Qt::FontRole && isFigure(index.column())) return forms::figureFont();
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const auto& [document, at] = places_[static_cast<std::size_t>(index.row())];
    const CountLine& line = documents_[document].lines[at];
    switch (index.column()) {
      case Document:
        return QStringLiteral("%1: %2").arg(document + 1).arg(isAdded(documents_[document]) ? "Add" : "Reduce");
      case ItemCode:
        return QString::fromStdString(line.code);
      case Description:
        return QString::fromStdString(line.name);
      case Quantity:
        return figure(line.quantity);
      case Unit:
        return QString::fromStdString(line.unit);
      case Rate:
        return figure(line.rate);
      default:
        return figure(line.amount);
    }
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole)
      return int(Qt::AlignVCenter | (isFigure(section) ? Qt::AlignRight : Qt::AlignLeft));
    return role == Qt::DisplayRole ? QVariant(QLatin1String(captions[section])) : QVariant();
  }

 private:
  const std::vector<CountDocument>& documents_;
  std::vector<std::pair<std::size_t, std::size_t>> places_;
};

QString summaryOf(const std::vector<CountDocument>& documents) {
  QStringList words;
  for (const bool added : {true, false}) {
    std::size_t count = 0, lines = 0;
    double total = 0;
    for (const CountDocument& document : documents) {
      if (isAdded(document) != added) continue;
      ++count;
      lines += document.lines.size();
      total += document.total;
    }
    if (count > 0)
      words << QStringLiteral("%1 with %L2 %3 and a value of %4")
                   .arg(count == 1 ? QStringLiteral("%1 document %2")
                                         .arg(words.isEmpty() ? QStringLiteral("One") : QStringLiteral("one"))
                                         .arg(added ? QStringLiteral("adds") : QStringLiteral("reduces"))
                                   : QStringLiteral("%L1 documents %2").arg(count).arg(added ? "add" : "reduce"))
                   .arg(lines)
                   .arg(lines == 1 ? QStringLiteral("line") : QStringLiteral("lines"), figure(total));
  }
  return words.join(QStringLiteral("; ")) + u'.';
}

}  // namespace

CountDifferences::CountDifferences(const std::vector<CountDocument>& documents, const QString& later,
                                   session::Workplace& workplace, QWidget* parent)
    : QDialog(parent) {
  setObjectName("CountDifferences");
  setWindowTitle(tr("Differences of the Count"));
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, forms::spacing::Section);
  auto* summary = new QLabel(summaryOf(documents));
  summary->setObjectName("SummaryLbl");
  summary->setWordWrap(true);
  column->addWidget(summary);
  if (!later.isEmpty()) {
    auto* warning = new QLabel(later);
    warning->setObjectName("LaterLbl");
    warning->setWordWrap(true);
    warning->setProperty("look", "warning");
    column->addWidget(warning);
  }
  auto* grid = new forms::TableView;
  grid->setObjectName("DiffGrid");
  grid->setAccessibleName(tr("Lines that will be saved"));
  grid->setModel(new DifferenceModel(documents, grid));
  std::vector<forms::TableColumn> widths;
  for (const int width : {12, 16, 40, 13, 6, 13, 16}) widths.push_back({.caption = {}, .field = {}, .width = width});
  grid->setColumnWidths(widths);
  spreadsheet::addSaveAsSpreadsheet(*grid, "Differences of the Count", workplace.files, workplace.prompts);
  column->addWidget(grid, 1);
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  row->addStretch(1);
  auto* save = new QPushButton(tr("&Save"));
  save->setObjectName("SaveBttn");
  save->setToolTip(tr("Saves all of these documents at once"));
  save->setDefault(true);
  forms::makePrimary(*save);
  auto* cancel = new QPushButton(tr("Cancel"));
  cancel->setObjectName("CancelBttn");
  cancel->setToolTip(tr("Back to the count sheet; nothing is saved (Esc)"));
  cancel->setAutoDefault(false);
  row->addWidget(save);
  row->addWidget(cancel);
  column->addLayout(row);
  connect(save, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  save->setFocus();  // Enter saves; in the lines it would do nothing
  resize(900, 560);
}

}  // namespace velmo::documents

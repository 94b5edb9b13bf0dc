#pragma once

#include <QAbstractTableModel>
#include <QWidget>

#include "masters/import/import_plan.h"
#include "session/workplace.h"

class QCheckBox;
class QLabel;

namespace velmo::forms {
class TableView;
}

namespace velmo::masters {

// The rows of a plan: line, code, name, place, problem.
class ImportCheckModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum class Rows { All, WithProblems };
  ImportCheckModel(const ImportDescriptor& kind, QObject* parent);

  void setPlan(const ImportPlan* plan);  // which stays alive; nullptr for none
  void setRows(Rows rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  void reset();

  const ImportDescriptor& kind_;
  const ImportPlan* plan_ = nullptr;
  Rows rows_ = Rows::All;
  std::vector<std::size_t> withProblems_;
};

// The third step of an import: what would be made of each row, and what is wrong with it.
class ImportCheckPage : public QWidget {
  Q_OBJECT

 public:
  ImportCheckPage(const ImportDescriptor& kind, session::Workplace& workplace, QWidget* parent);
  ~ImportCheckPage() override;

  void show(ImportPlan plan);
  const ImportPlan& plan() const { return plan_; }
  // Why the rows cannot be written as things stand, in a sentence. "" when there are rows to write, and those with
  // problems are none or left out by the user's choice.
  QString hindrance() const;
  void focusRows();

 Q_SIGNALS:
  void choiceChanged();

 private:
  QString summary() const;
  void showProblem();

  const ImportDescriptor& kind_;
  ImportPlan plan_;
  ImportCheckModel* model_;
  QLabel* summary_;
  QLabel* problem_;  // of the current row, whole
  QCheckBox* onlyProblems_;
  QCheckBox* leaveOut_;
  forms::TableView* grid_;
};

}  // namespace velmo::masters

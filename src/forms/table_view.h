#pragma once

#include <QTableView>
#include <QTimer>
#include <vector>

namespace velmo::forms {

class RecordsetModel;
struct TableColumn;

// A list to pick a row from: whole rows are selected, Enter and double click pick, Home and End go to the first and the
// last row. The rows of a long list are fetched on the way to its end, until a key or a click says otherwise.
class TableView : public QTableView {
  Q_OBJECT

 public:
  explicit TableView(QWidget* parent = nullptr);

  // Shows the model with the widths that its columns declare; the widest takes the room that is left.
  void showModel(RecordsetModel& model);
  void reset() override;
  // The widths alone, of a model of another kind.
  void setColumnWidths(const std::vector<TableColumn>& columns);

 Q_SIGNALS:
  void picked(const QModelIndex& index);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void goTo(int row);
  void goToEnd();

  QTimer toEnd_;
};

// Row height, header, quiet stripes and grid of every table of the program.
void dressTable(QTableView& table);
// How high a row is in the font of this table or list, in device-independent pixels.
int rowHeight(const QWidget& table);

}  // namespace velmo::forms

#pragma once

#include <QWidget>

#include "frame/items/item_grid_kind.h"
#include "session/workplace.h"

class QComboBox;
class QLabel;

namespace velmo::documents {

// Below the lines of a document at the counter: the key of the item list, what became of the last scan, and how this
// counter works, which is kept with the company.
class CounterStrip : public QWidget {
  Q_OBJECT

 public:
  explicit CounterStrip(session::Workplace& workplace, QWidget* parent = nullptr);

  frame::ScannedAgain scannedAgain() const { return again_; }
  void clear();  // nothing is to be said of the last scan
  void tellUnknown(const QString& code);

 Q_SIGNALS:
  void scannedAgainChosen(velmo::frame::ScannedAgain again);

 private:
  void addScanChoice(QWidget& place);
  void addSlipChoice(QWidget& place);
  void keep(std::string_view setting, const std::string& value);

  session::Workplace& workplace_;
  frame::ScannedAgain again_ = frame::ScannedAgain::RaiseQuantity;
  QLabel* lastScan_;
};

}  // namespace velmo::documents

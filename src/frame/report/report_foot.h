#pragma once

#include <QWidget>
#include <map>
#include <set>
#include <string>

#include "frame/report/report_type.h"

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace velmo::frame {

// What stands under the grids of a report: a message at the left, and its totals, those of the grid that is shown.
class ReportFoot : public QWidget {
 public:
  explicit ReportFoot(const ReportType& type);

  void showMessage(const QString& text);
  void showTotalsOf(const std::string& grid);
  void showFurtherTotals(const std::string& grid, bool shown);
  const std::map<std::string, QWidget*, std::less<>>& boxes() const { return boxes_; }

 private:
  enum class Captions { Shown, RoomOnly };
  void addFigures(const std::vector<ReportFigure>& figures, QHBoxLayout& row, Captions captions = Captions::Shown);
  void addFurtherTotals(const ReportFurtherTotals& further, QVBoxLayout& column);
  void showFrames();

  QLabel* message_;
  std::map<std::string, QWidget*, std::less<>> boxes_;
  std::map<std::string, QWidget*, std::less<>> frames_;   // by the grids that have their own
  std::map<std::string, QWidget*, std::less<>> further_;  // below those
  std::set<std::string, std::less<>> furtherShown_;       // grids
  std::string grid_;                                      // that is shown
};

}  // namespace velmo::frame

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

class ReportModel;

using FigureBoxes = std::map<std::string, QWidget*, std::less<>>;  // by their names

enum class FigureCaptions { Shown, RoomOnly };
FigureBoxes addFigures(const std::vector<ReportFigure>& figures, QHBoxLayout& row,
                       FigureCaptions captions = FigureCaptions::Shown);
// The sum that a figure shows of the rows.
std::string sumText(const ReportFigure& figure, const ReportModel& rows);

// What stands under the grids of a report: a message at the left, and its totals, those of the grid that is shown.
class ReportFoot : public QWidget {
 public:
  explicit ReportFoot(const ReportType& type);

  void showMessage(const QString& text);
  void showTotalsOf(const std::string& grid);
  void showFurtherTotals(const std::string& grid, bool shown);
  const FigureBoxes& boxes() const { return boxes_; }

 private:
  void addFurtherTotals(const ReportFurtherTotals& further, QVBoxLayout& column);
  void showFrames();

  QLabel* message_;
  FigureBoxes boxes_;
  std::map<std::string, QWidget*, std::less<>> frames_;   // by the grids that have their own
  std::map<std::string, QWidget*, std::less<>> further_;  // below those
  std::set<std::string, std::less<>> furtherShown_;       // grids
  std::string grid_;                                      // that is shown
};

}  // namespace velmo::frame

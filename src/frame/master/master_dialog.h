#pragma once

#include <QDialog>
#include <vector>

#include "frame/master/master_panel.h"
#include "frame/master/master_type.h"

class QHBoxLayout;

namespace velmo::frame {

// A dialog that keeps one to three levels of master data. Ctrl+N, Ctrl+S and Escape add, save and cancel: the level
// that is being changed, otherwise the innermost one. With nothing to cancel Escape closes.
class MasterDialog : public QDialog {
  Q_OBJECT

 public:
  MasterDialog(MasterType type, session::Workplace& workplace, QWidget* parent);
  ~MasterDialog() override;

  session::Workplace& workplace() { return workplace_; }
  MasterPanel& panel(int level) { return *panels_.at(static_cast<std::size_t>(level)); }
  int levels() const { return static_cast<int>(panels_.size()); }

  // Shows the rows with these keys, outermost first; levels without a key show their first row.
  void goTo(const std::vector<std::string>& keys);
  // Reads every level again and keeps to the rows.
  void reload();
  // Closes, and opens another dialog in its place.
  void giveWayTo(const std::string& dialog);

  void done(int result) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void buildLayout();
  QHBoxLayout* buildHead();
  void buildFoot(QHBoxLayout& foot);
  void buildKeys();
  void connectPanels();
  void loadBelow(int level);
  void holdOthers(int level);
  MasterPanel& active();
  void printChoice(const MasterPrint& print);
  void escape();
  bool mayClose();

  const MasterType type_;
  session::Workplace& workplace_;
  std::vector<MasterPanel*> panels_;
};

}  // namespace velmo::frame

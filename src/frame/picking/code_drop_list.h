#pragma once

#include <QListView>
#include <QTimer>

#include "frame/picking/pick_list_model.h"

namespace velmo::frame {

// What a drop list of codes can belong to: a code box, or a cell.
class CodeListOwner {
 public:
  virtual ~CodeListOwner() = default;

  virtual PickList& entries() = 0;
  // The list stands below this area of this widget.
  virtual const QWidget& listAnchor() const = 0;
  virtual QRect listArea() const = 0;
  virtual void takeFromList(const QString& code) = 0;  // and the keyboard; "" when there was nothing to choose
  virtual void moveOnFromList() = 0;                   // the choice was made with Enter or Tab
  virtual void giveUpList() = 0;                       // Esc in the list
};

struct CodeListWords {
  const char* name;     // the list's objectName
  const char* spoken;   // what a screen reader calls it
  const char* nothing;  // stands in it when nothing matches
};

// The drop list of the codes of one kind on one screen. It belongs to the box or cell that was entered last; its choice
// goes there. It floats above the fields of the widget it is made in, which should be the whole screen.
class CodeDropList : public QListView {
  Q_OBJECT

 public:
  CodeDropList(const CodeListWords& words, QWidget* screen);

  CodeListOwner* ListOwner() const { return owner_; }
  void takeOver(CodeListOwner& owner);      // places the list below its owner, unseen, with all its entries
  void showMatching(const QString& typed);  // the entries that hold the text
  void highlight(const QString& code);      // when it is among the entries
  void enter();                             // the keyboard goes into the list, at the entry of the owner's text
  void ownerLeft();                         // hides the list shortly, unless the focus went into it

 Q_SIGNALS:
  void entered();  // the list gained the focus
  void left();     // and lost it to another widget

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  enum class Then { StayInBox, MoveOn };

  void place();
  void choose(Then then);

  const QString nothing_;
  CodeListOwner* owner_ = nullptr;
  PickListModel entries_;
  QTimer PListTimer_;
  bool InPartyList_ = false;
};

}  // namespace velmo::frame

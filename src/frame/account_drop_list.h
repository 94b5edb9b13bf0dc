#pragma once

#include <QListView>
#include <QTimer>

#include "frame/pick_list_model.h"

namespace velmo::frame {

class AccountCodeBox;

// The drop list of the account code boxes of one screen, `PartyList`. It belongs to the box that was entered last; its
// choice goes there. It floats above the fields of the widget it is made in, which should be the whole screen.
class AccountDropList : public QListView {
  Q_OBJECT

 public:
  explicit AccountDropList(QWidget* screen);

  AccountCodeBox* ListOwner() const { return owner_; }
  void takeOver(AccountCodeBox& box);  // places the list below the box, unseen, with all its entries
  void narrow(const QString& typed);   // shows the entries that hold the text; hides the list when it is empty
  void enter();                        // the keyboard goes into the list, at the entry of the owner's text
  void boxLeft();                      // hides the list shortly, unless the focus went into it

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

  AccountCodeBox* owner_ = nullptr;
  PickListModel entries_;
  QTimer PListTimer_;
  bool InPartyList_ = false;
};

}  // namespace velmo::frame

#pragma once

#include "frame/picking/account_drop_list.h"
#include "frame/sheets/cell_list.h"
#include "session/login_context.h"

namespace velmo::frame {

// The drop list of accounts below a cell for the code of any account.
class AccountCellList : public CellList, public CodeListOwner {
  Q_OBJECT

 public:
  // The list serves other boxes as well; it outlives this.
  AccountCellList(session::LoginContext& context, AccountDropList& list, QObject* parent = nullptr);

  void open(const QWidget& sheet, const QRect& cell, const QString& text) override;
  void narrow(const QString& typed) override { list_.showMatching(typed); }
  void enter() override { list_.enter(); }
  void close() override;
  bool isOpen() const override { return isMine() && list_.isVisible(); }
  bool holds(const QWidget* widget) const override { return isMine() && widget == &list_; }

  PickList& entries() override { return entries_; }
  const QWidget& listAnchor() const override { return *sheet_; }
  QRect listArea() const override { return cell_; }
  void takeFromList(const QString& code) override { Q_EMIT chosen(code); }
  void moveOnFromList() override {}
  void giveUpList() override { Q_EMIT givenUp(); }

 private:
  bool isMine() const { return list_.ListOwner() == this; }

  AccountDropList& list_;
  PickList entries_;
  const QWidget* sheet_ = nullptr;
  QRect cell_;
};

}  // namespace velmo::frame

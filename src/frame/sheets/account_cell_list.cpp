#include "frame/sheets/account_cell_list.h"

#include "frame/picking/account_code_box.h"

namespace velmo::frame {

AccountCellList::AccountCellList(session::LoginContext& context, AccountDropList& list, QObject* parent)
    : CellList(parent), list_(list), entries_(context.KORDconn, accountSource({})) {
  connect(&list_, &AccountDropList::entered, this, [this] {
    if (isMine()) Q_EMIT entered();
  });
  connect(&list_, &AccountDropList::left, this, [this] {
    if (isMine()) Q_EMIT left();
  });
}

void AccountCellList::open(const QWidget& sheet, const QRect& cell, const QString& text) {
  sheet_ = &sheet;
  cell_ = cell;
  list_.takeOver(*this);
  list_.showMatching({});
  list_.highlight(text);
}

void AccountCellList::close() {
  if (isMine()) list_.hide();
}

}  // namespace velmo::frame

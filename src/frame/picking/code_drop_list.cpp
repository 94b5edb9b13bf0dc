#include "frame/picking/code_drop_list.h"

#include <QKeyEvent>
#include <QPainter>

#include "forms/look.h"
#include "forms/table_view.h"
#include "frame/picking/drop_place.h"
#include "frame/picking/pick_list_delegate.h"

namespace velmo::frame {

CodeDropList::CodeDropList(const CodeListWords& words, QWidget* screen) : QListView(screen), nothing_(words.nothing) {
  setObjectName(words.name);
  setAccessibleName(words.spoken);
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
  setFocusPolicy(Qt::ClickFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setItemDelegate(new PickListDelegate(this));
  setModel(&entries_);
  hide();
  PListTimer_.setObjectName("PListTimer");
  PListTimer_.setSingleShot(true);
  PListTimer_.setInterval(dropListDelay);
  connect(&PListTimer_, &QTimer::timeout, this, [this] {
    if (!InPartyList_) hide();
  });
}

void CodeDropList::takeOver(CodeListOwner& owner) {
  if (owner_ != &owner) hide();
  owner_ = &owner;
  InPartyList_ = true;
  entries_.setList(&owner.entries());
  entries_.narrow({});
  place();
}

void CodeDropList::place() {
  constexpr int rows = 10;
  const int row = forms::rowHeight(*this);
  const QRect area = owner_->listArea();
  const QSize wanted(std::max(area.width(), fontMetrics().averageCharWidth() * 48), rows * row + 2 * frameWidth());
  setGeometry(placeBelow(owner_->listAnchor(), area, *parentWidget(), wanted, row));
}

void CodeDropList::showMatching(const QString& typed) {
  entries_.narrow(typed);
  setCurrentIndex(entries_.index(0));
  scrollToTop();
  place();
  show();
  raise();
}

void CodeDropList::highlight(const QString& code) {
  const QModelIndex entry = code.isEmpty() ? QModelIndex() : entries_.indexOfKey(code.toStdString());
  if (!entry.isValid()) return;
  setCurrentIndex(entry);
  scrollTo(entry, PositionAtCenter);
}

void CodeDropList::enter() {
  if (!currentIndex().isValid()) setCurrentIndex(entries_.index(0));
  setFocus(Qt::OtherFocusReason);
}

void CodeDropList::ownerLeft() {
  InPartyList_ = false;
  PListTimer_.start();
}

void CodeDropList::focusInEvent(QFocusEvent* event) {
  InPartyList_ = true;
  QListView::focusInEvent(event);
  Q_EMIT entered();
}

void CodeDropList::focusOutEvent(QFocusEvent* event) {
  QListView::focusOutEvent(event);
  if (isPassingFocusLoss(*event)) return;
  InPartyList_ = false;
  hide();
  Q_EMIT left();
}

bool CodeDropList::event(QEvent* event) {
  const auto isKey = [&](Qt::Key key) { return static_cast<QKeyEvent*>(event)->key() == key; };
  if (event->type() == QEvent::KeyPress && isKey(Qt::Key_Tab)) {
    choose(Then::MoveOn);
    return true;
  }
  if (event->type() == QEvent::ShortcutOverride && isKey(Qt::Key_Escape)) {
    event->accept();
    return true;
  }
  return QListView::event(event);
}

void CodeDropList::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      choose(Then::MoveOn);
      return;
    case Qt::Key_Escape:
      owner_->giveUpList();
      hide();
      return;
    case Qt::Key_End:
      while (entries_.canFetchMore({})) entries_.fetchMore({});
      break;
    default:
      break;
  }
  QListView::keyPressEvent(event);
}

void CodeDropList::mouseReleaseEvent(QMouseEvent* event) {
  QListView::mouseReleaseEvent(event);
  if (event->button() != Qt::LeftButton || !owner_) return;
  const QModelIndex clicked = indexAt(event->pos());
  if (!clicked.isValid() && entries_.rowCount() > 0) return;
  setCurrentIndex(clicked);
  choose(Then::StayInBox);
}

// The code goes to the owner; an empty list clears it.
void CodeDropList::choose(Then then) {
  owner_->takeFromList(entries_.key(currentIndex()));
  hide();
  if (then == Then::MoveOn) owner_->moveOnFromList();
}

void CodeDropList::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (entries_.rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(forms::colours().quietText);
  painter.drawText(viewport()->rect(), Qt::AlignCenter, nothing_);
}

}  // namespace velmo::frame

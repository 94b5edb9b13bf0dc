#include "frame/items/stock_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/recordset_model.h"
#include "forms/stop_listening.h"
#include "forms/table_view.h"
#include "frame/picking/drop_place.h"
#include "frame/picking/pick_list_delegate.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::frame {
namespace {

constexpr int restBeforeHistory = 90;  // milliseconds; longer than between two keystrokes of a fast typist

QLabel* quietCaption(const QString& text) {
  auto* caption = new QLabel(text);
  forms::makeCaption(*caption);
  return caption;
}

QLabel* valueLabel(const char* name) {
  auto* value = new QLabel;
  value->setObjectName(name);
  value->setTextFormat(Qt::PlainText);
  value->setMinimumWidth(1);
  return value;
}

std::vector<forms::TableColumn> historyColumns(const ItemGridKind& kind) {
  using forms::ColumnAlignment;
  return {
      {.caption = kind.historyNumberCaption,
       .field = "docno",
       .alignment = ColumnAlignment::Right,
       .width = kind.historyNumberCaption.size() > 4 ? 7 : 4},
      {.caption = "Date", .field = "TranDate", .format = "dd-mm-yyyy", .width = 11},
      {.caption = kind.historyPartyCaption, .field = "Text1", .width = 18},
      {.caption = "Quantity",
       .field = kind.historyQuantityField,
       .format = "0.00;(0.00)",
       .alignment = ColumnAlignment::Right,
       .width = 8},
      {.caption = "Rate", .field = "Rate", .format = "0.00;(0.00)", .alignment = ColumnAlignment::Right, .width = 8},
      {.caption = "Amount",
       .field = "GrossAmt",
       .format = "0.00;(0.00)",
       .alignment = ColumnAlignment::Right,
       .width = 9}};
}

}  // namespace

StockPanel::StockPanel(const ItemGridKind& kind, session::LoginContext& context, QWidget* parent)
    : QFrame(parent), kind_(kind), context_(context), InvCodes_(context.KORDconn, itemSource()) {
  setObjectName("StockBox");
  setAccessibleName("Items and stock");
  forms::makeCard(*this);
  auto* row = new QHBoxLayout(this);
  forms::setGrid(*row, forms::spacing::Normal);
  row->addWidget(buildList(), 5);
  row->addWidget(buildDetails(), 7);
  historyTimer_.setSingleShot(true);
  historyTimer_.setInterval(restBeforeHistory);
  connect(&historyTimer_, &QTimer::timeout, this, &StockPanel::ShowItemHistory);
  setParty({}, {});
  clearDetails();
  hide();
}

StockPanel::~StockPanel() {
  forms::stopListening(*this);
}

QWidget* StockPanel::buildList() {
  ItemCodeList_ = new QListView;
  ItemCodeList_->setObjectName("ItemCodeList");
  ItemCodeList_->setAccessibleName("Items");
  ItemCodeList_->setUniformItemSizes(true);
  ItemCodeList_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  ItemCodeList_->setFocusPolicy(Qt::ClickFocus);
  ItemCodeList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  ItemCodeList_->setItemDelegate(new PickListDelegate(ItemCodeList_));
  ItemCodeList_->setModel(&entries_);
  ItemCodeList_->installEventFilter(this);
  connect(ItemCodeList_->selectionModel(), &QItemSelectionModel::currentChanged, this, &StockPanel::highlightChanged);
  connect(ItemCodeList_, &QListView::clicked, this,
          [this](const QModelIndex& index) { Q_EMIT chosen(entries_.key(index)); });
  return ItemCodeList_;
}

QWidget* StockPanel::buildDetails() {
  auto* details = new QWidget;
  auto* column = new QVBoxLayout(details);
  forms::setGrid(*column, 0, forms::spacing::Tight);
  description_ = valueLabel("description");
  description_->setAccessibleName("Description");
  column->addWidget(description_);

  auto* figures = new QGridLayout;
  forms::setGrid(*figures, 0, forms::spacing::Tight);
  const auto place = [&](QLabel*& value, const char* name, const QString& caption, int gridRow, int gridColumn) {
    value = valueLabel(name);
    value->setAccessibleName(caption);
    QLabel* label = quietCaption(caption);
    figures->addWidget(label, gridRow, gridColumn);
    figures->addWidget(value, gridRow, gridColumn + 1);
    return label;
  };
  const QString priceCaption =
      QString::fromStdString(kind_.priceCaption + (context_.ccode.empty() ? "" : " " + context_.ccode) + ":");
  place(StockBalance_, "StockBalance", "In stock:", 0, 0);
  QLabel* PriceLbl =
      place(price_, QString::fromStdString(kind_.priceField).toLower().toLatin1().constData(), priceCaption, 0, 2);
  PriceLbl->setObjectName("PriceLbl");
  place(ItemUnit_, "ItemUnit", "Unit:", 1, 0);
  place(ItemCategory_, "ItemCategory", "Category:", 1, 2);
  figures->setColumnStretch(1, 2);
  figures->setColumnStretch(3, 3);
  QFont strong = forms::figureFont();
  strong.setBold(true);
  StockBalance_->setFont(strong);
  price_->setFont(strong);
  column->addLayout(figures);

  HisParty_ = valueLabel("HisParty");
  HisParty_->setAccessibleName("History of");
  forms::makeCaption(*HisParty_);
  column->addWidget(HisParty_);
  history_ = new forms::RecordsetModel(historyColumns(kind_), this);
  DetailGrid_ = new forms::TableView;
  DetailGrid_->setObjectName("DetailGrid");
  DetailGrid_->setAccessibleName("Last lines of this item");
  DetailGrid_->setFocusPolicy(Qt::NoFocus);
  DetailGrid_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  DetailGrid_->showModel(*history_);
  column->addWidget(DetailGrid_, 1);
  if (kind_.history == ItemHistory::None) {
    HisParty_->hide();
    DetailGrid_->hide();
    column->addStretch(1);
  }
  return details;
}

QSize StockPanel::wantedSize() const {
  constexpr int rows = 9;  // the last lines of the item beside them are four, below their captions
  const int around = 2 * (forms::spacing::Normal + ItemCodeList_->frameWidth());
  return {fontMetrics().averageCharWidth() * 112, rows * rowHeight() + around};
}

int StockPanel::rowHeight() const {
  return forms::rowHeight(*ItemCodeList_);
}

void StockPanel::narrow(const QString& typed) {
  if (!entries_.list()) entries_.setList(&InvCodes_);
  entries_.narrow(typed);
  ItemCodeList_->setCurrentIndex(entries_.index(0));
  ItemCodeList_->scrollToTop();
  highlightChanged();
}

void StockPanel::enterList() {
  ItemCodeList_->setFocus(Qt::OtherFocusReason);
}

bool StockPanel::isInside(const QWidget* widget) const {
  return widget && (widget == this || isAncestorOf(widget));
}

std::string StockPanel::highlightedCode() const {
  return entries_.key(ItemCodeList_->currentIndex()).toStdString();
}

void StockPanel::setParty(std::optional<std::int64_t> code, std::string_view name) {
  partyCode_ = code;
  partyName_ = code ? std::string(name) : "All Parties";
  InvCodeTxt_.clear();
  HisParty_->setText(QString::fromStdString(partyName_));
}

// What is shown of another item would mislead; it goes at once, the new figures come when the highlight rests.
void StockPanel::highlightChanged() {
  if (highlightedCode() == InvCodeTxt_) {
    historyTimer_.stop();
    return;
  }
  clearDetails();
  if (isVisible()) historyTimer_.start();
}

void StockPanel::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  InvCodeTxt_.clear();  // documents may have been saved since
  historyTimer_.start();
}

void StockPanel::hideEvent(QHideEvent* event) {
  historyTimer_.stop();
  QFrame::hideEvent(event);
}

void StockPanel::clearDetails() {
  InvCodeTxt_.clear();
  for (QLabel* value : {description_, ItemUnit_, price_, ItemCategory_, StockBalance_}) value->clear();
  if (history_->rowCount() > 0) history_->setRecordset(store::Recordset());
}

void StockPanel::ShowItemHistory() {
  const std::string code = highlightedCode();
  if (code.empty() || code == InvCodeTxt_) return;
  const auto item = listedItem(context_.KORDconn, kind_, code);
  if (!item) {
    clearDetails();
    return;
  }
  InvCodeTxt_ = code;
  description_->setText(QString::fromStdString(item->description.empty() ? item->name : item->description));
  ItemUnit_->setText(QString::fromStdString(item->unit));
  price_->setText(QString::fromStdString(text::formatNumber(store::numberOf(item->price), "0.00;(0.00)")));
  ItemCategory_->setText(QString::fromStdString(item->category));
  StockBalance_->setText(QString::fromStdString(balanceText(*item)));
  if (kind_.history == ItemHistory::LastLines)
    history_->setRecordset(itemHistory(context_.KORDconn, kind_, code, partyCode_, context_.FYID));
}

std::string StockPanel::balanceText(const ListedItem& item) const {
  const auto balance = itemBalance(context_.KORDconn, item.code, context_.FYID);
  return text::numberText(balance.value_or(0)) + " " + item.unit;
}

bool StockPanel::listKey(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
      Q_EMIT chosen(entries_.key(ItemCodeList_->currentIndex()));
      return true;
    case Qt::Key_Escape:
      Q_EMIT givenUp();
      return true;
    case Qt::Key_End:
      while (entries_.canFetchMore({})) entries_.fetchMore({});
      return false;
    default:
      return false;
  }
}

bool StockPanel::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      if (listKey(static_cast<QKeyEvent*>(event)->key())) return true;
      break;
    case QEvent::ShortcutOverride:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
      }
      break;
    case QEvent::FocusIn:
      Q_EMIT listEntered();
      break;
    case QEvent::FocusOut:
      if (!isPassingFocusLoss(*static_cast<QFocusEvent*>(event))) Q_EMIT listLeft();
      break;
    default:
      break;
  }
  return QFrame::eventFilter(watched, event);
}

// The panel covers fields: it needs a ground and an edge of its own whatever the style draws.
void StockPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setBrush(forms::colours().card);
  painter.setPen(forms::colours().accent);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace velmo::frame

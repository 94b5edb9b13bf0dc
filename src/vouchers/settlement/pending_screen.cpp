#include "vouchers/settlement/pending_screen.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <array>

#include "forms/caption.h"
#include "forms/figure_fit.h"
#include "forms/look.h"
#include "forms/table_view.h"
#include "forms/wait_cursor.h"
#include "spreadsheet/save_as_spreadsheet.h"
#include "text/decimal_sum.h"
#include "text/format.h"
#include "vouchers/settlement/pending_items.h"

namespace velmo::vouchers {

namespace {

using enum forms::ColumnAlignment;

// A column of amounts: its caption in a list of invoices and in one of bills, and the box of its total.
struct Amount {
  const char* invoices;
  const char* bills;
  const char* field;
  const char* total;
  int width;  // in characters
};

constexpr std::array amounts{Amount{"Invoice Amount", "Invoice Amount", "TrAmounts", "InvTxt", 13},
                             Amount{"Returns", "Returns", "Returns", "RetTxt", 8},
                             Amount{"Amount Rec.", "Amount Paid", "Payments", "RecTxt", 10},
                             Amount{"W.H. Tax", "W.H. Tax", "WHTaxs", "WHTxt", 7},
                             Amount{"Advance Adj.", "Advance Adj.", "AdvAdjs", "AdvTxt", 10},
                             Amount{"Discount", "Discount", "Discounts", "DisTxt", 8},
                             Amount{"Total Credited", "Total Debited", "TotPayments", "TotTxt", 11},
                             Amount{"Balance Amount", "Balance Amount", "BalAmt", "BalTxt", 13}};
constexpr int firstAmount = 2;

const char* captionOf(const SettlementKind& kind, const Amount& amount) {
  return isReceipt(kind) ? amount.invoices : amount.bills;
}

std::vector<forms::TableColumn> columnsOf(const SettlementKind& kind) {
  std::vector<forms::TableColumn> columns = {
      {.caption = "Invoice No.",
       .field = std::string(keyColumn(kind)),
       .alignment = isReceipt(kind) ? Right : Left,
       .width = 9},
      {.caption = "Invoice Date", .field = "TranDate", .format = "dd-mm-yyyy", .alignment = Centre, .width = 10}};
  for (const Amount& amount : amounts)
    columns.push_back({.caption = captionOf(kind, amount),
                       .field = amount.field,
                       .format = "0.00;(0.00)",
                       .alignment = Right,
                       .width = amount.width});
  return columns;
}

std::string titleOf(const SettlementKind& kind) {
  return isReceipt(kind) ? "PENDING SALE INVOICES" : "PENDING PURCHASE INVOICES";
}

// Keys that lead through a list, and those that pick from it.
bool leadsThroughRows(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown ||
         key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isTyped(const QKeyEvent& key) {
  return !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) && !key.text().isEmpty() &&
         key.text().front().isPrint() && !key.text().front().isSpace();
}

}  // namespace

PendingScreen::PendingScreen(const SettlementKind& kind, std::int64_t partyCode, const std::string& partyName,
                             session::Workplace& workplace, QWidget* parent)
    : QDialog(parent), kind_(kind) {
  setObjectName(isReceipt(kind) ? "PendingInvoices" : "PendingBills");
  setWindowTitle(forms::shownText(titleOf(kind)));
  pending_ = new forms::RecordsetModel(columnsOf(kind), this);
  pending_->setRecordset(store::Recordset(workplace.context.KORDconn,
                                          pendingListStatement(kind, partyCode, workplace.context.FYID),
                                          store::LockType::ReadOnly));
  pending_->showUpTo(static_cast<int>(pending_->rows().recordCount()));  // all can be gone to by their number
  grid_ = new forms::TableView;
  grid_->setObjectName("InvoicesGrid");
  grid_->setAccessibleName(tr("Pending invoices"));
  grid_->showModel(*pending_);
  grid_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  grid_->installEventFilter(this);
  addAction(spreadsheet::addSaveAsSpreadsheet(*grid_, titleOf(kind), workplace.files, workplace.prompts));

  auto* layout = new QVBoxLayout(this);
  forms::setGrid(*layout, forms::spacing::Section);
  layout->addWidget(buildHead(partyCode, partyName));
  auto* list = new QVBoxLayout;
  forms::setGrid(*list, 0, forms::spacing::Tight);
  list->addWidget(grid_, 1);
  list->addWidget(buildTotals());
  layout->addLayout(list, 1);
  layout->addWidget(buildFoot());
  resize(1000, 560);
  connect(grid_, &forms::TableView::picked, this, &PendingScreen::pick);
  DetailTotals();
  if (pending_->rowCount() > 0) grid_->selectRow(0);
  grid_->setFocus();
}

QWidget* PendingScreen::buildHead(std::int64_t partyCode, const std::string& partyName) {
  auto* head = new QWidget;
  auto* row = new QHBoxLayout(head);
  forms::setGrid(*row, 0);
  auto* code = new QLabel(QString::number(partyCode));
  code->setObjectName("PartyCodeLbl");
  code->setFont(forms::figureFont());
  auto* name = new QLabel(forms::shownText(partyName));
  name->setObjectName("PartyNameLbl");
  name->setTextFormat(Qt::PlainText);
  name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  name->setToolTip(name->text());
  forms::makeHeading(*name);
  number_ = new QLineEdit;
  number_->setObjectName("InvoiceNoTxt");
  number_->setPlaceholderText(tr("Go to invoice no."));
  number_->setToolTip(tr("Type a number anywhere to go to its invoice"));
  number_->setAccessibleName(tr("Go to invoice number"));
  number_->setClearButtonEnabled(true);
  number_->setFixedWidth(180);
  number_->installEventFilter(this);
  connect(number_, &QLineEdit::textChanged, this, &PendingScreen::goTo);
  row->addWidget(code);
  row->addWidget(name, 1);
  row->addWidget(number_);
  return head;
}

// Each total stands below its column.
QWidget* PendingScreen::buildTotals() {
  strip_ = new QWidget;
  for (const Amount& amount : amounts) {
    auto* box = new QLineEdit(strip_);
    box->setObjectName(amount.total);
    box->setAccessibleName(tr("Total of %1").arg(captionOf(kind_, amount)));
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignRight);
    box->setFont(forms::figureFont());
    forms::keepFigureWhole(*box);
    totals_.push_back(box);
  }
  strip_->setFixedHeight(totals_.front()->sizeHint().height());
  auto* header = grid_->horizontalHeader();
  connect(header, &QHeaderView::sectionResized, this, &PendingScreen::placeTotals);
  connect(header, &QHeaderView::geometriesChanged, this, &PendingScreen::placeTotals);
  connect(grid_->horizontalScrollBar(), &QScrollBar::valueChanged, this, &PendingScreen::placeTotals);
  return strip_;
}

void PendingScreen::placeTotals() {
  const auto* header = grid_->horizontalHeader();
  int column = firstAmount;
  for (QLineEdit* total : totals_) {
    total->setGeometry(header->sectionViewportPosition(column) + grid_->frameWidth(), 0, header->sectionSize(column),
                       strip_->height());
    ++column;
  }
}

QWidget* PendingScreen::buildFoot() {
  auto* foot = new QWidget;
  auto* row = new QHBoxLayout(foot);
  forms::setGrid(*row, 0);
  auto* count = new QLabel(tr("%1 Invoices").arg(pending_->rowCount()));
  count->setObjectName("NoLbl");
  forms::makeCaption(*count);
  auto* select = new QPushButton(tr("Select"));
  select->setObjectName("SelectBttn");
  select->setToolTip(tr("Takes the invoice into the document (Enter)"));
  select->setEnabled(pending_->rowCount() > 0);
  forms::makePrimary(*select);
  auto* close = new QPushButton(tr("Close"));
  close->setObjectName("CloseBttn");
  close->setToolTip(tr("Closes the list (Esc)"));
  for (QPushButton* button : {select, close}) button->setAutoDefault(false);
  connect(select, &QPushButton::clicked, this, &PendingScreen::pick);
  connect(close, &QPushButton::clicked, this, &PendingScreen::reject);
  row->addWidget(count, 1);
  row->addWidget(select);
  row->addWidget(close);
  return foot;
}

void PendingScreen::DetailTotals() {
  const store::Recordset& rows = pending_->rows();
  for (std::size_t at = 0; at < amounts.size(); ++at) {
    const int field = rows.fieldIndex(amounts[at].field);
    text::DecimalSum sum;
    for (int row = 0; row < pending_->rowCount(); ++row) sum += store::numberOf(rows.valueAt(row, field));
    totals_[at]->setText(QString::fromStdString(text::formatNumber(sum.value(), "0.00; (0.00)")));
  }
}

// To the invoice of that number, or the first one whose number begins so.
void PendingScreen::goTo(const QString& number) {
  if (number.isEmpty() || pending_->rowCount() == 0) return;
  const QModelIndex first = pending_->index(0, 0);
  for (const Qt::MatchFlags how : {Qt::MatchFlags(Qt::MatchFixedString), Qt::MatchFlags(Qt::MatchStartsWith)}) {
    const QModelIndexList found = pending_->match(first, Qt::DisplayRole, number, 1, how);
    if (found.isEmpty()) continue;
    grid_->selectRow(found.front().row());
    grid_->scrollTo(found.front());
    return;
  }
}

// The list keeps its keys while the number is typed, and the number takes what is typed in the list.
bool PendingScreen::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (watched == number_ && leadsThroughRows(key.key())) {
    QCoreApplication::sendEvent(grid_, event);
    return true;
  }
  if (watched == grid_ && isTyped(key)) {
    number_->setFocus(Qt::OtherFocusReason);
    number_->setText(key.text());
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

void PendingScreen::pick() {
  const QModelIndex row = grid_->currentIndex();
  if (!row.isValid()) return;
  pending_->rows().moveTo(row.row());
  picked_ = pendingItem(kind_, pending_->rows());
  accept();
}

std::optional<PendingItem> choosePending(const SettlementKind& kind, std::int64_t partyCode,
                                         const std::string& partyName, session::Workplace& workplace, QWidget* parent) {
  std::optional<PendingScreen> screen;
  if (!workplace.attempt("Cannot Show", [&] {
        const forms::WaitCursor wait;
        screen.emplace(kind, partyCode, partyName, workplace, parent);
      }))
    return std::nullopt;
  screen->exec();
  return screen->picked();
}

}  // namespace velmo::vouchers

#include "frame/payment_panel.h"

#include <QGraphicsDropShadowEffect>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

#include "forms/look.h"
#include "forms/number_box.h"

namespace velmo::frame {

namespace {

constexpr int boxWidth = 200;

}  // namespace

PaymentPanel::PaymentPanel(TotalsPanel& totals, QWidget* screen) : QFrame(screen), totals_(totals) {
  setObjectName("BalPic");
  setAccessibleName(tr("Payment"));
  forms::makeCard(*this);
  auto* shadow = new QGraphicsDropShadowEffect(this);
  shadow->setBlurRadius(40);
  shadow->setOffset(0, 8);
  shadow->setColor(QColor(0, 0, 0, 120));
  setGraphicsEffect(shadow);
  const TotalsPanel::PaymentBoxes boxes = totals_.takePaymentBoxes();
  received_ = boxes.received;
  balance_ = boxes.balance;
  toPay_ = new QLabel;
  toPay_->setAccessibleName(tr("To pay"));
  balanceCaption_ = new QLabel(tr("Balance"));
  forms::makeTotal(*toPay_);
  forms::makeTotal(*received_);

  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Page, forms::spacing::Section);
  int row = 0;
  const auto add = [&](QLabel* caption, QWidget* field) {
    forms::makeCaption(*caption);
    field->setFixedWidth(boxWidth);
    grid->addWidget(caption, row, 0);
    grid->addWidget(field, row++, 1);
  };
  add(new QLabel(tr("Net Total")), toPay_);
  add(new QLabel(tr("Received")), received_);
  add(balanceCaption_, balance_);
  keys_ = new QLabel;
  forms::makeCaption(*keys_);
  grid->addWidget(keys_, row, 0, 1, 2);
  received_->installEventFilter(this);
  hide();
}

void PaymentPanel::open() {
  toPay_->setText(QString::fromStdString(totals_.totals().NetTotal));
  keys_->setText(tr("Enter saves the invoice, Esc goes back to it."));
  adjustSize();
  const QWidget& screen = *parentWidget();
  move((screen.width() - width()) / 2, (screen.height() - height()) / 3);
  show();
  raise();
  received_->setFocus(Qt::TabFocusReason);
  received_->selectAll();
}

void PaymentPanel::tellScan(const QString& code) {
  keys_->setText(tr("%1 was not taken: Esc goes back to the lines.").arg(code.left(20)));
}

bool PaymentPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == received_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      Q_EMIT taken();
      return true;
    }
    if (key == Qt::Key_Escape) {
      Q_EMIT givenUp();
      return true;
    }
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace velmo::frame

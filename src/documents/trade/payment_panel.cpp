#include "documents/trade/payment_panel.h"

#include <QCheckBox>
#include <QGraphicsDropShadowEffect>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <cmath>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/number_box.h"
#include "session/settings.h"
#include "text/decimal_sum.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

constexpr int boxWidth = 300;
constexpr int tendersInRow = 3;
constexpr double notes[] = {10, 50, 100, 500, 1000};

QString amountText(double amount) {
  return QString::fromStdString(text::formatNumber(amount, "0.00"));
}

// A button for a finger or the mouse: the keyboard stays where it is.
QPushButton* touchButton(const char* name, const QString& caption) {
  auto* button = new QPushButton(caption);
  button->setObjectName(QLatin1String(name));
  button->setFocusPolicy(Qt::NoFocus);
  button->setMinimumHeight(40);
  return button;
}

}  // namespace

std::vector<double> likelyTenders(double total) {
  if (!(total > 0)) return {};
  std::vector<double> tenders = {total};
  for (const double note : notes) {
    const double next = (std::floor(total / note) + 1) * note;
    if (next > tenders.back()) tenders.push_back(next);
  }
  return tenders;
}

PaymentPanel::PaymentPanel(TotalsPanel& totals, session::Workplace& workplace, QWidget* screen)
    : QFrame(screen), totals_(totals), workplace_(workplace) {
  setObjectName("BalPic");
  setAccessibleName(tr("Payment"));
  forms::makeCard(*this);
  auto* shadow = new QGraphicsDropShadowEffect(this);
  shadow->setBlurRadius(40);
  shadow->setOffset(0, 8);
  shadow->setColor(QColor(0, 0, 0, 120));
  setGraphicsEffect(shadow);
  keys_ = new QLabel;
  forms::makeCaption(*keys_);
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, forms::spacing::Page, forms::spacing::Section);
  column->addLayout(buildAmounts());
  column->addLayout(buildTenders());
  column->addWidget(keys_);
  column->addLayout(buildCommands());
  column->addWidget(buildAskOption());
  received_->installEventFilter(this);
  connect(balance_, &QLineEdit::textChanged, this, &PaymentPanel::showWhatIsShort);
  hide();
}

QLayout* PaymentPanel::buildAmounts() {
  const TotalsPanel::PaymentBoxes boxes = totals_.takePaymentBoxes();
  received_ = boxes.received;
  balance_ = boxes.balance;
  toPay_ = new QLabel;
  toPay_->setAccessibleName(tr("To pay"));
  short_ = new QLabel;
  short_->setObjectName("ShortLbl");
  short_->setAccessibleName(tr("Short by"));
  forms::makeTotal(*toPay_);
  forms::makeTotal(*received_);
  forms::makeTotal(*short_);
  short_->setProperty("look", QStringLiteral("warning"));
  QFont largest = balance_->font();
  largest.setPointSizeF(largest.pointSizeF() * 1.6);
  balance_->setFont(largest);

  auto* grid = new QGridLayout;
  forms::setGrid(*grid, 0, forms::spacing::Section);
  int row = 0;
  const auto add = [&](const QString& caption, QWidget* field) {
    field->setFixedWidth(boxWidth);
    grid->addWidget(forms::captionFor(*field, caption), row, 0);
    grid->addWidget(field, row++, 1);
  };
  add(tr("Net Total"), toPay_);
  add(tr("Received"), received_);
  add(tr("Balance"), balance_);
  grid->addWidget(short_, row, 0, 1, 2);
  return grid;
}

QLayout* PaymentPanel::buildTenders() {
  auto* grid = new QGridLayout;
  forms::setGrid(*grid, 0);
  for (int i = 0; i <= static_cast<int>(std::size(notes)); ++i) {
    QPushButton* button = touchButton(("TenderBttn_" + std::to_string(i)).c_str(), {});
    connect(button, &QPushButton::clicked, this, [this, button] {
      received_->setText(button->property("amount").toString());
      totals_.RecalculateTotals();
      received_->selectAll();
    });
    grid->addWidget(button, i / tendersInRow, i % tendersInRow);
    tenders_.push_back(button);
  }
  return grid;
}

QLayout* PaymentPanel::buildCommands() {
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  QPushButton* save = touchButton("TakeBttn", tr("Save (Enter)"));
  forms::makePrimary(*save);
  QPushButton* back = touchButton("BackBttn", tr("Back (Esc)"));
  row->addWidget(save, 2);
  row->addWidget(back, 1);
  connect(save, &QPushButton::clicked, this, &PaymentPanel::take);
  connect(back, &QPushButton::clicked, this, &PaymentPanel::givenUp);
  return row;
}

QWidget* PaymentPanel::buildAskOption() {
  auto* ask = new QCheckBox(tr("As&k before less than the total is saved as paid"));
  ask->setObjectName("AskShort");
  ask->setFocusPolicy(Qt::NoFocus);
  store::Connection& company = workplace_.context.KORDconn;
  ask->setChecked(session::setting(company, session::settings::AskShortTender) == "Yes");
  connect(ask, &QCheckBox::toggled, this, [this, &company](bool on) {
    try {
      session::saveSetting(company, session::settings::AskShortTender, on ? "Yes" : "No");
    } catch (const store::StoreError& failure) {
      workplace_.prompts.tell("Cannot Save", failure.what());
    }
  });
  return ask;
}

void PaymentPanel::open() {
  toPay_->setText(QString::fromStdString(totals_.totals().NetTotal));
  keys_->setText(tr("Enter saves the invoice, Esc goes back to it."));
  offerTenders();
  showWhatIsShort();
  layout()->activate();  // the buttons that are offered changed while it was hidden
  adjustSize();
  const QWidget& screen = *parentWidget();
  move((screen.width() - width()) / 2, (screen.height() - height()) / 3);
  show();
  raise();
  received_->setFocus(Qt::TabFocusReason);
  received_->selectAll();
}

void PaymentPanel::offerTenders() {
  const std::vector<double> amounts = likelyTenders(text::amountFrom(totals_.totals().NetTotal));
  for (std::size_t i = 0; i < tenders_.size(); ++i) {
    tenders_[i]->setVisible(i < amounts.size());
    if (i >= amounts.size()) continue;
    const QString amount = amountText(amounts[i]);
    tenders_[i]->setProperty("amount", amount);
    tenders_[i]->setText(i == 0 ? tr("Exact") : amount);
  }
}

double PaymentPanel::shortBy() const {
  const frame::DocumentTotals& totals = totals_.totals();
  return std::max(0.0, text::sumOf({text::amountFrom(totals.NetTotal), -text::amountFrom(totals.Received)}));
}

void PaymentPanel::showWhatIsShort() {
  const double missing = shortBy();
  short_->setText(missing > 0 ? tr("Short by %1").arg(amountText(missing)) : QString());
}

void PaymentPanel::take() {
  totals_.RecalculateTotals();
  const double missing = shortBy();
  const bool asks = findChild<QCheckBox*>(QStringLiteral("AskShort"))->isChecked();
  if (missing > 0 && asks) {
    const QString question = tr("%1 is missing of the total of %2. Do you want to save the invoice as paid?")
                                 .arg(amountText(missing), toPay_->text());
    if (workplace_.prompts.ask(
            {.title = "Short Payment", .text = question.toStdString(), .buttons = session::Buttons::YesNo}) !=
        session::Answer::Yes)
      return received_->selectAll();
  }
  Q_EMIT taken();
}

void PaymentPanel::tellScan(const QString& code) {
  keys_->setText(tr("%1 was not taken: Esc goes back to the lines.").arg(code.left(20)));
}

bool PaymentPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == received_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      take();
      return true;
    }
    if (key == Qt::Key_Escape) {
      Q_EMIT givenUp();
      return true;
    }
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace velmo::documents

#include "documents/trade/counter_strip.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

#include "forms/caption.h"
#include "forms/look.h"
#include "printing/print_at_once.h"
#include "session/settings.h"

namespace velmo::documents {

CounterStrip::CounterStrip(session::Workplace& workplace, QWidget* parent) : QWidget(parent), workplace_(workplace) {
  auto* row = new QHBoxLayout(this);
  forms::setGrid(*row, 0);
  auto* hint = new QLabel(tr("Press F4 to view items' list."));
  hint->setObjectName("F4Lbl");
  forms::makeCaption(*hint);
  lastScan_ = new QLabel;
  lastScan_->setObjectName("ScanLbl");
  lastScan_->setAccessibleName(tr("Last scan"));
  lastScan_->setTextFormat(Qt::PlainText);
  lastScan_->setProperty("look", "warning");
  row->addWidget(hint);
  row->addWidget(lastScan_, 1, Qt::AlignCenter);
  addScanChoice(*this);
  addSlipChoice(*this);
}

void CounterStrip::addScanChoice(QWidget& place) {
  if (session::setting(workplace_.context.KORDconn, session::settings::ScannedAgain) == "NewLine")
    again_ = frame::ScannedAgain::NewLine;
  auto* raise = new QCheckBox(tr("Scanning an item again raises its quantity"));
  raise->setObjectName("RaiseQuantity");
  raise->setChecked(again_ == frame::ScannedAgain::RaiseQuantity);
  raise->setFocusPolicy(Qt::ClickFocus);
  place.layout()->addWidget(raise);
  connect(raise, &QCheckBox::toggled, this, [this](bool on) {
    again_ = on ? frame::ScannedAgain::RaiseQuantity : frame::ScannedAgain::NewLine;
    keep(session::settings::ScannedAgain, on ? "RaiseQuantity" : "NewLine");
    Q_EMIT scannedAgainChosen(again_);
  });
}

// A printer that was chosen once stays in the list, there or not: it may only be switched off.
void CounterStrip::addSlipChoice(QWidget& place) {
  auto* printers = new QComboBox;
  printers->setObjectName("SlipList");
  printers->setFocusPolicy(Qt::ClickFocus);
  printers->setToolTip(tr("Where a slip goes when the invoice is printed"));
  printers->addItem(tr("Preview"), QString());
  for (const std::string& name : printing::printerNames())
    printers->addItem(forms::shownText(name), QString::fromStdString(name));
  const QString chosen =
      forms::shownText(session::setting(workplace_.context.KORDconn, session::settings::SlipPrinter));
  if (printers->findData(chosen) < 0) printers->addItem(chosen, chosen);
  printers->setCurrentIndex(printers->findData(chosen));
  place.layout()->addWidget(forms::captionFor(*printers, tr("Slips")));
  place.layout()->addWidget(printers);
  connect(printers, &QComboBox::activated, this,
          [this, printers] { keep(session::settings::SlipPrinter, printers->currentData().toString().toStdString()); });
}

void CounterStrip::keep(std::string_view setting, const std::string& value) {
  try {
    session::saveSetting(workplace_.context.KORDconn, setting, value);
  } catch (const store::StoreError& failure) {
    workplace_.prompts.tell("Cannot Save", failure.what());
  }
}

void CounterStrip::clear() {
  lastScan_->clear();
}

void CounterStrip::tellUnknown(const QString& code) {
  lastScan_->setText(tr("No item has the code %1.").arg(code));
}

}  // namespace velmo::documents

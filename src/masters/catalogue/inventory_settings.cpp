#include "masters/catalogue/inventory_settings.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/settings_dialog.h"
#include "session/stock_movement.h"

namespace velmo::masters {
namespace {

class InventorySettings : public forms::SettingsDialog {
 public:
  InventorySettings(session::Workplace& workplace, QWidget* parent)
      : forms::SettingsDialog(workplace, tr("Inventory Settings"), parent),
        settings_(workplace.context.KORDconn, "SELECT name, StockMovement from BusinessInfo") {
    forms::addDialogHeading(body(), tr("Inventory Settings"), settings_.text("name"), "ComName");
    addOptions(tr("Goods come in by"), "InvIn", {"Inwards Gate Passes", "Purchases"}, inward_);
    addOptions(tr("Goods go out by"), "InvOut", {"Outwards Gate Passes", "Delivery Challans", "Sale Invoices"},
               outward_);
    addHint();
    number_ = new QLineEdit(this);
    number_->setObjectName("InvNum");
    number_->hide();
    body().addStretch(1);
    addCommands();
    setMinimumWidth(420);
    showStored();
  }

 private:
  // Options count from 1, as the digits of the stored number do.
  void addOptions(const QString& title, const char* name, std::initializer_list<const char*> captions,
                  QButtonGroup& group) {
    auto* box = new QGroupBox(title, this);
    auto* column = new QVBoxLayout(box);
    forms::setGrid(*column, forms::spacing::Section - forms::spacing::Tight);
    int index = 0;
    for (const char* caption : captions) {
      auto* option = new QRadioButton(tr(caption), box);
      option->setObjectName(QLatin1String(name) + QLatin1Char('_') + QString::number(++index));
      group.addButton(option, index);
      column->addWidget(option);
    }
    body().addWidget(box);
  }

  void addHint() {
    auto* hint = new QLabel(
        tr("Only these documents change the quantities in stock, so that goods are not counted twice. The choice holds "
           "for new documents; those already saved stay as they are."),
        this);
    hint->setWordWrap(true);
    forms::makeCaption(*hint);
    body().addWidget(hint);
  }

  // A number that stands for no choice leaves its options open.
  void showStored() {
    const auto number = static_cast<int>(settings_.integer("StockMovement"));
    number_->setText(QString::number(number));
    check(inward_, number / 10);
    check(outward_, number % 10);
    QAbstractButton* first = inward_.checkedButton() ? inward_.checkedButton() : inward_.button(1);
    first->setFocus();
  }

  // Tab comes to the chosen option of a group, from there arrows lead to the others.
  static void check(QButtonGroup& group, int index) {
    QAbstractButton* chosen = group.button(index);
    if (!chosen) return;
    for (QAbstractButton* option : group.buttons())
      option->setFocusPolicy(option == chosen ? Qt::StrongFocus : Qt::ClickFocus);
    chosen->setChecked(true);
  }

  bool save() override {
    if (!inward_.checkedButton()) return refuse("Select the document by which goods come in.");
    if (!outward_.checkedButton()) return refuse("Select the document by which goods go out.");
    const int number = 10 * inward_.checkedId() + outward_.checkedId();
    number_->setText(QString::number(number));
    settings_.update({{"StockMovement", number}});
    session::applyStockMovement(workplace_.context, std::int64_t{number});
    return true;
  }

  store::Recordset settings_;  // InvSet
  QButtonGroup inward_;
  QButtonGroup outward_;
  QLineEdit* number_ = nullptr;
};

}  // namespace

QWidget* makeInventorySettings(session::Workplace& workplace, QWidget* parent) {
  return new InventorySettings(workplace, parent);
}

}  // namespace velmo::masters

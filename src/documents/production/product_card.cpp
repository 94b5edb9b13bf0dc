#include "documents/production/product_card.h"

#include <QGridLayout>
#include <QLineEdit>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/name_box.h"
#include "forms/number_box.h"
#include "frame/picking/item_code_box.h"
#include "text/format.h"

namespace velmo::documents {

namespace {

constexpr int codeWidth = 120;
constexpr const char* quantityFormat = "#0.00########; (#0.00########)";

}  // namespace

ProductCard::ProductCard(session::Workplace& workplace, QWidget* screen) : workplace_(workplace) {
  forms::makeCard(*this);
  auto* list =
      new frame::CodeDropList({.name = "ItemCodeList", .spoken = "Items", .nothing = "No item matches"}, screen);
  ICode_ = new frame::ItemCodeBox(workplace.context, *list, frame::ItemKinds::Goods, this);
  ICode_->setObjectName("ICode");
  ICode_->setFixedWidth(codeWidth);
  IName_ = new QLineEdit;
  IName_->setObjectName("IName");
  IName_->setAccessibleName(tr("Product name"));
  forms::makeNameBox(*IName_);
  UnitBox_ = new QLineEdit;
  UnitBox_->setObjectName("UnitBox");
  UnitBox_->setFixedWidth(codeWidth);
  UnitBox_->setMaxLength(50);
  QtyBox_ = new forms::NumberBox(nullptr, {.restFormat = quantityFormat});
  QtyBox_->setObjectName("QtyBox");
  QtyBox_->setFixedWidth(codeWidth);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  grid->addWidget(forms::captionFor(*ICode_, tr("Product")), 0, 0);
  grid->addWidget(ICode_, 0, 1);
  grid->addWidget(IName_, 0, 2);
  grid->addWidget(forms::captionFor(*UnitBox_, tr("Unit")), 1, 0);
  grid->addWidget(UnitBox_, 1, 1);
  grid->addWidget(forms::captionFor(*QtyBox_, tr("Quantity")), 2, 0);
  grid->addWidget(QtyBox_, 2, 1);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(3, 1);

  connect(ICode_, &frame::CodeBox::named, IName_, &QLineEdit::setText);
  connect(ICode_, &frame::CodeBox::named, this, &ProductCard::bringUnit);
  connect(ICode_, &frame::CodeBox::moveOn, this, &ProductCard::moveOn);
  connect(QtyBox_, &forms::NumberBox::leftWithoutNumber, this, [this] {
    workplace_.prompts.tell("Numeric Quantity", "Quantity must be a numeric figure.");
    QtyBox_->setText("0.00");
  });
}

void ProductCard::bringUnit(const QString& name) {
  store::Recordset& items = workplace_.context.ItemsRS;
  if (name.isEmpty()) return UnitBox_->clear();
  items.moveFirst();
  if (items.find("ItemCode = " + store::quoted(store::textOf(ICode_->code()))))
    UnitBox_->setText(forms::shownText(items.text("unit")));
}

void ProductCard::clear() {
  ICode_->clear();
  for (QLineEdit* box : {IName_, UnitBox_}) box->clear();
  QtyBox_->setText("1");
}

void ProductCard::show(const store::Recordset& tran) {
  const auto show = [&tran](QLineEdit& box, const char* column) { box.setText(forms::shownText(tran.text(column))); };
  show(*ICode_, "text1");
  show(*IName_, "text2");
  show(*UnitBox_, "text3");
  QtyBox_->setText(QString::fromStdString(text::formatNumber(tran.number("AdditionalTax"), quantityFormat)));
}

void ProductCard::fill(frame::DocumentValues& values) const {
  const store::Value code = ICode_->code();
  values.fields["ICode"] = store::isNull(code) ? ICode_->text().toStdString() : store::textOf(code);
  values.fields["IName"] = IName_->text().toStdString();
  values.fields["UnitBox"] = UnitBox_->text().toStdString();
  values.fields["QtyBox"] = QtyBox_->text().toStdString();
}

void ProductCard::focusCode() {
  ICode_->setFocus(Qt::TabFocusReason);
}

}  // namespace velmo::documents

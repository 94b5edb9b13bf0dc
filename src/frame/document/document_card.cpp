#include "frame/document/document_card.h"

#include <QCheckBox>
#include <QGridLayout>

#include "forms/caption.h"
#include "forms/date_picker.h"
#include "forms/digits_box.h"
#include "forms/look.h"

namespace velmo::frame {
namespace {

constexpr int widestBeside = 200;  // of a field beside its caption

}  // namespace

DocumentCard::DocumentCard(const DocumentType& type, OwnFields& fields, QWidget* parent) : QFrame(parent) {
  forms::makeCard(*this);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  int row = 0;
  // A field of long choices stands below its caption, lest it make the card too wide for a small screen.
  const auto add = [&](QWidget* field, const QString& caption) {
    const bool wide = field->sizeHint().width() > widestBeside;
    grid->addWidget(forms::captionFor(*field, caption), row, 0, 1, wide ? 2 : 1);
    if (wide) ++row;
    grid->addWidget(field, row++, wide ? 0 : 1, 1, wide ? 2 : 1);
  };
  docNo_ = new forms::DigitsBox;
  docNo_->setObjectName("DocNo");
  docNo_->setFont(forms::figureFont());
  connect(docNo_, &QLineEdit::textEdited, this, &DocumentCard::keepDocNo);
  add(docNo_, forms::shownText(type.numberCaption));
  if (type.dateChoice == DateChoice::Shown) {
    day_ = new forms::DatePicker;
    day_->setObjectName("TrDate");
    add(day_, tr("Date"));
  }
  for (const DocumentField& field : type.fields)
    if (field.kind != FieldKind::Unseen && field.place == FieldPlace::Head)
      add(fields.makeControl(field), forms::shownText(field.label));
  if (type.cancelChoice == CancelChoice::Shown) {
    cancel_ = new QCheckBox(tr("Cancel "));
    cancel_->setObjectName("CancelOption");
    cancel_->setAccessibleName(tr("Cancelled document"));
    cancel_->setToolTip(tr("Marks the document as cancelled when it is saved"));
    grid->addWidget(cancel_, row++, 1);
    connect(cancel_, &QCheckBox::toggled, this, &DocumentCard::showCancelled);
  }
  grid->setRowStretch(row, 1);
}

std::string DocumentCard::docNo() const {
  return docNo_->text().toStdString();
}

void DocumentCard::setDocNo(std::int64_t docNo) {
  keepDocNo();
  docNo_->setText(QString::number(docNo));
}

void DocumentCard::proposeDocNo(std::int64_t docNo) {
  setDocNo(docNo);
  docNoProposed_ = true;
}

text::DateTime DocumentCard::day() const {
  return day_ ? day_->day() : text::DateTime{};
}

void DocumentCard::setDay(const text::DateTime& day) {
  if (day_) day_->setDay(day);
}

bool DocumentCard::isCancelled() const {
  return !cancel_ || cancel_->isChecked();
}

void DocumentCard::setCancelled(bool cancelled) {
  if (cancel_) cancel_->setChecked(cancelled);
}

void DocumentCard::showCancelled() {
  QFont font = cancel_->font();
  font.setBold(cancel_->isChecked());
  cancel_->setFont(font);
}

}  // namespace velmo::frame

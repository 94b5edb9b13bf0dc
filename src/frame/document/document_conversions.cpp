#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

#include "forms/caption.h"
#include "forms/link_button.h"
#include "forms/look.h"
#include "frame/document/command_bar.h"
#include "frame/document/document_card.h"
#include "frame/document/document_screen.h"
#include "frame/document/open_document.h"
#include "frame/document/references_card.h"

// What a document becomes, and the ways to what it has become and to what it refers to.
namespace velmo::frame {

namespace {

QIcon arrowIcon(const QWidget& box) {
  constexpr int side = 16;
  QPixmap picture(QSize(side, side) * box.devicePixelRatioF());
  picture.setDevicePixelRatio(box.devicePixelRatioF());
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(forms::colours().accent, 1.6));
  painter.drawPolyline(QPolygonF{{3, 8}, {13, 8}, {9, 4}, {13, 8}, {9, 12}});
  return QIcon(picture);
}

bool isNumber(const QString& text) {
  return !text.isEmpty() && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

}  // namespace

// A row of its own: three marks have no room beside the title on a small screen.
QWidget* DocumentScreen::buildMarks() {
  Conversions_ = new QWidget;
  auto* row = new QHBoxLayout(Conversions_);
  forms::setGrid(*row, 0);
  ConvLbl_ = new QLabel(tr("Converted To:"));
  ConvLbl_->setObjectName("ConvLbl");
  forms::makeCaption(*ConvLbl_);
  row->addWidget(ConvLbl_);
  for (const ConversionMark& mark : type_.marks) {
    if (mark.label.empty()) continue;
    auto* link = new forms::LinkButton(QString(), nullptr);
    link->setObjectName(forms::shownText(mark.label));
    row->addWidget(link);
    marks_.push_back({&mark, link});
  }
  row->addStretch(1);
  return Conversions_;
}

void DocumentScreen::connectConversions() {
  for (std::size_t i = 0; i < type_.conversions.size(); ++i) {
    const ConversionCommand& conversion = type_.conversions[i];
    QPushButton* const button = commands_->conversions[i];
    if (!workplace_.screens.hasScreen(conversion.target.screen)) commands_->forbid(*button);
    connect(button, &QPushButton::clicked, this, [this, &conversion] { convert(conversion); });
  }
  for (const Mark& mark : marks_) connect(mark.link, &QAbstractButton::clicked, this, [this, mark] { openMark(mark); });
  for (const DocumentField& field : type_.fields)
    if (!field.opens.empty() && field.kind != FieldKind::Unseen) connectReference(field);
}

// A number that is saved leads to its document, by Enter or by the arrow at its end; one that is still typed does not.
void DocumentScreen::connectReference(const DocumentField& field) {
  auto& box = *references_->findChild<QLineEdit*>(forms::shownText(field.name));
  QAction* arrow = box.addAction(arrowIcon(box), QLineEdit::TrailingPosition);
  arrow->setObjectName(forms::shownText(field.name) + "Link");
  arrow->setToolTip(tr("Opens the document of this number (Enter)"));
  const auto isSaved = [this, &box, &field] {
    return !AddMode_ && isNumber(box.text()) && box.text().toStdString() == Tran_.text(field.column);
  };
  const auto showArrow = [arrow, isSaved] { arrow->setVisible(isSaved()); };
  connect(&box, &QLineEdit::textChanged, this, showArrow);
  showArrows_.push_back(showArrow);
  const auto open = [this, &box, &field, isSaved] {
    if (!isSaved()) return;
    workplace_.attempt("Cannot Open", [&] {
      openDocumentOf(workplace_, schema::documentForm(field.opens), box.text().toStdString(), field.label);
    });
  };
  connect(arrow, &QAction::triggered, this, open);
  connect(&box, &QLineEdit::returnPressed, this, open);
}

void DocumentScreen::convert(const ConversionCommand& conversion) {
  if (!workplace_.rights().demand(conversion.target.openRight)) return;
  if (card_->isCancelled()) return workplace_.prompts.tell("Cannot Save", conversion.refusal);
  ValidateAndSave(PrintMode::Nothing, &conversion);
}

// Of a document that was cancelled or deleted in another window, saving would make one again that may be converted. One
// that was shown cancelled and is not to be so any longer is another matter.
void DocumentScreen::demandUnharmed(const ConversionCommand& conversion) const {
  const store::Recordset stored(workplace_.context.KORDconn,
                                "Select cancel from transactions where tranno = " + TranNo_->text().toStdString(),
                                store::LockType::ReadOnly);
  if (stored.isEmpty())
    throw store::StoreError(
        store::ErrorKind::Conflict,
        "This document is not there any more: it was deleted in another window. Nothing was saved.");
  if (stored.yes("cancel") && !kept_.values.Cancel)
    throw store::StoreError(store::ErrorKind::Conflict, std::string(conversion.refusal));
}

// The document is saved. When nothing can be made of it, it stays on the screen as it is in the books.
void DocumentScreen::finishConversion(const ConversionCommand& conversion) {
  session::LoginContext& context = workplace_.context;
  try {
    const std::int64_t made = conversion.convert(context, LastSavedTranNo_, workplace_.clock.now());
    workplace_.attempt("Cannot Add", [this] { ClearForNewRecord(); });
    context.OpenTranNo = made;
    context.OpenTranFlag = true;
  } catch (const store::StoreError& error) {
    bindAgain();
    workplace_.prompts.tell("Cannot Save", error.what());
    context.OpenTranNo = LastSavedTranNo_;
    return showTran();
  }
  if (!workplace_.screens.openScreen(conversion.target.screen)) context.OpenTranFlag = false;
}

// What the shown document was converted to.
void DocumentScreen::showMarks() {
  bool any = false;
  for (const Mark& mark : marks_) {
    const QString text = AddMode_ ? QString() : QString::fromStdString(Tran_.text(mark.mark->column));
    mark.link->setText(text);
    mark.link->setAccessibleName(tr("Opens %1").arg(text));
    mark.link->setToolTip(tr("Opens %1 (Enter)").arg(text));
    mark.link->setFixedSize(mark.link->sizeHint());
    mark.link->setVisible(!text.isEmpty());
    any = any || !text.isEmpty();
  }
  for (QWidget* part : {static_cast<QWidget*>(ConvLbl_), Conversions_}) part->setVisible(any);
  for (const auto& showArrow : showArrows_) showArrow();
}

void DocumentScreen::openMark(const Mark& mark) {
  const std::string text = mark.link->text().toStdString();
  const std::string number = text.starts_with(mark.mark->words) ? text.substr(mark.mark->words.size()) : std::string();
  workplace_.attempt("Cannot Open", [&] { openDocumentOf(workplace_, mark.mark->target, number, mark.mark->words); });
}

}  // namespace velmo::frame

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "forms/caption.h"
#include "forms/look.h"
#include "frame/document/command_bar.h"
#include "frame/document/document_card.h"
#include "frame/document/document_screen.h"
#include "frame/document/references_card.h"

// How a document screen is laid out, from the top: title and the ways to other documents; which document, whose, what
// it refers to; the lines, which take all the room that is left; remarks and totals; the commands.
namespace velmo::frame {

void DocumentScreen::buildLayout() {
  setObjectName(forms::shownText(type_.form.screen));
  setWindowTitle(forms::shownText(type_.title));
  setAccessibleName(forms::shownText(type_.title));
  commands_ = new CommandBar(type_, this);
  TranNo_ = new QLineEdit(this);
  TranNo_->setObjectName("TranNo");
  TranNo_->setReadOnly(true);
  TranNo_->hide();

  auto* whole = new QVBoxLayout(this);
  forms::setGrid(*whole, 0);
  FormPic_ = new QWidget;
  FormPic_->setObjectName("FormPic");
  whole->addWidget(FormPic_);
  body_ = type_.makeBody({.type = type_, .workplace = workplace_, .screen = *this, .form = *FormPic_});
  parts_ = body_->build();
  auto* layout = new QVBoxLayout(FormPic_);
  forms::setGrid(*layout, forms::spacing::Normal);
  layout->addLayout(buildTitleRow());
  layout->addWidget(buildMarks());
  layout->addLayout(buildCards());
  layout->addWidget(parts_.lines, 1);
  if (parts_.strip) layout->addWidget(parts_.strip);
  layout->addLayout(buildFoot());
  layout->addWidget(commands_->actions());
}

QHBoxLayout* DocumentScreen::buildTitleRow() {
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  auto* heading = new QLabel(forms::shownText(type_.title));
  forms::makeHeading(*heading);
  row->addWidget(heading);
  row->addStretch(1);
  row->addWidget(commands_->navigation());
  return row;
}

QHBoxLayout* DocumentScreen::buildCards() {
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  card_ = new DocumentCard(type_, fields_, nullptr);
  references_ = new ReferencesCard(type_, fields_, workplace_, nullptr);
  row->addWidget(card_, 0);
  if (parts_.beside) row->addWidget(parts_.beside, 3);  // names and addresses are longer than numbers
  row->addWidget(references_, 2);
  return row;
}

QHBoxLayout* DocumentScreen::buildFoot() {
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  auto* notes = new QFrame;
  forms::makeCard(*notes);
  auto* column = new QVBoxLayout(notes);
  forms::setGrid(*column, forms::spacing::Normal, forms::spacing::Tight);
  if (parts_.aboveRemarks) column->addWidget(parts_.aboveRemarks);
  Desc_ = new QPlainTextEdit;
  Desc_->setObjectName("Desc");
  Desc_->setAccessibleName(tr("Remarks"));
  Desc_->setPlaceholderText(tr("Remarks"));
  Desc_->setTabChangesFocus(true);
  Desc_->setMinimumHeight(40);
  Desc_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  column->addWidget(Desc_, 1);
  row->addWidget(notes, 1);
  row->addWidget(parts_.totals, 0);
  return row;
}

// As the eye goes: which document, whose, its references, the lines, the amounts, then the commands.
void DocumentScreen::orderTabs() {
  QWidget* last = nullptr;
  for (QWidget* part : std::initializer_list<QWidget*>{card_, parts_.beside, references_, parts_.lines, parts_.totals,
                                                       parts_.aboveRemarks, Desc_, commands_->actions(),
                                                       commands_->navigation(), Conversions_}) {
    if (!part) continue;
    QList<QWidget*> stops = part->findChildren<QWidget*>();
    stops.prepend(part);
    for (QWidget* stop : stops) {
      // Drop-down lists are windows of their own.
      if (!(stop->focusPolicy() & Qt::TabFocus) || stop->focusProxy() || stop->window() != window()) continue;
      if (last) setTabOrder(last, stop);
      last = stop;
    }
  }
}

}  // namespace velmo::frame

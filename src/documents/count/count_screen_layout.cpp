#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimeEdit>
#include <QVBoxLayout>

#include "documents/count/count_grid.h"
#include "documents/count/count_screen.h"
#include "forms/caption.h"
#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "forms/look.h"

// How the count sheet is laid out: what is counted, the code of what is scanned, the items, the commands.
namespace velmo::documents {

void CountScreen::buildInto(QVBoxLayout& column) {
  forms::setGrid(column, forms::spacing::Normal);
  auto* heading = new QLabel(windowTitle());
  forms::makeHeading(*heading);
  column.addWidget(heading);
  column.addWidget(buildPlace());
  column.addWidget(buildScan());
  grid_ = new CountGrid(sheet_);
  column.addWidget(grid_, 1);
  later_ = new QLabel;
  later_->setObjectName("LaterLbl");
  later_->setWordWrap(true);
  later_->setTextFormat(Qt::PlainText);
  later_->setProperty("look", "warning");
  column.addWidget(later_);
  summary_ = new QLabel;
  summary_->setObjectName("SummaryLbl");
  column.addWidget(summary_);
  column.addLayout(buildCommands());
}

QWidget* CountScreen::buildPlace() {
  auto* card = new QFrame;
  forms::makeCard(*card);
  auto* row = new QHBoxLayout(card);
  forms::setGrid(*row, forms::spacing::Normal);
  const auto list = [&](const char* name, const QString& caption) {
    auto* combo = new forms::DropCombo;
    combo->setObjectName(name);
    combo->setMinimumContentsLength(8);
    row->addWidget(forms::captionFor(*combo, caption));
    row->addWidget(combo, 1);
    return combo;
  };
  locations_ = list("LocationList", tr("Inventory Location"));
  categories_ = list("CatList", tr("Category"));
  categories_->lineEdit()->setPlaceholderText(tr("All"));
  day_ = new forms::DatePicker;
  day_->setObjectName("TrDate");
  row->addWidget(forms::captionFor(*day_, tr("Book Quantity As At")));
  constexpr int aroundDate = 52;  // frame, padding and arrow
  day_->ensurePolished();
  day_->setMinimumWidth(day_->fontMetrics().horizontalAdvance(QStringLiteral("00-00-0000")) + aroundDate);
  row->addWidget(day_);
  time_ = new QTimeEdit;
  time_->setObjectName("TrTime");
  time_->setAccessibleName(tr("Time of the book quantity"));
  time_->setDisplayFormat(QStringLiteral("HH:mm:ss"));
  time_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  row->addWidget(time_);
  take_ = new QPushButton(tr("Now"));
  take_->setObjectName("TakeBttn");
  take_->setAccessibleName(tr("Book quantity of now"));
  take_->setToolTip(tr("Reads what the books have now"));
  row->addWidget(take_);
  return card;
}

QWidget* CountScreen::buildScan() {
  auto* whole = new QWidget;
  auto* row = new QHBoxLayout(whole);
  forms::setGrid(*row, 0);
  code_ = new QLineEdit;
  code_->setObjectName("CodeTxt");
  code_->setFixedWidth(180);
  code_->setToolTip(tr("Enter counts one more of the item; a scanner does so wherever the keyboard is"));
  row->addWidget(forms::captionFor(*code_, tr("Count One More")));
  row->addWidget(code_);
  scanned_ = new QLabel;
  scanned_->setObjectName("ScanLbl");
  scanned_->setTextFormat(Qt::PlainText);
  row->addWidget(scanned_, 1);
  return whole;
}

QHBoxLayout* CountScreen::buildCommands() {
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0, forms::spacing::Normal);
  const auto button = [&](const char* name, const QString& caption, const QString& hint) {
    auto* made = new QPushButton(caption);
    made->setObjectName(name);
    made->setToolTip(hint);
    row->addWidget(made);
    return made;
  };
  differences_ = button("DiffBttn", tr("Show Differences (Ctrl+S)"),
                        tr("Shows the adjustments that bring the books to what was counted, before they are saved"));
  forms::makePrimary(*differences_);
  nil_ = new QCheckBox(tr("Not counted is &nil"));
  nil_->setObjectName("NilOption");
  nil_->setToolTip(tr("Listed items without a count are taken as not there; otherwise they stay as they are"));
  row->addWidget(nil_);
  row->addSpacing(forms::spacing::Section);
  print_ = button("PrintBttn", tr("Print Sheet"), tr("Prints the listed items with room for the counts (Ctrl+P)"));
  bookOnPaper_ = new QCheckBox(tr("&With book quantity"));
  bookOnPaper_->setObjectName("BookOption");
  bookOnPaper_->setChecked(true);
  row->addWidget(bookOnPaper_);
  row->addSpacing(forms::spacing::Section);
  bringIn_ = button("ImportBttn", tr("Br&ing In Counts..."), tr("Reads codes and counted quantities from a file"));
  clear_ = button("CancelBttn", tr("C&lear"), tr("Drops all counts and begins a new sheet"));
  row->addStretch(1);
  return row;
}

}  // namespace velmo::documents

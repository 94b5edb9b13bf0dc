#include "frame/picking/picker_screen.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/table_view.h"
#include "forms/wait_cursor.h"

namespace velmo::frame {

PickerScreen::PickerScreen(PickerType type, session::Workplace& workplace,
                           std::function<void(const std::string&)> picked, QWidget* parent)
    : QDialog(parent), type_(std::move(type)), workplace_(workplace), picked_(std::move(picked)) {
  const forms::WaitCursor wait;
  setObjectName(forms::shownText(type_.screen));
  setWindowTitle(forms::shownText(type_.title));
  model_ = new PickerModel(type_, workplace_.context.KORDconn, this);
  buildLayout();
  resize(940, 560);
  counting_.setInterval(0);
  connect(&counting_, &QTimer::timeout, this, &PickerScreen::countOn);
  count();
  SearchBox_->setFocus();
}

void PickerScreen::buildLayout() {
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, forms::spacing::Section);
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  SearchBox_ = new QLineEdit;
  SearchBox_->setObjectName("SearchBox");
  SearchBox_->setAccessibleName(tr("Search"));
  SearchBox_->setPlaceholderText(tr("Any part of a code or a name"));
  SearchBox_->setClearButtonEnabled(true);
  SearchBox_->installEventFilter(this);
  auto* refresh = new QPushButton(tr("Refresh"));
  refresh->setObjectName("RefBttn");
  refresh->setToolTip(tr("Reads the list again and shows all of it (F5)"));
  refresh->setShortcut(Qt::Key_F5);
  refresh->setAutoDefault(false);
  row->addWidget(SearchBox_, 1);
  row->addWidget(refresh);
  column->addLayout(row);

  grid_ = new forms::TableView;
  grid_->setObjectName("InvGrid");
  grid_->setAccessibleName(forms::shownText(type_.title));
  grid_->setModel(model_);
  grid_->setColumnWidths(type_.columns);
  grid_->horizontalHeader()->setSectionsClickable(!type_.headerOrders.empty());
  column->addWidget(grid_, 1);
  count_ = new QLabel;
  forms::makeCaption(*count_);
  column->addWidget(count_);

  connect(SearchBox_, &QLineEdit::textChanged, this, &PickerScreen::search);
  connect(refresh, &QPushButton::clicked, this, &PickerScreen::refresh);
  connect(grid_, &forms::TableView::picked, this, &PickerScreen::pick);
  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this, &PickerScreen::sortBy);
}

// The arrow keys and Enter work from the search box too.
bool PickerScreen::eventFilter(QObject* watched, QEvent* event) {
  if (watched != SearchBox_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  switch (key->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_PageDown:
    case Qt::Key_PageUp: {
      if (model_->rowCount() == 0) return true;
      const bool wasNowhere = !grid_->currentIndex().isValid();
      grid_->setFocus(Qt::OtherFocusReason);
      if (wasNowhere) grid_->selectRow(0);
      return true;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!grid_->currentIndex().isValid() && model_->rowCount() > 0) grid_->selectRow(0);
      pick();
      return true;
    default:
      return QDialog::eventFilter(watched, event);
  }
}

void PickerScreen::search() {
  model_->narrow(SearchBox_->text().toStdString());
  count();
}

void PickerScreen::refresh() {
  workplace_.attempt("Cannot Show", [&] {
    const forms::WaitCursor wait;
    model_->readAgain();
  });
  SearchBox_->clear();
  count();
  SearchBox_->setFocus();
}

void PickerScreen::sortBy(int column) {
  const auto at = static_cast<std::size_t>(column);
  if (at >= type_.headerOrders.size() || type_.headerOrders[at].empty()) return;
  const forms::WaitCursor wait;
  model_->sortBy(type_.headerOrders[at]);
  count();
}

// The rows of a long list are counted in idle moments, so that the next key does not wait.
void PickerScreen::count() {
  constexpr int atOnce = 2;  // milliseconds
  counting_.stop();
  if (model_->searchFor(atOnce)) return showCount();
  count_->setText(tr("Counting..."));
  counting_.start();
}

void PickerScreen::countOn() {
  constexpr int slice = 4;  // milliseconds
  if (!model_->searchFor(slice)) return;
  counting_.stop();
  showCount();
}

void PickerScreen::showCount() {
  const int found = model_->found();
  count_->setText(found == 1 ? tr("1 row") : tr("%1 rows").arg(QLocale(QLocale::English).toString(found)));
}

void PickerScreen::pick() {
  const QModelIndex row = grid_->currentIndex();
  if (!row.isValid()) return;
  const std::string key = model_->key(row.row());
  accept();
  picked_(key);
}

}  // namespace velmo::frame

#include "documents/count/count_screen.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTimeEdit>

#include "documents/count/count_differences.h"
#include "documents/count/count_grid.h"
#include "documents/count/count_print.h"
#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "forms/stop_listening.h"
#include "forms/wait_cursor.h"
#include "frame/items/scan_listener.h"
#include "printing/preview_window.h"
#include "text/number.h"

// What the count sheet does; how it looks is in count_screen_layout.cpp.
namespace velmo::documents {

CountScreen::CountScreen(session::Workplace& workplace, ReadCounts readCounts, QWidget* parent)
    : QWidget(parent), workplace_(workplace), readCounts_(std::move(readCounts)) {
  setObjectName("CountSheet");
  setWindowTitle(tr("COUNT SHEET"));
  setAccessibleName(windowTitle());
  auto* column = new QVBoxLayout(this);
  buildInto(*column);
  loadLists();
  workplace_.context.Costs.arm();
  takeMoment(workplace_.clock.now());
  connectAll();
  grid_->focusCurrentCell();
}

CountScreen::~CountScreen() {
  forms::stopListening(*this);
}

void CountScreen::loadLists() {
  store::Connection& connection = workplace_.context.KORDconn;
  locations_->setSource(
      store::Recordset(connection, "Select Locationid, LocationName from StockLocation order by LocationName",
                       store::LockType::ReadOnly),
      "LocationName", "Locationid");
  locations_->setBoundValue(std::int64_t{workplace_.context.stocklocationid});
  categories_->setSource(
      store::Recordset(connection,
                       "select CatID, CatName from StockLevel1 where CatID not like 'Service' order by "
                       "CatName",
                       store::LockType::ReadOnly),
      "CatName", "CatID");
}

void CountScreen::connectAll() {
  connect(locations_, &forms::DropCombo::entryChanged, this, &CountScreen::readBookNow);
  connect(categories_, &forms::DropCombo::entryChanged, this, &CountScreen::listCategory);
  connect(day_, &QDateEdit::dateChanged, this, &CountScreen::readBookNow);
  connect(time_, &QTimeEdit::editingFinished, this, &CountScreen::readBookNow);
  connect(take_, &QPushButton::clicked, this, [this] { takeMoment(workplace_.clock.now()); });
  connect(code_, &QLineEdit::returnPressed, this, [this] {
    scan(code_->text());
    code_->clear();
  });
  connect(grid_, &CountGrid::linesChanged, this, &CountScreen::countChanged);
  connect(grid_, &CountGrid::saveRequested, this, &CountScreen::showDifferences);
  connect(nil_, &QCheckBox::toggled, this, [this](bool nil) {
    grid_->setNotCounted(nil ? NotCounted::IsNil : NotCounted::Stays);
    countChanged();
  });
  connect(print_, &QPushButton::clicked, this, &CountScreen::print);
  connect(bringIn_, &QPushButton::clicked, this, &CountScreen::bringIn);
  connect(differences_, &QPushButton::clicked, this, &CountScreen::showDifferences);
  connect(clear_, &QPushButton::clicked, this, &CountScreen::clear);
  differences_->setShortcut(Qt::CTRL | Qt::Key_S);
  print_->setShortcut(Qt::CTRL | Qt::Key_P);
  auto* scanner = new frame::ScanListener(*this, [](const QWidget&) { return true; });
  connect(scanner, &frame::ScanListener::scanned, this, &CountScreen::scan);
}

CountPlace CountScreen::place() const {
  text::DateTime moment = day_->day();
  moment.second = QTime(0, 0).secsTo(time_->time());
  return {.FYID = workplace_.context.FYID, .locationId = store::integerOf(locations_->boundValue()), .moment = moment};
}

// The time of day goes first: the day reads the book.
void CountScreen::takeMoment(const text::DateTime& moment) {
  const QSignalBlocker quiet(day_);
  time_->setTime(QTime(0, 0).addSecs(moment.second));
  day_->setDay(moment);
  readBookNow();
}

void CountScreen::readBookNow() {
  workplace_.attempt("Cannot Show", [this] {
    const forms::WaitCursor wait;
    grid_->cancelEdit();
    sheet_.setBook(readBook(workplace_.context.KORDconn, place()));
    grid_->showItems();
    later_->setText(laterWords());
    later_->setVisible(!later_->text().isEmpty());
    countChanged();
  });
}

QString CountScreen::laterWords() const {
  constexpr std::size_t named = 4;
  const std::vector<LaterDocument>& later = sheet_.later();
  if (later.empty()) return {};
  QStringList names;
  for (std::size_t i = 0; i < std::min(later.size(), named); ++i)
    names << QString::fromStdString(std::string(schema::documentKind(later[i].tranType).name) + " No. " +
                                    std::to_string(later[i].docNo));
  if (later.size() > named) names << tr("%L1 more").arg(later.size() - named);
  return tr("Since then saved or changed at this location: %1. They are not in the book quantity of this sheet; what "
            "was changed counts as it stands now.")
      .arg(names.join(QStringLiteral(", ")));
}

void CountScreen::listCategory() {
  grid_->cancelEdit();
  sheet_.list(store::textOf(categories_->boundValue()));
  grid_->showItems();
  countChanged();
}

void CountScreen::countChanged() {
  givenUp_ = false;
  const NotCounted notCounted = nil_->isChecked() ? NotCounted::IsNil : NotCounted::Stays;
  std::size_t differing = 0;
  for (std::size_t i = 0; i < sheet_.size(); ++i)
    if (CountSheet::differs(sheet_.line(i), notCounted)) ++differing;
  summary_->setText(tr("%L1 of %L2 items counted, %L3 differ from the books.")
                        .arg(sheet_.counted())
                        .arg(sheet_.size())
                        .arg(differing));
}

void CountScreen::tell(const QString& words) {
  scanned_->setText(words);
}

void CountScreen::scan(const QString& code) {
  const QString wanted = code.trimmed();
  if (wanted.isEmpty() || !grid_->commitEdit()) return;
  const std::size_t before = sheet_.size();
  const auto place = sheet_.countOneMore(wanted.toStdString());
  if (!place) {
    QApplication::beep();
    return tell(tr("No item that is kept in stock has the code %1.").arg(wanted));
  }
  if (sheet_.size() != before) grid_->showItems();
  grid_->showCount(*place);
  const CountSheet::Line& line = sheet_.line(*place);
  tell(tr("%1  %2: %3 counted")
           .arg(QString::fromStdString(line.goods.code), QString::fromStdString(line.goods.name),
                QString::fromStdString(text::numberText(*line.counted))));
  countChanged();
}

void CountScreen::print() {
  if (!grid_->commitEdit()) return;
  workplace_.attempt("Cannot Print", [this] {
    printing::showPreview(
        this,
        countPrint(workplace_.context, sheet_, place(), locations_->currentText().toStdString(),
                   bookOnPaper_->isChecked() ? BookOnPaper::Shown : BookOnPaper::LeftOut, workplace_.clock.today()),
        workplace_.files);
  });
}

void CountScreen::bringIn() {
  if (!grid_->commitEdit()) return;
  const std::map<std::string, double> counts = readCounts_(workplace_, this);
  if (counts.empty()) return;
  const std::size_t taken = sheet_.countAll(counts);
  grid_->showItems();
  tell(tr("%L1 counts were brought in.").arg(taken));
  countChanged();
  window()->activateWindow();
  grid_->setFocus(Qt::OtherFocusReason);
}

// Costs and later movements are those of this moment.
void CountScreen::showDifferences() {
  if (!grid_->commitEdit()) return;
  session::LoginContext& context = workplace_.context;
  workplace_.attempt("Cannot Save", [&] {
    const forms::WaitCursor wait;
    context.Costs.arm();
    context.Costs.settle(context.KORDconn, context.FYID, context.FinancialYearEnd);
  });
  readBookNow();
  const CountSave wanted{.place = place(), .location = locations_->currentText().toStdString(), .now = {}};
  if (const std::string refusal = countRefusal(context, wanted); !refusal.empty())
    return workplace_.prompts.tell("Cannot Save", refusal);
  const auto documents = countDocuments(sheet_, nil_->isChecked() ? NotCounted::IsNil : NotCounted::Stays);
  if (documents.empty())
    return workplace_.prompts.tell("Nothing Differs",
                                   "What was counted is what the books have. Nothing is to be saved.");
  CountDifferences differences(documents, later_->text(), workplace_, this);
  if (differences.exec() == QDialog::Accepted) save(documents);
}

void CountScreen::save(const std::vector<CountDocument>& documents) {
  std::vector<std::string> names;
  if (!workplace_.attempt("Cannot Save", [&] {
        const forms::WaitCursor wait;
        names = saveCount(
            workplace_.context, documents,
            {.place = place(), .location = locations_->currentText().toStdString(), .now = workplace_.clock.now()});
      }))
    return;
  std::string words = names.front();
  if (names.size() > 1) words += (names.size() > 2 ? " to " : " and ") + names.back();
  sheet_.clearCounts();
  nil_->setChecked(false);
  takeMoment(workplace_.clock.now());
  tell(QString::fromStdString(words + (names.size() == 1 ? " was saved." : " were saved.")));
}

void CountScreen::clear() {
  if (!MayLeave()) return;
  grid_->cancelEdit();
  sheet_.clearCounts();
  takeMoment(workplace_.clock.now());
  tell({});
}

bool CountScreen::MayLeave() {
  if (givenUp_ || !workplace_.context.AskBeforeDropping || sheet_.counted() == 0) return true;
  return workplace_.prompts.ask({.title = "Not Saved",
                                 .text = "What was counted is not in the books yet. Do you want to drop it?",
                                 .buttons = session::Buttons::YesNo}) == session::Answer::Yes;
}

void CountScreen::closeEvent(QCloseEvent* event) {
  event->setAccepted(MayLeave());
}

}  // namespace velmo::documents

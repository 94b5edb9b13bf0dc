#include "masters/import/import_file_page.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTableView>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/table_view.h"
#include "forms/work_progress.h"
#include "masters/import/sheet_preview.h"
#include "spreadsheet/save_as_spreadsheet.h"
#include "spreadsheet/table_rows.h"

namespace velmo::masters {
namespace {

struct Choice {
  const char* caption;
  const char* value;
};

constexpr Choice encodings[] = {{"Automatic", ""},
                                {"Unicode (UTF-8)", "UTF-8"},
                                {"Unicode (UTF-16)", "UTF-16"},
                                {"Western European", "windows-1252"},
                                {"Central European", "windows-1250"},
                                {"Cyrillic", "windows-1251"},
                                {"Turkish", "windows-1254"},
                                {"Arabic, Urdu", "windows-1256"},
                                {"Chinese", "GB18030"}};
constexpr Choice separators[] = {{"Automatic", ""}, {"Comma", ","}, {"Semicolon", ";"}, {"Tab", "\t"}};

template <std::size_t Count>
QComboBox* makeList(const char* name, const char* accessibleName, const Choice (&choices)[Count]) {
  auto* list = new QComboBox;
  list->setObjectName(QLatin1String(name));
  list->setAccessibleName(QLatin1String(accessibleName));
  for (const Choice& choice : choices) list->addItem(QLatin1String(choice.caption), QByteArray(choice.value));
  return list;
}

QString separatorName(char separator) {
  for (const Choice& choice : separators)
    if (choice.value[0] == separator) return QString::fromLatin1(choice.caption).toLower();
  return {};
}

std::string documentsFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
}

}  // namespace

ImportFilePage::ImportFilePage(const ImportDescriptor& kind, session::Workplace& workplace, QWidget* parent)
    : QWidget(parent), kind_(kind), workplace_(workplace), preview_(new SheetPreview(this)) {
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, 0, forms::spacing::Section);
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  name_ = new QLineEdit;
  name_->setObjectName(QStringLiteral("FileTxt"));
  name_->setAccessibleName(QStringLiteral("File"));
  name_->setReadOnly(true);
  name_->setFocusPolicy(Qt::ClickFocus);
  name_->setPlaceholderText(QStringLiteral("A spreadsheet of the kind .xlsx or .ods, or separated values (.csv)"));
  auto* choose = new QPushButton(QStringLiteral("Choose &File..."));
  choose->setObjectName(QStringLiteral("BrowseBttn"));
  choose->setToolTip(QStringLiteral("Chooses the file to bring in (Ctrl+O)"));
  choose->setShortcut(QKeySequence::Open);
  choose->setAutoDefault(false);
  row->addWidget(name_, 1);
  row->addWidget(choose);
  column->addLayout(row);
  choices_ = makeChoices();
  column->addWidget(choices_);
  choices_->hide();
  grid_ = new QTableView;
  grid_->setObjectName(QStringLiteral("PreviewGrid"));
  grid_->setAccessibleName(QStringLiteral("First rows of the file"));
  forms::dressTable(*grid_);
  grid_->verticalHeader()->show();
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->setTabKeyNavigation(false);
  grid_->setModel(preview_);
  column->addWidget(grid_, 1);
  column->addWidget(makeFoot());
  connect(choose, &QPushButton::clicked, this, &ImportFilePage::chooseFile);
}

ImportFilePage::~ImportFilePage() = default;

QWidget* ImportFilePage::makeChoices() {
  auto* choices = new QWidget;
  auto* row = new QHBoxLayout(choices);
  forms::setGrid(*row, 0);
  sheets_ = new QComboBox;
  sheets_->setObjectName(QStringLiteral("SheetList"));
  sheets_->setAccessibleName(QStringLiteral("Sheet"));
  encodings_ = makeList("EncodingList", "Characters", encodings);
  separators_ = makeList("SeparatorList", "Separator", separators);
  found_ = new QLabel;
  forms::makeCaption(*found_);
  const std::pair<QComboBox*, const char*> lists[] = {
      {sheets_, "&Sheet"}, {encodings_, "C&haracters"}, {separators_, "Se&parator"}};
  for (const auto& [list, caption] : lists) {
    row->addWidget(forms::captionFor(*list, QLatin1String(caption)));
    row->addWidget(list);
    connect(list, &QComboBox::activated, this, &ImportFilePage::read);
  }
  row->addWidget(found_, 1);
  return choices;
}

QWidget* ImportFilePage::makeFoot() {
  auto* foot = new QWidget;
  auto* row = new QHBoxLayout(foot);
  forms::setGrid(*row, 0);
  QStringList needed;
  for (const ImportField& field : kind_.fields)
    if (field.need == ImportNeed::Required) needed.append(QString::fromStdString(field.caption));
  auto* words = new QLabel(QStringLiteral("One row for each %1. Needed: %2. Columns may stand in any order.")
                               .arg(QString::fromStdString(kind_.one), needed.join(QStringLiteral(", "))));
  words->setWordWrap(true);
  forms::makeCaption(*words);
  auto* empty = new QPushButton(QStringLiteral("Save &Empty List..."));
  empty->setObjectName(QStringLiteral("EmptyListBttn"));
  empty->setToolTip(QStringLiteral("Saves a spreadsheet with the headings of all columns, to be filled in"));
  empty->setAutoDefault(false);
  forms::makeQuiet(*empty);
  row->addWidget(words, 1);
  row->addWidget(empty);
  connect(empty, &QPushButton::clicked, this, &ImportFilePage::saveEmptyList);
  return foot;
}

void ImportFilePage::chooseFile() {
  // A file dialog may leave the program elsewhere, and the company's file is found from its folder.
  const std::filesystem::path folder = std::filesystem::current_path();
  const std::string chosen = workplace_.files.openFile(
      kind_.title, spreadsheet::openFilter, file_.empty() ? documentsFolder() : file_.parent_path().string());
  std::filesystem::path file = chosen;
  if (!chosen.empty()) file = std::filesystem::absolute(file);
  std::filesystem::current_path(folder);
  if (!chosen.empty()) open(file);
}

void ImportFilePage::open(const std::filesystem::path& file) {
  file_ = file;
  name_->setText(QString::fromStdString(file.string()));
  sheets_->clear();
  encodings_->setCurrentIndex(0);
  separators_->setCurrentIndex(0);
  const auto names = spreadsheet::sheetNames(file);
  if (!names) {
    show(nullptr);
    workplace_.prompts.tell("Cannot Read File", names.error());
    return;
  }
  for (const std::string& name : *names) sheets_->addItem(QString::fromStdString(name));
  read();
}

void ImportFilePage::read() {
  const QByteArray separator = separators_->currentData().toByteArray();
  tl::expected<spreadsheet::Sheet, std::string> sheet;
  {
    forms::WorkProgress progress(window(), QStringLiteral("Reading the file ..."));
    sheet = spreadsheet::readSheet(file_, static_cast<std::size_t>(std::max(0, sheets_->currentIndex())),
                                   {.encoding = encodings_->currentData().toByteArray().toStdString(),
                                    .separator = separator.isEmpty() ? '\0' : separator[0]},
                                   [&progress](std::int64_t rows) { return progress.report(rows); });
  }
  if (sheet && sheet->rows.empty()) sheet = tl::unexpected(std::string("The sheet holds no rows."));
  if (sheet) return show(std::make_shared<const spreadsheet::Sheet>(std::move(*sheet)));
  show(nullptr);
  if (!sheet.error().empty()) workplace_.prompts.tell("Cannot Read File", sheet.error());
}

void ImportFilePage::show(std::shared_ptr<const spreadsheet::Sheet> sheet) {
  sheet_ = std::move(sheet);
  preview_->setSheet(sheet_);
  grid_->resizeColumnsToContents();
  constexpr int widest = 280;
  for (int i = 0; i < preview_->columnCount(); ++i) grid_->setColumnWidth(i, std::min(grid_->columnWidth(i), widest));
  const bool text = !sheets_->currentText().size();
  for (QComboBox* list : {sheets_, encodings_, separators_}) {
    const bool shown = list == sheets_ ? sheets_->count() > 1 : text;
    list->setVisible(shown);
    if (auto* caption = choices_->layout()->itemAt(choices_->layout()->indexOf(list) - 1)->widget())
      caption->setVisible(shown);
  }
  choices_->setVisible(!file_.empty());
  QString words;
  if (sheet_) words = QStringLiteral("%L1 rows").arg(sheet_->rows.size());
  if (sheet_ && sheet_->layout)
    words += QStringLiteral(", read as %1 with %2")
                 .arg(QString::fromStdString(sheet_->layout->encoding), separatorName(sheet_->layout->separator));
  found_->setText(words);
}

void ImportFilePage::saveEmptyList() {
  spreadsheet::TableRows list{.rows = [](std::span<store::Value>) { return false; }};
  list.design.title = kind_.title;
  for (const ImportField& field : kind_.fields)
    list.design.columns.push_back({.caption = field.caption, .width = static_cast<int>(field.caption.size()) + 6});
  spreadsheet::saveAsSpreadsheet(list, window(), workplace_.files, workplace_.prompts);
}

}  // namespace velmo::masters

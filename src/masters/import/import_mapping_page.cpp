#include "masters/import/import_mapping_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSpinBox>

#include "forms/caption.h"
#include "forms/look.h"
#include "masters/import/import_values.h"

namespace velmo::masters {
namespace {

// The rows of the books that a field names; nullptr for fields that hold a value of their own.
const NameLookup* lookupOf(ImportValue value, const ImportBooks& books) {
  switch (value) {
    case ImportValue::AccountType:
      return &books.types;
    case ImportValue::SubType:
      return &books.subTypes;
    case ImportValue::Category:
      return &books.categories;
    case ImportValue::SubCategory:
      return &books.subCategories;
    case ImportValue::Brand:
      return &books.brands;
    case ImportValue::Region:
      return &books.regions;
    case ImportValue::SubRegion:
      return &books.subRegions;
    case ImportValue::Sector:
      return &books.sectors;
    case ImportValue::Employee:
      return &books.employees;
    default:
      return nullptr;
  }
}

// Where keys mean something to a person, the lists show them before the names.
bool showsCode(ImportValue value) {
  return value == ImportValue::AccountType || value == ImportValue::SubType || value == ImportValue::Category ||
         value == ImportValue::SubCategory;
}

QStringList choicesFor(const ImportField& field, const ImportBooks& books) {
  if (field.value == ImportValue::YesNo) return {QStringLiteral("No"), QStringLiteral("Yes")};
  if (field.value == ImportValue::CostMethod)
    return {QStringLiteral("Weighted Average Price"), QStringLiteral("Manual Valuation Cost")};
  QStringList choices;
  if (const NameLookup* lookup = lookupOf(field.value, books))
    for (const NamedRow& row : lookup->rows())
      choices.append(QString::fromStdString(showsCode(field.value) ? row.code + "  " + row.name : row.name));
  return choices;
}

// The wheel scrolls the page over lists that nobody works in, and does not change them.
class WheelForFocusOnly : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool passedBy = event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus();
    if (passedBy) event->ignore();
    return passedBy;
  }
};

QLabel* columnHeading(const QString& words) {
  auto* label = new QLabel(words);
  forms::makeCaption(*label);
  return label;
}

}  // namespace

ImportMappingPage::ImportMappingPage(const ImportDescriptor& kind, QWidget* parent) : QWidget(parent), kind_(kind) {
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, 0, forms::spacing::Section);
  column->addWidget(makeHead());
  column->addWidget(makeLines(), 1);
  column->addWidget(makeOptions());
  connect(headingRow_, &QSpinBox::valueChanged, this, &ImportMappingPage::headingRowChosen);
}

QWidget* ImportMappingPage::makeHead() {
  auto* head = new QWidget;
  auto* row = new QHBoxLayout(head);
  forms::setGrid(*row, 0);
  headingRow_ = new QSpinBox;
  headingRow_->setObjectName(QStringLiteral("HeadingRow"));
  headingRow_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  headingRow_->setSpecialValueText(QStringLiteral("none"));
  decimalSign_ = new QComboBox;
  decimalSign_->setObjectName(QStringLiteral("DecimalList"));
  decimalSign_->addItem(QStringLiteral("Point: 1,234.50"), static_cast<int>(DecimalSign::Point));
  decimalSign_->addItem(QStringLiteral("Comma: 1.234,50"), static_cast<int>(DecimalSign::Comma));
  row->addWidget(forms::captionFor(*headingRow_, QStringLiteral("&Row with the headings")));
  row->addWidget(headingRow_);
  row->addSpacing(forms::spacing::Section);
  row->addWidget(forms::captionFor(*decimalSign_, QStringLiteral("&Decimal sign")));
  row->addWidget(decimalSign_);
  row->addStretch(1);
  return head;
}

QWidget* ImportMappingPage::makeLines() {
  auto* area = new QScrollArea;
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  auto* card = new QFrame;
  forms::makeCard(*card);
  auto* grid = new QGridLayout(card);
  forms::setGrid(*grid, forms::spacing::Section);
  const char* headings[] = {"Field (* needed)", "Column in the file", "Where the file has nothing", "First values"};
  for (int i = 0; i < 4; ++i) grid->addWidget(columnHeading(QLatin1String(headings[i])), 0, i);
  for (const ImportField& field : kind_.fields) addLine(*grid, field);
  grid->setColumnStretch(1, 3);
  grid->setColumnStretch(2, 3);
  grid->setColumnStretch(3, 3);
  grid->setRowStretch(grid->rowCount(), 1);
  area->setWidget(card);
  return area;
}

void ImportMappingPage::addLine(QGridLayout& grid, const ImportField& field) {
  const QString caption = QString::fromStdString(field.caption);
  const QString name = QString::fromStdString(field.name);
  auto* label = new QLabel(field.need == ImportNeed::Required ? caption + QStringLiteral(" *") : caption);
  Line line{.column = new QComboBox, .otherwise = new QComboBox, .sample = new QLabel};
  line.column->setObjectName(QStringLiteral("Column_") + name);
  line.column->setAccessibleName(caption + QStringLiteral(": column in the file"));
  line.otherwise->setObjectName(QStringLiteral("Otherwise_") + name);
  line.otherwise->setAccessibleName(caption + QStringLiteral(": where the file has nothing"));
  line.otherwise->setEditable(true);
  line.otherwise->setInsertPolicy(QComboBox::NoInsert);
  line.otherwise->lineEdit()->setMaxLength(longestImportText);
  for (QComboBox* list : {line.column, line.otherwise}) {
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(12);
    list->setFocusPolicy(Qt::StrongFocus);
    list->installEventFilter(new WheelForFocusOnly(list));
  }
  line.sample->setObjectName(QStringLiteral("Sample_") + name);
  line.sample->setTextFormat(Qt::PlainText);
  line.sample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  forms::makeCaption(*line.sample);
  label->setBuddy(line.column);
  const int row = grid.rowCount();
  grid.addWidget(label, row, 0);
  grid.addWidget(line.column, row, 1);
  grid.addWidget(line.otherwise, row, 2);
  grid.addWidget(line.sample, row, 3);
  connect(line.column, &QComboBox::currentIndexChanged, this, [this, line] { showSample(line); });
  lines_.push_back(line);
}

QWidget* ImportMappingPage::makeOptions() {
  auto* options = new QWidget;
  auto* row = new QHBoxLayout(options);
  forms::setGrid(*row, 0);
  makeMissing_ = new QCheckBox(QStringLiteral("&Make brands and sub categories that are not there yet"));
  makeMissing_->setObjectName(QStringLiteral("MakeMissing"));
  allowSameNames_ = new QCheckBox(QStringLiteral("Allow names that are &already there"));
  allowSameNames_->setObjectName(QStringLiteral("AllowSameNames"));
  makeMissing_->setVisible(kind_.kind == ImportKind::Items);
  allowSameNames_->setVisible(kind_.kind != ImportKind::Items && kind_.kind != ImportKind::Counts);
  row->addWidget(makeMissing_);
  row->addWidget(allowSameNames_);
  row->addStretch(1);
  return options;
}

void ImportMappingPage::show(std::shared_ptr<const spreadsheet::Sheet> sheet, const ImportBooks& books) {
  sheet_ = std::move(sheet);
  offer(books);
  const ImportMapping guess = guessMapping(kind_, *sheet_);
  const QSignalBlocker quiet(headingRow_);
  headingRow_->setRange(0, static_cast<int>(sheet_->rows.size()));
  headingRow_->setValue(guess.headingRow ? static_cast<int>(*guess.headingRow) + 1 : 0);
  showMapping(guess);
}

void ImportMappingPage::offer(const ImportBooks& books) {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    lines_[i].otherwise->clear();
    lines_[i].otherwise->addItem(QString());
    lines_[i].otherwise->addItems(choicesFor(kind_.fields[i], books));
  }
}

void ImportMappingPage::headingRowChosen() {
  if (sheet_) showMapping(guessMapping(kind_, *sheet_, mapping().headingRow));
}

void ImportMappingPage::showMapping(const ImportMapping& mapping) {
  decimalSign_->setCurrentIndex(decimalSign_->findData(static_cast<int>(mapping.decimalSign)));
  QStringList columns{QStringLiteral("not in the file")};
  for (std::size_t i = 0; i < sheet_->columnCount(); ++i)
    columns.append(QString::fromStdString(columnCaption(*sheet_, mapping.headingRow, i)));
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const FieldSource& source = mapping.sources[i];
    const QSignalBlocker quiet(lines_[i].column);
    lines_[i].column->clear();
    lines_[i].column->addItems(columns);
    lines_[i].column->setCurrentIndex(source.column ? static_cast<int>(*source.column) + 1 : 0);
    lines_[i].otherwise->setCurrentText(QString::fromStdString(source.otherwise));
    // A sub type that is the only one is meant where none is named.
    const bool onlyOne = kind_.fields[i].value == ImportValue::SubType && lines_[i].otherwise->count() == 2;
    if (onlyOne) lines_[i].otherwise->setCurrentIndex(1);
    showSample(lines_[i]);
  }
}

void ImportMappingPage::showSample(const Line& line) {
  constexpr qsizetype samples = 3;
  constexpr qsizetype longest = 20;
  QStringList values;
  QStringList cut;
  const int column = line.column->currentIndex() - 1;
  for (std::size_t row = mapping().firstRow(); column >= 0 && row < sheet_->rows.size() && values.size() < samples;
       ++row) {
    const QString text = QString::fromStdString(cleanText(textOf(sheet_->at(row, static_cast<std::size_t>(column)))));
    if (text.isEmpty()) continue;
    values.append(text);
    cut.append(text.size() > longest ? text.left(longest) + u'…' : text);
  }
  line.sample->setText(cut.join(QStringLiteral("  ·  ")));
  line.sample->setToolTip(values.join(u'\n'));
}

ImportMapping ImportMappingPage::mapping() const {
  ImportMapping mapping{.sources = {}, .decimalSign = static_cast<DecimalSign>(decimalSign_->currentData().toInt())};
  if (headingRow_->value() > 0) mapping.headingRow = static_cast<std::size_t>(headingRow_->value() - 1);
  for (const Line& line : lines_) {
    FieldSource source{.otherwise = line.otherwise->currentText().toStdString()};
    if (line.column->currentIndex() > 0) source.column = static_cast<std::size_t>(line.column->currentIndex() - 1);
    mapping.sources.push_back(std::move(source));
  }
  return mapping;
}

ImportOptions ImportMappingPage::options() const {
  return {.missing = makeMissing_->isChecked() ? MissingRows::Make : MissingRows::Refuse,
          .sameNames = allowSameNames_->isChecked() ? SameNames::Allow : SameNames::Refuse};
}

const ImportField* ImportMappingPage::missing() {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (kind_.fields[i].need != ImportNeed::Required || lines_[i].column->currentIndex() > 0 ||
        !lines_[i].otherwise->currentText().trimmed().isEmpty())
      continue;
    lines_[i].column->setFocus(Qt::OtherFocusReason);
    return &kind_.fields[i];
  }
  return nullptr;
}

}  // namespace velmo::masters

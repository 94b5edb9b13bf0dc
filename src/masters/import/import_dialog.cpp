#include "masters/import/import_dialog.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/work_progress.h"
#include "masters/import/import_check_page.h"
#include "masters/import/import_file_page.h"
#include "masters/import/import_mapping_page.h"
#include "masters/import/import_write.h"

namespace velmo::masters {
namespace {

constexpr const char* cannotImport = "Cannot Import";

class ImportDialog : public QDialog {
 public:
  ImportDialog(const ImportDescriptor& kind, session::Workplace& workplace, QWidget* parent, TakePlan take)
      : QDialog(parent),
        kind_(kind),
        workplace_(workplace),
        take_(std::move(take)),
        steps_(new QLabel),
        reason_(new QLabel),
        pages_(new QStackedWidget),
        file_(new ImportFilePage(kind, workplace, nullptr)),
        columns_(new ImportMappingPage(kind, nullptr)),
        check_(new ImportCheckPage(kind, workplace, nullptr)) {
    setObjectName(QString::fromStdString(kind.screen));
    setWindowTitle(QString::fromStdString(kind.title));
    auto* column = new QVBoxLayout(this);
    forms::setGrid(*column, forms::spacing::Section + forms::spacing::Normal, forms::spacing::Section);
    auto* heading = new QLabel(QString::fromStdString(kind.title));
    forms::makeHeading(*heading);
    forms::makeCaption(*steps_);
    steps_->setObjectName(QStringLiteral("StepLbl"));
    auto* head = new QVBoxLayout;
    forms::setGrid(*head, 0, forms::spacing::Tight);
    head->addWidget(heading);
    head->addWidget(steps_);
    column->addLayout(head);
    for (QWidget* page : std::initializer_list<QWidget*>{file_, columns_, check_}) pages_->addWidget(page);
    column->addWidget(pages_, 1);
    addCommands(*column);
    connect(check_, &ImportCheckPage::choiceChanged, this, [this] { showStep(Check); });
    resize(960, 660);
    showStep(File);
    file_->findChild<QPushButton*>(QStringLiteral("BrowseBttn"))->setFocus();
  }

 private:
  enum Step { File, Columns, Check };

  void addCommands(QVBoxLayout& column) {
    back_ = makeButton("BackBttn", QStringLiteral("&Back"));
    next_ = makeButton("NextBttn", QString());
    QPushButton* close = makeButton("CancelBttn", QStringLiteral("Cancel"));
    close->setToolTip(QStringLiteral("Closes without bringing anything in (Esc)"));
    next_->setDefault(true);
    forms::makePrimary(*next_);
    auto* row = new QHBoxLayout;
    forms::setGrid(*row, 0);
    forms::makeCaption(*reason_);
    reason_->setObjectName(QStringLiteral("ReasonLbl"));
    row->addWidget(reason_, 1, Qt::AlignRight | Qt::AlignVCenter);
    for (QPushButton* button : {back_, next_, close}) row->addWidget(button);
    column.addLayout(row);
    connect(back_, &QPushButton::clicked, this, [this] { showStep(static_cast<Step>(pages_->currentIndex() - 1)); });
    connect(next_, &QPushButton::clicked, this, &ImportDialog::goOn);
    connect(close, &QPushButton::clicked, this, &ImportDialog::reject);
  }

  QPushButton* makeButton(const char* name, const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setMinimumSize(104, 34);
    button->setAutoDefault(false);
    return button;
  }

  void showStep(Step step) {
    const QString words[] = {
        QStringLiteral("Step 1 of 3: the file"), QStringLiteral("Step 2 of 3: which column is what"),
        QStringLiteral("Step 3 of 3: what will be brought in. Nothing is written before you say so.")};
    steps_->setText(words[step]);
    pages_->setCurrentIndex(step);
    back_->setEnabled(step != File);
    next_->setText(step == Check ? importCaption() : QStringLiteral("&Next"));
    reason_->setText(step == Check ? check_->hindrance() : QString());
    next_->setEnabled(reason_->text().isEmpty());
  }

  QString importCaption() const {
    const std::size_t rows = check_->plan().good();
    return QStringLiteral("&Import %L1 %2").arg(rows).arg(QString::fromStdString(rows == 1 ? kind_.one : kind_.many));
  }

  void goOn() {
    try {
      switch (pages_->currentIndex()) {
        case File:
          return chooseColumns();
        case Columns:
          return checkRows();
        default:
          return write();
      }
    } catch (const store::StoreError& failure) {
      workplace_.prompts.tell(cannotImport, failure.what());
    }
  }

  void chooseColumns() {
    if (!file_->sheet()) return file_->chooseFile();
    // Going back and forth keeps what was chosen for a file.
    if (columns_->sheet() != file_->sheet())
      columns_->show(file_->sheet(), readBooks(workplace_.context.KORDconn, kind_));
    showStep(Columns);
    columns_->focusFirst();
  }

  void checkRows() {
    if (const ImportField* missing = columns_->missing()) {
      workplace_.prompts.tell(cannotImport, "Choose the column of \"" + missing->caption + "\".");
      return;
    }
    const std::shared_ptr<const spreadsheet::Sheet> sheet = columns_->sheet();
    std::optional<ImportPlan> plan;
    {
      forms::WorkProgress progress(this, QStringLiteral("Checking the rows ..."),
                                   static_cast<std::int64_t>(sheet->rows.size()));
      plan = planImport(kind_, *sheet, columns_->mapping(), columns_->options(),
                        readBooks(workplace_.context.KORDconn, kind_),
                        [&progress](std::int64_t rows) { return progress.report(rows); });
    }
    if (!plan) return;
    if (plan->rows.empty()) {
      workplace_.prompts.tell(cannotImport, "There are no rows behind the headings.");
      return;
    }
    check_->show(std::move(*plan));
    showStep(Check);
    check_->focusRows();
  }

  void write() {
    const ImportPlan& plan = check_->plan();
    bool written = false;
    {
      forms::WorkProgress progress(this, QStringLiteral("Writing the rows ..."),
                                   static_cast<std::int64_t>(plan.good()));
      written = take_(plan, [&progress](std::int64_t rows) { return progress.report(rows); });
    }
    if (!written) return;
    const QString words =
        plan.good() == 1 ? QStringLiteral("%L1 %2 was brought in.") : QStringLiteral("%L1 %2 were brought in.");
    workplace_.prompts.tell(
        kind_.title,
        words.arg(plan.good()).arg(QString::fromStdString(plan.good() == 1 ? kind_.one : kind_.many)).toStdString());
    accept();
  }

  const ImportDescriptor& kind_;
  session::Workplace& workplace_;
  TakePlan take_;
  QLabel* steps_;
  QLabel* reason_;  // why the next step cannot be taken
  QStackedWidget* pages_;
  ImportFilePage* file_;
  ImportMappingPage* columns_;
  ImportCheckPage* check_;
  QPushButton* back_ = nullptr;
  QPushButton* next_ = nullptr;
};

}  // namespace

QDialog* makeImport(ImportKind kind, session::Workplace& workplace, QWidget* parent) {
  return makeImport(kind, workplace, parent, [&workplace](const ImportPlan& plan, const ImportProgress& progress) {
    return writeImport(workplace.context.KORDconn, plan, progress);
  });
}

QDialog* makeImport(ImportKind kind, session::Workplace& workplace, QWidget* parent, TakePlan take) {
  return new ImportDialog(importDescriptor(kind), workplace, parent, std::move(take));
}

}  // namespace velmo::masters

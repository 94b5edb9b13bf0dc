#include "shell/catalogue/about.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/look.h"
#include "shell/catalogue/direct_back_up.h"
#include "shell/login/brand_panel.h"

namespace velmo::shell {
namespace {

constexpr int smallestWidth = 500;

const char* wordsOf(store::BackUpStage stage) {
  switch (stage) {
    case store::BackUpStage::Copying:
      return "Copying the company's file...";
    case store::BackUpStage::Compacting:
      return "Compacting the copy...";
    case store::BackUpStage::Verifying:
      return "Checking the copy against the books...";
  }
  return "";
}

class About : public QDialog {
 public:
  About(session::Workplace& workplace, QWidget* parent) : QDialog(parent), workplace_(workplace) {
    setWindowTitle(QStringLiteral("About Velmo Point of Sale"));
    auto* column = new QVBoxLayout(this);
    forms::setGrid(*column, forms::spacing::Section + forms::spacing::Normal, forms::spacing::Section);
    column->addLayout(makeName());
    addLines(*column);
    column->addWidget(makeBackUp());
    close_ = new QPushButton(QStringLiteral("&Close"), this);
    close_->setObjectName(QStringLiteral("OkBttn"));
    close_->setMinimumSize(104, 34);
    close_->setDefault(true);
    connect(close_, &QPushButton::clicked, this, &About::accept);
    column->addWidget(close_, 0, Qt::AlignRight);
    close_->setFocus();
    setMinimumWidth(smallestWidth);
  }

  // While the copy is made the box stays: the program works in it.
  void reject() override {
    if (backUp_->isEnabled()) QDialog::reject();
  }

 private:
  QLayout* makeName() {
    auto* row = new QHBoxLayout;
    forms::setGrid(*row, 0, forms::spacing::Section);
    auto* mark = new QLabel(this);
    mark->setPixmap(programIcon().pixmap(64, 64));
    row->addWidget(mark);
    auto* lines = new QVBoxLayout;
    forms::setGrid(*lines, 0, forms::spacing::Tight);
    lines->addStretch(1);
    auto* name = new QLabel(QStringLiteral("Velmo Point of Sale"), this);
    forms::makeHeading(*name);
    lines->addWidget(name);
    lines->addWidget(new QLabel(QStringLiteral("Version ") + QCoreApplication::applicationVersion(), this));
    lines->addStretch(1);
    row->addLayout(lines, 1);
    return row;
  }

  void addLines(QVBoxLayout& column) {
    auto* lines = new QVBoxLayout;
    forms::setGrid(*lines, 0, forms::spacing::Tight);
    for (const QString& line : std::initializer_list<QString>{
             QStringLiteral("Company: ") + QString::fromStdString(workplace_.context.CompanyName),
             QStringLiteral("Data folder: ") + QDir::currentPath()}) {
      auto* label = new QLabel(line, this);
      label->setTextFormat(Qt::PlainText);
      label->setWordWrap(true);
      label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
      label->setFocusPolicy(Qt::NoFocus);
      forms::makeCaption(*label);
      lines->addWidget(label);
    }
    column.addLayout(lines);
  }

  QWidget* makeBackUp() {
    auto* card = new QFrame(this);
    forms::makeCard(*card);
    auto* grid = new QVBoxLayout(card);
    forms::setGrid(*grid, forms::spacing::Section);
    stage_ =
        new QLabel(QStringLiteral("Save a copy of all accounts, items, documents and settings. The copy is checked "
                                  "before it takes its name. Others may go on working meanwhile."),
                   card);
    stage_->setWordWrap(true);
    stage_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    stage_->setMinimumHeight(stage_->heightForWidth(smallestWidth - 6 * forms::spacing::Section));
    grid->addWidget(stage_);
    bar_ = new QProgressBar(card);
    bar_->setRange(0, 0);
    bar_->setTextVisible(false);
    bar_->setVisible(false);
    QSizePolicy itsPlace = bar_->sizePolicy();
    itsPlace.setRetainSizeWhenHidden(true);
    bar_->setSizePolicy(itsPlace);
    grid->addWidget(bar_);
    backUp_ = new QPushButton(QStringLiteral("&Back up now..."), card);
    backUp_->setObjectName(QStringLiteral("Bluff"));
    backUp_->setAccessibleName(QStringLiteral("Back up now"));
    backUp_->setMinimumHeight(34);
    backUp_->setAutoDefault(false);
    forms::makePrimary(*backUp_);
    grid->addWidget(backUp_, 0, Qt::AlignLeft);
    connect(backUp_, &QPushButton::clicked, this, &About::saveBackUp);
    return card;
  }

  void saveBackUp() {
    const QString restingWords = stage_->text();
    backUp_->setEnabled(false);
    close_->setEnabled(false);
    saveDirectBackUp(workplace_, [this](store::BackUpStage stage) {
      stage_->setText(QLatin1String(wordsOf(stage)));
      bar_->setVisible(true);
      QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    bar_->setVisible(false);
    stage_->setText(restingWords);
    backUp_->setEnabled(true);
    close_->setEnabled(true);
    backUp_->setFocus();
  }

  session::Workplace& workplace_;
  QLabel* stage_ = nullptr;
  QProgressBar* bar_ = nullptr;
  QPushButton* backUp_ = nullptr;
  QPushButton* close_ = nullptr;
};

}  // namespace

QWidget* makeAbout(session::Workplace& workplace, QWidget* parent) {
  return new About(workplace, parent);
}

}  // namespace velmo::shell

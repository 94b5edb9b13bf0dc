#include "shell/settings/print_settings.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>

#include "forms/digits_box.h"
#include "forms/look.h"
#include "forms/settings_dialog.h"
#include "shell/settings/print_format.h"
#include "text/number.h"

namespace velmo::shell {
namespace {

constexpr int largestMargin = 4000;
constexpr double twipsPerCentimetre = 567;

struct Choice {
  int index;
  const char* caption;
};

constexpr Choice invoiceSizes[] = {{1, "A4 Size Print"},
                                   {2, "Point of Sale Invoice (80mm)"},
                                   {3, "A5 SIze Print (Half of A4 Size) Landscape"},
                                   {4, "A5 SIze Print (Half of A4 Size) Portrait"}};
constexpr Choice invoiceTypes[] = {{1, "Print Discount Column"}, {2, "Do Not Print DIscount Column"}};

struct PrintSettingsType {
  const char* title;
  const char* heading;
  const char* statement;
  const char* formatColumn;
  const char* marginColumn;
  int session::LoginContext::*format;
  int session::LoginContext::*margin;
  int smallestMargin;
  std::span<const PrintFormat> formats;
  const char* termsColumn = nullptr;  // of the standing terms, of documents that have some
  std::span<const Choice> sizes = {};
  std::span<const Choice> types = {};
};

class PrintSettings : public forms::SettingsDialog {
 public:
  PrintSettings(session::Workplace& workplace, const PrintSettingsType& type, QWidget* parent)
      : forms::SettingsDialog(workplace, QLatin1String(type.title), parent),
        type_(type),
        settings_(workplace.context.KORDconn, type.statement) {
    forms::addDialogHeading(body(), QLatin1String(type.heading), settings_.text("name"), "ComName");
    if (!type_.sizes.empty()) addOptions(QStringLiteral("&Paper"), "InvSize", type_.sizes, sizes_);
    if (!type_.types.empty()) typeBox_ = addOptions(QStringLiteral("&Discount"), "InvType", type_.types, types_);
    addLetterhead();
    if (type_.termsColumn) addTerms();
    body().addStretch(1);
    addCommands();
    setMinimumWidth(460);
    connect(&sizes_, &QButtonGroup::idToggled, this, &PrintSettings::showTypes);
    connect(headCheck_, &QCheckBox::toggled, this, &PrintSettings::showMargin);
    showStored();
  }

 private:
  QGroupBox* addOptions(const QString& title, const char* name, std::span<const Choice> choices, QButtonGroup& group) {
    auto* box = new QGroupBox(title, this);
    auto* column = new QVBoxLayout(box);
    forms::setGrid(*column, forms::spacing::Section - forms::spacing::Tight);
    for (const Choice& choice : choices) {
      auto* option = new QRadioButton(QLatin1String(choice.caption), box);
      option->setObjectName(QLatin1String(name) + QLatin1Char('_') + QString::number(choice.index));
      group.addButton(option, choice.index);
      column->addWidget(option);
    }
    group.button(choices.front().index)->setChecked(true);
    body().addWidget(box);
    return box;
  }

  void addLetterhead() {
    headCheck_ = new QCheckBox(QStringLiteral("Do not show headers. I want to print on my own &letterhead."), this);
    headCheck_->setObjectName(QStringLiteral("HeadCheck"));
    body().addWidget(headCheck_);

    margin_ = new forms::DigitsBox(this, 5);
    margin_->setObjectName(QStringLiteral("TM"));
    margin_->setAccessibleName(QStringLiteral("Top margin"));
    margin_->setAlignment(Qt::AlignRight);
    margin_->setFixedWidth(96);
    marginLabel_ =
        new QLabel(QStringLiteral("Top &margin, %1 to %2").arg(type_.smallestMargin).arg(largestMargin), this);
    marginLabel_->setObjectName(QStringLiteral("MarginLbl"));
    marginLabel_->setBuddy(margin_);
    marginLength_ = new QLabel(this);
    forms::makeCaption(*marginLength_);
    auto* row = new QHBoxLayout;
    forms::setGrid(*row, 0);
    row->setContentsMargins(forms::spacing::Section + forms::spacing::Normal, 0, 0, 0);
    row->addWidget(marginLabel_);
    row->addWidget(margin_);
    row->addWidget(marginLength_, 1);
    body().addLayout(row);
    connect(margin_, &QLineEdit::textChanged, this, [this](const QString& text) {
      const double length = text::amountFrom(text.toStdString()) / twipsPerCentimetre;
      marginLength_->setText(QStringLiteral("= %1 cm").arg(length, 0, 'f', 2));
    });
  }

  void addTerms() {
    terms_ = new QPlainTextEdit(this);
    terms_->setObjectName(QStringLiteral("Terms"));
    terms_->setAccessibleName(QStringLiteral("Standing terms"));
    terms_->setTabChangesFocus(true);
    terms_->setFixedHeight(terms_->fontMetrics().lineSpacing() * 6);
    auto* caption = new QLabel(QStringLiteral("Standing &terms, printed below the conditions of each document"), this);
    caption->setBuddy(terms_);
    auto* column = new QVBoxLayout;
    forms::setGrid(*column, 0, forms::spacing::Tight);
    column->addWidget(caption);
    column->addWidget(terms_);
    body().addLayout(column);
    standing_.open(workplace_.context.KORDconn,
                   std::string("SELECT name, ") + type_.termsColumn + " from businessinfo");
    terms_->setPlainText(QString::fromStdString(standing_.text(type_.termsColumn)));
  }

  void showStored() {
    const PrintChoice choice = choiceOf(type_.formats, static_cast<int>(settings_.integer(type_.formatColumn)));
    if (QAbstractButton* size = sizes_.button(choice.size)) size->setChecked(true);
    if (QAbstractButton* discount = types_.button(choice.type)) discount->setChecked(true);
    headCheck_->setChecked(choice.onLetterhead);
    margin_->setText(QString::fromStdString(settings_.text(type_.marginColumn)));
    showTypes();
    showMargin(choice.onLetterhead);
  }

  PrintChoice choice() const {
    return {.size = type_.sizes.empty() ? 0 : sizes_.checkedId(),
            .type = type_.types.empty() ? 0 : types_.checkedId(),
            .onLetterhead = headCheck_->isChecked()};
  }

  // A size whose formats know no type leaves the type as it was chosen, out of reach.
  void showTypes() {
    if (!typeBox_) return;
    for (const PrintFormat& format : type_.formats)
      if (format.size == sizes_.checkedId()) typeBox_->setEnabled(format.type != 0);
  }

  void showMargin(bool shown) {
    for (QWidget* widget :
         {static_cast<QWidget*>(marginLabel_), static_cast<QWidget*>(margin_), static_cast<QWidget*>(marginLength_)})
      widget->setVisible(shown);
  }

  bool refuseMargin(const char* words) {
    refuse(words + std::to_string(type_.smallestMargin) + " and " + std::to_string(largestMargin));
    showMargin(true);  // a margin that was stored wrong can be corrected only where it shows
    margin_->setFocus();
    margin_->selectAll();
    return false;
  }

  bool save() override {
    const std::optional<double> margin = text::numberFrom(margin_->text().toStdString());
    if (!margin) return refuseMargin("Please enter a numeric value between ");
    if (*margin < type_.smallestMargin || *margin > largestMargin) return refuseMargin("Please enter a value between ");
    const PrintChoice chosen = choice();
    store::Connection::Transaction transaction(workplace_.context.KORDconn);
    settings_.update({{type_.formatColumn, formatNumberOf(type_.formats, chosen)}, {type_.marginColumn, *margin}});
    if (terms_) standing_.update({{type_.termsColumn, terms_->toPlainText().toStdString()}});
    transaction.commit();
    workplace_.context.*type_.format = static_cast<int>(settings_.integer(type_.formatColumn));
    if (chosen.onLetterhead) workplace_.context.*type_.margin = static_cast<int>(settings_.integer(type_.marginColumn));
    return true;
  }

  const PrintSettingsType& type_;
  store::Recordset settings_;  // InvoiceSet
  store::Recordset standing_;
  QButtonGroup sizes_;
  QButtonGroup types_;
  QGroupBox* typeBox_ = nullptr;
  QCheckBox* headCheck_ = nullptr;
  QLabel* marginLabel_ = nullptr;
  forms::DigitsBox* margin_ = nullptr;
  QLabel* marginLength_ = nullptr;
  QPlainTextEdit* terms_ = nullptr;
};

}  // namespace

QWidget* makeInvoiceSettings(session::Workplace& workplace, QWidget* parent) {
  static const PrintSettingsType type = {.title = "Invoice Print Settings",
                                         .heading = "Sale invoice print-out",
                                         .statement = "SELECT name, SIF, SITM from BusinessInfo",
                                         .formatColumn = "SIF",
                                         .marginColumn = "SITM",
                                         .format = &session::LoginContext::sif,
                                         .margin = &session::LoginContext::sitm,
                                         .smallestMargin = 200,
                                         .formats = invoiceFormats(),
                                         .sizes = invoiceSizes,
                                         .types = invoiceTypes};
  return new PrintSettings(workplace, type, parent);
}

QWidget* makePOSettings(session::Workplace& workplace, QWidget* parent) {
  static const PrintSettingsType type = {.title = "Purchase Order Print Settings",
                                         .heading = "Purchase order print-out",
                                         .statement = "SELECT name, POF, POTM from businessinfo",
                                         .formatColumn = "POF",
                                         .marginColumn = "POTM",
                                         .format = &session::LoginContext::pof,
                                         .margin = &session::LoginContext::potm,
                                         .smallestMargin = 300,
                                         .formats = orderFormats(),
                                         .termsColumn = "TermsPO"};
  return new PrintSettings(workplace, type, parent);
}

QWidget* makeQuoteSettings(session::Workplace& workplace, QWidget* parent) {
  static const PrintSettingsType type = {.title = "Quotation Print Settings",
                                         .heading = "Quotation print-out",
                                         .statement = "SELECT name, QF, QTM from businessinfo",
                                         .formatColumn = "QF",
                                         .marginColumn = "QTM",
                                         .format = &session::LoginContext::qf,
                                         .margin = &session::LoginContext::qtm,
                                         .smallestMargin = 300,
                                         .formats = quotationFormats(),
                                         .termsColumn = "TermsQuote"};
  return new PrintSettings(workplace, type, parent);
}

QWidget* makeDCSettings(session::Workplace& workplace, QWidget* parent) {
  static const PrintSettingsType type = {.title = "Delivery Challan Print Settings",
                                         .heading = "Delivery challan print-out",
                                         .statement = "SELECT name, DCF, DCTM from businessinfo",
                                         .formatColumn = "DCF",
                                         .marginColumn = "DCTM",
                                         .format = &session::LoginContext::dcf,
                                         .margin = &session::LoginContext::dctm,
                                         .smallestMargin = 300,
                                         .formats = orderFormats()};
  return new PrintSettings(workplace, type, parent);
}

}  // namespace velmo::shell

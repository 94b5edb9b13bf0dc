#include "shell/settings/currency_settings.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/settings_dialog.h"

namespace velmo::shell {
namespace {

// The names of both columns end in two no-break spaces.
constexpr const char* symbolColumn = "CCode\xC2\xA0\xC2\xA0";
constexpr const char* nameColumn = "Curency\xC2\xA0\xC2\xA0";

class CurrencySettings : public forms::SettingsDialog {
 public:
  CurrencySettings(session::Workplace& workplace, QWidget* parent)
      : forms::SettingsDialog(workplace, QStringLiteral("Currency"), parent),
        companyInfo_(workplace.context.KORDconn, "select name, country, currencyname, ccode from businessinfo"),
        currencies_(workplace.context.KORDconn, "select * from Currencies order by Country",
                    store::LockType::ReadOnly) {
    forms::addDialogHeading(body(), QStringLiteral("Currency"), companyInfo_.text("name"), "CoyName");
    addCountries();
    addFields();
    addCommands();
    resize(520, 560);
    showSaved();
  }

 private:
  void addCountries() {
    countries_ = new QListWidget(this);
    countries_->setObjectName(QStringLiteral("CountryList"));
    countries_->setAccessibleName(QStringLiteral("Country"));
    countries_->setUniformItemSizes(true);
    countries_->ensurePolished();  // it measures its rows once, before it is shown
    for (; !currencies_.eof(); currencies_.moveNext())
      countries_->addItem(QString::fromStdString(currencies_.text("Country")));
    auto* label = new QLabel(QStringLiteral("C&ountry"), this);
    label->setBuddy(countries_);
    forms::makeCaption(*label);
    auto* hint = new QLabel(
        QStringLiteral("(Select country of your business from the list to display currency details.)"), this);
    hint->setWordWrap(true);
    forms::makeCaption(*hint);
    auto* group = new QVBoxLayout;
    forms::setGrid(*group, 0, forms::spacing::Tight);
    group->addWidget(label);
    group->addWidget(countries_, 1);
    group->addWidget(hint);
    body().addLayout(group, 1);
    // Not the current row: the list takes its first row for that as soon as it gets the focus.
    connect(countries_, &QListWidget::itemSelectionChanged, this, &CurrencySettings::choose);
    connect(countries_, &QListWidget::itemClicked, this, &CurrencySettings::choose);
  }

  void addFields() {
    auto* grid = new QGridLayout;
    forms::setGrid(*grid, 0);
    grid->setHorizontalSpacing(forms::spacing::Section);
    name_ = addField(*grid, 0, "CName", QStringLiteral("Currency &name"));
    symbol_ = addField(*grid, 1, "CSymbol", QStringLiteral("S&ymbol"));
    body().addLayout(grid);
  }

  QLineEdit* addField(QGridLayout& grid, int row, const char* objectName, const QString& caption) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QLatin1String(objectName));
    field->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    field->setMinimumHeight(32);
    auto* label = new QLabel(caption, this);
    label->setBuddy(field);
    forms::makeCaption(*label);
    grid.addWidget(label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(field, row, 1);
    return field;
  }

  // The company's own words stand in the boxes, whatever the list says of its country.
  void showSaved() {
    const QString country = QString::fromStdString(companyInfo_.text("country"));
    for (int row = 0; row < countries_->count(); ++row)
      if (countries_->item(row)->text().compare(country, Qt::CaseInsensitive) == 0) countries_->setCurrentRow(row);
    if (isChosen()) countries_->scrollToItem(countries_->currentItem(), QAbstractItemView::PositionAtCenter);
    name_->setText(QString::fromStdString(companyInfo_.text("currencyname")));
    symbol_->setText(QString::fromStdString(companyInfo_.text("ccode")));
    countries_->setFocus();
  }

  bool isChosen() const { return !countries_->selectedItems().isEmpty(); }

  void choose() {
    if (!isChosen()) return;
    currencies_.moveTo(countries_->row(countries_->selectedItems().front()));
    name_->setText(QString::fromStdString(currencies_.text(nameColumn)));
    symbol_->setText(QString::fromStdString(currencies_.text(symbolColumn)));
  }

  bool save() override {
    const std::string name = name_->text().toStdString();
    const std::string symbol = symbol_->text().toStdString();
    const bool chosen = isChosen();
    session::LoginContext& context = workplace_.context;
    store::Connection::Transaction both(context.KORDconn);
    companyInfo_.update({{"country", chosen ? currencies_.value("Country") : companyInfo_.value("country")},
                         {"currencyname", name},
                         {"ccode", symbol}});
    if (chosen)
      context.KORDconn.execute("UPDATE Currencies SET Currencies.CCode\xC2\xA0\xC2\xA0 = " + store::quoted(symbol) +
                               ", Currencies.Curency\xC2\xA0\xC2\xA0 = " + store::quoted(name) +
                               " WHERE Currencies.Serial=" + std::to_string(currencies_.integer("Serial")));
    both.commit();
    context.currencyname = companyInfo_.text("currencyname");
    context.ccode = companyInfo_.text("ccode");
    return true;
  }

  store::Recordset companyInfo_;  // CoInfo
  store::Recordset currencies_;   // CY
  QListWidget* countries_ = nullptr;
  QLineEdit* name_ = nullptr;
  QLineEdit* symbol_ = nullptr;
};

}  // namespace

QWidget* makeCurrencySettings(session::Workplace& workplace, QWidget* parent) {
  return new CurrencySettings(workplace, parent);
}

}  // namespace velmo::shell

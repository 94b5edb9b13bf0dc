#include "shell/settings/company_info.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <array>

#include "forms/look.h"
#include "forms/settings_dialog.h"
#include "session/login.h"

namespace velmo::shell {
namespace {

struct InfoField {
  const char* column;
  const char* caption;
};

// In the order of the boxes and of writing.
constexpr std::array<InfoField, 9> infoFields = {{{"name", "&Name"},
                                                  {"address", "&Address"},
                                                  {"telephones", "&Telephones"},
                                                  {"fax", "&Fax"},
                                                  {"website", "&Website"},
                                                  {"email", "&E-mail"},
                                                  {"ntn", "NTN (national ta&x number)"},
                                                  {"salestaxreg", "Sales tax &registration"},
                                                  {"description", "&Description"}}};

class CompanyInfo : public forms::SettingsDialog {
 public:
  CompanyInfo(session::Workplace& workplace, QWidget* parent)
      : forms::SettingsDialog(workplace, QStringLiteral("My Company"), parent),
        companyInfo_(workplace.context.KORDconn, "select * from businessinfo") {
    auto* heading = new QLabel(QStringLiteral("My company"), this);
    forms::makeHeading(*heading);
    body().addWidget(heading);
    auto* hint = new QLabel(QStringLiteral("These lines stand at the head of invoices, vouchers and reports."), this);
    forms::makeCaption(*hint);
    body().addWidget(hint);
    auto* grid = new QGridLayout;
    forms::setGrid(*grid, 0);
    grid->setHorizontalSpacing(forms::spacing::Section);
    for (std::size_t i = 0; i < infoFields.size(); ++i) addBox(*grid, static_cast<int>(i));
    body().addLayout(grid);
    body().addStretch(1);
    addCommands();
    setMinimumWidth(620);
    boxes_[0]->setFocus();
  }

 private:
  void addBox(QGridLayout& grid, int index) {
    const InfoField& field = infoFields[static_cast<std::size_t>(index)];
    auto* box = new QLineEdit(QString::fromStdString(companyInfo_.text(field.column)), this);
    box->setObjectName(QStringLiteral("Info_") + QString::number(index));
    box->setAccessibleName(QString::fromLatin1(field.caption).remove(QLatin1Char('&')));
    box->setMinimumHeight(32);
    box->setCursorPosition(0);
    auto* label = new QLabel(QLatin1String(field.caption), this);
    label->setBuddy(box);
    forms::makeCaption(*label);
    grid.addWidget(label, index, 0, Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(box, index, 1);
    boxes_[static_cast<std::size_t>(index)] = box;
  }

  std::string typed(std::size_t index) const { return boxes_[index]->text().toStdString(); }

  bool save() override {
    std::array<store::FieldValue, infoFields.size()> values;
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = {infoFields[i].column, typed(i)};
    companyInfo_.update(values);
    session::LoginContext& context = workplace_.context;
    context.CompanyName = companyInfo_.text("name");
    context.CompanyAddress = companyInfo_.text("address");
    context.CompanyTelLine = session::companyTelLine(companyInfo_.text("telephones"), companyInfo_.text("fax"));
    context.CompanyEmailLine = session::companyEmailLine(companyInfo_.text("email"));
    return true;
  }

  store::Recordset companyInfo_;  // CoInfo
  std::array<QLineEdit*, infoFields.size()> boxes_{};
};

}  // namespace

QWidget* makeCompanyInfo(session::Workplace& workplace, QWidget* parent) {
  return new CompanyInfo(workplace, parent);
}

}  // namespace velmo::shell

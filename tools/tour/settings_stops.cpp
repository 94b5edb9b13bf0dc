#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

#include "guide.h"
#include "travel_logo.h"

namespace velmo::tour {

namespace {

struct Settings {
  const char* screen;
  const char* picture;
};

constexpr Settings plainSettings[] = {{"CompanyInfo", "settings-company"},
                                      {"CurrencySettings", "settings-currency"},
                                      {"InvoiceSettings", "settings-invoice"},
                                      {"LogoSetting", "settings-no-logo"},
                                      {"About", "about"}};
constexpr Settings letterheadSettings[] = {{"POSettings", "settings-purchase-order"},
                                           {"QuoteSettings", "settings-quotation"},
                                           {"DCSettings", "settings-delivery-challan"}};

class Office {
 public:
  Office(Guide& guide, shell::MainShell& shell) : guide_(guide), shell_(shell) {}

  void visit(const char* screen, const std::function<void(QWidget&)>& look) {
    guide_.inDialog([&] { shell_.workplace().screens.openDialog(screen); }, look);
  }
  void picture(const Settings& settings) {
    visit(settings.screen, [&](QWidget& dialog) { guide_.picture(dialog, settings.picture); });
  }

 private:
  Guide& guide_;
  shell::MainShell& shell_;
};

}  // namespace

void visitSettings(Guide& guide, shell::MainShell& shell) {
  Office office(guide, shell);
  for (const Settings& settings : plainSettings) office.picture(settings);
  for (const Settings& settings : letterheadSettings)
    office.visit(settings.screen, [&](QWidget& dialog) {
      guide.control<QCheckBox>(dialog, "HeadCheck").click();
      guide.picture(dialog, settings.picture);
    });
  office.visit("InvoiceSettings", [&](QWidget& dialog) {
    guide.control<QRadioButton>(dialog, "InvSize_3").click();
    guide.control<QCheckBox>(dialog, "HeadCheck").click();
    guide.picture(dialog, "settings-invoice-letterhead");
  });
  {
    const TravelLogo logo;
    office.picture({"LogoSetting", "settings-logo"});
  }
  shell.workplace().context.HelpTopicID = 2;
  office.picture({"HelpForm", "help"});
}

}  // namespace velmo::tour

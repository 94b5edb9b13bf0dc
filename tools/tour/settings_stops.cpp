#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPainter>
#include <QRadioButton>

#include "guide.h"
#include "shell/brand_panel.h"

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
  Office(Guide& guide, shell::Parent& shell) : guide_(guide), shell_(shell) {}

  void visit(const char* screen, const std::function<void(QWidget&)>& look) {
    guide_.inDialog([&] { shell_.workplace().screens.openDialog(screen); }, look);
  }
  void picture(const Settings& settings) {
    visit(settings.screen, [&](QWidget& dialog) { guide_.picture(dialog, settings.picture); });
  }

 private:
  Guide& guide_;
  shell::Parent& shell_;
};

// A logo for the tour's company, in place of one that was chosen.
void paintLogo() {
  QImage logo(600, 240, QImage::Format_RGB32);
  logo.fill(Qt::white);
  QPainter painter(&logo);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ink(0x0B, 0x5D, 0x66);
  shell::drawMark(painter, QRectF(20, 20, 200, 200), ink);
  QFont font = painter.font();
  font.setPixelSize(96);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(QRect(250, 0, 350, 240), Qt::AlignVCenter | Qt::AlignLeft, QStringLiteral("HHW"));
  painter.end();
  if (!logo.save(QStringLiteral("mylogo.jpg"), "JPG", 92)) throw std::runtime_error("cannot write mylogo.jpg");
}

}  // namespace

void visitSettings(Guide& guide, shell::Parent& shell) {
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
  paintLogo();
  office.picture({"LogoSetting", "settings-logo"});
  QFile::remove(QStringLiteral("mylogo.jpg"));
  shell.workplace().context.HelpTopicID = 2;
  office.picture({"HelpForm", "help"});
}

}  // namespace velmo::tour

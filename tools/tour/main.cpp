#include <QApplication>
#include <QPushButton>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "demo_company/demonstration_company.h"
#include "forms/look.h"
#include "guide.h"
#include "shell/application.h"
#include "shell/login/login_form.h"
#include "stops.h"

namespace velmo::tour {
namespace {

// The day on which the tour takes place, so that its pictures are the same whenever they are made.
class TravelClock : public session::Clock {
 public:
  text::DateTime now() const override { return text::DateTime::fromCalendar(2026, 11, 20, 15, 4, 5); }
};

// In the order of the visit.
constexpr Stop stops[] = {
    visitSettings,    visitMasters, visitSaleInvoices,  visitTradeDocuments, visitOrders,
    visitSettlements, visitJournal, visitLedgerReports, visitBalances,       visitPrintOuts,
};

void walk(const std::filesystem::path& pictures, Scenery scenery, QSize size) {
  TravelClock today;
  TravelPrompts prompts;
  TravelFiles files(pictures);
  Guide guide(pictures, scenery);

  shell::LoginForm login(schema::companyCatalog(), schema::plainConnectionString, prompts);
  login.show();
  guide.picture(login, "login");
  guide.control<QPushButton>(login, "OkBttn").click();

  shell::Parent shell(login.takeContext(), shell::Surroundings{.clock = today,
                                                               .prompts = prompts,
                                                               .files = files,
                                                               .programFolder = std::filesystem::current_path(),
                                                               .screenWidth = size.width()});
  shell.resize(size);
  shell.show();
  guide.rest(1200);  // the shared lists of accounts and items are read a second after the start
  guide.picture(shell, "welcome");
  for (const Stop stop : stops) stop(guide, shell);
  shell.SkipBackUpPrompt = true;
  shell.close();
}

int run(int argc, char** argv) {
  QApplication application(argc, argv);
  shell::introduceProgram(application);
  if (argc < 2) {
    std::cerr << "velmo_tour <folder for the pictures> [light|dark|wide]\n";
    return 2;
  }
  const std::string way = argc > 2 ? argv[2] : "light";
  const std::filesystem::path pictures = std::filesystem::absolute(argv[1]);
  std::filesystem::create_directories(pictures);
  std::string pattern = (std::filesystem::temp_directory_path() / "velmo-tour-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no folder for the tour's company");
  const std::filesystem::path company = pattern;
  demo::makeDemonstrationCompany(company / "company", TravelClock().now());
  std::filesystem::current_path(company / "company");

  forms::applyLook(application, way == "dark" ? forms::Brightness::Dark : forms::Brightness::Light);
  if (way == "dark")
    walk(pictures, Scenery::Dark, {1024, 768});
  else if (way == "wide")
    walk(pictures, Scenery::Wide, {2560, 1440});
  else
    walk(pictures, Scenery::Light, {1280, 800});
  std::filesystem::current_path(pictures);
  std::filesystem::remove_all(company);
  return 0;
}

}  // namespace
}  // namespace velmo::tour

int main(int argc, char** argv) {
  try {
    return velmo::tour::run(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "The tour broke off: " << failure.what() << "\n";
    return 1;
  }
}

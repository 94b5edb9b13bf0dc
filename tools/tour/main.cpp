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
#include "support/stand_ins.h"

namespace velmo::tour {
namespace {

// The day on which the tour takes place, so that its pictures are the same whenever they are made.
const text::DateTime today = text::DateTime::fromCalendar(2026, 11, 20, 15, 4, 5);

// In the order of the visit.
constexpr Stop stops[] = {
    visitSettings,    visitMasters,     visitSaleInvoices, visitTradeDocuments, visitOrders,   visitStockMoves,
    visitProductions, visitSettlements, visitJournal,      visitLedgerReports,  visitBalances, visitPrintOuts,
};

void walk(const std::filesystem::path& pictures, Scenery scenery, QSize size) {
  test::SetClock clock;
  clock.moment = today;
  test::AgreeingPrompts prompts;
  prompts.answer = [](const session::Prompt& prompt) {
    std::cout << "  [" << prompt.title << "] " << prompt.text << "\n";
    return test::AgreeingPrompts::agree(prompt);
  };
  test::NamedFile files;
  files.meanwhile = [&files] {
    const std::filesystem::path offered = std::filesystem::current_path() / priceList;
    files.name = std::filesystem::exists(offered) ? offered.string() : std::string();
  };
  files.folder = pictures;
  Guide guide(pictures, scenery);

  shell::LoginForm login(schema::companyCatalog(), schema::plainConnectionString, prompts);
  login.show();
  guide.picture(login, "login");
  guide.control<QPushButton>(login, "OkBttn").click();

  shell::MainShell shell(login.takeContext(), shell::Surroundings{.clock = clock,
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
  demo::makeDemonstrationCompany(company / "company", today);
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

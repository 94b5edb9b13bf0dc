#pragma once

#include <QMainWindow>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>

#include "schema/company_file.h"
#include "session/workplace.h"
#include "shell/catalogue/screen_catalogue.h"
#include "shell/window/menu_tree.h"

namespace velmo::shell {

class IdleWork;
class ScreenWindows;
class StatusNote;

// What the shell is given from outside; it must outlive the shell.
struct Surroundings {
  session::Clock& clock;
  session::Prompts& prompts;
  session::FileChooser& files;
  std::filesystem::path programFolder;
  int screenWidth = 0;  // device-independent pixels
  std::string connectionString = schema::plainConnectionString;
  std::string shapeString = schema::shapeConnectionString;
  std::span<const ScreenEntry> catalogue = screenCatalogue();
  schema::FileState file = {};  // what was seen of it before the first screen
};

// The main window: menu, status bar, the screens as tabs, the open file and the lists that all screens share.
class MainShell : public QMainWindow {
  Q_OBJECT

 public:
  // Opens the file and, for those who may see it, the welcome screen. Throws store::StoreError.
  MainShell(std::unique_ptr<session::LoginContext> context, const Surroundings& surroundings);
  ~MainShell() override;

  session::Workplace& workplace() { return workplace_; }
  ScreenWindows& screens() { return *screens_; }

  bool WelcomeAllowed = true;
  bool SkipBackUpPrompt = false;

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildWindow();
  void startTimers();
  void readItems();
  void readAccounts();
  void readMissingLists();
  void computeCosts();
  void showCompany();
  void showUnbalancedDocuments();
  void screenClosed(const QString& name);
  void choose(const MenuEntry& entry);
  bool passes(const MenuGuard& guard);
  void showHelp(const QWidget& focus);
  void chooseAsking();
  void showWelcome();
  void startBackUpUtility();
  bool confirmClosing();

  std::unique_ptr<session::LoginContext> context_;
  Surroundings surroundings_;
  ScreenWindows* screens_;
  session::Workplace workplace_;
  QTimer* itemsTimer_;     // InvTimer
  QTimer* accountsTimer_;  // AccTimer
  QTimer* costTimer_;      // CostTimer
  QTimer* idleTimer_;
  StatusNote* note_ = nullptr;  // Panel_3
  IdleWork* idleWork_ = nullptr;
};

// The sentence for screens on which windows would be cut off.
void warnOfNarrowScreen(session::Prompts& prompts, int screenWidth);

}  // namespace velmo::shell

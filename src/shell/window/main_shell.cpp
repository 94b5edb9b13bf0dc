#include "shell/window/main_shell.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QProcess>
#include <QStatusBar>
#include <QStatusTipEvent>

#include "forms/look.h"
#include "session/login.h"
#include "session/settings.h"
#include "shell/catalogue/help_topics.h"
#include "shell/idle/idle_work.h"
#include "shell/idle/status_note.h"
#include "shell/login/brand_panel.h"
#include "shell/welcome/navigation.h"
#include "shell/window/menu_actions.h"
#include "shell/window/screen_windows.h"

namespace velmo::shell {
namespace {

constexpr int administrator = 1;
constexpr int welcomeRight = 2;
constexpr int journalRight = 180;
constexpr const char* helpScreen = "HelpForm";
constexpr const char* askAction = "General_75";
constexpr const char* unbalancedScreen = "UnbalancedDocuments";
constexpr int smallestScreenWidth = 1000;  // the sentence asks for 1024; a little less passes
constexpr int reloadDelay = 1000;          // milliseconds
constexpr int costDelay = 100;             // milliseconds
constexpr int idleDelay = 5000;            // milliseconds without key or click

// The screens after whose closing a shared list is read afresh.
enum class SharedList { Items, Accounts };
struct Reload {
  const char* screen;
  SharedList list;
};
constexpr Reload reloads[] = {
    {"ModifyInventory", SharedList::Items},    {"ModifyServices", SharedList::Items},
    {"ModifyAccounts", SharedList::Accounts},  {"ModifyBanks", SharedList::Accounts},
    {"ModifyCustomers", SharedList::Accounts}, {"ModifySuppliers", SharedList::Accounts},
};

QTimer* oneShot(QObject* owner, const char* name, int delay) {
  auto* timer = new QTimer(owner);
  timer->setObjectName(QLatin1String(name));
  timer->setSingleShot(true);
  timer->setInterval(delay);
  return timer;
}

std::string askSetting(const session::LoginContext& context) {
  return session::userSetting(session::settings::AskBeforeDropping, context.UserID);
}

bool isHelpKey(const QKeyEvent& key) {
  return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier && !key.isAutoRepeat();
}

void readAfresh(store::Recordset& list, store::Connection& connection, const char* statement) {
  if (list.isOpen()) list.close();
  list.open(connection, statement, store::LockType::ReadOnly, store::Fetch::AsNeeded);
}

}  // namespace

MainShell::MainShell(std::unique_ptr<session::LoginContext> context, const Surroundings& surroundings)
    : context_(std::move(context)),
      surroundings_(surroundings),
      screens_(new ScreenWindows(surroundings.catalogue, this)),
      workplace_{*context_, surroundings.clock, surroundings.prompts, surroundings.files, *screens_},
      itemsTimer_(oneShot(this, "InvTimer", reloadDelay)),
      accountsTimer_(oneShot(this, "AccTimer", reloadDelay)),
      costTimer_(oneShot(this, "CostTimer", costDelay)),
      idleTimer_(oneShot(this, "IdleTimer", idleDelay)) {
  context_->KORDconn.open(surroundings_.connectionString);
  if (!surroundings_.file.damage.empty()) context_->KORDconn.refuseWriting();
  context_->ShapeConnection = surroundings_.shapeString;
  context_->AskBeforeDropping = session::setting(context_->KORDconn, askSetting(*context_)) == "Yes";
  screens_->setWorkplace(workplace_);
  buildWindow();
  WelcomeAllowed = workplace_.rights().allows(welcomeRight);
  if (WelcomeAllowed) screens_->openScreen("Navigation");
  startTimers();
  warnOfNarrowScreen(surroundings_.prompts, surroundings_.screenWidth);
}

MainShell::~MainShell() {
  qApp->removeEventFilter(this);
  delete idleWork_;
  delete screens_;  // the screens let go of the file before it closes
}

void MainShell::buildWindow() {
  setObjectName(QStringLiteral("Parent"));
  showCompany();
  setWindowIcon(programIcon());
  setCentralWidget(screens_);
  setMinimumSize(800, 560);
  fillMenuBar(
      *menuBar(), [this](std::string_view screen) { return screens_->hasScreen(screen); },
      [this](const MenuEntry& entry) { choose(entry); });
  menuBar()->findChild<QAction*>(QLatin1String(askAction))->setChecked(context_->AskBeforeDropping);

  auto* bar = new QStatusBar(this);
  bar->setObjectName(QStringLiteral("KORDStatusBar"));
  const QString panels[] = {QStringLiteral("Velmo Point of Sale"),
                            QString::fromStdString(session::financialYearLine(*context_))};
  for (int i = 0; i < 2; ++i) {
    auto* panel = new QLabel(panels[i], bar);
    panel->setObjectName(QStringLiteral("Panel_") + QString::number(i + 1));
    panel->setContentsMargins(forms::spacing::Normal, 0, forms::spacing::Section, 0);
    forms::makeCaption(*panel);
    bar->addWidget(panel);
  }
  note_ = new StatusNote(bar);
  note_->setObjectName(QStringLiteral("Panel_3"));
  connect(note_, &StatusNote::clicked, this, &MainShell::showUnbalancedDocuments);
  bar->addWidget(note_, 1);
  setStatusBar(bar);
}

void MainShell::startTimers() {
  connect(itemsTimer_, &QTimer::timeout, this, &MainShell::readItems);
  connect(accountsTimer_, &QTimer::timeout, this, &MainShell::readAccounts);
  connect(costTimer_, &QTimer::timeout, this, &MainShell::computeCosts);
  context_->Costs.onArmed = [this] { costTimer_->start(); };
  idleWork_ = new IdleWork(workplace_, surroundings_.connectionString, surroundings_.file, *note_, this);
  connect(idleTimer_, &QTimer::timeout, idleWork_, &IdleWork::run);
  connect(idleWork_, &IdleWork::wantsToRun, idleTimer_, qOverload<>(&QTimer::start));
  connect(screens_, &ScreenWindows::screenOpening, this, &MainShell::readMissingLists);
  connect(screens_, &ScreenWindows::screenClosed, this, &MainShell::screenClosed);
  itemsTimer_->start();
  accountsTimer_->start();
  idleTimer_->start();
  qApp->installEventFilter(this);
}

void MainShell::readItems() {
  itemsTimer_->stop();
  readAfresh(context_->ItemsRS, context_->KORDconn, "SELECT * FROM StockLevel3 ORDER BY ItemCode");
}

void MainShell::readAccounts() {
  accountsTimer_->stop();
  readAfresh(context_->AccountsRS, context_->KORDconn, "SELECT * from AccLevel3 order by acccode");
}

// For those who open a screen before the lists are read.
void MainShell::readMissingLists() {
  if (!context_->ItemsRS.isOpen()) readItems();
  if (!context_->AccountsRS.isOpen()) readAccounts();
}

// Work that shows its progress may be in the midst of a transaction.
void MainShell::computeCosts() {
  if (!context_->KORDconn.isOpen() || context_->KORDconn.refusesWriting()) return;
  if (context_->KORDconn.inTransaction()) return costTimer_->start();
  try {
    context_->Costs.settle(context_->KORDconn, context_->FYID, context_->FinancialYearEnd);
  } catch (const store::StoreError& failure) {
    surroundings_.prompts.tell("Cannot Compute Costs", failure.what());
  }
}

// Keys and clicks put off the work that waits for an idle moment. F1 is heard in every window.
bool MainShell::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) idleTimer_->start();
  if (event->type() == QEvent::KeyPress && watched->isWidgetType() && isHelpKey(*static_cast<QKeyEvent*>(event))) {
    showHelp(static_cast<QWidget&>(*watched));
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

void MainShell::showHelp(const QWidget& focus) {
  if (!context_->KORDconn.isOpen() || !screens_->hasScreen(helpScreen)) return;
  if (focus.window()->objectName() == QLatin1String(helpScreen)) return;
  const QWidget* place = &focus;
  if (place->window() == this)  // menu and status bar have no help of their own
    if (const QMdiSubWindow* front = screens_->activeSubWindow(); front && !front->isAncestorOf(place))
      place = front->widget();
  context_->HelpTopicID = helpTopicFor(*place, context_->KORDconn, surroundings_.catalogue);
  screens_->openDialog(helpScreen);
}

void MainShell::showUnbalancedDocuments() {
  if (note_->leadsToDocuments() && workplace_.rights().demand(journalRight)) screens_->openScreen(unbalancedScreen);
}

void MainShell::showCompany() {
  setWindowTitle(QStringLiteral("Velmo Point of Sale - ") + QString::fromStdString(context_->CompanyName));
  if (auto* welcome = qobject_cast<Navigation*>(screens_->openWindow("Navigation"))) welcome->showCompany();
}

void MainShell::screenClosed(const QString& name) {
  if (name == QLatin1String("CompanyInfo")) showCompany();
  if (name == QLatin1String(unbalancedScreen)) idleWork_->lookAgain();  // some may have been put right
  for (const Reload& reload : reloads)
    if (name == QLatin1String(reload.screen))
      (reload.list == SharedList::Items ? itemsTimer_ : accountsTimer_)->start();
}

bool MainShell::passes(const MenuGuard& guard) {
  if (!guard.refusal.empty() && context_->UserID > administrator) {
    surroundings_.prompts.tell("Not Allowed", guard.refusal);
    return false;
  }
  return guard.right == 0 || workplace_.rights().demand(guard.right);
}

void MainShell::choose(const MenuEntry& entry) {
  if (!passes(entry.guard)) return;
  switch (entry.command) {
    case MenuCommand::OpenScreen:
      screens_->openScreen(entry.target);
      break;
    case MenuCommand::OpenDialog:
      screens_->openDialog(entry.target);
      break;
    case MenuCommand::ShowWelcome:
      showWelcome();
      break;
    case MenuCommand::AskBeforeDropping:
      chooseAsking();
      break;
    case MenuCommand::StartBackUp:
      if (!screens_->mayClose()) break;
      SkipBackUpPrompt = true;
      startBackUpUtility();
      screens_->giveUpAll();
      close();
      break;
    case MenuCommand::Exit:
      close();
      break;
    case MenuCommand::OpenSubmenu:
    case MenuCommand::Separator:
      break;
  }
}

// The user's own, so that the next one at this computer is not asked.
void MainShell::chooseAsking() {
  auto* ask = menuBar()->findChild<QAction*>(QLatin1String(askAction));
  try {
    session::saveSetting(context_->KORDconn, askSetting(*context_), ask->isChecked() ? "Yes" : "No");
    context_->AskBeforeDropping = ask->isChecked();
  } catch (const store::StoreError& failure) {
    ask->setChecked(context_->AskBeforeDropping);
    surroundings_.prompts.tell("Cannot Save", failure.what());
  }
}

void MainShell::showWelcome() {
  if (WelcomeAllowed)
    screens_->openScreen("Navigation");
  else
    surroundings_.prompts.tell("Not Allowed", "You do not have access to welcome screen.");
}

// A utility that is not there or does not start is no reason to stay open.
void MainShell::startBackUpUtility() {
  const std::filesystem::path program = surroundings_.programFolder / "Back-Up Utility.exe";
  QProcess::startDetached(QString::fromStdString(program.string()), {},
                          QString::fromStdString(surroundings_.programFolder.string()));
}

bool MainShell::confirmClosing() {
  if (SkipBackUpPrompt) return true;
  const session::Answer answer = surroundings_.prompts.ask({.title = "Back-Up Confirmation",
                                                            .text = "Do you want to save back-up of your data?",
                                                            .buttons = session::Buttons::YesNoCancel});
  if (answer == session::Answer::Yes) startBackUpUtility();
  return answer != session::Answer::Cancel;
}

// What screens say in passing has its place beside what the program says of itself; a message of the status bar would
// hide the other panels.
bool MainShell::event(QEvent* event) {
  if (event->type() != QEvent::StatusTip || !note_) return QMainWindow::event(event);
  note_->tell(StatusNote::Subject::Screen, static_cast<QStatusTipEvent*>(event)->tip());
  return true;
}

void MainShell::closeEvent(QCloseEvent* event) {
  if (!context_->KORDconn.isOpen()) return;
  const bool closes = screens_->mayClose() && confirmClosing();
  if (closes) screens_->giveUpAll();  // they were asked
  if (!closes || !screens_->closeAll()) {
    SkipBackUpPrompt = false;
    event->ignore();
    return;
  }
  for (QTimer* timer : {itemsTimer_, accountsTimer_, costTimer_, idleTimer_}) timer->stop();
  idleWork_->stop();
  for (store::Recordset* list : {&context_->ItemsRS, &context_->AccountsRS})
    if (list->isOpen()) list->close();
  context_->KORDconn.close();
  event->accept();
}

void warnOfNarrowScreen(session::Prompts& prompts, int screenWidth) {
  if (screenWidth < smallestScreenWidth)
    prompts.tell("Screen Display Resolution",
                 "It has been detected that your screen resolution has been set lesser than the minimum requirement "
                 "for Velmo Point of Sale. The minimum screen display settings requirement for this software is "
                 "1024 X 768 . Kindly reset your display settings for proper visibility.");
}

}  // namespace velmo::shell

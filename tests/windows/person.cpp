#include "windows/person.h"

#include <gtest/gtest.h>
#include <qpa/qwindowsysteminterface.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <cctype>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <map>
#include <thread>

#include "demo_company/demonstration_company.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "shell/application.h"
#include "shell/window/main_shell.h"
#include "shell/window/screen_windows.h"
#include "store/recordset/recordset.h"

namespace velmo::test {
namespace {

void run(const std::string& command) {
  if (std::system(command.c_str()) != 0) throw std::runtime_error(command + " failed");
}

shell::MainShell* mainWindow() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* shell = qobject_cast<shell::MainShell*>(window)) return shell;
  return nullptr;
}

}  // namespace

void Person::press(std::initializer_list<const char*> keys) {
  std::string command;
  for (const char* key : keys) command += std::string(" ") + key;
  run("xdotool key --clearmodifiers --delay " + std::to_string(typing) + command);
}

void Person::type(const std::string& text, int gap) {
  static const std::map<char, const char*> names = {
      {'\n', "Return"}, {' ', "space"}, {'-', "minus"}, {'.', "period"}, {'/', "slash"}};
  std::string command;
  for (const char character : text) {
    const auto name = names.find(character);
    command += " " + (name == names.end() ? std::string(1, character) : std::string(name->second));
  }
  run("xdotool key --delay " + std::to_string(gap) + command);
}

void Person::scan(const std::string& code, int gap) {
  scannedAt_ += 10'000;
  QWindow* window = look([] { return QGuiApplication::focusWindow(); });
  const auto key = [&](int name, const QString& text) {
    scannedAt_ += static_cast<unsigned long>(gap);
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
      QWindowSystemInterface::handleKeyEvent(window, scannedAt_, type, name, Qt::NoModifier, text);
  };
  for (const char character : code) key(std::toupper(character), QString(QLatin1Char(character)));
  key(Qt::Key_Return, QStringLiteral("\r"));
}

void Person::waitUntil(const char* words, const std::function<bool()>& isSo) {
  constexpr int longest = 10'000;
  QElapsedTimer timer;
  timer.start();
  while (!look(isSo)) {
    if (timer.elapsed() > longest) throw std::runtime_error(std::string("never seen: ") + words);
    QThread::msleep(20);
  }
}

void Person::settle(int milliseconds) {
  QThread::msleep(static_cast<unsigned long>(milliseconds));
  look([] {});
}

void Person::logIn() {
  waitUntil("the login", [] { return QApplication::activeModalWidget() && QApplication::focusWidget(); });
  press("Return");
  waitUntil("the main window", [] { return mainWindow() && mainWindow()->isActiveWindow(); });
}

void Person::openScreen(const char* name) {
  look([name] { mainWindow()->workplace().screens.openScreen(name); });
  waitUntil(name, [name] {
    const QWidget* screen = mainWindow()->screens().openWindow(name);
    return screen && screen->isVisible();
  });
}

// It holds up whoever opens it until it is closed.
void Person::openDialog(const char* name) {
  look([name] { QTimer::singleShot(0, mainWindow(), [name] { mainWindow()->workplace().screens.openDialog(name); }); });
  waitUntil(name, [name] {
    const QWidget* dialog = QApplication::activeWindow();
    return dialog && dialog->objectName() == QLatin1String(name) && QApplication::focusWidget();
  });
}

std::string Person::focus() {
  return look([] {
    const QWidget* has = QApplication::focusWidget();
    return has ? has->objectName().toStdString() : std::string();
  });
}

std::string Person::messageText() {
  return look([] {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box ? box->text().toStdString() : std::string();
  });
}

std::string Person::inFile(const char* statement, int row) {
  return look([statement, row] {
    store::Connection company(schema::companyCatalog());
    company.open(schema::plainConnectionString);
    const store::Recordset rows(company, statement, store::LockType::ReadOnly);
    return row < rows.recordCount() ? store::textOf(rows.valueAt(row, 0)) : std::string("no row");
  });
}

void withTheProgram(const std::function<void(Person&)>& work) {
  const QTemporaryDir folder;
  std::filesystem::current_path(folder.path().toStdString());
  demo::makeDemonstrationCompany(std::filesystem::current_path(), text::DateTime::fromCalendar(2026, 11, 24));
  int count = 1;
  char name[] = "velmo";
  char* words[] = {name, nullptr};
  shell::Application program(count, words);
  std::thread person([&] {
    Person self;
    try {
      self.logIn();
      work(self);
    } catch (const std::exception& missed) {
      ADD_FAILURE() << missed.what();
    }
    self.look([] { ::QApplication::exit(0); });
  });
  program.run();
  person.join();
}

}  // namespace velmo::test

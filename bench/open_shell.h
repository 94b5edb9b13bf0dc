#pragma once

#include <QPushButton>

#include "desk.h"
#include "shell/login/login_form.h"
#include "shell/window/main_shell.h"
#include "shell/window/screen_windows.h"

namespace velmo::bench {

// Lets every message pass and answers every question with the same word.
class Answers : public session::Prompts {
 public:
  session::Answer ask(const session::Prompt& prompt) override {
    told = prompt.title + ": " + prompt.text;
    return prompt.buttons == session::Buttons::Ok ? session::Answer::Ok : answer;
  }
  session::Answer answer = session::Answer::No;
  std::string told;
};

// The shell on the current folder's company, with user 1 logged in.
class OpenShell {
 public:
  OpenShell() {
    login_.measure([&] {
      form_ = std::make_unique<shell::LoginForm>(schema::companyCatalog(), schema::plainConnectionString, prompts_);
      form_->show();
      QApplication::processEvents();
    });
    form_->findChild<QPushButton*>("OkBttn")->click();
    start_.measure([&] {
      shell_ = std::make_unique<shell::MainShell>(
          form_->takeContext(),
          shell::Surroundings{
              .clock = clock_, .prompts = prompts_, .files = files_, .programFolder = ".", .screenWidth = 1920});
      shell_->resize(1366, 768);
      shell_->show();
      QApplication::setActiveWindow(shell_.get());
      QApplication::processEvents();
    });
  }
  ~OpenShell() {
    shell_->SkipBackUpPrompt = true;
    shell_->screens().giveUpAll();
    shell_->close();
  }

  double loginSeconds() const { return login_.mean(); }
  double startSeconds() const { return start_.mean(); }
  shell::MainShell& window() { return *shell_; }
  shell::ScreenWindows& screens() { return shell_->screens(); }
  session::LoginContext& context() { return shell_->workplace().context; }
  session::Workplace& workplace() { return shell_->workplace(); }
  Answers& prompts() { return prompts_; }
  test::NamedFile& files() { return files_; }

  QWidget* openInvoices() { return &open("SaleInvoicesSimple"); }
  QWidget& open(const char* name) {
    screens().openScreen(name);
    QApplication::processEvents();
    return *screens().openWindow(name);
  }
  void closeScreens() {
    screens().giveUpAll();
    screens().closeAll();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

 private:
  session::SystemClock clock_;
  Answers prompts_;
  test::NamedFile files_;
  Durations login_, start_;
  std::unique_ptr<shell::LoginForm> form_;
  std::unique_ptr<shell::MainShell> shell_;
};

}  // namespace velmo::bench

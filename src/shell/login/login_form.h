#pragma once

#include <QDialog>
#include <memory>
#include <string>

#include "schema/company_file.h"
#include "session/login.h"
#include "session/prompts.h"

class QLineEdit;
class QPushButton;

namespace velmo::forms {
class DropCombo;
}

namespace velmo::shell {

// The first window: tidies the file, lets a user and a financial year be chosen, and tests the password. It works on a
// connection of its own, closed with it.
class LoginForm : public QDialog {
  Q_OBJECT

 public:
  // A file that is damaged is not tidied up, nor written otherwise. Throws store::StoreError when the file cannot be
  // opened, or nobody could log in to it.
  LoginForm(const store::Catalog& catalog, const std::string& connectionString, session::Prompts& prompts,
            const schema::FileState& file = {}, QWidget* parent = nullptr);

  // The values of the user who logged in; null before that. Its own connection is not open yet.
  std::unique_ptr<session::LoginContext> takeContext() { return std::move(context_); }

 private:
  void build();
  void chooseUser();
  void chooseYear();
  void logIn();
  void setDefault();
  void showChoiceState();

  const store::Catalog& catalog_;
  session::Prompts& prompts_;
  store::Connection connection_;
  std::unique_ptr<session::LoginRecords> records_;
  std::unique_ptr<session::LoginContext> context_;

  forms::DropCombo* userCombo_ = nullptr;
  forms::DropCombo* yearCombo_ = nullptr;
  QLineEdit* password_ = nullptr;
  QPushButton* okButton_ = nullptr;
  QPushButton* defaultButton_ = nullptr;
};

}  // namespace velmo::shell

#pragma once

#include <memory>

#include "session/login.h"
#include "shell/window/main_shell.h"

namespace velmo::shell {

// The main window on the company of the current folder, with a user logged in.
inline std::unique_ptr<MainShell> openShell(const Surroundings& surroundings, int userId = 1) {
  auto context = std::make_unique<session::LoginContext>(schema::companyCatalog());
  {
    store::Connection connection(schema::companyCatalog());
    connection.open(schema::plainConnectionString);
    if (!surroundings.file.damage.empty()) connection.refuseWriting();
    session::fillLoginContext(*context, session::LoginRecords(connection));
  }
  context->UserID = userId;
  context->UserName = "Zoe";
  auto shell = std::make_unique<MainShell>(std::move(context), surroundings);
  shell->show();
  return shell;
}

}  // namespace velmo::shell

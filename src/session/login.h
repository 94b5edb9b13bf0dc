#pragma once

#include <string>

#include "session/login_context.h"

namespace velmo::session {

// What the login screen reads. The rows it hands on are the current ones of the user and the year that were chosen.
struct LoginRecords {
  store::Recordset businessInfo;
  store::Recordset financialYears;
  store::Recordset users;

  // Opens the three on the connection, in this order.
  explicit LoginRecords(store::Connection& connection);
};

// Removes the rows that were left half-written when the entry of a new account or item was abandoned.
void cleanUpMasters(store::Connection& connection);

// As exact text, but for blanks at the end, which the store does not keep; a user without a password (null or empty) is
// let in by an empty box.
bool passwordFits(const store::Recordset& users, const std::string& typed);

// Makes the user and the year the ones that the next start proposes.
void saveDefaultLogin(store::Connection& connection, std::int64_t userId, std::int64_t yearId);

// Fills every member that the login knows, from the current rows. The connection of the context is not touched.
void fillLoginContext(LoginContext& context, const LoginRecords& records);

// "Tel: 111   Fax: 222"; the fax part only when there is a fax number.
std::string companyTelLine(const std::string& telephones, const std::string& fax);
std::string companyEmailLine(const std::string& address);

// "Financial Year Starting From  Jul 1, 2026  To  Jun 30, 2027", for the status bar.
std::string financialYearLine(const LoginContext& context);

}  // namespace velmo::session

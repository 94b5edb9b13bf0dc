#include "session/login.h"

#include "session/stock_movement.h"
#include "text/format.h"

namespace velmo::session {

LoginRecords::LoginRecords(store::Connection& connection)
    : businessInfo(connection, "select * from businessinfo"),
      financialYears(connection, "Select * from FinancialYear order by abbreviation"),
      users(connection, "Select userid, username, password from users") {}

void cleanUpMasters(store::Connection& connection) {
  for (const char* statement : {"Delete * from acclevel3 where level2id is null or level1id is null",
                                "Delete * from acclevel2 where typeid is null",
                                "Delete * from stocklevel3 where subcatid is null or catid is null",
                                "Delete * from stocklevel2 where catid is null"})
    connection.execute(statement);
}

bool passwordFits(const store::Recordset& users, const std::string& typed) {
  return users.text("password") == typed.substr(0, typed.find_last_not_of(' ') + 1);
}

void saveDefaultLogin(store::Connection& connection, std::int64_t userId, std::int64_t yearId) {
  connection.execute("update businessinfo set userid = " + std::to_string(userId) +
                     ", FYID = " + std::to_string(yearId));
}

std::string companyTelLine(const std::string& telephones, const std::string& fax) {
  return "Tel: " + telephones + (fax.empty() ? "" : "   Fax: " + fax);
}

std::string companyEmailLine(const std::string& address) {
  return "E-Mail: " + address;
}

void fillLoginContext(LoginContext& context, const LoginRecords& records) {
  const store::Recordset& business = records.businessInfo;
  const store::Recordset& year = records.financialYears;
  const auto number = [&business](const char* column) { return static_cast<int>(business.integer(column)); };
  context.UserName = records.users.text("username");
  context.UserID = static_cast<int>(records.users.integer("userid"));
  context.FYID = static_cast<int>(year.integer("FYID"));
  context.FinancialYearStart = year.date("FinancialYearStart");
  context.FinancialYearEnd = year.date("FinancialYearEnd");
  context.CompanyName = business.text("Name");
  context.CompanyAddress = business.text("Address");
  context.CompanyTelLine = companyTelLine(business.text("Telephones"), business.text("Fax"));
  context.CompanyEmailLine = companyEmailLine(business.text("EMail"));
  context.qf = number("QF");
  context.qtm = number("QTM");
  context.pof = number("POF");
  context.potm = number("POTM");
  context.dcf = number("DCF");
  context.dctm = number("DCTM");
  context.sif = number("SIF");
  context.sitm = number("SITM");
  context.cserial = number("CSerial");
  context.currencyname = business.text("CurrencyName");
  context.ccode = business.text("CCode");
  context.stocklocationid = number("StockLocationID");
  applyStockMovement(context, business.value("StockMovement"));
}

std::string financialYearLine(const LoginContext& context) {
  return "Financial Year Starting From  " + text::formatDate(context.FinancialYearStart, "mmm d, yyyy") + "  To  " +
         text::formatDate(context.FinancialYearEnd, "mmm d, yyyy");
}

}  // namespace velmo::session

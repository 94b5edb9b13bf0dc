#pragma once

#include <cstdint>
#include <string>

#include "schema/company_schema.h"
#include "store/connection/connection.h"
#include "store/recordset/recordset.h"
#include "text/date_time.h"
#include "valuation/weighted_cost.h"

namespace velmo::session {

// The values held for the logged-in user, company and financial year. Made at login, owned by the shell, handed to
// screens by reference; the settings screens write back into it.
struct LoginContext {
  explicit LoginContext(const store::Catalog& catalog) : KORDconn(catalog, schema::schemaVersion) {}

  std::string ShapeConnection;  // connection string for hierarchies
  store::Connection KORDconn;   // open while the shell lives
  int FYID = 0;
  text::DateTime FinancialYearStart;
  text::DateTime FinancialYearEnd;
  std::string CompanyName;
  std::string CompanyAddress;
  std::string CompanyTelLine;
  std::string CompanyEmailLine;
  int qf = 0;
  int qtm = 0;
  int pof = 0;
  int potm = 0;
  int dcf = 0;
  int dctm = 0;
  int sif = 0;
  int sitm = 0;
  int cserial = 0;
  std::string currencyname;
  std::string ccode;
  int stocklocationid = 0;
  std::string UserName;
  int UserID = 0;
  bool AskBeforeDropping = false;  // setting of the user, see userSetting()
  bool IGPInvLedger = false;
  bool BillInvLedger = false;
  bool OGPInvLedger = false;
  bool DCInvLedger = false;
  bool InvoiceInvLedger = false;
  store::Recordset ItemsRS;     // all items, by ItemCode; closed until the shell's timer has read them
  store::Recordset AccountsRS;  // all accounts, by AccCode
  store::Recordset AccListRS;
  int ChartView = 0;
  int HelpTopicID = 0;
  std::string SearchText;      // what SearchItem looks for when it opens
  std::string SerialText;      // what ProductSerial was looking for when it was left for a document
  std::int64_t SerialRow = 0;  // and the row that it stood on
  bool OpenTranFlag = false;
  std::int64_t OpenTranNo = 0;
  bool OpenLedgerFlag = false;
  std::int64_t OpenLedgerAccCode = 0;
  std::string OpenLedgerItemCode;
  store::Recordset PrintRS;
  int PrintKind = 0;
  int ReportKind = 0;
  store::Recordset ReportRS;
  valuation::YearEndCosts Costs;  // armed by the screens that value stock when they open
};

}  // namespace velmo::session

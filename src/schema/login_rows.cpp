#include "schema/login_rows.h"

#include "store/recordset/recordset.h"
#include "store/values/error.h"

namespace velmo::schema {

void requireLoginRows(store::Connection& connection) {
  struct Need {
    const char* rows;
    const char* what;
  };
  for (const Need& need :
       {Need{"select userid from businessinfo", "the details of the company (the table \"BusinessInfo\" is empty)"},
        Need{"select fyid from financialyear", "a financial year (the table \"FinancialYear\" is empty)"},
        Need{"select userid from users", "a user who could log in (the table \"Users\" is empty)"}})
    if (store::Recordset(connection, need.rows, store::LockType::ReadOnly).isEmpty())
      throw store::StoreError(store::ErrorKind::Damaged, std::string("The company's file is damaged: it lacks ") +
                                                             need.what +
                                                             ". It was not changed. Restore it from a back-up copy.");
}

}  // namespace velmo::schema

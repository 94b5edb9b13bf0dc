#pragma once

#include <gtest/gtest.h>

#include "store/recordset/recordset.h"
#include "support/new_company.h"

namespace velmo::test {

// An empty company whose file is open.
class OpenCompany : public NewCompany {
 public:
  explicit OpenCompany(const text::DateTime& now = text::DateTime::fromCalendar(2026, 11, 22, 14, 7, 9))
      : NewCompany(now) {
    connection.open(schema::connectionStringFor(file()));
  }

  store::Recordset rows(const std::string& statement) {
    return store::Recordset(connection, statement, store::LockType::ReadOnly);
  }
  // The one figure of a statement that gives one row.
  double figure(const std::string& statement) { return store::numberOf(rows(statement).valueAt(0, 0)); }

  store::Connection connection{schema::companyCatalog()};
};

}  // namespace velmo::test

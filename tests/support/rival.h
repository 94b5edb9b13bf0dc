#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <functional>

#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/connection/connection.h"

namespace velmo::test {

// Another program that writes at the worst moment: as this one's next transaction begins, behind all tests that were
// made before it.
class Rival {
 public:
  Rival(store::Connection& program, std::vector<std::string> statements)
      : program_(program), statements_(std::move(statements)) {
    own_.open(schema::plainConnectionString);
    sqlite3_trace_v2(program_.handle(), SQLITE_TRACE_STMT, &Rival::statementBegins, this);
  }
  ~Rival() {
    sqlite3_trace_v2(program_.handle(), 0, nullptr, nullptr);
    EXPECT_TRUE(came_) << "no transaction began";
  }
  Rival(const Rival&) = delete;
  Rival& operator=(const Rival&) = delete;

 private:
  static int statementBegins(unsigned, void* rival, void*, void* sql) {
    auto& self = *static_cast<Rival*>(rival);
    if (self.came_ || std::strcmp(static_cast<const char*>(sql), "BEGIN IMMEDIATE") != 0) return 0;
    self.came_ = true;
    for (const std::string& statement : self.statements_) self.own_.execute(statement);
    return 0;
  }

  store::Connection& program_;
  store::Connection own_{schema::companyCatalog()};
  std::vector<std::string> statements_;
  bool came_ = false;
};

}  // namespace velmo::test

#pragma once

#include <functional>
#include <string>

#include "frame/master/master_entry.h"

namespace velmo::frame {

// A code that the program gives to a new row. It is proposed when the row is begun; where another program took it
// meanwhile, the next free one is written.
struct GivenCode {
  std::string column;
  std::string table;
  // By the rows of the file as they are now; "" when the series is at its end, which the level's tests refuse.
  std::function<std::string(const MasterEntry&)> next;
  std::string follows = {};  // a column whose box decides about the code
};

// Codes that begin with the parent's and end in a running number.
struct CodeSeries {
  std::string column;
  std::string table;
  std::function<std::string(const std::string& parent)> ofParent;  // a condition on the table
  int digits = 0;                                                  // of the running number
};

GivenCode givenBy(const CodeSeries& series);

// The code behind the last one of a family whose codes begin with the parent's: parent & "001" for the first; "" when
// the running number, `digits` long, is at its end. `last` is "" when there is none.
std::string codeAfter(const std::string& last, const std::string& parent, int digits);
// The last code of a table, in the order of the codes, among the rows that fulfil a condition; "" without rows.
std::string lastCode(store::Connection& connection, const std::string& column, const std::string& table,
                     const std::string& condition);

}  // namespace velmo::frame

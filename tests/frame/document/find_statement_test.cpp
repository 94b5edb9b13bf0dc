#include "frame/document/find_statement.h"

#include <gtest/gtest.h>

namespace {

using namespace velmo;
using frame::FindColumn;
using frame::FindCondition;

TEST(FindStatement, EachKindOfColumnHasItsCondition) {
  const text::DateTime day = text::DateTime::fromCalendar(2026, 3, 5);
  const FindColumn number{"Serial No.", "Transactions.DocNo", FindCondition::Number, "Give serial no. to find."};
  const FindColumn date{"Date", "Transactions.TranDate", FindCondition::OnDay};
  const FindColumn typed{"Terms", "Transactions.Nature", FindCondition::AsTyped, "Give terms of payment to find."};
  const FindColumn name{"Name", "Transactions.Text1", FindCondition::Contains, "Give customer name to find."};
  const struct {
    const FindColumn& column;
    const char* value;
    const char* condition;
    const char* refusal;
  } cases[] = {
      {number, "12", " And ((Transactions.DocNo) = 12)", ""},
      {number, "1,200", " And ((Transactions.DocNo) = 1200)", ""},
      {number, "", "", "Give serial no. to find."},
      {number, "1 or 1=1", "", "Give serial no. to find."},
      {date, "", " And ((Transactions.TranDate) = #03-05-2026#)", ""},
      {typed, "30%", " And ((Transactions.Nature) like '30%')", ""},
      {typed, "", "", "Give terms of payment to find."},
      {name, "O'Brien", " And ((Transactions.Text1) like '%O''Brien%')", ""},
      {name, "", "", "Give customer name to find."},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(std::string(test.column.caption) + " [" + test.value + "]");
    const auto condition = frame::findCondition(test.column, test.value, day);
    EXPECT_EQ(condition.value_or(""), test.condition);
    EXPECT_EQ(condition ? "" : condition.error(), test.refusal);
  }
}

}  // namespace

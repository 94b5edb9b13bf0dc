#include "session/rights_gate.h"

#include "support/new_company.h"
#include "support/queued_prompts.h"

namespace velmo::session {
namespace {

class Rights : public testing::Test {
 protected:
  Rights() {
    context_.KORDconn.open(schema::plainConnectionString);
    company_.run(
        context_.KORDconn,
        {"delete * from userrights where rightid=93 or rightid=94 or rightid=9999",
         "insert into userrights (RightID, RightType, Operator1, Operator9) values (93, 'sale invoices.', yes, no)",
         "insert into userrights (RightID, RightType, Operator1, Operator9) values (94, 'O''Neil''s.', no, yes)"});
  }

  test::NewCompany company_;
  LoginContext context_{schema::companyCatalog()};
  test::QueuedPrompts prompts_;
  RightsGate gate_{context_, prompts_};
};

TEST_F(Rights, ReadTheColumnOfTheOperator) {
  struct Row {
    int user, right;
    bool allowed;
  };
  const Row table[] = {
      {1, 93, true},   {0, 93, true},  {2, 93, false}, {2, 94, true},   {3, 93, true},   {10, 93, true},
      {10, 94, false}, {11, 93, true}, {11, 94, true}, {255, 94, true}, {2, 9999, true},  // a right without a row
  };
  for (const Row& row : table) {
    context_.UserID = row.user;
    EXPECT_EQ(gate_.allows(row.right), row.allowed) << row.user << " " << row.right;
  }
}

TEST_F(Rights, TellWhatIsNotAllowed) {
  context_.UserID = 2;
  prompts_.expect("Not Allowed", "You do not have access to sale invoices.");
  EXPECT_FALSE(gate_.demand(93));
  EXPECT_TRUE(gate_.demand(94));
  context_.UserID = 10;
  prompts_.expect("Not Allowed", "You do not have access to O'Neil's.");
  EXPECT_FALSE(gate_.demand(94));
}

TEST_F(Rights, ChangeWithoutANewLogin) {
  context_.UserID = 2;
  ASSERT_FALSE(gate_.allows(93));
  company_.run(context_.KORDconn, {"update userrights set operator1=no where rightid=93"});
  EXPECT_TRUE(gate_.allows(93));
}

}  // namespace
}  // namespace velmo::session

#include "demo_company/demonstration_company.h"

#include "demo_company/catalogue.h"
#include "demo_company/company_folder.h"
#include "demo_company/dice.h"
#include "demo_company/openings.h"
#include "demo_company/parties.h"
#include "demo_company/people.h"
#include "demo_company/trade.h"
#include "schema/company_schema.h"
#include "session/login.h"

namespace velmo::demo {
namespace {

constexpr std::uint32_t seed = 20260101;

void fillMasters(store::Connection& connection, Dice& dice) {
  store::Connection::Transaction transaction(connection);
  writePeople(connection);
  writeParties(connection, dice);
  writeCatalogue(connection, dice);
  writeOpenings(connection, dice);
  transaction.commit();
}

}  // namespace

void makeDemonstrationCompany(const std::filesystem::path& folder, const text::DateTime& now) {
  makeCompanyIn(folder, now, [&now](const std::string& connectionString) {
    Dice dice(seed);
    // The context is the administrator's; its connection is the only one.
    session::LoginContext context(schema::companyCatalog());
    context.KORDconn.open(connectionString);
    fillMasters(context.KORDconn, dice);
    session::fillLoginContext(context, session::LoginRecords(context.KORDconn));
    writeTrade(context, dice, now);
    context.KORDconn.close();
  });
}

}  // namespace velmo::demo

#include "demo_company/parties.h"

#include "demo_company/people.h"
#include "store/recordset/recordset.h"
#include "text/format.h"

namespace velmo::demo {
namespace {

constexpr const char* families[] = {"Abbott",  "Bristow",  "Castell", "Dunmore",  "Ellery",  "Farrow", "Garside",
                                    "Hurley",  "Irving",   "Jessop",  "Kendrick", "Lomax",   "Mercer", "Norwood",
                                    "O'Brien", "Prentice", "Quigley", "Ramsden",  "Stanton", "Turner"};
constexpr const char* customerTrades[] = {"Builders", "Plumbing & Heating", "Hardware Store"};
constexpr const char* vendorNames[] = {
    "Anvil Tool Works",      "Atlantic Fasteners",    "Beacon Electricals",    "Bluefin Power Tools",
    "Bridge Street Paints",  "Calder Steel & Wire",   "Corvus Abrasives",      "Delta Pipe Company",
    "Dovetail Hand Tools",   "Eastgate Locks",        "Everbright Lighting",   "Fenwick Valves",
    "Foundry Lane Castings", "Garnet Chemicals",      "Granite Safety Wear",   "Highfield Cables",
    "Holloway Brushware",    "Ironside Machinery",    "Juniper Garden Supply", "Keystone Adhesives",
    "Lakeside Plastics",     "Meridian Tools",        "Northern Bolt & Nut",   "Oakley Timber Products",
    "Pioneer Sanitary Ware", "Quayside Import House", "Redstone Cement Goods", "Summit Ladders",
    "Tideway Rubber & Hose", "Union Switchgear"};
static_assert(std::size(families) * std::size(customerTrades) == customerCount);
static_assert(std::size(vendorNames) == vendorCount);

constexpr const char* streets[] = {"Dock Road",   "High Street", "Mill Lane",    "Station Road", "Quarry Street",
                                   "Church Lane", "Bridge Road", "Market Place", "Canal Walk",   "Foundry Street"};
// As the sub regions from number 2 on.
constexpr const char* towns[] = {"Port Ellis", "Cape Rowan", "Sandhaven",  "Mill Bay",
                                 "Greenford",  "Ashbridge",  "Stonecroft", "Kings Fell"};
constexpr const char* contacts[] = {"Anna",  "Ben",   "Carla", "David", "Emma",
                                    "Frank", "Grace", "Henry", "Irene", "Jack"};

struct Party {
  std::string name;
  int code = 0;
  std::string contact;
  double creditLimit = 0;
  std::string terms;
  int employee = 1;
  int sector = 1;
  std::string branch = "";
  std::string accountTitle = "";
  std::string accountNo = "";
};

void addParty(store::Recordset& accounts, const Party& party, Dice& dice) {
  const int town = dice.between(0, static_cast<int>(std::size(towns)) - 1);
  const std::string address = std::to_string(dice.between(1, 180)) + " " + dice.pick(streets) + ", " + towns[town];
  const std::string phone = "555-0" + std::to_string(dice.between(100, 999));
  const std::string mobile = "555-7" + std::to_string(dice.between(100, 999));
  accounts.addNew({
      {"AccCode", party.code},
      {"AccName", party.name},
      {"Level1ID", party.code / 100000},
      {"Level2ID", party.code / 1000},
      {"Contact", party.contact},
      {"Address", address},
      {"Branch", party.branch},
      {"AccountTitle", party.accountTitle},
      {"AccountNo", party.accountNo},
      {"Phone", phone},
      {"Mobile", mobile},
      {"Fax", ""},
      {"EMail", "office@" + std::to_string(party.code) + ".example"},
      {"Website", ""},
      {"SalesTaxRegnNo", "17-" + std::to_string(party.code % 10000)},
      {"NTN", "48-" + std::to_string(party.code)},
      {"CreditLimit", party.creditLimit},
      {"CreditTerms", party.terms},
      {"Remarks", ""},
      {"Default", false},
      {"EmpID", party.employee},
      {"SectorID", party.sector},
      {"Region1ID", town / 2 + 2},
      {"Region2ID", town + 2},
  });
}

void writeCustomers(store::Recordset& accounts, Dice& dice) {
  constexpr const char* terms[] = {"Cash", "7 Days", "15 Days", "30 Days", "30 Days"};
  int code = firstCustomer;
  for (std::size_t trade = 0; trade < std::size(customerTrades); ++trade)
    for (const char* family : families) {
      const bool onAccount = dice.inHundred(80);  // a limit of 0 is no limit
      addParty(accounts,
               {.name = std::string(family) + " " + customerTrades[trade],
                .code = code++,
                .contact = std::string(dice.pick(contacts)) + " " + family,
                .creditLimit = onAccount ? dice.between(10, 60) * 500.0 : 0.0,
                .terms = dice.pick(terms),
                .employee = dice.between(1, 3),
                .sector = dice.between(2, sectorCount)},
               dice);
    }
}

void writeVendors(store::Recordset& accounts, Dice& dice) {
  int code = firstVendor;
  for (const char* name : vendorNames)
    addParty(accounts, {.name = name, .code = code++, .contact = dice.pick(contacts), .terms = "30 Days"}, dice);
}

void writeBanks(store::Recordset& accounts, Dice& dice) {
  constexpr const char* banks[] = {"First Harbour Bank", "Merchants Savings Bank", "Valley Cooperative Bank"};
  static_assert(std::size(banks) == bankCount);
  int code = firstBank;
  for (const char* bank : banks) {
    const std::string number = "0" + std::to_string(dice.between(10000000, 99999999));
    addParty(accounts,
             {.name = std::string(bank) + " (Acc No. " + number + ")",
              .code = code++,
              .contact = dice.pick(contacts),
              .terms = bank,  // bank accounts keep the bank's name here
              .branch = "Port Ellis",
              .accountTitle = "Harbour Hardware Wholesale",
              .accountNo = number},
             dice);
  }
}

}  // namespace

void writeParties(store::Connection& connection, Dice& dice) {
  store::Recordset accounts(connection, "select * from AccLevel3 where AccCode=0");
  writeCustomers(accounts, dice);
  writeVendors(accounts, dice);
  writeBanks(accounts, dice);
}

}  // namespace velmo::demo

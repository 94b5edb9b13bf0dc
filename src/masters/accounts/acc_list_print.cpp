#include "masters/accounts/acc_list_print.h"

#include "printing/list_sheet.h"
#include "printing/recordset_data.h"

namespace velmo::masters {

namespace {

constexpr const char* EveryType = "select * from acclevel1 order by typeid";
constexpr const char* EverySubType = "select * from acclevel2 order by level2id";

std::string accountsUnder(const std::string& types, const std::string& subTypes) {
  return "SHAPE {" + types + "} AS Level1 APPEND ((SHAPE {" + subTypes +
         "} AS Level2 APPEND ({select * from acclevel3 order by acccode} AS Level3 RELATE 'level2ID' TO 'level2ID') AS "
         "level3) AS level2 RELATE 'typeID' TO 'typeID') AS level2";
}

std::string typeOf(std::int64_t typeId) {
  return "select * from acclevel1 where typeid = " + std::to_string(typeId);
}

}  // namespace

std::string wholeChartOfAccounts() {
  return accountsUnder(EveryType, EverySubType);
}

std::string accountsOfType(std::int64_t typeId) {
  return accountsUnder(typeOf(typeId), EverySubType);
}

std::string accountsOfSubType(std::int64_t typeId, std::int64_t level2Id) {
  return accountsUnder(typeOf(typeId), "select * from acclevel2 where level2id = " + std::to_string(level2Id));
}

printing::Report accListPrint(const session::LoginContext& context, const store::Recordset& rows,
                              text::DateTime today) {
  using printing::mm;
  const printing::ListSheet sheet{.title = "Chart of Accounts",
                                  .levels = {{"Level1", "typeid", "type"}, {"level2", "level2id", "l2accname"}},
                                  .dataMember = "level3",
                                  .columns = {printing::codeColumn("Acc Code", "acccode"),
                                              {.heading = "Account Name", .dataField = "accname"},
                                              {.heading = "Contact", .dataField = "contact", .width = mm(38)},
                                              {.heading = "Telephone", .dataField = "phone", .width = mm(34)}},
                                  .counted = "Accounts"};
  return printing::listReport(context, sheet, std::make_shared<printing::RecordsetData>(rows), today);
}

}  // namespace velmo::masters

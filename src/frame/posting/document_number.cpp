#include "frame/posting/document_number.h"

namespace velmo::frame {

std::string yearCondition(BelongsTo belongsTo, std::int64_t FYID) {
  return belongsTo == BelongsTo::NoYear ? std::string() : " and fyid = " + std::to_string(FYID);
}

bool isTaken(store::Connection& connection, const DocumentNumber& number) {
  const store::Recordset found(connection,
                               "Select docno from transactions where docno = " + std::to_string(number.DocNo) +
                                   " and trantype = " + std::to_string(number.TranType) +
                                   yearCondition(number.belongsTo, number.FYID),
                               store::LockType::ReadOnly);
  return !found.isEmpty();
}

DocNoTaken::DocNoTaken()
    : StoreError(store::ErrorKind::Constraint,
                 "This Serial No. already exists. Saving this would create duplicate values.") {}

std::int64_t nextDocNo(store::Recordset& tran) {
  if (tran.isEmpty()) return 1;
  tran.setSort("docno asc");
  tran.moveLast();
  return tran.integer("docno") + 1;
}

}  // namespace velmo::frame

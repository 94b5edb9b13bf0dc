#include "frame/document/find_statement.h"

#include <set>

#include "frame/posting/day_text.h"
#include "store/connection/connection.h"
#include "text/blanks.h"
#include "text/number.h"

namespace velmo::frame {

namespace {

std::string foundRows(const FindType& type, int tranType, int fyid, std::string_view condition) {
  std::string documents = "(Transactions LEFT JOIN Employees ON Transactions.EmpID = Employees.EmpID)";
  if (type.location == FindLocation::Joined)
    documents = "(" + documents + " INNER JOIN StockLocation ON Transactions.LocationFrom = StockLocation.LocationID)";
  if (!type.joined.empty()) documents = "(" + documents + " " + std::string(type.joined) + ")";
  const std::string ofYear =
      type.belongsTo == BelongsTo::NoYear ? std::string() : " And ((Transactions.FYID) = " + std::to_string(fyid) + ")";
  return " FROM (" + documents +
         " INNER JOIN Users ON Transactions.UserAdded = Users.UserID) INNER JOIN Users AS Users_1 ON "
         "Transactions.UserEdited = Users_1.UserID Where (((Transactions.TranType) = " +
         std::to_string(tranType) + ")" + ofYear + std::string(condition) + ")";
}

std::string likeAnyOf(std::string_view column, const std::set<std::string>& texts) {
  std::string condition;
  for (const std::string& text : texts)
    condition += (condition.empty() ? " And ((" : " Or (") + std::string(column) + ") like " + store::quoted(text);
  return condition + ")";
}

}  // namespace

tl::expected<std::string, std::string> findCondition(const FindColumn& column, const std::string& value,
                                                     const text::DateTime& day) {
  const std::string begin = " And ((" + std::string(column.column) + ") ";
  if (column.condition == FindCondition::OnDay) return begin + "= " + store::dateLiteral(day) + ")";
  if (text::isBlank(value)) return tl::unexpected(std::string(column.refusal));
  switch (column.condition) {
    case FindCondition::Number: {
      const std::optional<double> number = text::numberFrom(value);
      if (!number) return tl::unexpected(std::string(column.refusal));
      return begin + "= " + text::numberText(*number) + ")";
    }
    case FindCondition::Contains:
      return begin + "like " + store::quoted("%" + value + "%") + ")";
    case FindCondition::DayText:
      if (const auto read = dayFrom(value))
        return likeAnyOf(column.column, {value, dayText(*read), formerDayText(*read)});
      break;
    case FindCondition::AsTyped:
    case FindCondition::OnDay:
      break;
  }
  return begin + "like " + store::quoted(value) + ")";
}

std::string findStatement(const FindType& type, int tranType, int fyid, std::string_view condition, FindOrder order) {
  return "SELECT " + std::string(type.select) + foundRows(type, tranType, fyid, condition) + " ORDER BY " +
         (order == FindOrder::ByDay ? "Transactions.TranDate, " : "") + "Transactions.DocNo";
}

std::string findCountStatement(const FindType& type, int tranType, int fyid, std::string_view condition) {
  return "SELECT Count(*) AS Documents" + foundRows(type, tranType, fyid, condition);
}

}  // namespace velmo::frame

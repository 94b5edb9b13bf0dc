#include "session/settings.h"

#include "store/recordset/recordset.h"

namespace velmo::session {
namespace {

store::Recordset rowOf(store::Connection& connection, std::string_view name) {
  return {connection, "select * from Settings where SettingName = " + store::quoted(name)};
}

}  // namespace

std::string setting(store::Connection& connection, std::string_view name) {
  const store::Recordset row = rowOf(connection, name);
  return row.isEmpty() ? std::string() : row.text("SettingValue");
}

void saveSetting(store::Connection& connection, std::string_view name, const std::string& value) {
  store::Recordset row = rowOf(connection, name);
  if (row.isEmpty())
    row.addNew({{"SettingName", std::string(name)}, {"SettingValue", value}});
  else
    row.update({{"SettingValue", value}});
}

std::string userSetting(std::string_view name, int userId) {
  return "User." + std::to_string(userId) + "." + std::string(name);
}

}  // namespace velmo::session

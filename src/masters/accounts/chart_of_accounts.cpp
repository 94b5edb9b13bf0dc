#include "masters/accounts/chart_of_accounts.h"

#include "frame/master/master_dialog.h"
#include "frame/picking/picker_screen.h"

namespace velmo::masters {
namespace {

frame::PickerType chartOfAccounts(int chartView) {
  const std::string ofType =
      chartView == wholeChart ? std::string() : " WHERE AccLevel1.TypeID=" + std::to_string(chartView);
  return {
      .screen = "ChartofAccounts",
      .title = "Find an Account",
      .columns = {{.caption = "Account", .field = "[AccLevel3].[AccCode] & '  ' & [AccLevel3].[AccName]", .width = 48},
                  {.caption = "Type", .field = "[AccLevel1].[TypeID] & '  ' & [AccLevel1].[Type]", .width = 30},
                  {.caption = "Sub type",
                   .field = "[AccLevel2].[Level2ID] & '  ' & [AccLevel2].[L2AccName]",
                   .width = 34}},
      .key = "AccLevel3.AccCode",
      .from =
          " FROM (AccLevel1 INNER JOIN AccLevel2 ON AccLevel1.TypeID = AccLevel2.TypeID) INNER JOIN AccLevel3 ON "
          "AccLevel2.Level2ID = AccLevel3.Level2ID" +
          ofType,
      .order = "AccLevel3.AccCode",
      .tables = {"AccLevel1", "AccLevel2", "AccLevel3"},
  };
}

}  // namespace

void pickAccount(frame::MasterDialog& dialog, int chartView) {
  dialog.workplace().context.ChartView = chartView;
  const auto show = [&dialog](const std::string& code) {
    const store::Recordset row(dialog.workplace().context.KORDconn,
                               "select level1id, level2id from acclevel3 where acccode=" + code);
    if (row.isEmpty()) return;
    std::vector<std::string> keys = {row.text("level1id"), row.text("level2id"), code};
    if (dialog.levels() == 2) keys.erase(keys.begin());
    dialog.goTo(keys);
  };
  frame::PickerScreen(chartOfAccounts(chartView), dialog.workplace(), show, &dialog).exec();
}

}  // namespace velmo::masters

#include "schema/company_tables.h"

namespace velmo::schema {

using enum store::ColumnType;

std::vector<store::Table> accountTables() {
  return {
      {.name = "FS", .columns = {{"FSID", Integer}, {"FSType", Text}}, .key = {"FSID"}},
      {.name = "FSNature",
       .columns = {{"NatureID", Integer}, {"FSID", Integer}, {"AccNatureTop", Text}},
       .key = {"NatureID"},
       .relations = {{"FSID", "FS", "FSID"}}},
      {.name = "AccLevel1",
       .columns = {{"TypeID", Integer}, {"Type", Text}, {"NatureID", Integer}},
       .key = {"TypeID"},
       .relations = {{"NatureID", "FSNature", "NatureID"}}},
      {.name = "AccLevel2",
       .columns = {{"Level2ID", Long}, {"L2AccName", Text}, {"TypeID", Integer}},
       .key = {"Level2ID"},
       .relations = {{"TypeID", "AccLevel1", "TypeID"}},
       .indexes = {{"AccLevel2_TypeID", {"TypeID"}}}},
      {.name = "AccLevel3",
       .columns = {{"AccCode", Long},       {"AccName", Text},     {"Level1ID", Integer},    {"Level2ID", Long},
                   {"Contact", Text},       {"Address", Text},     {"Branch", Text},         {"AccountTitle", Text},
                   {"AccountNo", Text},     {"Phone", Text},       {"Mobile", Text},         {"Fax", Text},
                   {"EMail", Text},         {"Website", Text},     {"SalesTaxRegnNo", Text}, {"NTN", Text},
                   {"CreditLimit", Double}, {"CreditTerms", Text}, {"Remarks", Text},        {"Default", YesNo},
                   {"EmpID", Integer},      {"SectorID", Integer}, {"Region1ID", Integer},   {"Region2ID", Integer}},
       .key = {"AccCode"},
       .relations = {{"Level2ID", "AccLevel2", "Level2ID"}},
       .indexes = {{"AccLevel3_Level1ID", {"Level1ID"}}, {"AccLevel3_Level2ID", {"Level2ID"}}}},
      // Emptied and filled at each balance sheet.
      {.name = "TempBS",
       .columns =
           {{"BalValue", Double}, {"TypeID", Integer}, {"NatureID", Integer}, {"Type", Text}, {"Balance", Double}},
       .key = {}},
  };
}

}  // namespace velmo::schema

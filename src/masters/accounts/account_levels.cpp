#include "masters/accounts/account_levels.h"

#include "frame/master/master_dialog.h"
#include "masters/codes/code_series.h"
#include "text/number.h"

namespace velmo::masters {
namespace {

using frame::MasterEntry;
using frame::WrittenColumn;

// The columns of AccLevel3 in the order of the array `AccBox`.
constexpr const char* boxColumns[] = {"Contact",        "Address",   "Branch",      "AccountTitle", "AccountNo",
                                      "Phone",          "Mobile",    "Fax",         "EMail",        "Website",
                                      "SalesTaxRegnNo", "NTN",       "CreditLimit", "CreditTerms",  "Remarks",
                                      "EmpID",          "Region1ID", "Region2ID",   "SectorID"};

std::string orNone(const std::string& key) {
  return key.empty() ? "0" : key;
}

// A number that was left out or is none counts as the given one.
WrittenColumn numberOr(const std::string& column, const std::string& otherwise) {
  return {column, [=](const MasterEntry& entry) -> store::Value {
            const std::string text = store::textOf(entry.value(column));
            return text::isNumeric(text) ? text : otherwise;
          }};
}

std::vector<WrittenColumn> accountColumns() {
  const auto typeOf = [](const MasterEntry& entry) -> store::Value { return *(entry.parentKeys.end() - 2); };
  const auto subTypeOf = [](const MasterEntry& entry) -> store::Value { return entry.parent(); };
  std::vector<WrittenColumn> columns = {{"AccCode"}, {"AccName"}, {"Level1ID", typeOf}, {"Level2ID", subTypeOf}};
  for (const char* column : {"Contact", "Address", "Branch", "AccountTitle", "AccountNo", "Phone", "Mobile", "Fax",
                             "EMail", "Website", "SalesTaxRegnNo", "NTN"})
    columns.push_back({column});
  columns.push_back(numberOr("CreditLimit", "0"));
  columns.push_back({"CreditTerms"});
  columns.push_back({"Remarks"});
  columns.push_back(
      {"Default", [](const MasterEntry& entry) -> store::Value { return store::isYes(entry.value("Default")); }});
  columns.push_back(numberOr("EmpID", "0"));
  columns.push_back(numberOr("SectorID", "1"));
  columns.push_back(numberOr("Region1ID", "1"));
  columns.push_back(numberOr("Region2ID", "1"));
  return columns;
}

}  // namespace

frame::MasterLevel subTypeLevel(const AccountWords& words) {
  return {
      .frame = "L2Frame",
      .list = "L2List",
      .suffix = "2",
      .heading = "Sub account types",
      .key = "Level2ID",
      .statement =
          [](const std::string& type) {
            return "SELECT * from Acclevel2 where typeid=" + orNone(type) + " order by level2id";
          },
      .columns = {{.caption = "Code", .field = "Level2ID", .width = 7},
                  {.caption = "Sub type", .field = "L2AccName", .width = 24}},
      .fields =
          {{.name = "SubCode", .caption = "Code", .column = "Level2ID", .use = frame::BoxUse::ShownOnly, .width = 8},
           {.name = "SubCatCodeTxt", .caption = "Name", .column = "L2AccName"}},
      .written = {{"level2id"},
                  {"l2accname"},
                  {"typeid", [](const MasterEntry& entry) -> store::Value { return entry.parent(); }}},
      .tests = {{frame::emptyText("Level2ID",
                                  "You have added maximum number of sub account types in the selected main account "
                                  "type.")},
                {frame::emptyText("L2AccName", "Enter sub account type to save."), "L2AccName"}},
      .deletion = frame::MasterDeletion{.none = {"No Sub Account Type", "There is no sub account type to be deleted."},
                                        .refusals = {frame::hasRows(
                                            "select * from acclevel3 where level2id = ",
                                            [](const MasterEntry& entry) { return entry.stored("Level2ID"); },
                                            [text = words.subTypeNotEmpty](const MasterEntry&) { return text; })},
                                        .question =
                                            [](const MasterEntry&) {
                                              return std::string(
                                                  "Are you sure, you want to delete this selected sub account type?");
                                            }},
      .firstColumn = "L2AccName",
      .formColumns = 2,
      .givenCode = frame::givenBy(subTypeCodes()),
  };
}

frame::MasterLevel accountLevel(const AccountWords& words, std::vector<frame::MasterField> details) {
  std::vector<frame::MasterField> fields = {
      {.name = "AccCode", .caption = "Code", .column = "AccCode", .use = frame::BoxUse::ShownOnly},
      {.name = "AccDefault",
       .caption = "Needed by the program",
       .column = "Default",
       .kind = frame::BoxKind::Check,
       .use = frame::BoxUse::ShownOnly},
      {.name = "AccCodeTxt", .caption = "Name", .column = "AccName", .span = 2}};
  fields.insert(fields.end(), std::make_move_iterator(details.begin()), std::make_move_iterator(details.end()));
  return {
      .frame = "L3Frame",
      .list = "L3List",
      .suffix = "3",
      .heading = "Accounts",
      .key = "AccCode",
      .statement =
          [](const std::string& subType) {
            return "SELECT * from Acclevel3 where level2id=" + orNone(subType) + " order by acccode";
          },
      .columns = {{.caption = "Code", .field = "AccCode", .width = 10},
                  {.caption = "Name", .field = "AccName", .width = 40}},
      .fields = std::move(fields),
      .written = accountColumns(),
      .addFirst = words.addFirst,
      .tests = {{frame::emptyText("AccCode", words.full)},
                {frame::emptyText("AccName", words.nameMissing), "AccName"},
                {frame::isYesColumn("Default", "This is a default account. You cannot edit it.")}},
      .deletion =
          frame::MasterDeletion{
              .none = words.none,
              .refusals = {frame::isYesColumn("Default", "This is a default account. You cannot delete it."),
                           frame::hasRows(
                               "select * from subtransactions where acccode = ",
                               [](const MasterEntry& entry) { return entry.stored("AccCode"); },
                               [](const MasterEntry& entry) {
                                 return "There have been ledger entries recorded for the selected account, " +
                                        entry.stored("AccName") + ".";
                               })},
              .question =
                  [subject = words.subject](const MasterEntry& entry) {
                    return "Are you sure, you want to delete this selected " + subject + ", " +
                           entry.stored("AccName") + "?";
                  }},
      .firstColumn = "AccName",
      .formColumns = 2,
      .givenCode = frame::givenBy(accountCodes()),
  };
}

frame::MasterField accountBox(const std::string& column, const std::string& caption, frame::BoxKind kind,
                              const std::string& initial, int span) {
  const auto found = std::ranges::find(boxColumns, column);
  return {.name = "AccBox_" + std::to_string(found - std::begin(boxColumns)),
          .caption = caption,
          .column = column,
          .kind = kind,
          .initial = initial,
          .span = span};
}

std::vector<frame::MasterField> aroundContact(std::vector<frame::MasterField> before,
                                              const std::vector<frame::MasterField>& behind) {
  for (const auto& [column, caption] :
       {std::pair("Contact", "Contact"), std::pair("Phone", "Phone"), std::pair("Address", "Address"),
        std::pair("Mobile", "Mobile"), std::pair("EMail", "E-mail"), std::pair("Fax", "Fax"),
        std::pair("Website", "Website"), std::pair("SalesTaxRegnNo", "Sales tax no.")})
    before.push_back(accountBox(column, caption));
  before.insert(before.end(), behind.begin(), behind.end());
  return before;
}

}  // namespace velmo::masters

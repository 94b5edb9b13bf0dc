#pragma once

#include <optional>
#include <string>
#include <vector>

// What can be brought in from a file, as data.
namespace velmo::masters {

enum class ImportKind {
  Accounts,
  Customers,
  Vendors,
  Items,
  Counts  // counted quantities of items: no rows of the books, a count sheet takes them
};

// What a field takes, and how its text is understood.
enum class ImportValue {
  Text,
  Amount,  // a number that is not negative
  YesNo,
  CostMethod,   // Yes for the weighted average
  AccountType,  // the rest name a row of the books, by its code, its name or both
  SubType,
  Category,
  SubCategory,
  Brand,
  Region,
  SubRegion,
  Sector,
  Employee
};

enum class ImportNeed { Required, Optional };

struct ImportField {
  std::string name;  // the column that it fills, or what it names: "ItemCode", "SubType"
  std::string caption;
  ImportValue value = ImportValue::Text;
  ImportNeed need = ImportNeed::Optional;
  std::string initial = {};             // what a new row has when nothing is given
  std::string refusal = {};             // the dialogs' words when it is missing or does not fit
  std::vector<std::string> words = {};  // other headings for it, the surest first
};

struct ImportDescriptor {
  ImportKind kind;
  std::string screen;  // "ImportCustomers"
  std::string title;
  std::string one;                        // "customer": as the messages name it
  std::string many;                       // "customers"
  std::string type;                       // the account type that all rows stand under, "" for any
  std::string full;                       // no code is left in the sub type
  std::string taken;                      // the name, of an item the code, is in the books
  std::string fresh = "new ";             // before what is brought in, where the check tells how much
  std::string possible = " can be made";  // and behind it
  std::string codeCaption = "New code";   // of the columns of the check
  std::string placeCaption = "Sub account type";
  std::vector<ImportField> fields;

  std::optional<std::size_t> field(const std::string& name) const;
};

const ImportDescriptor& importDescriptor(ImportKind kind);

}  // namespace velmo::masters

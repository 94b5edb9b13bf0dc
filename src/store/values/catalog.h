#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo::store {

enum class ColumnType { Text, Memo, Byte, Integer, Long, Double, Date, YesNo };

struct Column {
  std::string name;
  ColumnType type = ColumnType::Text;
  bool autoNumber = false;
};

struct Relation {
  std::string column;  // of the table that holds the relation
  std::string parentTable;
  std::string parentColumn;
  bool cascadeDelete = false;
};

struct Index {
  std::string name;
  std::vector<std::string> columns;
  bool unique = false;
  std::string filled = {};  // a column: the index holds the rows alone in which it is not null
};

struct Table {
  std::string name;
  std::vector<Column> columns;
  std::vector<std::string> key;
  std::vector<Relation> relations = {};
  std::vector<Index> indexes = {};

  const Column* find(std::string_view columnName) const;  // case-insensitive; nullptr when absent
};

// Sums that the database itself keeps of the lines of documents, by subject and day and by subject and month, so that
// a balance needs no reading of lines. A line counts while its document is not excluded and has a group, and it has a
// subject and, where there are any, a place; an amount that is null counts as 0. Amounts are summed up as whole
// ten-thousandths, which no order of adding and taking away makes drift. A line with an amount of more decimals, or of
// a hundred billion and more, stands apart from the totals and is read beside them. What a changed or deleted line or
// document takes from them, and brings back, stands beside them as well until a moment without work: its totals lie on
// as many pages of the file as it has lines.
struct KeptTotals {
  // When a new line is added to them: as it is written, or with others in a moment without work, which spares a
  // document of many lines the time. What is not added yet is read from the lines. Totals that are added to later are
  // kept of whole groups, too.
  enum class Adds { AtOnce, Later };
  enum class Subject { Number, Text };

  std::string name;       // the tables are "<name>Days", "<name>Months", "<name>Years" and "<name>Pending"
  std::string documents;  // a table
  std::string key;        // its key, a single whole number
  std::string group;      // columns of it: a whole number, a date, and Yes/No of which each one excludes
  std::string day;
  std::vector<std::string> excluded;
  std::string kind = {};  // one more column of it or none, a whole number: sums are kept by it as well
  std::string lines;      // a table that relates to the documents
  std::string lineKey;    // its key, an AutoNumber
  std::string link;       // columns of it: to the documents' key, what is summed up for, and the amounts
  std::string subject;
  Subject subjectType = Subject::Number;
  std::string place = {};  // one more column of it or none, a whole number: sums are kept by it as well
  std::vector<std::string> amounts;
  // What a sum of nothing but nulls is: nothing, or null as that of the lines. Told nulls are told by kind, and need
  // one.
  enum class Nulls { CountAsNothing, AreTold };
  Nulls nulls = Nulls::CountAsNothing;
  bool tellsNulls() const { return nulls == Nulls::AreTold; }
  // One of the amounts or none: lines without it are passed over, and those that lack another amount stand apart.
  std::string counted = {};
  Adds adds = Adds::AtOnce;
};

// Sums that the database itself keeps of lines of documents which belong together by columns of their own, so that what
// is open is found without what is settled. A line counts while its document is not excluded and it has all of those
// columns. Sums are of whole ten-thousandths and right at any moment: a document has few such lines. A line that lacks
// an amount, or has one of more decimals or of a hundred billion and more, is counted as standing apart; the lines of
// its group are read.
struct KeptBalances {
  std::string name;                   // of their table
  std::string documents;              // a table
  std::string key;                    // its key, a single whole number
  std::vector<std::string> excluded;  // columns of it, Yes/No of which each one excludes
  std::string lines;                  // a table that relates to the documents
  std::string lineKey;                // its key, an AutoNumber
  std::string link;                   // columns of it: to the documents' key, what belongs together by, and the amounts
  std::vector<Column> groups;
  std::string due;      // open is a group with more of it
  std::string settled;  // than of that
};

// The tables that statements may name. Free of any one company's schema.
class Catalog {
 public:
  explicit Catalog(std::vector<Table> tables, std::vector<KeptTotals> keptTotals = {},
                   std::vector<KeptBalances> keptBalances = {});
  const Table* find(std::string_view tableName) const;  // case-insensitive; nullptr when absent
  const std::vector<Table>& tables() const { return tables_; }
  const std::vector<KeptTotals>& keptTotals() const { return keptTotals_; }
  const std::vector<KeptBalances>& keptBalances() const { return keptBalances_; }

 private:
  std::vector<Table> tables_;
  std::vector<KeptTotals> keptTotals_;
  std::vector<KeptBalances> keptBalances_;
};

}  // namespace velmo::store

#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "masters/import/import_kind.h"
#include "store/connection/connection.h"
#include "text/like.h"

namespace velmo::masters {

// One row that others stand under or are classified by.
struct NamedRow {
  std::string code;  // its key as text
  std::string name;
  std::string parent = {};  // the key of the row above, "" at the top
};

// Upper and lower case count as the same, in every script.
std::string foldedName(const std::string& text);

// Of a code with wildcards, which counts as taken when a code is like it; nothing of other codes.
std::optional<text::LikePattern> wildcardsOf(const std::string& code);

// Rows found by what a person writes: the code, the name, or both as the lists show them ("12001  Trade Customers").
class NameLookup {
 public:
  enum class Outcome { None, One, Several };
  struct Answer {
    Outcome outcome = Outcome::None;
    std::size_t row = 0;  // when it is one
  };

  NameLookup() = default;
  explicit NameLookup(std::vector<NamedRow> rows);

  void add(NamedRow row);
  // Among the rows under one parent, or under any.
  Answer find(const std::string& text) const { return search(text, nullptr); }
  Answer findUnder(const std::string& parent, const std::string& text) const { return search(text, &parent); }
  const std::vector<NamedRow>& rows() const { return rows_; }
  const NamedRow& operator[](std::size_t row) const { return rows_[row]; }

 private:
  Answer search(const std::string& text, const std::string* parent) const;

  std::vector<NamedRow> rows_;
  std::unordered_map<std::string, std::vector<std::size_t>> byText_;
};

// What the books hold that decides about the rows of a file.
struct ImportBooks {
  NameLookup types;          // AccLevel1; only the kind's own type when it has one
  NameLookup subTypes;       // AccLevel2 of those
  NameLookup categories;     // of goods
  NameLookup subCategories;  // of goods
  NameLookup brands;
  NameLookup regions;
  NameLookup subRegions;
  NameLookup sectors;
  NameLookup employees;
  NameLookup goods;  // items that are kept in stock, by code and name
  std::map<std::string, std::string>
      lastCodes;                          // by sub type the highest account, by category the highest sub category
  std::unordered_set<std::string> taken;  // item codes, or names of accounts as takenName() gives them
};

// The name among its fellows: parties are alike by their names, other accounts by their names within a sub type.
std::string takenName(const ImportDescriptor& kind, const std::string& subType, const std::string& name);

ImportBooks readBooks(store::Connection& connection, const ImportDescriptor& kind);

}  // namespace velmo::masters

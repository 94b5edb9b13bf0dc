#include "masters/import/import_books.h"

#include "masters/import/import_values.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {
namespace {

// The first column is the key, the second the name, the third, if any, the key of the row above.
std::vector<NamedRow> readRows(store::Connection& connection, const std::string& statement) {
  std::vector<NamedRow> read;
  store::Recordset rows(connection, statement, store::LockType::ReadOnly);
  const bool hasParent = rows.fields().size() > 2;
  for (std::int64_t at = 0; at < rows.recordCount(); ++at)
    read.push_back({.code = store::textOf(rows.valueAt(at, 0)),
                    .name = store::textOf(rows.valueAt(at, 1)),
                    .parent = hasParent ? store::textOf(rows.valueAt(at, 2)) : std::string()});
  return read;
}

void readAccounts(store::Connection& connection, const ImportDescriptor& kind, ImportBooks& books) {
  const std::string ofKind = kind.type.empty() ? "" : " where typeid = " + kind.type;
  books.types = NameLookup(readRows(connection, "select typeid, type from acclevel1" + ofKind + " order by typeid"));
  books.subTypes = NameLookup(
      readRows(connection, "select level2id, l2accname, typeid from acclevel2" + ofKind + " order by level2id"));
  const std::string accounts = kind.type.empty() ? "" : " where level1id = " + kind.type;
  for (const NamedRow& account :
       readRows(connection, "select acccode, accname, level2id from acclevel3" + accounts + " order by acccode")) {
    books.lastCodes[account.parent] = account.code;
    books.taken.insert(takenName(kind, account.parent, account.name));
  }
}

void readCatalogue(store::Connection& connection, ImportBooks& books) {
  const std::string ofGoods = " where catid not like 'Service'";
  books.categories = NameLookup(readRows(connection, "select catid, catname from stocklevel1" + ofGoods));
  books.subCategories = NameLookup(
      readRows(connection, "select subcatid, subcatname, catid from stocklevel2" + ofGoods + " order by subcatid"));
  for (const NamedRow& subCategory : books.subCategories.rows()) books.lastCodes[subCategory.parent] = subCategory.code;
  books.brands = NameLookup(readRows(connection, "select brandid, brandname from brands order by brandid"));
  store::Recordset codes(connection, "select itemcode from stocklevel3", store::LockType::ReadOnly);
  for (std::int64_t at = 0; at < codes.recordCount(); ++at)
    books.taken.insert(foldedName(store::textOf(codes.valueAt(at, 0))));
}

}  // namespace

std::string foldedName(const std::string& text) {
  return text::foldedText(cleanText(text));
}

std::optional<text::LikePattern> wildcardsOf(const std::string& code) {
  if (text::escapedPattern(code) == code) return std::nullopt;
  return text::LikePattern(code);
}

NameLookup::NameLookup(std::vector<NamedRow> rows) {
  for (NamedRow& row : rows) add(std::move(row));
}

void NameLookup::add(NamedRow row) {
  for (const std::string& text : {row.code, row.name, row.code + " " + row.name}) {
    std::vector<std::size_t>& found = byText_[foldedName(text)];
    if (found.empty() || found.back() != rows_.size()) found.push_back(rows_.size());
  }
  rows_.push_back(std::move(row));
}

NameLookup::Answer NameLookup::search(const std::string& text, const std::string* parent) const {
  const std::string wanted = foldedName(text);
  const auto found = byText_.find(wanted);
  if (wanted.empty() || found == byText_.end()) return {};
  Answer answer;
  for (const std::size_t row : found->second) {
    if (parent && rows_[row].parent != *parent) continue;
    // A code names one row, even where it is also somebody's name.
    if (foldedName(rows_[row].code) == wanted) return {.outcome = Outcome::One, .row = row};
    answer = {.outcome = answer.outcome == Outcome::None ? Outcome::One : Outcome::Several, .row = row};
  }
  return answer;
}

std::string takenName(const ImportDescriptor& kind, const std::string& subType, const std::string& name) {
  return (kind.type.empty() ? subType + " " : std::string()) + foldedName(name);
}

ImportBooks readBooks(store::Connection& connection, const ImportDescriptor& kind) {
  ImportBooks books;
  if (kind.kind == ImportKind::Counts) {
    books.goods =
        NameLookup(readRows(connection, "select itemcode, itemname from stocklevel3 where catid not like 'Service'"));
    return books;
  }
  if (kind.kind == ImportKind::Items) {
    readCatalogue(connection, books);
    return books;
  }
  readAccounts(connection, kind, books);
  if (kind.kind != ImportKind::Customers) return books;
  books.regions = NameLookup(readRows(connection, "select region1id, region1name from regions1 order by region1id"));
  books.subRegions =
      NameLookup(readRows(connection, "select region2id, region2name, region1id from regions2 order by region2id"));
  books.sectors = NameLookup(readRows(connection, "select sectorid, sectorname from bizsectors order by sectorid"));
  books.employees = NameLookup(readRows(connection, "select empid, empname from employees order by empid"));
  return books;
}

}  // namespace velmo::masters

#pragma once

#include <map>
#include <optional>
#include <unordered_map>

#include "documents/count/count_book.h"

namespace velmo::documents {

enum class NotCounted { Stays, IsNil };

// What is counted against what the books hold, item by item. Counts are kept by item, whatever is read or listed anew.
class CountSheet {
 public:
  struct Line {
    Goods goods;
    std::optional<double> counted;
  };

  void setBook(CountBook book);
  // Lists the items of a category, "" for all, and those that are counted.
  void list(std::string_view categoryId);
  void clearCounts();

  const std::vector<LaterDocument>& later() const { return later_; }
  std::size_t size() const { return listed_.size(); }  // items that are listed
  const Line& line(std::size_t listed) const { return lines_[listed_[listed]]; }
  void setCounted(std::size_t listed, std::optional<double> quantity) { lines_[listed_[listed]].counted = quantity; }
  std::size_t counted() const;  // items that have a count

  // Gives the item of this code a count, and lists it where it was not; its place in the list, nothing when no item
  // that is kept in stock has the code. Letters of either case name an item.
  std::optional<std::size_t> count(std::string_view code, double quantity);
  // The same of many items; how many of them are kept in stock.
  std::size_t countAll(const std::map<std::string, double>& quantities);
  // The same with one more than was counted.
  std::optional<std::size_t> countOneMore(std::string_view code);

  static bool differs(const Line& line, NotCounted notCounted);
  // By how much the books are to change; nothing where they stay.
  static std::optional<double> difference(const Line& line, NotCounted notCounted);

 private:
  std::optional<std::size_t> find(std::string_view code) const;
  std::size_t listedPlace(std::size_t line);

  std::vector<Line> lines_;  // all, by code
  std::unordered_map<std::string, std::size_t> byCode_;
  std::vector<std::size_t> listed_;
  std::vector<LaterDocument> later_;
  std::string category_;
};

}  // namespace velmo::documents

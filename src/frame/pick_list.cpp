#include "frame/pick_list.h"

#include <strings.h>

#include <cstring>
#include <numeric>

#include "store/recordset.h"
#include "store/sql/like.h"

namespace velmo::frame {
namespace {

using store::sql::LikePattern;

bool isPlain(std::string_view typed) {
  return typed.find_first_of("%_[") == std::string_view::npos;
}

// The longest stretch of a typed text that is free of wildcards: no entry without it can match.
std::string_view longestLiteral(std::string_view typed) {
  std::string_view longest;
  std::size_t begin = 0;
  const auto endRun = [&](std::size_t end, std::size_t next) {
    if (end - begin > longest.size()) longest = typed.substr(begin, end - begin);
    begin = next;
  };
  for (std::size_t at = 0; at < typed.size(); ++at) {
    if (typed[at] == '%' || typed[at] == '_') endRun(at, at + 1);
    if (typed[at] != '[') continue;
    if (const std::size_t close = typed.find(']', at + 1); close != std::string_view::npos) {
      endRun(at, close + 1);
      at = close;
    }
  }
  endRun(typed.size(), typed.size());
  return longest;
}

bool contains(std::string_view text, std::string_view wanted) {
  return memmem(text.data(), text.size(), wanted.data(), wanted.size()) != nullptr;
}

}  // namespace

std::string PickListSource::statement() const {
  return select + (condition.empty() ? "" : " where " + condition) + (order.empty() ? "" : " order by " + order);
}

void PickList::Texts::clear() {
  buffer.clear();
  ends.clear();
}

void PickList::Texts::append(std::string_view text) {
  buffer += text;
  ends.push_back(static_cast<std::uint32_t>(buffer.size()));
}

std::string_view PickList::Texts::at(std::size_t i) const {
  return std::string_view(buffer).substr(beginOf(i), ends[i] - beginOf(i));
}

PickList::PickList(store::Connection& connection, PickListSource source)
    : connection_(connection), source_(std::move(source)) {}

void PickList::narrow(std::string_view typed) {
  readWhenStale();
  if (typed.find_first_not_of('%') == std::string_view::npos) {
    selectAll();
  } else if (isPlain(typed)) {
    const std::string folded = store::sql::foldedText(typed);
    searchPlain(folded, lastPlain_ && contains(folded, *lastPlain_));
    lastPlain_ = folded;
  } else {
    searchPattern(typed);
  }
}

void PickList::readWhenStale() {
  std::int64_t state = 0;
  for (const std::string& table : source_.tables) state += connection_.generationOf(table);
  if (readAt_ == state) return;
  read();
  readAt_ = state;
}

void PickList::read() {
  displays_.clear();
  keys_.clear();
  folded_.clear();
  const store::Recordset rows(connection_, source_.statement(), store::LockType::ReadOnly);
  const int display = rows.fieldIndex(source_.displayColumn);
  const int key = rows.fieldIndex(source_.keyColumn);
  for (std::int64_t row = 0, count = rows.recordCount(); row < count; ++row) {
    const std::string shown = store::textOf(rows.valueAt(row, display));
    displays_.append(shown);
    folded_.append(store::sql::foldedText(shown));
    keys_.append(store::textOf(rows.valueAt(row, key)));
  }
  selectAll();
}

void PickList::selectAll() {
  allPresent_ = true;
  present_.clear();
  lastPlain_.reset();
}

// Keeps those of the present entries that pass a test of their place among all entries.
template <typename Test>
void PickList::keepWhere(Test&& test) {
  if (allPresent_) {
    present_.resize(displays_.ends.size());
    std::iota(present_.begin(), present_.end(), 0U);
    allPresent_ = false;
  }
  std::erase_if(present_, [&](std::uint32_t entry) { return !test(entry); });
}

// One pass over the buffer of all entries; a find that reaches into the next entry is none.
void PickList::scanWhole(std::string_view folded) {
  allPresent_ = false;
  present_.clear();
  const std::string_view buffer = folded_.buffer;
  std::size_t from = 0;
  std::size_t entry = 0;
  while (from < buffer.size()) {
    const void* hit = memmem(buffer.data() + from, buffer.size() - from, folded.data(), folded.size());
    if (hit == nullptr) break;
    const auto at = static_cast<std::size_t>(static_cast<const char*>(hit) - buffer.data());
    while (folded_.ends[entry] <= at) ++entry;
    if (at + folded.size() <= folded_.ends[entry]) {
      present_.push_back(static_cast<std::uint32_t>(entry));
      from = folded_.ends[entry];
    } else {
      from = at + 1;
    }
  }
}

void PickList::searchPlain(const std::string& folded, bool extendsLast) {
  constexpr std::size_t passIsCheaper = 8;  // one pass over everything beats looking into an eighth of it one by one
  if (extendsLast && present_.size() < folded_.ends.size() / passIsCheaper) {
    keepWhere([&](std::uint32_t entry) { return contains(folded_.at(entry), folded); });
  } else {
    scanWhole(folded);
  }
}

void PickList::searchPattern(std::string_view typed) {
  selectAll();
  if (const std::string_view literal = longestLiteral(typed); !literal.empty()) {
    scanWhole(store::sql::foldedText(literal));
  }
  const LikePattern pattern("%" + std::string(typed) + "%");
  keepWhere([&](std::uint32_t entry) { return pattern.matches(displays_.at(entry)); });
}

int PickList::size() const {
  return static_cast<int>(allPresent_ ? displays_.ends.size() : present_.size());
}

std::string_view PickList::display(int entry) const {
  const auto place = static_cast<std::size_t>(entry);
  return displays_.at(allPresent_ ? place : present_[place]);
}

std::string_view PickList::key(int entry) const {
  const auto place = static_cast<std::size_t>(entry);
  return keys_.at(allPresent_ ? place : present_[place]);
}

int PickList::indexOf(std::string_view key) const {
  for (int entry = 0, count = size(); entry < count; ++entry) {
    const std::string_view other = this->key(entry);
    if (other.size() == key.size() && strncasecmp(other.data(), key.data(), key.size()) == 0) return entry;
  }
  return -1;
}

}  // namespace velmo::frame

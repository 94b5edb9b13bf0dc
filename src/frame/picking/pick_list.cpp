#include "frame/picking/pick_list.h"

#include <strings.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "store/recordset/text_rows.h"

namespace velmo::frame {
namespace {

bool isPlain(std::string_view typed) {
  return typed.find_first_of("%_[") == std::string_view::npos;
}

// The stretches of a typed text that are free of wildcards: no entry that lacks one of them can match.
std::vector<std::string_view> literalsOf(std::string_view typed) {
  std::vector<std::string_view> literals;
  std::size_t begin = 0;
  const auto endRun = [&](std::size_t end, std::size_t next) {
    if (end > begin) literals.push_back(typed.substr(begin, end - begin));
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
  return literals;
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
  Search search;
  if (typed.find_first_not_of('%') == std::string_view::npos) {
    search_.reset();
    return;
  }
  if (isPlain(typed)) {
    search.literal = text::foldedText(typed);
    search.among = foundWithin(search.literal);
  } else {
    search.literal = rarestLiteral(typed);
    search.rest.emplace("%" + std::string(typed) + "%");
  }
  search_ = std::move(search);
}

// The entries of the last search when it was for a part of the literal and all of them are found.
std::optional<std::vector<std::uint32_t>> PickList::foundWithin(std::string_view literal) {
  const bool fits = search_ && !search_->rest && literal.find(search_->literal) != std::string_view::npos;
  if (!fits || search_->next < (search_->among ? search_->among->size() : displays_.ends.size())) return std::nullopt;
  return std::move(search_->found);
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
  longestKey_ = 0;
  const std::string fields[] = {source_.displayColumn, source_.keyColumn};
  store::readTexts(connection_, source_.statement(), fields, [this](std::span<const std::string_view> texts) {
    displays_.append(texts[0]);
    text::appendFolded(folded_.buffer, texts[0]);
    folded_.ends.push_back(static_cast<std::uint32_t>(folded_.buffer.size()));
    keys_.append(texts[1]);
    longestKey_ = std::max(longestKey_, static_cast<int>(texts[1].size()));
  });
  foldedBytes_.fill(0);
  for (const char c : folded_.buffer) ++foldedBytes_[static_cast<unsigned char>(c)];
  search_.reset();
}

// The folded literal whose rarest byte is the rarest, the longer of two such.
std::string PickList::rarestLiteral(std::string_view typed) const {
  const auto order = [this](const std::string& literal) {
    std::uint32_t count = std::numeric_limits<std::uint32_t>::max();
    for (const char c : literal) count = std::min(count, foldedBytes_[static_cast<unsigned char>(c)]);
    return std::pair(count, -static_cast<std::ptrdiff_t>(literal.size()));
  };
  std::string rarest;
  for (const std::string_view literal : literalsOf(typed)) {
    std::string folded = text::foldedText(literal);
    if (rarest.empty() || order(folded) < order(rarest)) rarest = std::move(folded);
  }
  return rarest;
}

// The first entry, not before `from`, that holds the literal; the number of entries when there is none. A find that
// reaches into the next entry is none.
std::size_t PickList::nextHolding(std::string_view literal, std::size_t from) const {
  const std::string_view buffer = folded_.buffer;
  std::size_t entry = from;
  for (std::size_t at = folded_.beginOf(from); at < buffer.size(); ++at) {
    const void* hit = memmem(buffer.data() + at, buffer.size() - at, literal.data(), literal.size());
    if (hit == nullptr) break;
    at = static_cast<std::size_t>(static_cast<const char*>(hit) - buffer.data());
    while (folded_.ends[entry] <= at) ++entry;
    if (at + literal.size() <= folded_.ends[entry]) return entry;
  }
  return folded_.ends.size();
}

int PickList::sizeUpTo(int wanted) const {
  const auto most = static_cast<std::size_t>(std::max(0, wanted));
  if (!search_) return static_cast<int>(std::min(displays_.ends.size(), most));
  while (search_->found.size() < most && findNext()) {
  }
  return static_cast<int>(std::min(search_->found.size(), most));
}

// Looks at further entries until one fits; false when there is none.
bool PickList::findNext() const {
  Search& search = *search_;
  const std::size_t end = search.among ? search.among->size() : displays_.ends.size();
  while (search.next < end) {
    std::size_t entry = search.next++;
    if (search.among) {
      entry = (*search.among)[entry];
      if (folded_.at(entry).find(search.literal) == std::string_view::npos) continue;
    } else if (!search.literal.empty()) {
      entry = nextHolding(search.literal, entry);
      search.next = std::min(entry + 1, end);
      if (entry == end) return false;
    }
    if (search.rest && !search.rest->matches(folded_.at(entry))) continue;
    search.found.push_back(static_cast<std::uint32_t>(entry));
    return true;
  }
  return false;
}

std::size_t PickList::place(int entry) const {
  return search_ ? search_->found.at(static_cast<std::size_t>(entry)) : static_cast<std::size_t>(entry);
}

std::string_view PickList::display(int entry) const {
  return displays_.at(place(entry));
}

std::string_view PickList::key(int entry) const {
  return keys_.at(place(entry));
}

std::string_view PickList::name(int entry) const {
  std::string_view rest = display(entry);
  for (const std::string_view each : {key(entry), std::string_view(source_.beforeName)}) {
    if (!rest.starts_with(each)) return display(entry);
    rest.remove_prefix(each.size());
  }
  if (!rest.ends_with(source_.behindName)) return display(entry);
  rest.remove_suffix(source_.behindName.size());
  return rest;
}

int PickList::indexOf(std::string_view key) const {
  for (int entry = 0; entry < sizeUpTo(entry + 1); ++entry) {
    const std::string_view other = this->key(entry);
    if (other.size() == key.size() && strncasecmp(other.data(), key.data(), key.size()) == 0) return entry;
  }
  return -1;
}

}  // namespace velmo::frame

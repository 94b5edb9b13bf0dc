#include "frame/master/master_entry.h"

#include <algorithm>
#include <cctype>

#include "store/connection/connection.h"
#include "text/blanks.h"
#include "text/number.h"

namespace velmo::frame {

using Refusal = std::function<std::optional<std::string>(const MasterEntry&)>;

namespace {

// A code behind like, as it stands and whole: "A[1]" is not like itself.
std::vector<std::string> literalsOf(const std::string& code) {
  std::vector<std::string> literals = {store::quoted(code)};
  if (store::quotedWhole(code) != literals.front()) literals.push_back(store::quotedWhole(code));
  return literals;
}

}  // namespace

bool ColumnOrder::operator()(std::string_view left, std::string_view right) const {
  const auto lower = [](unsigned char c) { return std::tolower(c); };
  return std::ranges::lexicographical_compare(left, right, std::less<>(), lower, lower);
}

std::string MasterEntry::text(std::string_view column) const {
  const auto found = texts.find(column);
  return found == texts.end() ? stored(column) : found->second;
}

store::Value MasterEntry::value(std::string_view column) const {
  const auto found = values.find(column);
  if (found != values.end()) return found->second;
  return isNew || rows.bof() || rows.eof() ? store::Value() : rows.value(column);
}

std::string MasterEntry::stored(std::string_view column) const {
  return isNew || rows.bof() || rows.eof() ? std::string() : rows.text(column);
}

bool MasterEntry::finds(const std::string& statement) const {
  return !store::Recordset(connection(), statement, store::LockType::ReadOnly, store::Fetch::AsNeeded).isEmpty();
}

Refusal emptyText(const std::string& column, const std::string& words) {
  return
      [=](const MasterEntry& entry) { return text::isBlank(entry.text(column)) ? std::optional(words) : std::nullopt; };
}

Refusal notNumeric(const std::string& column, const std::string& words) {
  return [=](const MasterEntry& entry) {
    return text::isNumeric(entry.text(column)) ? std::nullopt : std::optional(words);
  };
}

Refusal noEntry(const std::string& column, const std::string& words) {
  return [=](const MasterEntry& entry) {
    return store::isNull(entry.value(column)) ? std::optional(words) : std::nullopt;
  };
}

// Codes differ only in more than the case of their letters, as the key's own order has it.
Refusal codeTaken(const std::string& column, const std::string& select, const std::string& words) {
  return [=](const MasterEntry& entry) -> std::optional<std::string> {
    const std::string own = entry.stored(column);
    for (const std::string& literal : literalsOf(entry.text(column))) {
      store::Recordset found(entry.connection(), select + literal, store::LockType::ReadOnly, store::Fetch::AsNeeded);
      for (; !found.eof(); found.moveNext())
        if (entry.isNew || found.text(column) != own) return words;
    }
    return std::nullopt;
  };
}

Refusal hasRows(const std::string& select, const std::function<std::string(const MasterEntry&)>& literal,
                const std::function<std::string(const MasterEntry&)>& words) {
  return [=](const MasterEntry& entry) {
    return entry.finds(select + literal(entry)) ? std::optional(words(entry)) : std::nullopt;
  };
}

Refusal codeHasRows(const std::string& column, const std::string& select,
                    const std::function<std::string(const MasterEntry&)>& words) {
  return [=](const MasterEntry& entry) {
    const auto findsRows = [&](const std::string& literal) { return entry.finds(select + literal); };
    return std::ranges::any_of(literalsOf(entry.stored(column)), findsRows) ? std::optional(words(entry))
                                                                            : std::nullopt;
  };
}

Refusal isYesColumn(const std::string& column, const std::string& words) {
  return [=](const MasterEntry& entry) {
    const bool yes = !entry.isNew && !entry.rows.isEmpty() && entry.rows.yes(column);
    return yes ? std::optional(words) : std::nullopt;
  };
}

}  // namespace velmo::frame

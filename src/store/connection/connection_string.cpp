#include "store/connection/connection_string.h"

#include <algorithm>
#include <cctype>

#include "store/values/error.h"

namespace velmo::store {
namespace {

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front()))) text.remove_prefix(1);
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) text.remove_suffix(1);
  return text;
}

std::string lowered(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

struct Property {
  std::string key;
  std::string value;
};

// Takes "key=value" off the front. A quote around the value protects semicolons; doubled, it stands for itself.
Property takeProperty(std::string_view& rest) {
  const std::size_t equals = rest.find_first_of("=;");
  Property property{.key = lowered(trimmed(rest.substr(0, equals))), .value = {}};
  if (equals == std::string_view::npos || rest[equals] == ';') {
    rest.remove_prefix(equals == std::string_view::npos ? rest.size() : equals + 1);
    return property;
  }
  rest = trimmed(rest.substr(equals + 1));
  const char quote = rest.empty() ? '\0' : rest.front();
  if (quote == '"' || quote == '\'') {
    std::size_t at = 1;
    for (; at < rest.size(); ++at) {
      if (rest[at] == quote && (at + 1 >= rest.size() || rest[at + 1] != quote)) break;
      if (rest[at] == quote) ++at;
      property.value += rest[at];
    }
    rest.remove_prefix(std::min(at + 1, rest.size()));
    rest.remove_prefix(std::min(rest.find(';'), rest.size()));
  } else {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    property.value = trimmed(rest.substr(0, end));
    rest.remove_prefix(end);
  }
  if (!rest.empty()) rest.remove_prefix(1);
  return property;
}

Provider providerNamed(const std::string& name) {
  const std::string lower = lowered(name);
  if (lower == "microsoft.jet.oledb.4.0") return Provider::Plain;
  if (lower == "msdatashape") return Provider::Hierarchical;
  throw StoreError(ErrorKind::Misuse, "The connection string names the provider \"" + name + "\", which is unknown.");
}

}  // namespace

ConnectionString parseConnectionString(std::string_view text) {
  ConnectionString parsed;
  std::string dataSource;
  std::string_view rest = text;
  while (!rest.empty()) {
    const Property property = takeProperty(rest);
    if (property.key == "provider") parsed.provider = providerNamed(property.value);
    if (property.key == "data source") dataSource = property.value;
    if (property.key == "jet oledb:database password") parsed.password = property.value;
  }
  if (dataSource.empty()) {
    throw StoreError(ErrorKind::Misuse, "The connection string does not name a database file.");
  }
  std::ranges::replace(dataSource, '\\', '/');
  parsed.dataSource = dataSource;
  return parsed;
}

}  // namespace velmo::store

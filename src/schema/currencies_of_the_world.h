#pragma once

#include <string>
#include <vector>

namespace velmo::schema {

// The currency that is tender in a country today, named in English.
struct CountryCurrency {
  std::string country;
  std::string name;    // "US Dollar"
  std::string symbol;  // "$"
};

// Every country of ISO 3166 that has a currency, by its name.
std::vector<CountryCurrency> currenciesOfTheWorld();

}  // namespace velmo::schema

#pragma once

#include <map>
#include <string>
#include <string_view>

#include "store/values/error.h"

namespace velmo::printing {

// Where the fields of rows stand, by the names that a design gives them: each is looked for once.
class FieldPlaces {
 public:
  // `find` gives the place of a name, or -1. Throws StoreError of kind Misuse then.
  template <typename Find>
  int of(std::string_view name, Find find) {
    const auto known = places_.find(name);
    if (known != places_.end()) return known->second;
    const int found = find(name);
    if (found < 0)
      throw store::StoreError(store::ErrorKind::Misuse, "The rows have no field '" + std::string(name) + "'.");
    return places_.emplace(name, found).first->second;
  }

 private:
  std::map<std::string, int, std::less<>> places_ = {};
};

}  // namespace velmo::printing

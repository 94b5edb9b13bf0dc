#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velmo::store {

class Connection;

// What a check has found in a company's file.
struct Finding {
  enum class Kind {
    Damage,   // of the structure, an index or a relation: the file is not to be written any more
    Total,    // a kept total that is not the sum of its lines: it can be made again
    Document  // a document that does not keep what its kind promises: somebody has to look at it
  };
  Kind kind = Kind::Damage;
  std::string words;          // what is wrong and where, as the subject of a sentence: "the table \"Items\" (...)"
  std::int64_t document = 0;  // its key
  bool cancelled = false;     // the document does not count
};

// One thing that can be checked, on a connection that sees the file as it is at one moment. Throws StoreError when it
// cannot be carried out; a failure of the kind Damaged is a finding as well.
struct IdleCheck {
  std::string name;
  std::function<std::vector<Finding>(Connection& snapshot)> look;
};

}  // namespace velmo::store

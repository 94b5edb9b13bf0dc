#pragma once

#include <string>

#include "store/connection/connection.h"

namespace velmo::reports {

// How many lines have the serial number, which decides what is read first.
enum class SerialHits {
  Few,  // the lines, and then their documents
  Many  // the documents by date: the first lines are there before the last are found
};

// Lines of all years. Throws StoreError.
SerialHits serialHits(store::Connection& books, const std::string& serial);

// The lines of the year whose serial numbers hold the text, which may have wildcards, by date: those of cancelled
// documents, too. The rows do not depend on `hits`.
std::string serialStatement(int fyid, const std::string& serial, SerialHits hits);

}  // namespace velmo::reports

#pragma once

#include <stdexcept>
#include <string>

namespace velmo::spreadsheet {

// A file that cannot be read; what() is a sentence for the user. Thrown by the parts of reading and turned into a value
// where reading begins.
class ReadFailure : public std::runtime_error {
 public:
  explicit ReadFailure(const std::string& sentence) : std::runtime_error(sentence) {}
};

// The sentences that more than one kind of file needs.
inline ReadFailure damagedFile() {
  return ReadFailure(
      "The file is damaged or incomplete. Get it again, or save it again from the program it comes from.");
}
inline ReadFailure notASpreadsheet() {
  return ReadFailure("The file is not a spreadsheet. Choose one of the kinds .xlsx, .ods or .csv.");
}
inline ReadFailure protectedFile() {
  return ReadFailure("The file is protected by a password. Save it without a password and choose it again.");
}
inline ReadFailure noRows() {
  return ReadFailure("The file has no sheet with rows.");
}
inline ReadFailure tooLarge() {
  return ReadFailure("The file holds more than this program takes in at once. Divide it into smaller files.");
}

}  // namespace velmo::spreadsheet

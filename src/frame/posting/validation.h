#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "frame/posting/document_values.h"
#include "text/date_time.h"

namespace velmo::frame {

// What a save is tested against beside the screen itself.
struct SaveSituation {
  bool addMode = true;
  double storedBalance = 0;  // `Balance` of the shown document as it stands in the store
  text::DateTime yearStart;
  text::DateTime yearEnd;
};

enum class OnFailure {
  Refuse,  // told, and the save stops
  Ask      // the user may go on
};

// One test of a document before it is saved. The order of a list of steps is the order in which the user meets them:
// only the first failure is told.
struct ValidationStep {
  std::function<bool(const DocumentValues&, const SaveSituation&)> fails;
  std::string_view text;
  std::string_view control = {};  // gets the focus after a refusal; none when empty
  OnFailure onFailure = OnFailure::Refuse;
  std::string_view title = "Cannot Save";
};

// The date within the financial year, both ends included, and a serial number of digits.
const std::vector<ValidationStep>& documentSteps();
// The same of a document whose date nobody gives.
const std::vector<ValidationStep>& undatedSteps();

ValidationStep locationIsListed();
ValidationStep jobIsListedOrBlank();
ValidationStep employeeIsListedOrBlank();
ValidationStep receivedWithinNetTotal(std::string_view text);

// Asks when the document takes the party's balance above its limit. A new document adds what stays open; a saved one
// takes its stored balance out first and adds its whole net total.
ValidationStep creditLimitKept();

}  // namespace velmo::frame

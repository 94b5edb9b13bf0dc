#pragma once

#include <string_view>
#include <vector>

#include "forms/recordset_model.h"
#include "frame/posting/document_number.h"

namespace velmo::frame {

enum class FindCondition {
  Number,    // equal, after a numeric test
  OnDay,     // equal, from the date picker
  AsTyped,   // like the text as it stands; the user may type wildcards
  Contains,  // the text anywhere in the column
  DayText    // like the text; one that is a date, in whichever form this program wrote it
};

// A column that can be searched: an entry of `ColList`.
struct FindColumn {
  std::string_view caption;
  std::string_view column;  // of the joined query: "Transactions.DocNo"
  FindCondition condition = FindCondition::AsTyped;
  std::string_view refusal = {};  // when the value is blank or no number
};

// Whether the documents looked for stand at a stock location.
enum class FindLocation { Joined, None };
// Whether some of them are cancelled.
enum class FindStatus { Shown, None };

// A Find screen: data only. Its name and right are those of the form.
struct FindType {
  std::string_view title;
  std::string_view select;  // the chosen columns, as they stand between SELECT and FROM
  std::vector<FindColumn> columns;
  std::vector<forms::TableColumn> result;
  FindLocation location = FindLocation::Joined;
  BelongsTo belongsTo = BelongsTo::Year;
  std::string_view joined = {};                   // a further table with its condition: "LEFT JOIN AccLevel3 ON ..."
  std::vector<std::string_view> pickedDays = {};  // fields of `result`: texts of dates that were picked
};

}  // namespace velmo::frame

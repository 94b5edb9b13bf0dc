#pragma once

#include <string>
#include <string_view>
#include <tl/expected.hpp>

#include "frame/document/find_type.h"
#include "text/date_time.h"

namespace velmo::frame {

// The condition that one column puts on the documents found, or the refusal of a value that is blank or no number.
tl::expected<std::string, std::string> findCondition(const FindColumn& column, const std::string& value,
                                                     const text::DateTime& day);

enum class FindOrder { ByNumber, ByDay };

// All documents of a type and year that meet a condition ("" for all); those of a day by number.
std::string findStatement(const FindType& type, int tranType, int fyid, std::string_view condition,
                          FindOrder order = FindOrder::ByNumber);
// The number of the same documents, as `Documents`.
std::string findCountStatement(const FindType& type, int tranType, int fyid, std::string_view condition);

}  // namespace velmo::frame

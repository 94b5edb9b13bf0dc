#pragma once

#include <QString>
#include <string_view>

namespace velmo::forms {

// A UTF-8 text as a list shows it: the first few hundred characters, with an ellipsis where that is not all. A view
// would take seconds to lay out a text of megabytes, at every look at it.
QString shownPart(std::string_view text);

}  // namespace velmo::forms

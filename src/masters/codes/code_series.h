#pragma once

#include "frame/master/given_code.h"

// The codes that the program gives, to what is added in a dialog and to what is brought in from a file.
namespace velmo::masters {

const frame::CodeSeries& subTypeCodes();      // of an account type: 12001
const frame::CodeSeries& accountCodes();      // of a sub type: 12001001
const frame::CodeSeries& subCategoryCodes();  // of a category of goods: TOO01

}  // namespace velmo::masters

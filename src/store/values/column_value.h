#pragma once

#include "store/values/catalog.h"
#include "store/values/value.h"

namespace velmo::store {

// The value as the column keeps it: numeric text becomes a number, whole numbers are rounded half to even and checked
// against the column's range, a Yes/No is No when null, trailing blanks leave a text, "" leaves a date or number
// refused. Throws StoreError (Value) naming the column when the value does not fit.
Value fitted(const Column& column, const Value& value);

}  // namespace velmo::store

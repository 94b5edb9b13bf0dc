#pragma once

#include <string_view>
#include <vector>

#include "store/rows/result_source.h"

namespace velmo::store {

struct SortItem {
  int field = 0;
  bool descending = false;
};

// "docno asc, [tran date] desc" against the fields of a result. Throws StoreError (Statement) when it does not fit.
std::vector<SortItem> parseSort(const ResultSource& source, std::string_view columns);

}  // namespace velmo::store

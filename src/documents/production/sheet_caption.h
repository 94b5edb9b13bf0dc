#pragma once

#include <QLabel>

#include "forms/look.h"

namespace velmo::documents {

// What an item sheet holds, in words above it.
inline QLabel* sheetCaption(const QString& words) {
  auto* caption = new QLabel(words);
  forms::makeCaption(*caption);
  return caption;
}

}  // namespace velmo::documents

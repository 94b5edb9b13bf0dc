#pragma once

#include <string>
#include <vector>

#include "printing/pieces.h"

namespace velmo::printing {

// A field of the level's row at a place of the heading.
struct HeadingField {
  std::string dataField = {};
  std::string format = {};
  Twips left = 0;
  Twips width = 0;
  Align align = Align::Left;
};

// What stands over the lines that belong to a row of an outer level.
struct LevelHeading {
  std::string name = {};                  // of the section
  std::vector<HeadingField> fields = {};  // side by side
};

// The outermost level stands on a band, those within it on a thin rule; `depth` counts from 0. Comes again on the pages
// that the level runs on to, and never stands without a line below it.
Section levelHeading(const LevelHeading& heading, std::size_t depth, Twips width);

}  // namespace velmo::printing

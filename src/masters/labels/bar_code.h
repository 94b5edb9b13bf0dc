#pragma once

#include <string>
#include <tl/expected.hpp>
#include <vector>

#include "printing/geometry.h"

namespace velmo::masters {

enum class Symbology { Code39, Ean13 };

// A bar code as widths: bar, space, bar and so on, beginning and ending with a bar. Each is counted in modules; Code 39
// has narrow elements of 1 and wide ones of 2.
struct BarCode {
  Symbology symbology = Symbology::Code39;
  std::vector<int> elements = {};
};

// EAN-13 when the code is 13 digits of which the last is the check digit of the others, else Code 39 between its start
// and stop marks, with small letters as capitals. A code with characters outside Code 39 gives the reason as a full
// sentence.
tl::expected<BarCode, std::string> barCodeOf(const std::string& code);

// A bar from the left end of the symbol.
struct Bar {
  printing::Twips left = 0;
  printing::Twips width = 0;
  bool guard = false;  // of EAN-13: stands out below the others
};

struct PlacedBars {
  std::vector<Bar> bars = {};
  printing::Twips width = 0;       // of the bars alone
  printing::Twips quietLeft = 0;   // blank ground that a scanner needs before them
  printing::Twips quietRight = 0;  // and behind
  printing::Twips module = 0;
};

// The bars as wide as readers like them, or as wide as the room with both quiet grounds allows, in whole Twips. No bars
// when they would come out narrower than a common reader can tell apart.
PlacedBars placeBars(const BarCode& code, printing::Twips room);

}  // namespace velmo::masters

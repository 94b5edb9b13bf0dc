#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "frame/posting/aging.h"
#include "frame/posting/fixed_accounts.h"

// What becomes of a document: an order becomes a challan, a challan an invoice.
namespace velmo::documents {

// A column of the new document and what it is filled from: a column of the document that is converted, whose date
// becomes a text, or the present time.
struct FilledColumn {
  std::string_view column;
  std::string_view from;
};
inline constexpr std::string_view presentTime = "";

enum class TotalOf {
  Lines,         // the net amounts of the lines
  WholeDocument  // with what is taken off and added below the lines
};

enum class PartySide { Debited, Credited };

// The ledger lines and the open item of a new invoice or bill: all of it on credit.
struct ConvertedPosting {
  frame::FixedAccount head;
  PartySide party;
  frame::AgingSide openItem;
};

// What the converted document tells of the new one: "D.C. No. 12".
struct ConversionTrace {
  std::string_view column;
  std::string_view words;           // before the number
  std::string_view dayColumn = {};  // gets the day of the conversion; "" for none
};

// One way from a saved document to a new one of another kind.
struct Conversion {
  int from = 0;
  int to = 0;
  std::string_view command;  // the button's name
  std::string_view caption;
  std::string_view refusal;  // of one that is cancelled
  ConversionTrace trace;
  std::string_view quantity = "StockOut";      // the column of the lines that is copied
  std::span<const FilledColumn> columns = {};  // beside those that every conversion fills
  TotalOf total = TotalOf::Lines;              // in TrAmount
  TotalOf words = TotalOf::Lines;              // in WordsAmt
  const ConvertedPosting* posting = nullptr;   // of documents with ledger lines
};

// All of them, in the order in which their commands stand on the screens.
std::span<const Conversion> conversions();

}  // namespace velmo::documents

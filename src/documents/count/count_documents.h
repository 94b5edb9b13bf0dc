#pragma once

#include <string>
#include <vector>

#include "documents/count/count_sheet.h"
#include "frame/document/document_type.h"

// The documents that bring the books to what was counted.
namespace velmo::documents {

struct CountLine {
  std::string code;
  std::string name;
  std::string unit;
  double quantity = 0;  // above zero
  double rate = 0;
  double amount = 0;
};

// An adjustment in or out, of at most 500 lines.
struct CountDocument {
  const frame::DocumentType* type = nullptr;
  std::vector<CountLine> lines;
  double total = 0;
};

// What is added first, then what is reduced, by item code, at the cost of each item; none when nothing differs. Of the
// items that are listed.
std::vector<CountDocument> countDocuments(const CountSheet& sheet, NotCounted notCounted);

struct CountSave {
  CountPlace place;
  std::string location;  // its name
  text::DateTime now;
};

// What stands against saving, as the screens of the documents say it; "" when nothing does.
std::string countRefusal(const session::LoginContext& context, const CountSave& save);

// Saves all documents on the day of the count as one durable change: when it returns their names, "Inventory Added No.
// 12", all of them are on the disk; when it throws StoreError, none is.
std::vector<std::string> saveCount(session::LoginContext& context, const std::vector<CountDocument>& documents,
                                   const CountSave& save);

}  // namespace velmo::documents

#pragma once

#include <string>
#include <vector>

#include "frame/master/master_type.h"

// The levels of the inventory catalogue, as the dialogs of goods and of services share them.
namespace velmo::masters {

// What the two dialogs say differently.
struct CatalogueWords {
  std::string subCategoryNotEmpty;
  std::string codeMissing;
  std::string codeTaken;
  std::string nameMissing;
  std::string subject;   // "item": of the sentence that tells of stock entries
  std::string question;  // "inventory item": of the question before one is deleted
};

// Sub categories: L2Frame, L2List, SubCatCode, SubCatCodeTxt. Their codes are proposed or typed by the dialog.
frame::MasterLevel subCategoryLevel(const CatalogueWords& words);

// Items: L3Frame, L3List and the given boxes. Boxes that a dialog does not have leave their columns as they are, and as
// they are in a new item: brand 1, prices and levels 0, one piece in a pack.
frame::MasterLevel itemLevel(const CatalogueWords& words, std::vector<frame::MasterField> fields);

// The element of the array `InvTxt` for a column of StockLevel3.
frame::MasterField itemBox(const std::string& column, const std::string& caption,
                           frame::BoxKind kind = frame::BoxKind::Text, const std::string& initial = {}, int span = 1);

}  // namespace velmo::masters

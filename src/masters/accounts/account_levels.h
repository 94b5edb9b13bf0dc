#pragma once

#include <string>
#include <vector>

#include "frame/master/master_type.h"

// The levels of the chart of accounts, as its dialogs share them.
namespace velmo::masters {

// What the dialogs of accounts and of parties say differently.
struct AccountWords {
  std::string addFirst;         // "Click on Add Button before adding record."
  std::string full;             // no code is left in the sub type
  std::string nameMissing;      // "Enter account name to save."
  std::string subTypeNotEmpty;  // why a sub type is not deleted
  std::string subject;          // "account": in the question before one is deleted
  frame::MasterNotice none;     // there is nothing to delete
};

// Sub types of a type: L2Frame, L2List, SubCode, SubCatCodeTxt.
frame::MasterLevel subTypeLevel(const AccountWords& words);

// Accounts of a sub type: L3Frame, L3List, AccCode, AccCodeTxt and the details. What has no box keeps its value, and is
// nothing, 0 or 1 in a new row.
frame::MasterLevel accountLevel(const AccountWords& words, std::vector<frame::MasterField> details);

// The element of the array `AccBox` for a column of AccLevel3.
frame::MasterField accountBox(const std::string& column, const std::string& caption,
                              frame::BoxKind kind = frame::BoxKind::Text, const std::string& initial = {},
                              int span = 1);

// Those boxes with the eight by which an account's holder is reached between them.
std::vector<frame::MasterField> aroundContact(std::vector<frame::MasterField> before,
                                              const std::vector<frame::MasterField>& behind);

}  // namespace velmo::masters

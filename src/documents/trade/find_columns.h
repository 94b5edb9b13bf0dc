#pragma once

#include <vector>

#include "frame/document/find_type.h"

// What the Find screens of documents with a party share.
namespace velmo::documents::find_columns {

inline constexpr const char* day = "dd-mm-yyyy";
inline constexpr const char* money = "0.00;(0.00)";

inline constexpr frame::FindColumn serialNo{"Serial No.", "Transactions.DocNo", frame::FindCondition::Number,
                                            "Give serial no. to find."};
inline constexpr frame::FindColumn date{"Date", "Transactions.TranDate", frame::FindCondition::OnDay};
inline constexpr frame::FindColumn customer{"Customer Name", "Transactions.Text1", frame::FindCondition::Contains,
                                            "Give customer name to find."};
inline constexpr frame::FindColumn vendor{"Vendor Name", "Transactions.Text1", frame::FindCondition::Contains,
                                          "Give vendor name to find."};
inline constexpr frame::FindColumn amount{"Amount", "Transactions.TrAmount", frame::FindCondition::Number,
                                          "Give amount to find."};

// The last columns of what was found: whose it is, where, and when it was saved.
std::vector<forms::TableColumn> lastColumns();

}  // namespace velmo::documents::find_columns

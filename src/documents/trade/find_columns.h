#pragma once

#include "frame/document/find_type.h"

// The columns that Find screens of documents with a party search by.
namespace velmo::documents::find_columns {

inline constexpr frame::FindColumn serialNo{"Serial No.", "Transactions.DocNo", frame::FindCondition::Number,
                                            "Give serial no. to find."};
inline constexpr frame::FindColumn date{"Date", "Transactions.TranDate", frame::FindCondition::OnDay};
inline constexpr frame::FindColumn customer{"Customer Name", "Transactions.Text1", frame::FindCondition::Contains,
                                            "Give customer name to find."};
inline constexpr frame::FindColumn vendor{"Vendor Name", "Transactions.Text1", frame::FindCondition::Contains,
                                          "Give vendor name to find."};
inline constexpr frame::FindColumn amount{"Amount", "Transactions.TrAmount", frame::FindCondition::Number,
                                          "Give amount to find."};

}  // namespace velmo::documents::find_columns

#pragma once

#include <cstdint>
#include <string_view>

namespace velmo::frame {

// An account that documents post to by number, with the name that is written into the ledger.
struct FixedAccount {
  std::int64_t code = 0;
  std::string_view name;
};

inline constexpr FixedAccount cashInHand{10001001, "Cash in Hand"};
inline constexpr FixedAccount carriageInwards{50001004, "Carriage & Freight Inwards"};
inline constexpr FixedAccount carriageOutwards{60001001, "Carriage & Freight Outwards"};

inline constexpr std::int64_t walkInCustomer = 12001001;
inline constexpr std::int64_t salesIncome = 40001001;
inline constexpr std::int64_t salesReturnsIncome = 40001002;
inline constexpr std::int64_t purchasesExpense = 50001002;
inline constexpr std::int64_t purchaseReturnsExpense = 50001003;

}  // namespace velmo::frame

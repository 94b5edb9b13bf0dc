#pragma once

#include <initializer_list>
#include <string>

// The types of accounts that the program knows by number: `AccLevel1.TypeID`, `AccLevel3.Level1ID`.
namespace velmo::schema::account_type {

inline constexpr int Cash = 100;
inline constexpr int Banks = 110;
inline constexpr int Customers = 120;
inline constexpr int Inventory = 130;
inline constexpr int Prepayments = 140;
inline constexpr int Vendors = 210;
inline constexpr int Payables = 220;
inline constexpr int AccumulatedProfit = 320;
inline constexpr int Income = 400;
inline constexpr int Expense = 500;
inline constexpr int Selling = 600;

// A condition on acclevel3 that accounts of any of the types fulfil: "Level1ID=120 or Level1ID=210".
std::string anyOf(std::initializer_list<int> types);
// Of those whom documents are for: customers and vendors.
std::string parties();
// Of those that money is taken into and paid from: cash and banks.
std::string money();

}  // namespace velmo::schema::account_type

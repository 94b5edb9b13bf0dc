#include "store/values/column_value.h"

#include <gtest/gtest.h>

#include <limits>

#include "store/small_shop.h"

namespace {

using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

constexpr const char* refused = "refused";

// What each kind of column makes of a typed text, as it is shown again; nothing is ever kept as another kind.
TEST(ColumnValue, TypedTextsBecomeTheColumnsKindOrAreRefused) {
  struct Case {
    const char* typed;
    const char* text;
    const char* byte;
    const char* integer;
    const char* whole;
    const char* real;
    const char* day;
    const char* yesNo;
  };
  const ColumnType types[] = {ColumnType::Text,   ColumnType::Byte, ColumnType::Integer, ColumnType::Long,
                              ColumnType::Double, ColumnType::Date, ColumnType::YesNo};
  for (const Case& c : {
           Case{"", "", refused, refused, refused, refused, refused, refused},
           Case{"  ", "", refused, refused, refused, refused, refused, refused},
           Case{"12", "12", "12", "12", "12", "12", refused, "True"},
           Case{"0", "0", "0", "0", "0", "0", refused, "False"},
           Case{"2.5", "2.5", "2", "2", "2", "2.5", refused, "True"},
           Case{"255.5", "255.5", refused, "256", "256", "255.5", refused, "True"},
           Case{"-1", "-1", refused, "-1", "-1", "-1", refused, "True"},
           Case{"32767.5", "32767.5", refused, refused, "32768", "32767.5", refused, "True"},
           Case{"2147483647", "2147483647", refused, refused, "2147483647", "2147483647", refused, "True"},
           Case{"2147483648", "2147483648", refused, refused, refused, "2147483648", refused, "True"},
           Case{"1e309", "1e309", refused, refused, refused, refused, refused, refused},
           Case{"nan", "nan", refused, refused, refused, refused, refused, refused},
           Case{"inf", "inf", refused, refused, refused, refused, refused, refused},
           Case{"0x10", "0x10", refused, refused, refused, refused, refused, refused},
           Case{"1; DROP TABLE Orders", "1; DROP TABLE Orders", refused, refused, refused, refused, refused, refused},
           Case{"12 apples", "12 apples", refused, refused, refused, refused, refused, refused},
           Case{"2026-11-22", "2026-11-22", refused, refused, refused, refused, "11/22/2026", refused},
           Case{"2026-02-30", "2026-02-30", refused, refused, refused, refused, refused, refused},
           Case{"Yes", "Yes", refused, refused, refused, refused, refused, "True"},
           Case{"False", "False", refused, refused, refused, refused, refused, "False"},
           Case{"O'Brien  ", "O'Brien", refused, refused, refused, refused, refused, refused},
           Case{"\xFF\xFE", "\xFF\xFE", refused, refused, refused, refused, refused, refused},
       }) {
    const char* expected[] = {c.text, c.byte, c.integer, c.whole, c.real, c.day, c.yesNo};
    for (std::size_t i = 0; i < std::size(types); ++i) {
      SCOPED_TRACE(std::string("\"") + c.typed + "\" in type " + std::to_string(static_cast<int>(types[i])));
      std::string kept = refused;
      EXPECT_EQ(failureOf([&] {
                  kept = textOf(fitted({.name = "C", .type = types[i]}, std::string(c.typed)));
                }).value_or(ErrorKind::Value),
                ErrorKind::Value);
      EXPECT_EQ(kept, expected[i]);
    }
  }
}

TEST(ColumnValue, ValuesOfOtherKindsFitOrAreRefused) {
  struct Case {
    ColumnType type;
    Value given;
    std::optional<Value> kept;
  };
  const auto noon = text::DateTime::fromSerial(46348.5);
  const double endless = std::numeric_limits<double>::infinity();
  for (const Case& c : {
           Case{ColumnType::Date, 46348.5, noon},
           Case{ColumnType::Date, 3e6, std::nullopt},
           Case{ColumnType::Date, -1e6, std::nullopt},
           Case{ColumnType::Date, noon, noon},
           Case{ColumnType::Double, endless, std::nullopt},
           Case{ColumnType::Double, true, -1.0},
           Case{ColumnType::Long, std::numeric_limits<std::int64_t>::max(), std::nullopt},
           Case{ColumnType::Long, std::numeric_limits<double>::quiet_NaN(), std::nullopt},
           Case{ColumnType::Byte, 255.5, std::nullopt},
           Case{ColumnType::Byte, 0.5, std::int64_t{0}},
           Case{ColumnType::Text, std::int64_t{-5}, std::string("-5")},
           Case{ColumnType::Memo, Null{}, Null{}},
           Case{ColumnType::YesNo, Null{}, false},
           Case{ColumnType::YesNo, 0.25, true},
       }) {
    SCOPED_TRACE(textOf(c.given) + " in type " + std::to_string(static_cast<int>(c.type)));
    std::optional<Value> kept;
    failureOf([&] { kept = fitted({.name = "C", .type = c.type}, c.given); });
    EXPECT_EQ(kept, c.kept);
  }
}

}  // namespace

#include "text/blanks.h"

#include <gtest/gtest.h>

namespace velmo::text {
namespace {

TEST(Blanks, AreCutAtBothEndsAndNowhereElse) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"  ", ""},
      {" a b\t", "a b"},
      {"\u00A0\u3000A-1\u2009\r\n", "A-1"},
      {"\uFEFF\u200Bé\u202F", "é"},
      {"à", "à"},             // its last byte is that of a no-break space
      {"\xA0", "\xA0"},       // no character
      {"a\u2014", "a\u2014"}  // begins as the blanks do
  };
  for (const auto& [text, cut] : cases) EXPECT_EQ(trimmed(text), cut) << text;
  EXPECT_TRUE(isBlank("\t\u00A0"));
  EXPECT_FALSE(isBlank(" . "));
}

}  // namespace
}  // namespace velmo::text

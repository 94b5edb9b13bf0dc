#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <random>

#include "store/sql/small_company.h"
#include "text/number.h"

namespace velmo::test {
namespace {

// A random expression of the dialect over one row of the small company, with the value it must have. Where the value
// is an error (a division by zero that no IIf guards), `fails` is set.
template <typename Type>
struct Sample {
  std::string text;
  std::optional<Type> value;
  bool fails = false;
};
using Number = Sample<double>;
using Text = Sample<std::string>;
using Truth = Sample<bool>;

// The row: PurchasePrice 10.5, SellingPrice 20, SellingPrice2 null, BrandID 2, ReorderLevel 0, Unit 'Pcs',
// Description null, ItemName "bolt 'short'", Status No.
const char* const row = " AS v FROM StockLevel3 WHERE ItemCode='b-200'";

std::string folded(std::string text) {
  while (text.ends_with(' ')) text.pop_back();
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  return text;
}

class Expressions {
 public:
  explicit Expressions(unsigned seed) : engine_(seed) {}

  Number number(int depth) {
    static const std::vector<Number> leaves = {{"0", 0.0},
                                               {"1", 1.0},
                                               {"2", 2.0},
                                               {"7", 7.0},
                                               {"-3", -3.0},
                                               {"0.5", 0.5},
                                               {"2.5", 2.5},
                                               {"1e3", 1000.0},
                                               {"PurchasePrice", 10.5},
                                               {"SellingPrice", 20.0},
                                               {"[sellingprice2]", {}},
                                               {"StockLevel3.BrandID", 2.0},
                                               {"ReorderLevel", 0.0},
                                               {"Null", {}}};
    if (depth == 0) return oneOf(leaves);
    const auto both = [&](const char* sign, auto calculate) {
      const Number a = number(depth - 1), b = number(depth - 1);
      Number made{"(" + a.text + sign + b.text + ")", {}, a.fails || b.fails};
      if (a.value && b.value && !made.fails) made.value = calculate(*a.value, *b.value, made.fails);
      return made;
    };
    const auto one = [&](const std::string& before, const char* after, auto calculate) {
      const Number a = number(depth - 1);
      Number made{before + a.text + after, {}, a.fails};
      if (a.value) made.value = calculate(*a.value);
      return made;
    };
    const auto wholes = [](auto calculate) {
      return [calculate](double a, double b, bool& fails) {
        const auto divisor = static_cast<long long>(std::nearbyint(b));
        fails = divisor == 0;
        return fails ? 0.0 : static_cast<double>(calculate(static_cast<long long>(std::nearbyint(a)), divisor));
      };
    };
    switch (below(14)) {
      case 0:
        return both("+", [](double a, double b, bool&) { return a + b; });
      case 1:
        return both(" - ", [](double a, double b, bool&) { return a - b; });
      case 2:
        return both("*", [](double a, double b, bool&) { return a * b; });
      case 3:
        return both("/", [](double a, double b, bool& fails) {
          fails = b == 0;
          return fails ? 0 : a / b;
        });
      case 4:
        return both("\\", wholes([](long long a, long long b) { return a / b; }));
      case 5:
        return both(" Mod ", wholes([](long long a, long long b) { return a % b; }));
      case 6:
        return one("(-", ")", [](double a) { return -a; });
      case 7:
        return one("Abs(", ")", [](double a) { return std::fabs(a); });
      case 8:
        return one("Int(", ")", [](double a) { return std::floor(a); });
      case 9:
        return one("Fix(", ")", [](double a) { return std::trunc(a); });
      case 10:
        return one("Round(", ")", [](double a) { return std::nearbyint(a); });
      case 11: {
        const Text a = text(depth - 1);
        Number made{"Len(" + a.text + ")", {}, a.fails};
        if (a.value) made.value = static_cast<double>(a.value->size());
        return made;
      }
      case 12: {
        const Truth a = truth(depth - 1);
        Number made{"(" + a.text + "+0)", {}, a.fails};
        if (a.value) made.value = *a.value ? -1 : 0;
        return made;
      }
      default:
        return chosen(depth, [&] { return number(depth - 1); });
    }
  }

  Text text(int depth) {
    static const std::vector<Text> leaves = {{"'abc'", "abc"},
                                             {"'ABC'", "ABC"},
                                             {"''", ""},
                                             {"'x y'", "x y"},
                                             {"'12'", "12"},
                                             {"'O''Brien'", "O'Brien"},
                                             {"\"q'q\"", "q'q"},
                                             {"Unit", "Pcs"},
                                             {"[Description]", {}},
                                             {"ItemName", "bolt 'short'"}};
    if (depth == 0) return oneOf(leaves);
    switch (below(5)) {
      case 0: {
        const Text a = text(depth - 1);
        const Number b = number(depth - 1);
        Text made{"(" + a.text + " & " + b.text + ")", {}, a.fails || b.fails};
        if (a.value || b.value) made.value = a.value.value_or("") + (b.value ? text::numberText(*b.value) : "");
        return made;
      }
      case 1: {
        const Text a = text(depth - 1), b = text(depth - 1);
        Text made{"(" + a.text + "&" + b.text + ")", {}, a.fails || b.fails};
        if (a.value || b.value) made.value = a.value.value_or("") + b.value.value_or("");
        return made;
      }
      case 2: {
        const Text a = text(depth - 1);
        const std::size_t count = below(5);
        const bool left = below(2) == 0;
        Text made{(left ? "Left(" : "Right(") + a.text + ", " + std::to_string(count) + ")", {}, a.fails};
        if (a.value)
          made.value =
              left ? a.value->substr(0, count) : a.value->substr(a.value->size() - std::min(count, a.value->size()));
        return made;
      }
      case 3: {
        const Text a = text(depth - 1);
        const std::size_t start = 1 + below(4), count = below(4);
        Text made{"Mid(" + a.text + "," + std::to_string(start) + "," + std::to_string(count) + ")", {}, a.fails};
        if (a.value) made.value = start > a.value->size() ? "" : a.value->substr(start - 1, count);
        return made;
      }
      default:
        return chosen(depth, [&] { return text(depth - 1); });
    }
  }

  Truth truth(int depth) {
    if (depth == 0)
      return oneOf(std::vector<Truth>{{"Yes", true}, {"False", false}, {"Status", false}, {"(Null=1)", {}}});
    switch (below(7)) {
      case 0:
        return compared(number(depth - 1), number(depth - 1), [](double a) { return a; });
      case 1:
        return compared(text(depth - 1), text(depth - 1), folded);
      case 2: {
        const Number a = number(depth - 1);
        return {"IsNull(" + a.text + ")", !a.value, a.fails};
      }
      case 3: {
        const Number a = number(depth - 1), low = number(0), high = number(0);
        Truth made{"(" + a.text + " Between " + low.text + " And " + high.text + ")", {}, a.fails};
        if (a.value && low.value && high.value)
          made.value = *a.value >= std::min(*low.value, *high.value) && *a.value <= std::max(*low.value, *high.value);
        return made;
      }
      case 4: {
        const Truth a = truth(depth - 1);
        Truth made{"(Not " + a.text + ")", {}, a.fails};
        if (a.value) made.value = !*a.value;
        return made;
      }
      default: {
        // Which side of And and Or is looked at first is the store's own affair, so neither may fail.
        const Truth a = sound([&] { return truth(depth - 1); }), b = sound([&] { return truth(depth - 1); });
        const bool conjunction = below(2) == 0;
        Truth made{"(" + a.text + (conjunction ? " And " : " Or ") + b.text + ")", {}};
        if (a.value && b.value)
          made.value = conjunction ? *a.value && *b.value : *a.value || *b.value;
        else if ((a.value && *a.value != conjunction) || (b.value && *b.value != conjunction))
          made.value = !conjunction;
        return made;
      }
    }
  }

  std::size_t below(std::size_t end) { return engine_() % end; }

 private:
  template <typename Samples>
  typename Samples::value_type oneOf(const Samples& samples) {
    return samples[below(samples.size())];
  }

  template <typename Make>
  std::invoke_result_t<Make> sound(Make make) {
    auto made = make();
    while (made.fails) made = make();
    return made;
  }

  // IIf looks at the branch it takes and at no other.
  template <typename Make>
  std::invoke_result_t<Make> chosen(int depth, Make make) {
    const Truth condition = truth(depth - 1);
    const auto yes = make(), no = make();
    auto made = condition.value.value_or(false) ? yes : no;
    made.fails = made.fails || condition.fails;
    made.text = "IIf(" + condition.text + ", " + yes.text + ", " + no.text + ")";
    return made;
  }

  template <typename Type, typename Key>
  Truth compared(const Sample<Type>& a, const Sample<Type>& b, Key key) {
    const char* const signs[] = {"=", "<>", "<", ">="};
    const std::size_t sign = below(std::size(signs));
    Truth made{"(" + a.text + signs[sign] + b.text + ")", {}, a.fails || b.fails};
    if (a.value && b.value) {
      const auto left = key(*a.value), right = key(*b.value);
      const bool outcomes[] = {left == right, left != right, left < right, left >= right};
      made.value = outcomes[sign];
    }
    return made;
  }

  std::mt19937 engine_;
};

std::string cellOf(double value) {
  return text::numberText(value);
}
std::string cellOf(const std::string& value) {
  return "'" + value + "'";
}
std::string cellOf(bool value) {
  return value ? "-1" : "0";
}

template <typename Type>
void expectValue(const SmallCompany& company, const Sample<Type>& sample) {
  const Answer answer = company.compileAndRun("SELECT " + sample.text + row);
  if (sample.fails) {
    EXPECT_NE(answer.error, "") << sample.text;
    EXPECT_FALSE(answer.error.starts_with("refused") || answer.error.starts_with("not prepared")) << answer.error;
    return;
  }
  const std::vector<std::vector<std::string>> expected = {{sample.value ? cellOf(*sample.value) : "null"}};
  EXPECT_EQ(answer.error, "") << sample.text;
  EXPECT_EQ(answer.rows, expected) << sample.text;
}

TEST(ExpressionDifference, RandomExpressionsHaveTheirValue) {
  const SmallCompany company;
  Expressions expressions(4711);
  for (int round = 0; round < 3000 && !testing::Test::HasFailure(); ++round) {
    const int depth = 1 + round % 4;
    switch (round % 3) {
      case 0: {
        const Number sample = expressions.number(depth);
        // Beyond this, whole numbers of the store and doubles part.
        if (!sample.value || std::fabs(*sample.value) < 1e12) expectValue(company, sample);
        break;
      }
      case 1:
        expectValue(company, expressions.text(depth));
        break;
      default:
        expectValue(company, expressions.truth(depth));
        break;
    }
  }
}

}  // namespace
}  // namespace velmo::test

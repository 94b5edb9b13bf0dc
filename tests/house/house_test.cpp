#include <fstream>
#include <iterator>

#include "house/function_lengths.h"
#include "house/plan.h"

namespace velmo::house {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::filesystem::path top = VELMO_TOP;

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file);
  if (!stream) throw std::runtime_error("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The plan is the table in docs/house.md.
TEST(House, IsBuiltAsThePlanSays) {
  const std::vector<PlannedRoom> plan = readPlan(contentOf(top / "docs/house.md"));
  ASSERT_GT(plan.size(), 40U);
  EXPECT_THAT(faultsOf(plan, readHouse(top / "src")), IsEmpty());
}

TEST(House, HasShortFilesAndFunctions) {
  constexpr std::ptrdiff_t longestFile = 400;
  std::vector<std::string> tooLong;
  std::size_t functions = 0;
  for (const std::string& file : readHouse(top / "src").files) {
    const std::string source = contentOf(top / "src" / file);
    if (const auto lines = std::ranges::count(source, '\n'); lines > longestFile)
      tooLong.push_back(file + " has " + std::to_string(lines) + " lines");
    for (const FunctionLength& function : functionsIn(source)) {
      ++functions;
      if (isTooLong(function))
        tooLong.push_back(file + ":" + std::to_string(function.line) + function.head + " has " +
                          std::to_string(function.lines) + " lines");
    }
  }
  EXPECT_THAT(tooLong, IsEmpty());
  EXPECT_GT(functions, 2000U);
}

TEST(House, FaultsAreFound) {
  const std::vector<PlannedRoom> plan = readPlan(
      "# X\n\n## Rooms\n\n| Room | Holds | May use |\n|---|---|---|\n| `text` | Words. | |\n"
      "| `store/rows` | Rows of `x`. | `text`, `store/file` |\n| `store/file` | Files. | `text` |\n"
      "| `shell` | All. | `store`, `text` |\n| `attic` | | |\n\n## More\n\n| `no` | room | |\n");
  const House house{.rooms = {{"text", {{"text/a.cpp", "text/a.h"}, {"text/a.cpp", "shell/s.h"}}},
                              {"store/rows", {{"store/rows/r.h", "store/file/f.h"}, {"store/rows/r.h", "text/a.h"}}},
                              {"store/file", {}},
                              {"shell", {{"shell/s.cpp", "store/rows/r.h"}, {"shell/s.cpp", "text/a.h"}}},
                              {"cellar", {}}}};
  EXPECT_THAT(faultsOf(plan, house),
              ElementsAre("text/a.cpp includes shell/s.h, which the plan does not allow",
                          "store/rows uses store/file, which does not stand above it in the plan",
                          "store/file does not need text", "attic is in the plan and not in the house",
                          "cellar is in the house and not in the plan"));
}

TEST(House, FunctionsAreMeasured) {
  const std::string source = R"cpp(#include "a{.h"
                                   namespace n {  // }
                                   const char* table[] = {"{", R"(})"};
                                   const auto data = of({.f = [] { return 1; }});
                                   struct S {
                                     int value = '}';
                                     S(int v) : value{v} { go(); }
                                     bool operator==(const S&) const { return value == 1'000; }
                                   };
                                   std::string text(int i = 0) {
                                     if (i) {
                                       return "}";
                                     }
                                     return {};
                                   }
                                   }  // namespace n
  )cpp";
  std::vector<std::pair<int, int>> lengths;
  for (const FunctionLength& function : functionsIn(source)) lengths.emplace_back(function.line, function.lines);
  EXPECT_THAT(lengths, ElementsAre(std::pair(7, 1), std::pair(8, 1), std::pair(10, 6)));
  EXPECT_TRUE(isTooLong({.lines = 61, .statements = 6}));
  EXPECT_FALSE(isTooLong({.lines = 61, .statements = 5}));
  EXPECT_FALSE(isTooLong({.lines = 60, .statements = 50}));
}

}  // namespace
}  // namespace velmo::house

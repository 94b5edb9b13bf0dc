#include "attack/failing_disk.h"

#include <gtest/gtest.h>

#include "attack/company_at_risk.h"

namespace velmo::attack {

static void PrintTo(const Work& work, std::ostream* out) {
  *out << work.name;
}

namespace {

constexpr long instantsOfEach = 4;  // spread over all writes of a work

class FaultyDisk : public testing::TestWithParam<Work> {};

TEST_P(FaultyDisk, LosesNothingThatWasSaved) {
  CompanyAtRisk company(GetParam());
  const long operations = company.operations();
  ASSERT_GT(operations, 4) << "the work writes nothing";
  for (const Fault fault : {Fault::Kill, Fault::Full, Fault::Broken}) {
    const long instants = std::min(instantsOfEach, operations);
    for (long i = 0; i < instants && !HasFailure(); ++i) {
      const long operation = 1 + i * (operations - 1) / std::max(1L, instants - 1);
      for (const std::string& problem : company.problemsAfter(operation, fault))
        ADD_FAILURE() << "fault " << static_cast<int>(fault) << " at " << operation << " of " << operations << ": "
                      << problem;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Works, FaultyDisk, testing::ValuesIn(works()),
                         [](const auto& work) { return std::string(work.param.name); });

}  // namespace
}  // namespace velmo::attack

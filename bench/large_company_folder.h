#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "demo_company/large_company.h"

namespace velmo::bench {

// A folder in the temporary directory with a company of that size, made at the first call and kept for later runs. The
// current directory becomes that folder.
void enterCompany(const demo::LargeCompany& size);

// The same of a shop with two years of trade in all kinds of documents.
void enterShop();

// A fresh folder with a copy of the present folder's company; removed with the object, current while it lives.
class CompanyCopy {
 public:
  CompanyCopy();
  ~CompanyCopy();
  CompanyCopy(const CompanyCopy&) = delete;
  CompanyCopy& operator=(const CompanyCopy&) = delete;

 private:
  std::filesystem::path before_;
  std::filesystem::path folder_;
};

// Durations of single runs, in seconds: by the clock, and of the processor for this thread.
class Durations {
 public:
  template <typename Work>
  void measure(Work&& work) {
    const double processorBegin = processorSeconds();
    const auto begin = std::chrono::steady_clock::now();
    work();
    seconds_.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    processor_ += processorSeconds() - processorBegin;
  }
  std::size_t count() const { return seconds_.size(); }
  double mean() const;
  double processorMean() const;
  double percentile(double share) const;  // 0.95: nineteen of twenty runs were at most so long

 private:
  static double processorSeconds();
  std::vector<double> seconds_;
  double processor_ = 0;
};

}  // namespace velmo::bench

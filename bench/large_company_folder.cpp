#include "large_company_folder.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <numeric>

#include "demo_company/shop.h"
#include "schema/company_file.h"
#include "session/clock.h"

namespace velmo::bench {

namespace fs = std::filesystem;

void enterCompany(const demo::LargeCompany& size) {
  const fs::path folder =
      fs::temp_directory_path() / ("velmo-bench-" + std::to_string(size.invoices) + "-" + std::to_string(size.items) +
                                   "-" + std::to_string(size.accounts));
  if (!fs::exists(folder / "Uninstall" / "Uninstall.MDB")) {
    fs::create_directories(folder);
    demo::makeLargeCompany(folder, size);
  }
  fs::current_path(folder);
  // One that is kept from an earlier version of the program is brought up to date.
  schema::prepareCompanyFile(schema::plainConnectionString, session::SystemClock().now());
}

void enterShop() {
  const fs::path folder = fs::temp_directory_path() / ("velmo-bench-shop-" + std::to_string(demo::shopRecipe));
  if (!fs::exists(folder / "Uninstall" / "Uninstall.MDB")) {
    fs::create_directories(folder);
    Durations made;
    made.measure([&] { demo::makeShop(folder); });
    std::fprintf(stderr, "The shop was made in %.0f s.\n", made.mean());
  }
  fs::current_path(folder);
  schema::prepareCompanyFile(schema::plainConnectionString, session::SystemClock().now());
}

CompanyCopy::CompanyCopy() : before_(fs::current_path()) {
  std::string pattern = (fs::temp_directory_path() / "velmo-bench-copy-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no folder for a copy of the company");
  folder_ = pattern;
  fs::create_directories(folder_ / "Uninstall");
  fs::copy(before_ / "Uninstall", folder_ / "Uninstall", fs::copy_options::recursive);
  fs::current_path(folder_);
}

CompanyCopy::~CompanyCopy() {
  std::error_code ignored;
  fs::current_path(before_, ignored);
  fs::remove_all(folder_, ignored);
}

double Durations::mean() const {
  return seconds_.empty()
             ? 0
             : std::accumulate(seconds_.begin(), seconds_.end(), 0.0) / static_cast<double>(seconds_.size());
}

double Durations::processorMean() const {
  return seconds_.empty() ? 0 : processor_ / static_cast<double>(seconds_.size());
}

double Durations::processorSeconds() {
  timespec time = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double Durations::percentile(double share) const {
  if (seconds_.empty()) return 0;
  std::vector<double> sorted = seconds_;
  std::sort(sorted.begin(), sorted.end());
  const auto index = static_cast<std::size_t>(std::ceil(share * static_cast<double>(sorted.size()))) - 1;
  return sorted[std::min(index, sorted.size() - 1)];
}

}  // namespace velmo::bench

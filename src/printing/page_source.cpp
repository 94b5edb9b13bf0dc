#include "printing/page_source.h"

#include <malloc.h>

#include <QElapsedTimer>
#include <algorithm>

namespace velmo::printing {

namespace {

constexpr std::size_t MostLookedAt = 16;  // more than a screen shows at once
constexpr int ManyPages = 500;            // leave holes behind that the system may have back

}  // namespace

PageSource::PageSource(Report report) : report_(std::move(report)), paginator_(std::make_unique<Paginator>(report_)) {}

PageSource::~PageSource() {
  paginator_.reset();
  report_.data.reset();
  lookedAt_.clear();
  if (made() > ManyPages) malloc_trim(0);
}

void PageSource::makeOne() {
  if (failure_) std::rethrow_exception(failure_);
  try {
    if (const std::optional<Page> page = paginator_->next()) return spool_.add(*page);
  } catch (...) {
    failure_ = std::current_exception();
    throw;
  }
  paginator_.reset();
  report_.data.reset();
}

std::shared_ptr<const Page> PageSource::page(int index) {
  while (index >= made() && !complete()) makeOne();
  if (index >= made()) return nullptr;
  const auto known = std::ranges::find(lookedAt_, index, [](const auto& entry) { return entry.first; });
  if (known != lookedAt_.end()) {
    std::rotate(lookedAt_.begin(), known, known + 1);
    return lookedAt_.front().second;
  }
  std::optional<Page> page = spool_.page(index);
  if (!page) return nullptr;
  if (lookedAt_.size() == MostLookedAt) lookedAt_.pop_back();
  return lookedAt_.emplace_front(index, std::make_shared<const Page>(std::move(*page))).second;
}

void PageSource::makeFor(int milliseconds) {
  QElapsedTimer timer;
  timer.start();
  while (!complete()) {
    makeOne();
    if (timer.elapsed() >= milliseconds) break;
  }
}

}  // namespace velmo::printing

#include "printing/page_source.h"

#include <QElapsedTimer>

namespace velmo::printing {

PageSource::PageSource(Report report) : report_(std::move(report)), paginator_(std::make_unique<Paginator>(report_)) {}

void PageSource::makeOne() {
  if (std::optional<Page> page = paginator_->next())
    pages_.push_back(std::move(*page));
  else
    paginator_.reset();
}

const Page* PageSource::page(int index) {
  while (index >= made() && !complete()) makeOne();
  return index < made() ? &pages_[static_cast<std::size_t>(index)] : nullptr;
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

#pragma once

#include <QByteArray>
#include <QImage>
#include <cstdint>
#include <optional>
#include <vector>

#include "printing/page.h"

namespace velmo::printing {

struct PageSize {
  Twips width = 0;
  Twips height = 0;
};

// Finished pages put by, to be looked at again in any order, in memory that hardly grows with them: packed, and from
// the first megabyte on in a file without a name in the folder for temporary files, of which nothing outlives the
// program. What the disk does not take stays in memory. Indexes are from 0.
class PageSpool {
 public:
  PageSpool() = default;
  ~PageSpool();
  PageSpool(const PageSpool&) = delete;
  PageSpool& operator=(const PageSpool&) = delete;

  void add(const Page& page);
  int count() const { return static_cast<int>(places_.size()); }
  PageSize sizeOf(int index) const { return places_[static_cast<std::size_t>(index)].size; }
  // As it was added; nothing when the file cannot be read.
  std::optional<Page> page(int index) const;
  // All texts of the page in a row, without what stands around them.
  QString words(int index) const;

 private:
  struct Place {
    std::int64_t start = 0;  // of the packed words, which the packed drawing follows
    int words = 0;           // bytes
    int drawing = 0;
    PageSize size = {};
  };

  quint32 pictureOf(const QImage& image);
  void moveToFile();
  QByteArray bytes(std::int64_t start, int size) const;

  std::vector<Place> places_;
  std::vector<QImage> pictures_;  // of all pages, each once
  QByteArray latest_;             // packed pages that are not in the file
  std::int64_t inFile_ = 0;       // bytes
  int file_ = -1;
  bool refused_ = false;  // by the disk
};

}  // namespace velmo::printing

#include "printing/page_spool.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <type_traits>

namespace velmo::printing {

namespace {

constexpr qsizetype MostInMemory = 1 << 20;  // bytes: some hundred pages of a list
constexpr int QuickPacking = 1;

struct PackedPicture {
  Frame at = {};
  quint32 image = 0;
};

class Packer {
 public:
  template <typename Item>
  void put(const std::vector<Item>& items) {
    static_assert(std::is_trivially_copyable_v<Item>);
    put(static_cast<quint32>(items.size()));
    bytes_.append(reinterpret_cast<const char*>(items.data()), static_cast<qsizetype>(items.size() * sizeof(Item)));
  }
  void put(quint32 number) { bytes_.append(reinterpret_cast<const char*>(&number), sizeof number); }
  QByteArray packed() const { return qCompress(bytes_, QuickPacking); }

 private:
  QByteArray bytes_;
};

class Unpacker {
 public:
  explicit Unpacker(const QByteArray& packed) : bytes_(qUncompress(packed)) {}
  template <typename Item>
  void take(std::vector<Item>& items) {
    items.resize(take());
    takeBytes(items.data(), items.size() * sizeof(Item));
  }
  quint32 take() {
    quint32 number = 0;
    takeBytes(&number, sizeof number);
    return number;
  }

 private:
  void takeBytes(void* to, std::size_t size) {
    std::copy_n(bytes_.constData() + at_, size, static_cast<char*>(to));
    at_ += static_cast<qsizetype>(size);
  }

  const QByteArray bytes_;
  qsizetype at_ = 0;
};

QString wordsOf(const QByteArray& packed) {
  const QByteArray plain = qUncompress(packed);
  return QString(reinterpret_cast<const QChar*>(plain.constData()),
                 plain.size() / static_cast<qsizetype>(sizeof(QChar)));
}

// In the folder for temporary files that stands on a disk, where there are two. -1 when there is none.
int namelessFile() {
  const char* folder = std::getenv("TMPDIR");
  std::string path = std::string(folder != nullptr ? folder : "/var/tmp") + "/velmo-pages-XXXXXX";
  const int file = ::mkostemp(path.data(), O_CLOEXEC);
  if (file >= 0) ::unlink(path.c_str());
  return file;
}

}  // namespace

PageSpool::~PageSpool() {
  if (file_ >= 0) ::close(file_);
}

quint32 PageSpool::pictureOf(const QImage& image) {
  const auto known = std::ranges::find(pictures_, image.cacheKey(), &QImage::cacheKey);
  if (known != pictures_.end()) return static_cast<quint32>(known - pictures_.begin());
  pictures_.push_back(image);
  return static_cast<quint32>(pictures_.size() - 1);
}

void PageSpool::add(const Page& page) {
  const Drawing& drawing = page.drawing;
  const auto* words = reinterpret_cast<const uchar*>(drawing.pool.constData());
  const QByteArray packedWords =
      qCompress(words, drawing.pool.size() * static_cast<qsizetype>(sizeof(QChar)), QuickPacking);
  std::vector<PackedPicture> pictures;
  for (const PlacedPicture& picture : drawing.pictures) pictures.push_back({picture.at, pictureOf(picture.image)});
  Packer packer;
  packer.put(static_cast<quint32>(page.number));
  packer.put(drawing.areas);
  packer.put(pictures);
  packer.put(drawing.strokes);
  packer.put(drawing.texts);
  const QByteArray packedDrawing = packer.packed();
  places_.push_back({.start = inFile_ + latest_.size(),
                     .words = static_cast<int>(packedWords.size()),
                     .drawing = static_cast<int>(packedDrawing.size()),
                     .size = {page.width, page.height}});
  latest_ += packedWords;
  latest_ += packedDrawing;
  if (latest_.size() >= MostInMemory && !refused_) moveToFile();
}

void PageSpool::moveToFile() {
  if (file_ < 0) file_ = namelessFile();
  refused_ = file_ < 0 ||
             ::pwrite(file_, latest_.constData(), static_cast<std::size_t>(latest_.size()), inFile_) != latest_.size();
  if (refused_) return;
  inFile_ += latest_.size();
  latest_.resize(0);
}

// Nothing when the file cannot be read.
QByteArray PageSpool::bytes(std::int64_t start, int size) const {
  if (start >= inFile_) return latest_.mid(start - inFile_, size);
  QByteArray read(size, Qt::Uninitialized);
  return ::pread(file_, read.data(), static_cast<std::size_t>(size), start) == size ? read : QByteArray();
}

QString PageSpool::words(int index) const {
  const Place& place = places_[static_cast<std::size_t>(index)];
  return wordsOf(bytes(place.start, place.words));
}

std::optional<Page> PageSpool::page(int index) const {
  const Place& place = places_[static_cast<std::size_t>(index)];
  const QByteArray packed = bytes(place.start, place.words + place.drawing);
  if (packed.isEmpty()) return std::nullopt;
  Unpacker unpacker(packed.sliced(place.words));
  Page page{.number = static_cast<int>(unpacker.take()), .width = place.size.width, .height = place.size.height};
  Drawing& drawing = page.drawing;
  drawing.pool = wordsOf(packed.first(place.words));
  unpacker.take(drawing.areas);
  std::vector<PackedPicture> pictures;
  unpacker.take(pictures);
  for (const PackedPicture& picture : pictures) drawing.pictures.push_back({picture.at, pictures_[picture.image]});
  unpacker.take(drawing.strokes);
  unpacker.take(drawing.texts);
  return page;
}

}  // namespace velmo::printing

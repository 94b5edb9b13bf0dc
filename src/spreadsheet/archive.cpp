#include "spreadsheet/archive.h"

#include <zip.h>

namespace velmo::spreadsheet {
namespace {

// A part that unfolds to more than this is not a list that somebody keeps.
constexpr qint64 longestPart = qint64{1} << 30;

}  // namespace

ArchivePart::ArchivePart(zip_file* part) : part_(part) {
  QIODevice::open(QIODevice::ReadOnly);
}

ArchivePart::~ArchivePart() {
  zip_fclose(part_);
}

qint64 ArchivePart::readData(char* data, qint64 most) {
  if (most == 0) return 0;  // asked for at the end of a buffer; no end of the part
  if (ended_) return -1;
  const zip_int64_t read = zip_fread(part_, data, static_cast<zip_uint64_t>(most));
  damaged_ = read < 0;
  taken_ += std::max<zip_int64_t>(read, 0);
  tooLong_ = taken_ > longestPart;
  ended_ = read <= 0 || tooLong_;
  return ended_ ? -1 : read;
}

void ArchivePart::check() {
  while (!ended_) skip(1 << 16);
  if (tooLong_) throw tooLarge();
  if (damaged_) throw damagedFile();
}

Archive::Archive(const std::filesystem::path& file) : archive_(zip_open(file.c_str(), ZIP_RDONLY, nullptr)) {
  if (!archive_) throw damagedFile();
}

Archive::~Archive() {
  zip_discard(archive_);
}

bool Archive::has(const std::string& part) const {
  return zip_name_locate(archive_, part.c_str(), ZIP_FL_NOCASE) >= 0;
}

std::unique_ptr<ArchivePart> Archive::open(const std::string& part) const {
  zip_stat_t facts;
  if (zip_stat(archive_, part.c_str(), ZIP_FL_NOCASE, &facts) != 0) throw damagedFile();
  if ((facts.valid & ZIP_STAT_ENCRYPTION_METHOD) && facts.encryption_method != ZIP_EM_NONE) throw protectedFile();
  if ((facts.valid & ZIP_STAT_SIZE) && facts.size > static_cast<zip_uint64_t>(longestPart)) throw tooLarge();
  zip_file* opened = zip_fopen_index(archive_, facts.index, 0);
  if (!opened) throw damagedFile();
  return std::make_unique<ArchivePart>(opened);
}

}  // namespace velmo::spreadsheet

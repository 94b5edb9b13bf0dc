#include "spreadsheet/packed_rows.h"

#include <zip.h>

#include <QByteArray>
#include <algorithm>
#include <cerrno>
#include <optional>

#include "spreadsheet/archive.h"

namespace velmo::spreadsheet {
namespace {

constexpr zip_uint32_t quickPacking = 3;  // a fifth larger than usual, in two fifths of the time

// The sheet, from its beginning over the rows to its end, as the archive asks for it.
class WholeSheet {
 public:
  WholeSheet(QByteArray before, std::FILE* rows, QByteArray behind)
      : before_(std::move(before)), rows_(rows), behind_(std::move(behind)) {
    zip_error_init(&error_);
    std::fseek(rows_, 0, SEEK_END);
    rowsSize_ = std::ftell(rows_);
  }
  ~WholeSheet() { zip_error_fini(&error_); }
  WholeSheet(const WholeSheet&) = delete;
  WholeSheet& operator=(const WholeSheet&) = delete;

  bool isThere() const { return rowsSize_ >= 0; }
  double share() const { return static_cast<double>(at_) / static_cast<double>(size()); }

  static zip_int64_t answer(void* sheet, void* data, zip_uint64_t size, zip_source_cmd_t command) {
    return static_cast<WholeSheet*>(sheet)->answer(data, size, command);
  }

 private:
  std::int64_t size() const { return before_.size() + rowsSize_ + behind_.size(); }

  zip_int64_t answer(void* data, zip_uint64_t size, zip_source_cmd_t command) {
    switch (command) {
      case ZIP_SOURCE_OPEN:
        at_ = 0;
        std::rewind(rows_);
        return 0;
      case ZIP_SOURCE_READ:
        return read(static_cast<char*>(data), static_cast<std::int64_t>(size));
      case ZIP_SOURCE_STAT: {
        auto* facts = static_cast<zip_stat_t*>(data);
        zip_stat_init(facts);
        facts->size = static_cast<zip_uint64_t>(this->size());
        facts->valid = ZIP_STAT_SIZE;
        return sizeof *facts;
      }
      case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&error_, data, size);
      case ZIP_SOURCE_SUPPORTS:
        return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                              ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
      default:
        return 0;
    }
  }

  zip_int64_t read(char* to, std::int64_t most) {
    const std::int64_t behindRows = before_.size() + rowsSize_;
    std::int64_t taken = 0;
    if (at_ < before_.size()) {
      taken = copy(before_, at_, to, most);
    } else if (at_ < behindRows) {
      taken = static_cast<std::int64_t>(
          std::fread(to, 1, static_cast<std::size_t>(std::min(most, behindRows - at_)), rows_));
      if (taken == 0) {
        zip_error_set(&error_, ZIP_ER_READ, errno);
        return -1;
      }
    } else {
      taken = copy(behind_, at_ - behindRows, to, most);
    }
    at_ += taken;
    return taken;
  }

  static std::int64_t copy(const QByteArray& from, std::int64_t at, char* to, std::int64_t most) {
    const std::int64_t taken = std::min<std::int64_t>(most, from.size() - at);
    std::copy_n(from.constData() + at, taken, to);
    return taken;
  }

  QByteArray before_;
  std::FILE* rows_;
  std::int64_t rowsSize_ = 0;
  QByteArray behind_;
  std::int64_t at_ = 0;
  zip_error_t error_ = {};
};

// The sheet without its rows; nothing when it is not whole. The library does not look whether its files took
// everything.
std::optional<QByteArray> emptySheet(const std::filesystem::path& workbook, const std::string& part) {
  try {
    const Archive archive(workbook);
    const auto sheet = archive.open(part);
    QByteArray text = sheet->readAll();
    sheet->check();
    return text.endsWith("</worksheet>") ? std::optional(text) : std::nullopt;
  } catch (const ReadFailure&) {
    return std::nullopt;
  }
}

}  // namespace

Packing packRows(const std::filesystem::path& workbook, const std::string& sheetPart, const RowsFile& rows,
                 const std::function<bool(double share)>& goesOn) {
  constexpr QByteArrayView place = "<sheetData>";
  const std::optional<QByteArray> empty = emptySheet(workbook, sheetPart);
  const qsizetype found = empty ? empty->indexOf(place) : -1;
  if (found < 0) return Packing::Failed;
  const qsizetype end = found + place.size();
  WholeSheet sheet(empty->first(end), rows.get(), empty->sliced(end));
  zip_t* archive = sheet.isThere() ? zip_open(workbook.c_str(), 0, nullptr) : nullptr;
  if (!archive) return Packing::Failed;

  struct Observer {
    const WholeSheet& sheet;
    const std::function<bool(double)>& goesOn;
    bool stopped = false;
  } observer{sheet, goesOn};
  const auto stop = [](zip_t*, void* data) {
    auto* watching = static_cast<Observer*>(data);
    watching->stopped = watching->stopped || !watching->goesOn(watching->sheet.share());
    return watching->stopped ? 1 : 0;
  };
  // A part that takes the place of one keeps the way in which that was packed.
  const zip_int64_t old = zip_name_locate(archive, sheetPart.c_str(), 0);
  const bool deleted = old >= 0 && zip_delete(archive, static_cast<zip_uint64_t>(old)) == 0;
  zip_source_t* source = deleted ? zip_source_function(archive, WholeSheet::answer, &sheet) : nullptr;
  const zip_int64_t part = source ? zip_file_add(archive, sheetPart.c_str(), source, 0) : -1;
  if (source && part < 0) zip_source_free(source);
  const bool prepared =
      part >= 0 &&
      zip_set_file_compression(archive, static_cast<zip_uint64_t>(part), ZIP_CM_DEFLATE, quickPacking) == 0 &&
      zip_register_cancel_callback_with_state(archive, stop, nullptr, &observer) == 0;
  if (prepared && zip_close(archive) == 0) return Packing::Done;
  zip_discard(archive);
  return observer.stopped ? Packing::Stopped : Packing::Failed;
}

}  // namespace velmo::spreadsheet

#include "spreadsheet/csv_writer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>

#include "spreadsheet/part_file.h"
#include "text/number.h"

namespace velmo::spreadsheet {
namespace {

constexpr std::int64_t rowsBetweenReports = 128;
constexpr const char* byteOrderMark = "\xEF\xBB\xBF";
constexpr const char* notComplete =
    "The file could not be written completely, because the disk is full or a file may not grow so large. Nothing was "
    "saved.";

// Some programs take the wide forms of the signs for the signs themselves.
bool looksLikeFormula(const std::string& text) {
  constexpr std::string_view signs[] = {"=", "+", "-", "@", "\t", "\r", "\uFF1D", "\uFF0B", "\uFF0D", "\uFF20"};
  const auto begins = [&text](std::string_view sign) { return text.starts_with(sign); };
  return std::ranges::any_of(signs, begins) && !text::isNumeric(text);
}

std::string cellText(const store::Value& value) {
  if (const auto* yes = std::get_if<bool>(&value)) return *yes ? "Yes" : "No";
  if (const auto* date = std::get_if<text::DateTime>(&value)) return date->iso();
  if (const auto* number = std::get_if<double>(&value)) return std::isfinite(*number) ? text::numberText(*number) : "";
  const std::string text = store::textOf(value);
  return std::holds_alternative<std::string>(value) && looksLikeFormula(text) ? "'" + text : text;
}

void append(std::string& line, const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) {
    line += text;
    return;
  }
  line += '"';
  for (const char character : text) {
    if (character == '"') line += '"';
    line += character;
  }
  line += '"';
}

class Lines {
 public:
  explicit Lines(const std::filesystem::path& path) : file_(path, std::ios::binary | std::ios::trunc) {
    file_ << byteOrderMark;
  }
  void write(std::span<const store::Value> cells) {
    line_.clear();
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i > 0) line_ += ',';
      append(line_, cellText(cells[i]));
    }
    line_ += "\r\n";
    file_ << line_;
  }
  bool tookEverything() { return static_cast<bool>(file_.flush()); }

 private:
  std::ofstream file_;
  std::string line_;
};

void writeHead(Lines& lines, const SheetDesign& design) {
  for (const std::string& line : design.head) lines.write(std::vector<store::Value>{line});
  if (!design.head.empty()) lines.write({});
  std::vector<store::Value> captions;
  for (const SheetColumn& column : design.columns) captions.emplace_back(column.caption);
  lines.write(captions);
  if (!design.opening.empty()) lines.write(design.opening);
}

tl::expected<std::int64_t, std::string> writeRows(Lines& lines, const SheetDesign& design, const RowSource& rows,
                                                  const Progress& progress) {
  writeHead(lines, design);
  std::vector<store::Value> cells(design.columns.size());
  std::int64_t done = 0;
  for (; rows(cells); ++done) {
    lines.write(cells);
    if (done % rowsBetweenReports == 0) {
      if (!lines.tookEverything()) break;
      if (progress && !progress(done)) return tl::unexpected(std::string());
    }
    std::ranges::fill(cells, store::Value());
  }
  if (!design.totals.empty()) lines.write(design.totals);
  if (!lines.tookEverything()) return tl::unexpected(std::string(notComplete));
  return done;
}

}  // namespace

tl::expected<std::int64_t, std::string> saveSeparatedValues(const std::filesystem::path& file,
                                                            const SheetDesign& design, const RowSource& rows,
                                                            const Progress& progress) {
  auto part = PartFile::beside(file);
  if (!part) return tl::unexpected(part.error());
  tl::expected<std::int64_t, std::string> done;
  {
    Lines lines(part->path());
    done = writeRows(lines, design, rows, progress);
  }
  if (!done) return done;
  const auto moved = part->moveToPlace([&] { return !progress || progress(*done); });
  if (!moved) return tl::unexpected(moved.error());
  return done;
}

}  // namespace velmo::spreadsheet

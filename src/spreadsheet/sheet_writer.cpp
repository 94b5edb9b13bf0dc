#include "spreadsheet/sheet_writer.h"

#include <xlsxwriter.h>

#include <clocale>
#include <cmath>
#include <cstdio>

#include "spreadsheet/cell_formats.h"
#include "spreadsheet/packed_rows.h"
#include "spreadsheet/part_file.h"
#include "spreadsheet/sheet_text.h"

namespace velmo::spreadsheet {
namespace {

constexpr std::int64_t rowsBetweenReports = 128;
constexpr std::int32_t firstSafeDay = 61;  // 1900-03-01: spreadsheets disagree about the days before it
constexpr const char* sheetPart = "xl/worksheets/sheet1.xml";

constexpr const char* notComplete =
    "The spreadsheet could not be written completely, because the disk is full or a file may not grow so large. "
    "Nothing was saved.";

// The library writes numbers with the C library's decimal sign.
class PointAsDecimalSign {
 public:
  PointAsDecimalSign() : plain_(newlocale(LC_NUMERIC_MASK, "C", nullptr)), before_(uselocale(plain_)) {}
  ~PointAsDecimalSign() {
    uselocale(before_);
    freelocale(plain_);
  }
  PointAsDecimalSign(const PointAsDecimalSign&) = delete;
  PointAsDecimalSign& operator=(const PointAsDecimalSign&) = delete;

 private:
  locale_t plain_;
  locale_t before_;
};

// The title without what the name of a sheet may not hold.
std::string sheetName(std::string_view title) {
  constexpr std::size_t longest = 31;  // characters, and the title may be of any script
  QString name = QString::fromStdString(toCellText(title));
  for (QChar& character : name)
    if (QStringLiteral("[]:*?/\\\n\t").contains(character)) character = u' ';
  name = name.simplified().left(longest);
  while (name.startsWith(u'\'')) name.remove(0, 1);
  while (name.endsWith(u'\'')) name.chop(1);
  return name.isEmpty() ? "Sheet1" : name.toStdString();
}

// The library's workbook, which exists in temporary files of the folder until it is closed. It would pack its sheet in
// one go, and nobody could see how far it is or stop it.
class Workbook {
 public:
  Workbook(const std::filesystem::path& file, const SheetDesign& design) : folder_(file.parent_path().string()) {
    lxw_workbook_options options = {.constant_memory = LXW_TRUE, .tmpdir = folder_.data(), .use_zip64 = LXW_FALSE};
    book_ = workbook_new_opt(file.c_str(), &options);
    if (book_) sheet_ = workbook_add_worksheet(book_, sheetName(design.title).c_str());
    if (sheet_) layOut(design);
  }
  ~Workbook() {
    if (!book_) return;
    if (sheet_) std::fclose(sheet_->optimize_tmpfile);
    lxw_workbook_free(book_);
  }
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;

  bool isOpen() const { return sheet_ != nullptr; }

  // Rows of the list are counted from 0.
  void write(std::int64_t row, std::span<const store::Value> cells) { writeAt(above_ + row, cells, columns_); }
  void writeTotals(std::int64_t rows, std::span<const store::Value> cells) {
    if (!cells.empty()) writeAt(above_ + rows, cells, totals_);
  }

  // The library does not look whether its own files take what it writes.
  bool tookEverything() const {
    return std::fflush(sheet_->optimize_tmpfile) == 0 && !std::ferror(sheet_->optimize_tmpfile);
  }

  // Closes it without its rows and hands them over; none when something was lost.
  RowsFile close(std::int64_t rows) {
    const auto lastColumn = static_cast<lxw_col_t>(columns_.size() - 1);
    // Rows that are not of the list must not be sorted among it.
    if (isPlainList_) worksheet_autofilter(sheet_, captions_, 0, captions_ + static_cast<lxw_row_t>(rows), lastColumn);
    RowsFile listed(nullptr, &std::fclose);
    lxw_worksheet_write_single_row(sheet_);  // the last one, which the library keeps back
    std::FILE* none = tookEverything() ? std::tmpfile() : nullptr;
    if (!none) return listed;
    listed.reset(std::exchange(sheet_->optimize_tmpfile, none));
    std::exchange(sheet_, nullptr)->file = none;
    if (workbook_close(std::exchange(book_, nullptr)) != LXW_NO_ERROR) listed.reset();
    return listed;
  }

 private:
  struct Column {
    lxw_format* text;
    lxw_format* number;
    lxw_format* date;
    lxw_format* moment;
  };

  void writeAt(std::int64_t row, std::span<const store::Value> cells, const std::vector<Column>& columns) {
    for (std::size_t i = 0; i < std::min(cells.size(), columns.size()); ++i)
      write(static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(i), columns[i], cells[i]);
  }

  void layOut(const SheetDesign& design) {
    above_ = design.rowsAbove();
    captions_ = static_cast<lxw_row_t>(above_ - (design.opening.empty() ? 1 : 2));
    isPlainList_ = design.opening.empty() && design.totals.empty();
    std::string title = toCellText(design.title);
    std::string company = toCellText(design.company);
    lxw_doc_properties properties = {};
    properties.title = title.data();
    properties.author = company.data();
    workbook_set_properties(book_, &properties);
    CellFormats formats(book_);
    // In memory that does not grow, rows are written from the top down.
    for (std::size_t i = 0; i < design.head.size(); ++i)
      worksheet_write_string(sheet_, static_cast<lxw_row_t>(i), 0, toCellText(design.head[i]).c_str(), formats.head());
    for (const SheetColumn& column : design.columns) addColumn(column, formats);
    if (!design.opening.empty()) writeAt(captions_ + 1, design.opening, columns_);
    worksheet_freeze_panes(sheet_, captions_ + 1, 0);
    worksheet_repeat_rows(sheet_, captions_, captions_);
    worksheet_set_landscape(sheet_);
    worksheet_fit_to_pages(sheet_, 1, 0);
    worksheet_set_footer(sheet_, "&LPrinted &D&RPage &P of &N");
  }

  void addColumn(const SheetColumn& column, CellFormats& formats) {
    const auto at = static_cast<lxw_col_t>(columns_.size());
    const bool dates = isDatePattern(column.format);
    const std::string format = numberFormat(column.format);
    columns_.push_back({.text = formats.cell({}, column.alignment),
                        .number = formats.cell(dates ? std::string() : format, column.alignment),
                        .date = formats.cell(dates ? format : "m/d/yyyy", column.alignment),
                        .moment = formats.cell(dates ? format : "m/d/yyyy h:mm:ss AM/PM", column.alignment)});
    lxw_format* total = formats.total(dates ? std::string() : format, column.alignment);
    totals_.push_back({.text = total, .number = total, .date = total, .moment = total});
    constexpr double widest = 80;
    worksheet_set_column(sheet_, at, at, std::clamp<double>(column.width, 4, widest), nullptr);
    worksheet_write_string(sheet_, captions_, at, toCellText(column.caption).c_str(),
                           formats.caption(column.alignment));
  }

  void write(lxw_row_t row, lxw_col_t at, const Column& column, const store::Value& value) {
    if (const auto* words = std::get_if<std::string>(&value)) {
      if (!words->empty()) worksheet_write_string(sheet_, row, at, toCellText(*words).c_str(), column.text);
    } else if (const auto* yes = std::get_if<bool>(&value)) {
      worksheet_write_string(sheet_, row, at, *yes ? "Yes" : "No", column.text);
    } else if (const auto* date = std::get_if<text::DateTime>(&value)) {
      lxw_format* format = date->second == 0 ? column.date : column.moment;
      if (date->day >= firstSafeDay)
        worksheet_write_number(sheet_, row, at, date->serial(), format);
      else
        worksheet_write_string(sheet_, row, at, date->iso().c_str(), column.text);
    } else if (!store::isNull(value)) {
      const double number = store::numberOf(value);
      if (std::isfinite(number)) worksheet_write_number(sheet_, row, at, number, column.number);
    }
  }

  std::string folder_;
  lxw_workbook* book_ = nullptr;
  lxw_worksheet* sheet_ = nullptr;
  std::vector<Column> columns_;
  std::vector<Column> totals_;
  std::int64_t above_ = 1;   // rows before the first of the list
  lxw_row_t captions_ = 0;   // their row
  bool isPlainList_ = true;  // nothing but captions and rows
};

tl::expected<std::int64_t, std::string> writeRows(Workbook& book, const SheetDesign& design, const RowSource& rows,
                                                  const Progress& progress) {
  std::vector<store::Value> cells(design.columns.size());
  std::int64_t done = 0;
  for (; rows(cells); ++done) {
    if (done + design.rowsAbove() + (design.totals.empty() ? 0 : 1) == mostRows)
      return tl::unexpected(std::string("There are more rows than a spreadsheet holds (1,048,576). Narrow the list."));
    book.write(done, cells);
    if (done % rowsBetweenReports == 0) {
      if (!book.tookEverything()) return tl::unexpected(std::string(notComplete));
      if (progress && !progress(done)) return tl::unexpected(std::string());
    }
    std::ranges::fill(cells, store::Value());
  }
  book.writeTotals(done, design.totals);
  if (!book.tookEverything()) return tl::unexpected(std::string(notComplete));
  return done;
}

}  // namespace

tl::expected<std::int64_t, std::string> saveSheet(const std::filesystem::path& file, const SheetDesign& design,
                                                  const RowSource& rows, const Progress& progress) {
  if (design.columns.empty() || design.columns.size() > mostColumns)
    return tl::unexpected(std::string("A spreadsheet has 1 to 16,384 columns."));
  auto part = PartFile::beside(file);
  if (!part) return tl::unexpected(part.error());
  const PointAsDecimalSign decimalSign;
  tl::expected<std::int64_t, std::string> done;
  {
    Workbook book(part->path(), design);
    if (!book.isOpen()) return tl::unexpected(std::string(notComplete));
    done = writeRows(book, design, rows, progress);
    if (!done) return done;
    const RowsFile listed = book.close(*done);
    if (!listed) return tl::unexpected(std::string(notComplete));
    const auto goesOn = [&](double share) {
      return !progress || progress(*done + static_cast<std::int64_t>(share * static_cast<double>(*done)));
    };
    const Packing packed = packRows(part->path(), sheetPart, listed, goesOn);
    if (packed != Packing::Done) return tl::unexpected(std::string(packed == Packing::Stopped ? "" : notComplete));
  }
  const auto moved = part->moveToPlace([&] { return !progress || progress(2 * *done); });
  if (!moved) return tl::unexpected(moved.error());
  return done;
}

}  // namespace velmo::spreadsheet

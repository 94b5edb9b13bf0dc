#include "spreadsheet/csv_reader.h"

#include <csv.h>

#include "spreadsheet/text_decoding.h"

namespace velmo::spreadsheet {
namespace {

constexpr std::string_view separators = ",;\t";

class Parser {
 public:
  Parser(char separator, SheetBuilder& builder) : builder_(builder) {
    // Blank lines count, so that the numbers of the rows are those that other programs show.
    if (csv_init(&parser_, CSV_REPALL_NL) != 0) throw std::bad_alloc();
    csv_set_delim(&parser_, static_cast<unsigned char>(separator));
  }
  ~Parser() { csv_free(&parser_); }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  void parse(std::string_view text) {
    constexpr std::size_t piece = 1 << 16;  // an exception cannot pass through the library, and waits this long
    for (std::size_t at = 0; at < text.size(); at += piece) {
      const std::string_view part = text.substr(at, piece);
      const bool taken =
          csv_parse(&parser_, part.data(), part.size(), &Parser::cell, &Parser::row, this) == part.size();
      if (failure_) std::rethrow_exception(failure_);
      if (!taken) throw tooLarge();
    }
  }
  // Takes the last row; false when it ends inside quotes, which only the strict way of reading minds.
  bool finish() {
    csv_set_opts(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL);
    const bool closed = csv_fini(&parser_, &Parser::cell, &Parser::row, this) == 0;
    if (failure_) std::rethrow_exception(failure_);
    return closed;
  }
  std::int64_t rowsDone() const { return row_; }

 private:
  static void cell(void* text, std::size_t length, void* parser) {
    auto& self = *static_cast<Parser*>(parser);
    if (self.failure_) return;
    try {
      if (length > 0) self.builder_.put(self.row_, self.column_, std::string(static_cast<const char*>(text), length));
    } catch (...) {
      self.failure_ = std::current_exception();
    }
    ++self.column_;
  }
  static void row(int, void* parser) {
    auto& self = *static_cast<Parser*>(parser);
    ++self.row_;
    self.column_ = 0;
  }

  csv_parser parser_;
  SheetBuilder& builder_;
  std::exception_ptr failure_;
  std::int64_t row_ = 0;
  std::int64_t column_ = 0;
};

// Some programs name the separator in a line of its own: "sep=;". The line stays as an empty row.
char separatorNamedIn(std::string& text) {
  constexpr std::string_view words = "sep=";
  if (!text.starts_with(words) || text.size() <= words.size()) return '\0';
  const char separator = text[words.size()];
  const std::size_t behind = words.size() + 1;
  if (separators.find(separator) == std::string_view::npos || (behind < text.size() && text[behind] != '\n'))
    return '\0';
  text.erase(0, behind);
  return separator;
}

// How well a separator divides the first rows: the number of columns that most of them have, if they have as many.
double fitOf(char separator, std::string_view sample) {
  const Progress unwatched;
  SheetBuilder builder({}, unwatched);
  Parser parser(separator, builder);
  parser.parse(sample);
  parser.finish();
  std::map<std::size_t, int> rowsByWidth;
  int rows = 0;
  for (const std::vector<Cell>& row : builder.take().rows)
    if (!row.empty()) ++rowsByWidth[row.size()], ++rows;
  double best = 0;
  for (const auto& [width, count] : rowsByWidth)
    if (width > 1) best = std::max(best, static_cast<double>(width) * count / rows);
  return best;
}

char separatorOf(std::string_view text) {
  constexpr std::size_t enough = 1 << 15;
  const std::string_view sample = text.substr(0, text.size() <= enough ? enough : text.rfind('\n', enough));
  char best = separators.front();
  double bestFit = 0;
  for (const char separator : separators) {
    const double fit = fitOf(separator, sample);
    if (fit > bestFit) best = separator, bestFit = fit;
  }
  return best;
}

}  // namespace

Sheet readSeparatedValues(std::string_view bytes, const TextChoice& choice, const Progress& progress) {
  DecodedText file = decoded(bytes, choice.encoding);
  const char named = separatorNamedIn(file.text);
  char separator = choice.separator;
  if (separator == '\0') separator = named != '\0' ? named : separatorOf(file.text);
  SheetBuilder builder({}, progress);
  Parser parser(separator, builder);
  parser.parse(file.text);
  if (!parser.finish())
    throw ReadFailure("A quotation mark that was opened in row " + std::to_string(parser.rowsDone() + 1) +
                      " is never closed. Mend the file and choose it again.");
  Sheet sheet = builder.take();
  sheet.layout = {.encoding = file.encoding, .separator = separator};
  return sheet;
}

}  // namespace velmo::spreadsheet

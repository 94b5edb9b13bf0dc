#include "documents/print/print_columns.h"

#include <cmath>
#include <iterator>
#include <limits>
#include <numeric>
#include <sstream>

#include "printing/element_text.h"
#include "printing/typesetter.h"
#include "text/decimal_sum.h"

namespace velmo::documents {

using namespace printing;

namespace {

constexpr double LeastSize = 5;
constexpr Twips LongestWord = mm(40);
constexpr Twips CellPadding = mm(2);  // both sides, with some room to spare

// What a column must show in one piece: its distinct figures or words, and its sum.
struct ColumnTexts {
  std::set<std::string> pieces = {};
  std::string sum = {};
  Twips most = std::numeric_limits<Twips>::max();  // longer pieces may break
};

std::set<std::string> wordsOf(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

std::vector<ColumnTexts> textsOf(const std::vector<Column>& columns, const ReportData& lines) {
  std::vector<ColumnTexts> texts(columns.size());
  std::vector<text::DecimalSum> sums(columns.size());
  for (const auto rows = lines.rows(); rows->next();)
    for (std::size_t index = 0; index < columns.size(); ++index) {
      const Column& column = columns[index];
      if (column.width == 0 && column.format.empty()) continue;
      const store::Value value = rows->value(column.dataField);
      if (column.format.empty()) {
        texts[index].pieces.merge(wordsOf(formatted(value, {})));
        texts[index].most = LongestWord;
      } else {
        texts[index].pieces.insert(formatted(value, column.format));
        if (!store::isNull(value)) sums[index] += store::numberOf(value);
      }
    }
  for (std::size_t index = 0; index < columns.size(); ++index)
    if (!columns[index].totalName.empty()) texts[index].sum = formatted(sums[index].value(), columns[index].format);
  return texts;
}

Twips widthOf(Typesetter& typesetter, const std::string& text, const FontSpec& font) {
  const auto& lines = typesetter.lines(QString::fromStdString(text), font, std::numeric_limits<Twips>::max() / 4);
  return lines.empty() ? 0 : lines.front().width;
}

// The widths that all columns ask for at a size; 0 for those that ask for none.
std::vector<Twips> neededWidths(Typesetter& typesetter, const std::vector<ColumnTexts>& texts, double size) {
  std::vector<Twips> widths;
  for (const ColumnTexts& column : texts) {
    Twips widest = widthOf(typesetter, column.sum, {.size = size, .weight = Weight::SemiBold});
    for (const std::string& piece : column.pieces)
      widest = std::max(widest, std::min(column.most, widthOf(typesetter, piece, {.size = size})));
    widths.push_back(widest == 0 ? 0 : widest + CellPadding);
  }
  return widths;
}

Twips scaled(Twips length, double factor) {
  return static_cast<Twips>(std::lround(length * factor));
}

}  // namespace

FittedColumns fitColumns(std::vector<Column> columns, const ReportData& lines, Twips bodyWidth, Twips leastText,
                         double size) {
  const std::vector<ColumnTexts> texts = textsOf(columns, lines);
  Typesetter typesetter;
  for (;; size -= 0.5) {
    FittedColumns fitted{columns, size};
    const std::vector<Twips> widths = neededWidths(typesetter, texts, size);
    Twips sum = 0;
    for (std::size_t index = 0; index < columns.size(); ++index) {
      fitted.columns[index].width = std::max(columns[index].width, widths[index]);
      sum += fitted.columns[index].width;
    }
    if (sum + leastText <= bodyWidth || size - 0.5 < LeastSize) return fitted;
  }
}

void condense(Section& section, const Density& density) {
  section.height = scaled(section.height, density.lengths);
  for (Element& element : section.elements) {
    const Twips bottom = scaled(element.at.bottom(), density.lengths);
    element.at.top = scaled(element.at.top, density.lengths);
    element.at.height = bottom - element.at.top;
    element.font.size = std::round(element.font.size * density.fonts * 10) / 10;
  }
}

}  // namespace velmo::documents

#include "masters/import/import_mapping.h"

#include <QRegularExpression>

#include "masters/import/import_values.h"

namespace velmo::masters {
namespace {

constexpr std::size_t headingsWithin = 10;  // rows from the top
constexpr std::size_t sampledRows = 200;

// Headings are compared by their letters and digits alone, without what stands in brackets: "Selling Price (Rs.)".
QString plain(const std::string& heading) {
  static const QRegularExpression brackets(QStringLiteral("\\(.*?\\)|\\[.*?\\]"));
  QString letters;
  for (const QChar character : QString::fromStdString(heading).remove(brackets).toCaseFolded())
    if (character.isLetterOrNumber()) letters += character;
  return letters;
}

std::vector<QString> headingsOf(const spreadsheet::Sheet& sheet, std::optional<std::size_t> row) {
  std::vector<QString> headings(sheet.columnCount());
  for (std::size_t i = 0; row && i < headings.size(); ++i) headings[i] = plain(textOf(sheet.at(*row, i)));
  return headings;
}

std::vector<FieldSource> sourcesFor(const ImportDescriptor& kind, std::vector<QString> headings) {
  std::vector<FieldSource> sources;
  for (const ImportField& field : kind.fields) sources.push_back({.column = {}, .otherwise = field.initial});
  // The surest words of all fields come before the next surest of any.
  const auto claim = [&headings](FieldSource& source, const std::string& word) {
    const QString wanted = plain(word);
    const auto found = std::ranges::find(headings, wanted);
    if (source.column || wanted.isEmpty() || found == headings.end()) return;
    source.column = static_cast<std::size_t>(found - headings.begin());
    found->clear();
  };
  for (std::size_t i = 0; i < sources.size(); ++i) claim(sources[i], kind.fields[i].caption);
  for (std::size_t i = 0; i < sources.size(); ++i) claim(sources[i], kind.fields[i].name);
  for (std::size_t rank = 0; rank < headings.size() + 16; ++rank)
    for (std::size_t i = 0; i < sources.size(); ++i)
      if (rank < kind.fields[i].words.size()) claim(sources[i], kind.fields[i].words[rank]);
  return sources;
}

std::size_t mapped(const std::vector<FieldSource>& sources) {
  return static_cast<std::size_t>(
      std::ranges::count_if(sources, [](const FieldSource& source) { return source.column.has_value(); }));
}

// A comma where only a decimal sign can stand, and nowhere a point that can only be one.
DecimalSign decimalSignOf(const ImportDescriptor& kind, const spreadsheet::Sheet& sheet, const ImportMapping& mapping) {
  int points = 0;
  int commas = 0;
  const std::size_t end = std::min(sheet.rows.size(), mapping.firstRow() + sampledRows);
  for (std::size_t i = 0; i < kind.fields.size(); ++i) {
    if (kind.fields[i].value != ImportValue::Amount || !mapping.sources[i].column) continue;
    for (std::size_t row = mapping.firstRow(); row < end; ++row) {
      const auto* figure = std::get_if<std::string>(&sheet.at(row, *mapping.sources[i].column));
      if (!figure) continue;
      const bool asPoint = amountFrom(*figure, DecimalSign::Point).has_value();
      const bool asComma = amountFrom(*figure, DecimalSign::Comma).has_value();
      if (asPoint && !asComma) ++points;
      if (asComma && !asPoint) ++commas;
    }
  }
  return commas > points ? DecimalSign::Comma : DecimalSign::Point;
}

}  // namespace

ImportMapping guessMapping(const ImportDescriptor& kind, const spreadsheet::Sheet& sheet,
                           std::optional<std::size_t> headingRow) {
  ImportMapping mapping{.headingRow = headingRow, .sources = sourcesFor(kind, headingsOf(sheet, headingRow))};
  mapping.decimalSign = decimalSignOf(kind, sheet, mapping);
  return mapping;
}

ImportMapping guessMapping(const ImportDescriptor& kind, const spreadsheet::Sheet& sheet) {
  std::optional<std::size_t> best;
  std::size_t most = 0;
  for (std::size_t row = 0; row < std::min(sheet.rows.size(), headingsWithin); ++row) {
    const std::size_t named = mapped(sourcesFor(kind, headingsOf(sheet, row)));
    if (named > most) best = row, most = named;
    if (!best && !sheet.rows[row].empty()) best = row;
  }
  return guessMapping(kind, sheet, best);
}

std::string columnCaption(const spreadsheet::Sheet& sheet, std::optional<std::size_t> headingRow, std::size_t column) {
  const QString heading =
      headingRow ? QString::fromStdString(textOf(sheet.at(*headingRow, column))).simplified() : QString();
  if (!heading.isEmpty()) return heading.toStdString();
  std::string letters;
  for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / 26)
    letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
  return "Column " + letters;
}

}  // namespace velmo::masters

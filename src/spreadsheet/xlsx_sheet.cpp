#include "spreadsheet/xlsx_sheet.h"

#include <charconv>
#include <cmath>

#include "spreadsheet/part_xml.h"
#include "spreadsheet/sheet_text.h"

namespace velmo::spreadsheet {
namespace {

// The words of a text in pieces of different looks, without what tells how to pronounce them.
std::string wordsOf(PartXml& xml) {
  QString words;
  while (xml.nextChild()) {
    if (xml.is(u"t")) {
      words += xml.text();
    } else if (xml.is(u"r")) {
      while (xml.nextChild()) xml.is(u"t") ? void(words += xml.text()) : xml.skip();
    } else {
      xml.skip();
    }
  }
  return fromCellText(words.toStdString());
}

double numberOf(const std::string& text) {
  double number = 0;
  const auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || behind != text.data() + text.size()) throw damagedFile();
  return number;
}

struct Place {
  std::int64_t row = 0;
  std::int64_t column = 0;
};

// "AB12". Cells may leave out where they stand: then it is `next`.
Place placeOf(QStringView reference, const Place& next) {
  if (reference.isEmpty()) return next;
  Place place{.row = 0, .column = 0};
  qsizetype i = 0;
  for (; i < reference.size() && reference[i] >= u'A' && reference[i] <= u'Z' && i < 4; ++i)
    place.column = place.column * 26 + reference[i].unicode() - u'A' + 1;
  bool isNumber = false;
  place.row = reference.mid(i).toInt(&isNumber) - 1;
  --place.column;
  if (i == 0 || !isNumber || place.row < 0) throw damagedFile();
  return place;
}

Cell dateOf(double days, bool since1904) {
  constexpr double from1904 = 1462;
  constexpr double lastDay = 2958466;            // behind year 9999
  constexpr double missingLeapDay = 60;          // the format has a 29 February 1900
  if (days < 0 || days >= lastDay) return days;  // no date; spreadsheets show a row of signs
  if (since1904) return text::DateTime::fromSerial(days + from1904);
  return text::DateTime::fromSerial(days >= 1 && days < missingLeapDay ? days + 1 : days);
}

Cell numberCell(double number, const NumberMeaning& meaning, bool since1904) {
  if (meaning.isDate) return dateOf(number, since1904);
  if (meaning.digits > 0 && number >= 0 && number < 1e15 && number == std::floor(number))
    return QStringLiteral("%1").arg(static_cast<qint64>(number), meaning.digits, 10, QLatin1Char('0')).toStdString();
  return number;
}

// What stands between the tags of a cell.
struct RawCell {
  QString type;
  std::size_t style = 0;
  bool hasFormula = false;
  std::optional<std::string> value = {};
  std::string words = {};  // of a text that stands in the cell itself
};

RawCell rawCell(PartXml& xml) {
  RawCell raw{.type = xml.attribute(u"t"), .style = xml.attribute(u"s").toUInt()};
  while (xml.nextChild()) {
    if (xml.is(u"v")) {
      raw.value = xml.text().toStdString();
    } else if (xml.is(u"is")) {
      raw.words = wordsOf(xml);
    } else {
      raw.hasFormula = raw.hasFormula || xml.is(u"f");
      xml.skip();
    }
  }
  return raw;
}

Cell cellOf(const RawCell& raw, const XlsxSheetContext& context) {
  if (raw.type == u"inlineStr") return raw.words.empty() ? Cell() : Cell(raw.words);
  const bool isText = raw.type == u"str";
  if (raw.hasFormula && (!raw.value || (raw.value->empty() && !isText)))
    return CellProblem{"The formula has no stored result. Open the file in its own program and save it again."};
  if (!raw.value || raw.value->empty()) return {};
  if (isText) return fromCellText(*raw.value);
  if (raw.type == u"e") return CellProblem{"The cell shows " + *raw.value + " and no value."};
  if (raw.type == u"b") return *raw.value == "1" || *raw.value == "true";
  if (raw.type == u"d") {
    const auto date = dateFromXml(QString::fromStdString(*raw.value));
    return date ? Cell(*date) : Cell(*raw.value);
  }
  const double number = numberOf(*raw.value);
  if (raw.type == u"s") {
    if (number < 0 || number >= static_cast<double>(context.strings.size())) throw damagedFile();
    const std::string& words = context.strings[static_cast<std::size_t>(number)];
    return words.empty() ? Cell() : Cell(words);
  }
  const NumberMeaning meaning = raw.style < context.styles.size() ? context.styles[raw.style] : NumberMeaning();
  return numberCell(number, meaning, context.since1904);
}

void readRows(PartXml& xml, const XlsxSheetContext& context, SheetBuilder& builder) {
  Place next;
  while (xml.nextChild()) {
    const int row = xml.attribute(u"r").toInt();
    next = {.row = row > 0 ? row - 1 : next.row, .column = 0};
    while (xml.nextChild()) {
      const Place place = placeOf(xml.attribute(u"r"), next);
      builder.put(place.row, place.column, cellOf(rawCell(xml), context));
      next = {.row = place.row, .column = place.column + 1};
    }
    ++next.row;
  }
}

}  // namespace

std::vector<std::string> readSharedStrings(const Archive& archive, const std::string& part) {
  constexpr std::size_t mostStrings = 10'000'000;
  std::vector<std::string> strings;
  PartXml xml(archive, part);
  xml.nextChild();
  while (xml.nextChild()) {
    if (strings.size() == mostStrings) throw tooLarge();
    strings.push_back(wordsOf(xml));
  }
  xml.finish();
  return strings;
}

void readXlsxSheet(const Archive& archive, const std::string& part, const XlsxSheetContext& context,
                   SheetBuilder& builder) {
  PartXml xml(archive, part);
  xml.nextChild();
  while (xml.nextChild()) xml.is(u"sheetData") ? readRows(xml, context, builder) : xml.skip();
  xml.finish();
}

}  // namespace velmo::spreadsheet

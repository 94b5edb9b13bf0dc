#include "spreadsheet/ods_reader.h"

#include <charconv>

#include "spreadsheet/part_xml.h"

namespace velmo::spreadsheet {
namespace {

constexpr const char* contentPart = "content.xml";
constexpr const char* manifestPart = "META-INF/manifest.xml";

bool isEncrypted(const Archive& archive) {
  if (archive.has("encrypted-package")) return true;
  if (!archive.has(manifestPart)) return false;
  PartXml xml(archive, manifestPart);
  while (!xml.reader.atEnd())
    if (xml.reader.readNext() == QXmlStreamReader::StartElement && xml.is(u"encryption-data")) return true;
  return false;
}

// Goes to the element that holds the tables.
void enterSpreadsheet(PartXml& xml) {
  if (!xml.nextChild() || !xml.is(u"document-content")) throw notASpreadsheet();
  for (const QStringView name : {QStringView(u"body"), QStringView(u"spreadsheet")}) {
    for (bool found = false; !found;) {
      if (!xml.nextChild()) throw notASpreadsheet();
      found = xml.is(name);
      if (!found) xml.skip();
    }
  }
}

// The words of a paragraph: runs of blanks, tabs and line breaks are elements of their own.
QString paragraph(PartXml& xml) {
  constexpr int mostBlanks = 32767;
  QString words;
  for (int depth = 1; depth > 0;) {
    switch (xml.reader.readNext()) {
      case QXmlStreamReader::StartElement:
        if (xml.is(u"annotation")) {
          xml.skip();
          break;
        }
        if (xml.is(u"s")) words += QString(std::min(xml.count(u"c"), mostBlanks), u' ');
        if (xml.is(u"tab")) words += u'\t';
        if (xml.is(u"line-break")) words += u'\n';
        ++depth;
        break;
      case QXmlStreamReader::EndElement:
        --depth;
        break;
      case QXmlStreamReader::Characters:
        words += xml.reader.text();
        break;
      case QXmlStreamReader::Invalid:
        throw damagedFile();
      default:
        break;
    }
  }
  return words;
}

// The cell at the reader, up to its end.
Cell cellOf(PartXml& xml) {
  const QXmlStreamAttributes attributes = xml.reader.attributes();
  const auto given = [&attributes](QStringView name) {
    for (const QXmlStreamAttribute& attribute : attributes)
      if (attribute.name() == name) return attribute.value().toString();
    return QString();
  };
  const bool isError = std::ranges::any_of(attributes, [](const QXmlStreamAttribute& attribute) {
    return attribute.name() == u"value-type" && attribute.value() == u"error";
  });
  QStringList paragraphs;
  while (xml.nextChild()) xml.is(u"p") ? paragraphs.append(paragraph(xml)) : xml.skip();
  const std::string words = paragraphs.join(u'\n').toStdString();

  const QString type = given(u"value-type");
  if (isError) return CellProblem{"The cell shows " + words + " and no value."};
  if (type == u"float" || type == u"percentage" || type == u"currency") {
    const std::string value = given(u"value").toStdString();
    double number = 0;
    const auto [behind, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error != std::errc() || behind != value.data() + value.size()) throw damagedFile();
    return number;
  }
  if (type == u"boolean") return given(u"boolean-value") == u"true";
  if (type == u"date")
    if (const auto date = dateFromXml(given(u"date-value"))) return *date;
  if (type.isEmpty() && !given(u"formula").isEmpty())
    return CellProblem{"The formula has no stored result. Open the file in its own program and save it again."};
  return words.empty() ? Cell() : Cell(words);
}

void readRow(PartXml& xml, std::int64_t row, int rows, SheetBuilder& builder) {
  std::int64_t column = 0;
  while (xml.nextChild()) {
    const int repeated = xml.count(u"number-columns-repeated");
    const bool covered = xml.is(u"covered-table-cell");
    if (!covered && !xml.is(u"table-cell")) {
      xml.skip();
      continue;
    }
    const Cell cell = cellOf(xml);
    if (!covered) builder.fill(row, rows, column, repeated, cell);
    column += repeated;
  }
}

// Rows may stand in groups, and those that are printed on every page in a frame of their own.
void readRows(PartXml& xml, std::int64_t& row, SheetBuilder& builder, int depth = 0) {
  constexpr int deepest = 64;
  if (depth > deepest) throw damagedFile();
  while (xml.nextChild()) {
    if (xml.is(u"table-row")) {
      const int repeated = xml.count(u"number-rows-repeated");
      readRow(xml, row, repeated, builder);
      row += repeated;
    } else if (xml.is(u"table-row-group") || xml.is(u"table-header-rows") || xml.is(u"table-rows")) {
      readRows(xml, row, builder, depth + 1);
    } else {
      xml.skip();
    }
  }
}

}  // namespace

OdsBook::OdsBook(const Archive& archive) : archive_(archive) {
  if (isEncrypted(archive)) throw protectedFile();
}

std::vector<std::string> OdsBook::sheetNames() const {
  std::vector<std::string> names;
  PartXml xml(archive_, contentPart);
  enterSpreadsheet(xml);
  while (xml.nextChild()) {
    if (xml.is(u"table")) names.push_back(xml.attribute(u"name").toStdString());
    xml.skip();
  }
  xml.finish();
  if (names.empty()) throw noRows();
  return names;
}

Sheet OdsBook::read(std::size_t sheet, const Progress& progress) const {
  Sheet read;
  PartXml xml(archive_, contentPart);
  enterSpreadsheet(xml);
  std::size_t tables = 0;
  while (xml.nextChild()) {
    if (!xml.is(u"table") || tables++ != sheet) {
      xml.skip();
      continue;
    }
    SheetBuilder builder(xml.attribute(u"name").toStdString(), progress);
    std::int64_t row = 0;
    readRows(xml, row, builder);
    read = builder.take();
  }
  xml.finish();
  if (sheet >= tables) throw noRows();
  return read;
}

}  // namespace velmo::spreadsheet

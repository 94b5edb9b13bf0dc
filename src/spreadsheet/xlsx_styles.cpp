#include "spreadsheet/xlsx_styles.h"

namespace velmo::spreadsheet {
namespace {

// The formats that need no code of their own; the ranges beyond 22 are those of East Asian editions.
bool isBuiltInDate(int id) {
  return (id >= 14 && id <= 22) || (id >= 27 && id <= 36) || (id >= 45 && id <= 47) || (id >= 50 && id <= 58);
}

// "[h]", "[mm]": hours beyond a day, minutes beyond an hour. Such a cell holds a number of days.
bool isLengthOfTime(QStringView bracket) {
  const QChar unit = bracket.size() > 2 ? bracket[1].toLower() : QChar();
  const auto isUnit = [unit](QChar character) { return character.toLower() == unit; };
  return QStringView(u"hms").contains(unit) && std::ranges::all_of(bracket.mid(1, bracket.size() - 2), isUnit);
}

void readCodes(PartXml& xml, std::map<int, NumberMeaning>& meanings) {
  while (xml.nextChild()) {
    meanings[xml.attribute(u"numFmtId").toInt()] = NumberMeaning::of(xml.attribute(u"formatCode"));
    xml.skip();
  }
}

}  // namespace

NumberMeaning NumberMeaning::of(QStringView code) {
  NumberMeaning meaning;
  const auto isZero = [](QChar character) { return character == u'0'; };
  if (code.size() > 1 && std::ranges::all_of(code, isZero)) meaning.digits = static_cast<int>(code.size());
  for (qsizetype i = 0; i < code.size() && code[i] != u';'; ++i) {
    const QChar character = code[i].toLower();
    if (character == u'\\' || character == u'_' || character == u'*') {
      ++i;  // the next one is shown as it is, or as a gap
    } else if (character == u'"' || character == u'[') {
      const qsizetype end = code.indexOf(character == u'"' ? u'"' : u']', i + 1);
      if (end < 0 || isLengthOfTime(code.mid(i, end + 1 - i))) break;
      i = end;
    } else if (QStringView(u"dmyhs").contains(character)) {
      return {.isDate = true};
    } else if (character == u'g' && code.mid(i, 7).compare(u"General", Qt::CaseInsensitive) == 0) {
      i += 6;
    }
  }
  return meaning;
}

std::vector<NumberMeaning> readStyles(const Archive& archive, const std::string& part) {
  std::map<int, NumberMeaning> meanings;
  std::vector<NumberMeaning> styles;
  PartXml xml(archive, part);
  xml.nextChild();
  while (xml.nextChild()) {
    if (xml.is(u"numFmts")) {
      readCodes(xml, meanings);
    } else if (xml.is(u"cellXfs")) {
      while (xml.nextChild()) {
        const int id = xml.attribute(u"numFmtId").toInt();
        const auto own = meanings.find(id);
        styles.push_back(own != meanings.end() ? own->second : NumberMeaning{.isDate = isBuiltInDate(id)});
        xml.skip();
      }
    } else {
      xml.skip();
    }
  }
  xml.finish();
  return styles;
}

}  // namespace velmo::spreadsheet

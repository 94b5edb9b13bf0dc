#include "spreadsheet/part_xml.h"

namespace velmo::spreadsheet {

bool PartXml::nextChild() {
  if (reader.readNextStartElement()) return true;
  if (reader.hasError()) {
    part_->check();
    throw damagedFile();
  }
  return false;
}

QString PartXml::attribute(QStringView name) const {
  for (const QXmlStreamAttribute& attribute : reader.attributes())
    if (attribute.name() == name) return attribute.value().toString();
  return {};
}

int PartXml::count(QStringView name) const {
  bool isNumber = false;
  const int repetitions = attribute(name).toInt(&isNumber);
  return isNumber ? std::max(1, repetitions) : 1;
}

void PartXml::finish() {
  while (!reader.atEnd()) reader.readNext();
  part_->check();
  if (reader.hasError()) throw damagedFile();
}

std::optional<text::DateTime> dateFromXml(QStringView text) {
  constexpr qsizetype wholeSeconds = 19;
  QString iso = text.left(wholeSeconds).toString();
  iso.replace(u'T', u' ');
  return text::DateTime::fromIso(iso.toStdString());
}

}  // namespace velmo::spreadsheet

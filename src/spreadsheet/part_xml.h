#pragma once

#include <QXmlStreamReader>
#include <memory>
#include <optional>

#include "spreadsheet/archive.h"
#include "text/date_time.h"

namespace velmo::spreadsheet {

// Reads one part of an archive as XML. Elements and attributes are known by their local names, since the same names
// come in more than one namespace of the formats.
class PartXml {
 public:
  PartXml(const Archive& archive, const std::string& part) : part_(archive.open(part)), reader(part_.get()) {}

  // Goes to the next element inside the present one, or behind the end of the present one: false. Throws ReadFailure
  // when the part is damaged.
  bool nextChild();
  void skip() { reader.skipCurrentElement(); }
  bool is(QStringView name) const { return reader.name() == name; }
  QString attribute(QStringView name) const;  // "" when absent
  int count(QStringView name) const;          // of a repetition: at least 1, also when absent
  // The text of the present element, up to its end.
  QString text() { return reader.readElementText(QXmlStreamReader::IncludeChildElements); }
  // To be called when everything was read: throws ReadFailure unless all of the part was sound.
  void finish();

 private:
  std::unique_ptr<ArchivePart> part_;

 public:
  QXmlStreamReader reader;
};

// "2026-11-22" and "2026-11-22T14:07:09.000Z".
std::optional<text::DateTime> dateFromXml(QStringView text);

}  // namespace velmo::spreadsheet

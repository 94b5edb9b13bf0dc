#include "spreadsheet/xlsx_reader.h"

#include "spreadsheet/part_xml.h"
#include "spreadsheet/xlsx_sheet.h"
#include "spreadsheet/xlsx_styles.h"

namespace velmo::spreadsheet {

XlsxBook::XlsxBook(const Archive& archive) : archive_(archive) {
  for (const auto& [id, target] : relationsOf({}))
    if (target.kind == u"officeDocument") {
      readWorkbook(target.part);
      return;
    }
  throw notASpreadsheet();
}

std::map<std::string, XlsxBook::Target> XlsxBook::relationsOf(const std::string& part) const {
  const std::filesystem::path path = part;
  const std::string list = (path.parent_path() / "_rels" / (path.filename().string() + ".rels")).generic_string();
  std::map<std::string, Target> targets;
  if (!archive_.has(list)) return targets;
  PartXml xml(archive_, list);
  xml.nextChild();
  while (xml.nextChild()) {
    const std::filesystem::path target = xml.attribute(u"Target").toStdString();
    const std::filesystem::path from = target.is_absolute() ? target.relative_path() : path.parent_path() / target;
    targets[xml.attribute(u"Id").toStdString()] = {.kind = xml.attribute(u"Type").section(u'/', -1),
                                                   .part = from.lexically_normal().generic_string()};
    xml.skip();
  }
  xml.finish();
  return targets;
}

void XlsxBook::readWorkbook(const std::string& part) {
  if (part.ends_with(".bin"))
    throw ReadFailure("The file is of the kind .xlsb, which cannot be read. Save it as .xlsx and choose it again.");
  relations_ = relationsOf(part);
  PartXml xml(archive_, part);
  if (!xml.nextChild() || !xml.is(u"workbook")) throw notASpreadsheet();
  while (xml.nextChild()) {
    if (xml.is(u"workbookPr")) {
      const QString since1904 = xml.attribute(u"date1904");
      since1904_ = since1904 == u"1" || since1904 == u"true";
    }
    if (!xml.is(u"sheets")) {
      xml.skip();
      continue;
    }
    while (xml.nextChild()) {
      const QString state = xml.attribute(u"state");
      sheets_.push_back({.name = xml.attribute(u"name").toStdString(),
                         .relation = xml.attribute(u"id").toStdString(),
                         .hidden = !state.isEmpty() && state != u"visible"});
      xml.skip();
    }
  }
  xml.finish();
  std::erase_if(sheets_, [this](const Listed& sheet) {
    const auto target = relations_.find(sheet.relation);
    return sheet.hidden || target == relations_.end() || target->second.kind != u"worksheet";
  });
  if (sheets_.empty()) throw noRows();
}

std::string XlsxBook::partOfKind(QStringView kind) const {
  for (const auto& [id, target] : relations_)
    if (target.kind == kind) return target.part;
  return {};
}

std::vector<std::string> XlsxBook::sheetNames() const {
  std::vector<std::string> names;
  for (const Listed& sheet : sheets_) names.push_back(sheet.name);
  return names;
}

Sheet XlsxBook::read(std::size_t sheet, const Progress& progress) const {
  if (sheet >= sheets_.size()) throw noRows();
  const Listed& listed = sheets_[sheet];
  const std::string strings = partOfKind(u"sharedStrings");
  const std::string styles = partOfKind(u"styles");
  const XlsxSheetContext context{
      .strings = strings.empty() ? std::vector<std::string>() : readSharedStrings(archive_, strings),
      .styles = styles.empty() ? std::vector<NumberMeaning>() : readStyles(archive_, styles),
      .since1904 = since1904_};
  SheetBuilder builder(listed.name, progress);
  readXlsxSheet(archive_, relations_.at(listed.relation).part, context, builder);
  return builder.take();
}

}  // namespace velmo::spreadsheet

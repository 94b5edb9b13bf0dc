#include "printing/element_text.h"

#include "printing/page.h"
#include "text/format.h"

namespace velmo::printing {

namespace {

QString expandMarks(const std::string& caption, const TextSource& source) {
  QString plain = QString::fromStdString(caption);
  if (!plain.contains(u'%')) return plain;
  QString expanded;
  for (qsizetype at = 0; at < plain.size(); ++at) {
    if (plain[at] != u'%' || at + 1 == plain.size()) {
      expanded += plain[at];
      continue;
    }
    switch (const QChar code = plain[++at]; code.unicode()) {
      case u'p':
        expanded += QString::number(source.pageNumber);
        break;
      case u'P':
        expanded += TotalPagesMark;
        break;
      case u'd':
        expanded += QString::fromStdString(text::formatDate(source.report.printedOn, "dd-mm-yyyy"));
        break;
      case u'D':
        expanded += QString::fromStdString(text::formatDate(source.report.printedOn, "mmmm dd, yyyy"));
        break;
      case u'i':
        expanded += QString::fromStdString(source.report.title);
        break;
      case u'%':
        expanded += u'%';
        break;
      default:
        expanded = expanded + u'%' + code;
    }
  }
  return expanded;
}

QString labelText(const Element& element, const Label& label, const TextSource& source) {
  const auto variable = source.report.variables.find(element.name);
  if (!element.name.empty() && variable != source.report.variables.end())
    return QString::fromStdString(variable->second);
  return expandMarks(label.caption, source);
}

QString fieldText(const Field& field, const TextSource& source) {
  const int level = field.dataMember.empty() ? source.ownLevel : source.rows.levelOf(field.dataMember);
  return QString::fromStdString(formatted(source.rows.valueAt(level, field.dataField), field.format));
}

}  // namespace

std::string formatted(const store::Value& value, const std::string& format) {
  if (store::isNull(value)) return {};
  if (format.empty()) return store::textOf(value);
  if (const auto* date = std::get_if<text::DateTime>(&value)) return text::formatDate(*date, format);
  if (const auto* words = std::get_if<std::string>(&value)) return text::formatText(*words, format);
  return text::formatNumber(store::numberOf(value), format);
}

QString elementText(const Element& element, const TextSource& source) {
  if (const auto* label = std::get_if<Label>(&element.content)) return labelText(element, *label, source);
  if (const auto* field = std::get_if<Field>(&element.content)) return fieldText(*field, source);
  if (const auto* function = std::get_if<Function>(&element.content))
    return QString::fromStdString(formatted(source.totals.result(element), function->format));
  return {};
}

}  // namespace velmo::printing

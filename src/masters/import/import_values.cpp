#include "masters/import/import_values.h"

#include <QString>

#include "text/number.h"

namespace velmo::masters {

std::string cleanText(const std::string& text) {
  QString words = QString::fromStdString(text);
  words.remove(QChar(0x200B));  // zero width space
  words.remove(QChar(0xFEFF));  // byte order mark
  for (QChar& character : words)
    if (character.category() == QChar::Other_Control) character = u' ';
  return words.simplified().toStdString();
}

std::optional<double> amountFrom(const std::string& text, DecimalSign sign) {
  constexpr std::size_t groupLength = 3;
  const char point = sign == DecimalSign::Point ? '.' : ',';
  const char group = sign == DecimalSign::Point ? ',' : '.';
  std::string plain;
  std::size_t digits = 0;  // since the last sign
  bool grouped = false;
  bool fraction = false;
  for (const char character : cleanText(text)) {
    const bool groupIsWhole = grouped ? digits == groupLength : digits > 0 && digits <= groupLength;
    if (character >= '0' && character <= '9') {
      plain += character;
      ++digits;
    } else if (character == point && !fraction && (!grouped || groupIsWhole)) {
      plain += '.';
      fraction = true;
    } else if ((character == group || character == ' ') && !fraction && groupIsWhole) {
      grouped = true;
      digits = 0;
    } else if (character != '+' || !plain.empty()) {
      return std::nullopt;
    }
  }
  if (grouped && !fraction && digits != groupLength) return std::nullopt;
  return text::numberFrom(plain);
}

std::optional<bool> yesNoFrom(const std::string& text) {
  const QString word = QString::fromStdString(cleanText(text)).toLower();
  for (const char* yes : {"yes", "y", "true", "1", "-1", "x"})
    if (word == QLatin1String(yes)) return true;
  for (const char* no : {"no", "n", "false", "0", ""})
    if (word == QLatin1String(no)) return false;
  return std::nullopt;
}

std::optional<bool> costMethodFrom(const std::string& text) {
  const QString word = QString::fromStdString(cleanText(text)).toLower();
  if (word.startsWith(u"weighted") || word.startsWith(u"average")) return true;
  if (word.startsWith(u"manual") || word.startsWith(u"fixed")) return false;
  return std::nullopt;
}

}  // namespace velmo::masters

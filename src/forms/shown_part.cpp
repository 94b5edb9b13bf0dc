#include "forms/shown_part.h"

namespace velmo::forms {

QString shownPart(std::string_view text) {
  constexpr qsizetype mostCharacters = 300;
  constexpr std::size_t mostBytes = 4 * (mostCharacters + 1);  // a character takes four at most
  std::string_view part = text.substr(0, mostBytes);
  QString shown = QString::fromUtf8(part.data(), static_cast<qsizetype>(part.size()));
  if (shown.size() <= mostCharacters && part.size() == text.size()) return shown;
  shown.truncate(mostCharacters);
  if (shown.back().isHighSurrogate()) shown.chop(1);
  return shown + QChar(0x2026);
}

}  // namespace velmo::forms

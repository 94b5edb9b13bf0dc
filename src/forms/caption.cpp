#include "forms/caption.h"

#include <QLabel>

#include "forms/look.h"

namespace velmo::forms {

QWidget* captionFor(QWidget& field, const QString& text) {
  auto* caption = new QLabel(text.trimmed());
  caption->setBuddy(&field);
  makeCaption(*caption);
  if (field.accessibleName().isEmpty()) field.setAccessibleName(text.trimmed().remove('&'));
  return caption;
}

QString shownText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace velmo::forms

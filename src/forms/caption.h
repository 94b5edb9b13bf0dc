#pragma once

#include <QString>
#include <string_view>

class QWidget;

namespace velmo::forms {

// A caption that stands before a field and names it to a screen reader.
QWidget* captionFor(QWidget& field, const QString& text);

QString shownText(std::string_view text);

}  // namespace velmo::forms

#include "shell/catalogue/help_topics.h"

#include <QMessageBox>
#include <optional>

#include "store/recordset/recordset.h"

namespace velmo::shell {
namespace {

constexpr const char* previewName = "PreviewWindow";

std::optional<int> topicThatQuotes(const std::string& message, store::Connection& company) {
  if (message.empty()) return std::nullopt;
  for (store::Recordset topics(company, "select * from helpindex"); !topics.eof(); topics.moveNext())
    if (topics.text("Heading").find('"' + message + '"') != std::string::npos)
      return static_cast<int>(topics.integer("ID"));
  return std::nullopt;
}

std::optional<HelpTopic> topicOf(const QString& name, std::span<const ScreenEntry> catalogue) {
  if (name == QLatin1String(previewName)) return HelpTopic::PaperWidth;
  const std::string sought = name.toStdString();
  for (const ScreenEntry& entry : catalogue)
    if (entry.name == sought) return entry.help;
  return std::nullopt;
}

}  // namespace

int helpTopicFor(const QWidget& focus, store::Connection& company, std::span<const ScreenEntry> catalogue) {
  if (const auto* box = qobject_cast<const QMessageBox*>(focus.window()))
    if (const auto quoting = topicThatQuotes(box->text().toStdString(), company)) return *quoting;
  for (const QWidget* place = &focus; place; place = place->parentWidget())
    if (const auto topic = topicOf(place->objectName(), catalogue)) return static_cast<int>(*topic);
  return static_cast<int>(HelpTopic::Keys);
}

}  // namespace velmo::shell

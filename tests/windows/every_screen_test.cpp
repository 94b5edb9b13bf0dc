#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>

#include "shell/catalogue/screen_catalogue.h"
#include "windows/person.h"

namespace velmo::test {
namespace {

std::string nameOf(const QWidget& widget) {
  return widget.objectName().toStdString() + " (" + widget.metaObject()->className() + ") \"" +
         widget.property("text").toString().toStdString() + "\"";
}

bool scrolls(const QWidget& widget, const QWidget& screen) {
  for (const QWidget* around = widget.parentWidget(); around != &screen; around = around->parentWidget())
    if (qobject_cast<const QAbstractScrollArea*>(around)) return true;
  return false;
}

// What its text takes; 0 for what may be cut, as a long name that an ellipsis ends.
int neededWidth(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    const bool plain = !label->wordWrap() && label->textFormat() != Qt::RichText && !label->text().isEmpty();
    return plain ? label->sizeHint().width() : 0;
  }
  if (qobject_cast<const QAbstractButton*>(&widget)) return widget.minimumSizeHint().width();
  if (const auto* date = qobject_cast<const QDateEdit*>(&widget)) return date->minimumSizeHint().width();
  return 0;
}

std::vector<std::string> cutIn(const QWidget& screen) {
  std::vector<std::string> cut;
  const QWidget& window = *screen.window();
  for (const auto* widget : screen.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->window() != &window || scrolls(*widget, screen)) continue;
    const QRect place(widget->mapTo(&window, QPoint(0, 0)), widget->size());
    const bool isControl = qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLabel*>(widget) ||
                           qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget);
    if (!isControl || place.isEmpty()) continue;
    if (!window.rect().contains(place))
      cut.push_back(nameOf(*widget) + " ends at " + std::to_string(place.right()) + ", " +
                    std::to_string(place.bottom()));
    else if (widget->visibleRegion().boundingRect() != widget->rect())
      cut.push_back(nameOf(*widget) + " is covered");
    if (const int needed = neededWidth(*widget); needed > widget->width())
      cut.push_back(nameOf(*widget) + " is " + std::to_string(widget->width()) + " wide and needs " +
                    std::to_string(needed));
  }
  return cut;
}

TEST(EveryScreen, FitsASmallDisplay) {
  withTheProgram([](Person& person) {
    for (const shell::ScreenEntry& entry : shell::screenCatalogue()) {
      SCOPED_TRACE(entry.name);
      const std::string name(entry.name);
      const bool isDialog = entry.kind == shell::ScreenKind::Dialog;
      isDialog ? person.openDialog(name.c_str()) : person.openScreen(name.c_str());
      person.settle(100);
      const auto cut = person.look([&] {
        const QWidget& screen = Person::control(name.c_str());
        auto found = cutIn(screen);
        const QRect frame = screen.window()->frameGeometry();
        if (!screen.screen()->availableGeometry().contains(frame))
          found.push_back("the window ends at " + std::to_string(frame.right()) + ", " +
                          std::to_string(frame.bottom()));
        return found;
      });
      for (const std::string& each : cut) ADD_FAILURE() << each;
      if (isDialog) {
        person.press("Escape");
        person.waitUntil("the dialog closed", [] { return !QApplication::activeModalWidget(); });
      }
    }
  });
}

}  // namespace
}  // namespace velmo::test

#pragma once

#include <QDialog>
#include <QString>
#include <filesystem>
#include <functional>
#include <string>

#include "printing/report.h"
#include "stops.h"

namespace velmo::printing {
class PageSource;
class PreviewWindow;
}  // namespace velmo::printing

namespace velmo::tour {

// What is opened on the way: in the company's folder, once it is there.
inline constexpr const char* priceList = "price-list.csv";

// How the tour sees the program: on a small screen in the light look, in the dark look, or on a large screen.
enum class Scenery { Light, Dark, Wide };

// Drives the real screens with real key presses and takes pictures of them.
class Guide {
 public:
  Guide(std::filesystem::path pictures, Scenery scenery) : pictures_(std::move(pictures)), scenery_(scenery) {}

  Scenery scenery() const { return scenery_; }

  // A picture named "<name>.png", with "-dark" or "-wide" behind the name. A window that does not grow with the main
  // window looks on a large screen as it does on a small one, and has no wide picture.
  void picture(QWidget& widget, const std::string& name);
  // The upper part of a report's first page as it comes out of the printer, down to its last ink. Paper is white in
  // every look, so that there is one picture of it.
  void paper(const printing::Report& report, const std::string& name);
  void paper(printing::PageSource& pages, const std::string& name);  // also of one that has let go of its rows

  // What is typed goes to the widget that has the focus.
  void type(const QString& text);
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void rest(int milliseconds = 0);  // lets timers and repaints happen
  void focus(QWidget& widget);

  // Runs `open`, which shows a modal dialog, and visits the dialog once it has the keyboard. The dialog is closed when
  // the visit has left it open. Throws what the visit throws.
  void inDialog(const std::function<void()>& open, const std::function<void(QWidget& dialog)>& visit);
  // The print-out that was opened last.
  printing::PreviewWindow& preview();

  // The control with this name below the widget. Throws when it is not there: the tour no longer fits the screen.
  template <typename Control>
  Control& control(QWidget& screen, const char* name) {
    if (auto* found = screen.findChild<Control*>(QString::fromLatin1(name))) return *found;
    throw std::logic_error(std::string("no control ") + name);
  }

 private:
  void save(const QPixmap& pixmap, const std::string& fileName);

  std::filesystem::path pictures_;
  Scenery scenery_;
};

}  // namespace velmo::tour

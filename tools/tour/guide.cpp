#include "guide.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImageWriter>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <exception>
#include <iostream>

#include "printing/page_source.h"
#include "printing/painter.h"
#include "printing/preview_window.h"

namespace velmo::tour {
namespace {

void send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QWidget* target = QApplication::focusWidget();
  if (!target) throw std::logic_error("nothing has the focus");
  QKeyEvent event(type, key, modifiers, text);
  QApplication::sendEvent(target, &event);
}

void pressAndRelease(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  send(QEvent::KeyPress, key, modifiers, text);
  if (QApplication::focusWidget()) send(QEvent::KeyRelease, key, modifiers, text);
}

// The paper down to its last ink and a little more; a slip has much white below it.
QImage withoutEmptyFoot(const QImage& sheet, int keep) {
  int bottom = sheet.height() - 1;
  const auto isBlank = [&](int y) {
    for (int x = 0; x < sheet.width(); ++x)
      if (qGray(sheet.pixel(x, y)) < 250) return false;
    return true;
  };
  while (bottom > 0 && isBlank(bottom)) --bottom;
  return sheet.copy(0, 0, sheet.width(), std::min(sheet.height(), bottom + 1 + keep));
}

}  // namespace

void Guide::save(const QPixmap& pixmap, const std::string& fileName) {
  const std::string file = (pictures_ / fileName).string();
  QImageWriter writer(QString::fromStdString(file));
  writer.setQuality(0);  // of a PNG: packed as small as it gets
  if (!writer.write(pixmap.toImage())) throw std::runtime_error("cannot write " + file);
  std::cout << file << "\n";
}

void Guide::picture(QWidget& widget, const std::string& name) {
  rest(30);
  if (scenery_ == Scenery::Wide && !qobject_cast<shell::MainShell*>(&widget)) return;
  const std::string suffix = scenery_ == Scenery::Dark ? "-dark" : scenery_ == Scenery::Wide ? "-wide" : "";
  save(widget.grab(), name + suffix + ".png");
}

void Guide::paper(const printing::Report& report, const std::string& name) {
  if (scenery_ != Scenery::Light) return;
  printing::PageSource pages(report);
  paper(pages, name);
}

void Guide::paper(printing::PageSource& pages, const std::string& name) {
  if (scenery_ != Scenery::Light) return;
  constexpr double dotsPerInch = 110;
  while (!pages.complete()) pages.makeFor(1000);
  const std::shared_ptr<const printing::Page> page = pages.page(0);
  if (!page) throw std::logic_error("the print-out " + name + " has no page");
  const double scale = dotsPerInch / 1440.0;
  QImage sheet(qRound(page->width * scale), qRound(page->height * scale), QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.scale(scale, scale);
  printing::paintPage(painter, *page, pages.total());
  painter.end();
  save(QPixmap::fromImage(withoutEmptyFoot(sheet, 30)), name + ".png");
}

void Guide::type(const QString& text) {
  for (const QChar character : text) pressAndRelease(character.toUpper().unicode(), Qt::NoModifier, QString(character));
  rest(80);
}

void Guide::press(int key, Qt::KeyboardModifiers modifiers) {
  const QString text = key == Qt::Key_Return ? "\r" : key == Qt::Key_Tab ? "\t" : "";
  pressAndRelease(key, modifiers, text);
  rest(80);
}

void Guide::rest(int milliseconds) {
  QElapsedTimer clock;
  clock.start();
  do {
    QApplication::processEvents(QEventLoop::AllEvents, 10);
  } while (clock.elapsed() < milliseconds);
}

void Guide::focus(QWidget& widget) {
  widget.window()->activateWindow();
  QApplication::setActiveWindow(widget.window());
  widget.setFocus(Qt::TabFocusReason);
  rest(20);
}

// The dialog's own event loop runs the visit, and an exception must not pass through that loop.
void Guide::inDialog(const std::function<void()>& open, const std::function<void(QWidget& dialog)>& visit) {
  std::exception_ptr failure = std::make_exception_ptr(std::logic_error("no dialog was opened"));
  QTimer::singleShot(200, [&] {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog) return;
    failure = nullptr;
    try {
      QApplication::setActiveWindow(dialog);
      rest(20);
      visit(*dialog);
    } catch (...) {
      failure = std::current_exception();
    }
    if (dialog == QApplication::activeModalWidget()) dialog->close();
  });
  open();
  rest(30);
  if (failure) std::rethrow_exception(failure);
}

printing::PreviewWindow& Guide::preview() {
  rest(300);
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* found = qobject_cast<printing::PreviewWindow*>(window); found && found->isVisible()) return *found;
  throw std::logic_error("no print-out was opened");
}

}  // namespace velmo::tour

#include "shell/screen_windows.h"

#include <QDialog>
#include <QEvent>
#include <QMdiSubWindow>
#include <QTabBar>
#include <memory>
#include <stdexcept>

namespace velmo::shell {

ScreenWindows::ScreenWindows(std::span<const ScreenEntry> catalogue, QWidget* parent)
    : QMdiArea(parent), catalogue_(catalogue) {
  setViewMode(QMdiArea::TabbedView);
  setDocumentMode(true);
  setTabsClosable(true);
  setTabsMovable(true);
  setActivationOrder(QMdiArea::ActivationHistoryOrder);
  setBackground(palette().brush(QPalette::Window));
  setFrameShape(QFrame::NoFrame);
  if (auto* tabs = findChild<QTabBar*>()) {
    tabs->setElideMode(Qt::ElideRight);
    tabs->setExpanding(false);
    tabs->setFocusPolicy(Qt::NoFocus);
  }
}

const ScreenEntry* ScreenWindows::entryOf(std::string_view name) const {
  for (const ScreenEntry& entry : catalogue_)
    if (entry.name == name) return &entry;
  return nullptr;
}

bool ScreenWindows::hasScreen(std::string_view name) const {
  return entryOf(name) != nullptr;
}

QWidget* ScreenWindows::openWindow(std::string_view name) const {
  const auto found = windows_.find(name);
  return found == windows_.end() || !found->second ? nullptr : found->second->widget();
}

bool ScreenWindows::openScreen(std::string_view name) {
  const ScreenEntry* entry = entryOf(name);
  if (!entry || entry->kind != ScreenKind::ChildWindow) return false;
  if (QWidget* open = openWindow(name)) {
    setActiveSubWindow(windows_.find(name)->second);
    // Every document screen has the first slot, every ledger the second; a screen that is made anew looks at the flags
    // by itself.
    if (workplace_->context.OpenTranFlag && open->metaObject()->indexOfSlot("ShowRecord()") >= 0)
      QMetaObject::invokeMethod(open, "ShowRecord", Qt::DirectConnection);
    if (workplace_->context.OpenLedgerFlag && open->metaObject()->indexOfSlot("ShowLedger()") >= 0)
      QMetaObject::invokeMethod(open, "ShowLedger", Qt::DirectConnection);
    return true;
  }
  QMdiSubWindow* window = makeWindow(*entry);
  window->showMaximized();
  setActiveSubWindow(window);
  return true;
}

QMdiSubWindow* ScreenWindows::makeWindow(const ScreenEntry& entry) {
  if (!workplace_) throw std::logic_error("a screen was opened before there was a workplace");
  Q_EMIT screenOpening();
  QWidget* screen = entry.make(*workplace_, nullptr);
  screen->setObjectName(QString::fromUtf8(entry.name.data(), static_cast<qsizetype>(entry.name.size())));
  screen->setAttribute(Qt::WA_DeleteOnClose);
  QMdiSubWindow* window = addSubWindow(screen);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowIcon(QIcon());
  // A tab would take a single mark for the sign of an access key.
  window->setWindowTitle(screen->windowTitle().replace(QLatin1Char('&'), QLatin1String("&&")));
  screen->installEventFilter(this);
  windows_[std::string(entry.name)] = window;
  return window;
}

bool ScreenWindows::openDialog(std::string_view name) {
  const ScreenEntry* entry = entryOf(name);
  if (!entry || entry->kind != ScreenKind::Dialog) return false;
  if (!workplace_) throw std::logic_error("a dialog was opened before there was a workplace");
  Q_EMIT screenOpening();
  const std::unique_ptr<QWidget> widget(entry->make(*workplace_, window()));
  auto& dialog = dynamic_cast<QDialog&>(*widget);
  dialog.setObjectName(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
  dialog.exec();
  Q_EMIT screenClosed(dialog.objectName());
  return true;
}

bool ScreenWindows::closeAll() {
  closeAllSubWindows();
  for (const auto& [name, window] : windows_)
    if (window && window->isVisible()) return false;
  for (const auto& [name, window] : windows_) delete window.data();
  windows_.clear();
  return true;
}

bool ScreenWindows::isScreen(const QObject* object) const {
  return object->isWidgetType() && openWindow(object->objectName().toStdString()) == object;
}

// A screen that was closed is gone for its opener at once, although it is deleted a moment later. QMdiArea is a filter
// of the whole application besides: all other windows, dialogs and message boxes among them, close as they will.
bool ScreenWindows::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Close || !isScreen(watched)) return QMdiArea::eventFilter(watched, event);
  const bool handled = watched->event(event);
  if (event->isAccepted()) {
    watched->removeEventFilter(this);
    windows_.erase(watched->objectName().toStdString());
    Q_EMIT screenClosed(watched->objectName());
  }
  return handled;
}

}  // namespace velmo::shell

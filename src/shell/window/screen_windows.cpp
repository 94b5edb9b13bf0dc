#include "shell/window/screen_windows.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMdiSubWindow>
#include <QShortcut>
#include <QTabBar>
#include <memory>
#include <stdexcept>

#include "forms/caption.h"
#include "session/open_screen.h"
#include "shell/window/screen_tabs.h"

namespace velmo::shell {

ScreenWindows::ScreenWindows(std::span<const ScreenEntry> catalogue, QWidget* parent)
    : QMdiArea(parent), catalogue_(catalogue), tabs_(new ScreenTabs(this)) {
  setViewMode(QMdiArea::TabbedView);
  setDocumentMode(true);
  setActivationOrder(QMdiArea::ActivationHistoryOrder);
  setBackground(palette().brush(QPalette::Window));
  setFrameShape(QFrame::NoFrame);
  for (QTabBar* own : findChildren<QTabBar*>(Qt::FindDirectChildrenOnly)) own->hide();
  connect(tabs_, &ScreenTabs::chosen, this, &ScreenWindows::bringForward);
  connect(tabs_, &ScreenTabs::closeAsked, this, [](QMdiSubWindow* window) { window->close(); });
  connect(this, &QMdiArea::subWindowActivated, this, &ScreenWindows::broughtForward);
  const auto onKeys = [this](const char* keys, int step) {
    auto* shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), this);
    connect(shortcut, &QShortcut::activated, tabs_, [this, step] { tabs_->go(step); });
  };
  onKeys("Ctrl+Tab", 1);
  onKeys("Ctrl+Shift+Tab", -1);
  onKeys("Ctrl+Shift+Backtab", -1);  // what the keys above are called on most displays
}

// As the area takes a screen from the front, it moves the keyboard one box further in it.
void ScreenWindows::rememberFocus() {
  QMdiSubWindow* front = activeSubWindow();
  QWidget* focus = QApplication::focusWidget();
  if (front && focus && front->isAncestorOf(focus)) worked_[front] = focus;
}

void ScreenWindows::bringForward(QMdiSubWindow* window) {
  rememberFocus();
  setActiveSubWindow(window);
}

void ScreenWindows::broughtForward(QMdiSubWindow* window) {
  if (!window) return;
  tabs_->bringForward(window);
  const auto worked = worked_.find(window);
  if (worked == worked_.end()) return;
  if (worked->second) worked->second->setFocus(Qt::OtherFocusReason);
  worked_.erase(worked);
}

void ScreenWindows::resizeEvent(QResizeEvent* event) {
  QMdiArea::resizeEvent(event);
  placeTabs();
}

void ScreenWindows::placeTabs() {
  tabs_->setGeometry(0, 0, width(), viewport()->y());
  tabs_->raise();
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
    bringForward(windows_.find(name)->second);
    if (auto* reopened = dynamic_cast<session::Reopened*>(open)) reopened->reopen();
    return true;
  }
  rememberFocus();
  QMdiSubWindow* window = makeWindow(*entry);
  window->showMaximized();
  setActiveSubWindow(window);
  tabs_->bringForward(window);  // it may have come to the front before it had its tab
  return true;
}

QMdiSubWindow* ScreenWindows::makeWindow(const ScreenEntry& entry) {
  if (!workplace_) throw std::logic_error("a screen was opened before there was a workplace");
  Q_EMIT screenOpening();
  QWidget* screen = entry.make(*workplace_, nullptr);
  screen->setObjectName(forms::shownText(entry.name));
  screen->setAttribute(Qt::WA_DeleteOnClose);
  QMdiSubWindow* window = addSubWindow(screen);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowIcon(QIcon());
  // A tab would take a single mark for the sign of an access key.
  window->setWindowTitle(screen->windowTitle().replace(QLatin1Char('&'), QLatin1String("&&")));
  screen->installEventFilter(this);
  tabs_->add(*window);
  placeTabs();
  windows_[std::string(entry.name)] = window;
  return window;
}

bool ScreenWindows::openDialog(std::string_view name) {
  const ScreenEntry* entry = entryOf(name);
  if (!entry || entry->kind != ScreenKind::Dialog) return false;
  if (!workplace_) throw std::logic_error("a dialog was opened before there was a workplace");
  Q_EMIT screenOpening();
  QWidget* front = QApplication::activeWindow();
  if (!front || front->windowType() == Qt::Popup) front = window();
  const std::unique_ptr<QWidget> widget(entry->make(*workplace_, front));
  auto& dialog = dynamic_cast<QDialog&>(*widget);
  dialog.setObjectName(forms::shownText(name));
  dialog.exec();
  Q_EMIT screenClosed(dialog.objectName());
  return true;
}

bool ScreenWindows::mayClose() {
  for (QMdiSubWindow* window : subWindowList()) {
    auto* work = dynamic_cast<session::UnsavedWork*>(window->widget());
    if (!work) continue;
    QMdiSubWindow* const front = activeSubWindow();
    bringForward(window);
    if (!work->MayLeave()) return false;
    bringForward(front);
  }
  return true;
}

void ScreenWindows::giveUpAll() {
  for (QMdiSubWindow* window : subWindowList())
    if (auto* work = dynamic_cast<session::UnsavedWork*>(window->widget())) work->GiveUp();
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
// of the whole application besides: all other windows, dialogs and message boxes among them, close as they will. What
// it does as Ctrl goes down and up is left out: Ctrl+Tab is ours, and the keyboard would go one box further.
bool ScreenWindows::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) return false;
  if (event->type() != QEvent::Close || !isScreen(watched)) return QMdiArea::eventFilter(watched, event);
  const bool handled = watched->event(event);
  if (event->isAccepted()) {
    watched->removeEventFilter(this);
    const auto closed = windows_.find(watched->objectName().toStdString());
    worked_.erase(closed->second);
    windows_.erase(closed);
    Q_EMIT screenClosed(watched->objectName());
  }
  return handled;
}

}  // namespace velmo::shell

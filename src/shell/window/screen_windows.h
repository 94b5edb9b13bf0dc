#pragma once

#include <QMdiArea>
#include <QPointer>
#include <map>
#include <string>

#include "session/screen_opener.h"
#include "shell/catalogue/screen_catalogue.h"

class QMdiSubWindow;

namespace velmo::shell {

class ScreenTabs;

// The child windows and dialogs of the shell, by name: one tab for each open child window. The area's own tab bar,
// which would shrink the title in front as well, makes the room and stays hidden below ScreenTabs.
class ScreenWindows : public QMdiArea, public session::ScreenOpener {
  Q_OBJECT

 public:
  explicit ScreenWindows(std::span<const ScreenEntry> catalogue, QWidget* parent = nullptr);

  // What the screens are handed when they are made. To be set before the first one is opened.
  void setWorkplace(session::Workplace& workplace) { workplace_ = &workplace; }

  bool openScreen(std::string_view name) override;
  bool openDialog(std::string_view name) override;
  bool hasScreen(std::string_view name) const override;

  // The child window with this name; null when it is not open.
  QWidget* openWindow(std::string_view name) const;
  // Asks the screens in turn, each in front, whether what is typed in them may be dropped; false when one may not.
  bool mayClose();
  // Nobody asks any more about what is typed now.
  void giveUpAll();
  // Closes all child windows, as their own close buttons do; false when one of them refused.
  bool closeAll();

 Q_SIGNALS:
  // A screen is made next, and may look at whatever screens share.
  void screenOpening();
  // A child window or dialog was closed.
  void screenClosed(const QString& name);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void placeTabs();
  void rememberFocus();
  void bringForward(QMdiSubWindow* window);
  void broughtForward(QMdiSubWindow* window);
  const ScreenEntry* entryOf(std::string_view name) const;
  bool isScreen(const QObject* object) const;
  QMdiSubWindow* makeWindow(const ScreenEntry& entry);

  std::span<const ScreenEntry> catalogue_;
  session::Workplace* workplace_ = nullptr;
  ScreenTabs* tabs_;
  std::map<std::string, QPointer<QMdiSubWindow>, std::less<>> windows_;
  std::map<const QMdiSubWindow*, QPointer<QWidget>> worked_;  // where the keyboard was in screens left behind
};

}  // namespace velmo::shell

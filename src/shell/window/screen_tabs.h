#pragma once

#include <QTabBar>

class QMdiSubWindow;
class QToolButton;

namespace velmo::shell {

// A tab bar whose current tab shows its whole title. When all titles do not fit, the others share the room that is left
// down to a least width, behind which they are scrolled. Only the current tab and the one under the mouse have a mark
// that closes them. Its tabs bring a QMdiSubWindow as their data.
class ShrinkingTabBar : public QTabBar {
  Q_OBJECT

 public:
  explicit ShrinkingTabBar(QWidget* parent);

  // Pixels that the tabs may take together.
  void setRoom(int room);
  int wholeWidth() const;  // of all tabs with their whole titles

 protected:
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void tabInserted(int index) override;
  void tabRemoved(int index) override;

 private:
  QSize wholeSize(int index) const;
  int sharedWidth() const;
  void hover(int index);
  void placeMarks();

  int room_ = 0;
  int hovered_ = -1;
};

// The tabs of the open screens, with a list of all of them behind the last tab while titles are cut.
class ScreenTabs : public QWidget {
  Q_OBJECT

 public:
  explicit ScreenTabs(QWidget* parent);

  // The tab goes when the window does.
  void add(QMdiSubWindow& window);
  void bringForward(QMdiSubWindow* window);  // null changes nothing
  // That many tabs on, from the last to the first.
  void go(int step);

 Q_SIGNALS:
  void chosen(QMdiSubWindow* window);
  void closeAsked(QMdiSubWindow* window);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QMdiSubWindow* windowAt(int index) const;
  int indexOf(const QObject* window) const;  // -1 when it has no tab
  void arrange();
  void listScreens();

  ShrinkingTabBar* bar_;
  QToolButton* allBttn_;
};

}  // namespace velmo::shell

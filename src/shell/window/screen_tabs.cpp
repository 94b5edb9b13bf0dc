#include "shell/window/screen_tabs.h"

#include <QAbstractButton>
#include <QActionGroup>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOption>
#include <QToolButton>

namespace velmo::shell {
namespace {

constexpr int leastWidth = 64;  // of a tab: the first letters of its title
constexpr int listWidth = 34;   // of the button that lists all screens

// Closes its tab; drawn as the look draws such marks.
class TabMark : public QAbstractButton {
 public:
  explicit TabMark(QTabBar* bar) : QAbstractButton(bar) {
    setFocusPolicy(Qt::NoFocus);
    setToolTip(QStringLiteral("Close"));
    setAccessibleName(QStringLiteral("Close"));
    resize(markSize(*bar));
  }

  static QSize markSize(const QTabBar& bar) {
    return {bar.style()->pixelMetric(QStyle::PM_TabCloseIndicatorWidth, nullptr, &bar),
            bar.style()->pixelMetric(QStyle::PM_TabCloseIndicatorHeight, nullptr, &bar)};
  }

  QSize sizeHint() const override { return size(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    option.state |= QStyle::State_AutoRaise;
    if (isDown()) option.state |= QStyle::State_Sunken;
    if (underMouse()) option.state |= QStyle::State_Raised | QStyle::State_MouseOver;
    style()->drawPrimitive(QStyle::PE_IndicatorTabClose, &option, &painter, this);
  }
};

}  // namespace

ShrinkingTabBar::ShrinkingTabBar(QWidget* parent) : QTabBar(parent) {
  setObjectName(QStringLiteral("ScreenTabs"));
  setAccessibleName(QStringLiteral("Open screens"));
  setDocumentMode(true);
  setDrawBase(false);
  setMovable(true);
  setExpanding(false);
  setElideMode(Qt::ElideRight);
  setUsesScrollButtons(true);
  setFocusPolicy(Qt::NoFocus);
  setMouseTracking(true);
  connect(this, &QTabBar::currentChanged, this, [this] { setRoom(room_); });
  connect(this, &QTabBar::tabMoved, this, &ShrinkingTabBar::placeMarks);
}

void ShrinkingTabBar::setRoom(int room) {
  room_ = room;
  placeMarks();
  // The bar lays its tabs out again only when one of them changes.
  if (count() > 0) setTabText(0, tabText(0));
}

QSize ShrinkingTabBar::wholeSize(int index) const {
  QStyleOptionTab option;
  initStyleOption(&option, index);
  const QSize text = fontMetrics().size(Qt::TextShowMnemonic, tabText(index));
  const int mark = TabMark::markSize(*this).width();
  const int space = style()->pixelMetric(QStyle::PM_TabBarTabHSpace, &option, this);
  const QSize content(text.width() + space + mark + 4, text.height());
  return style()->sizeFromContents(QStyle::CT_TabBarTab, &option, content, this);
}

int ShrinkingTabBar::wholeWidth() const {
  int all = 0;
  for (int index = 0; index < count(); ++index) all += wholeSize(index).width();
  return all;
}

// What each tab but the current one may take at most, so that short titles leave their room to the long ones.
int ShrinkingTabBar::sharedWidth() const {
  std::vector<int> wanted;
  for (int index = 0; index < count(); ++index)
    if (index != currentIndex()) wanted.push_back(wholeSize(index).width());
  std::sort(wanted.begin(), wanted.end());
  int room = room_ - (currentIndex() < 0 ? 0 : wholeSize(currentIndex()).width());
  for (auto next = wanted.begin(); next != wanted.end(); ++next) {
    const int share = room / static_cast<int>(wanted.end() - next);
    if (*next > share) return std::max(share, leastWidth);
    room -= *next;
  }
  return wanted.empty() ? 0 : wanted.back();
}

QSize ShrinkingTabBar::tabSizeHint(int index) const {
  const QSize whole = wholeSize(index);
  return index == currentIndex() ? whole : QSize(std::min(whole.width(), sharedWidth()), whole.height());
}

void ShrinkingTabBar::mouseMoveEvent(QMouseEvent* event) {
  QTabBar::mouseMoveEvent(event);
  if (!event->buttons()) hover(tabAt(event->position().toPoint()));
}

void ShrinkingTabBar::leaveEvent(QEvent* event) {
  QTabBar::leaveEvent(event);
  hover(-1);
}

void ShrinkingTabBar::hover(int index) {
  if (hovered_ == index) return;
  hovered_ = index;
  placeMarks();
}

void ShrinkingTabBar::tabInserted(int index) {
  QTabBar::tabInserted(index);
  placeMarks();
}

void ShrinkingTabBar::tabRemoved(int index) {
  QTabBar::tabRemoved(index);
  hovered_ = -1;
  placeMarks();
}

void ShrinkingTabBar::placeMarks() {
  for (int index = 0; index < count(); ++index) {
    QWidget* mark = tabButton(index, RightSide);
    const bool wanted = index == currentIndex() || index == hovered_;
    if (wanted == (mark != nullptr)) continue;
    if (mark) {
      setTabButton(index, RightSide, nullptr);
      mark->deleteLater();
      continue;
    }
    auto* made = new TabMark(this);
    connect(made, &TabMark::clicked, this, [this, made] {
      for (int tab = 0; tab < count(); ++tab)
        if (tabButton(tab, RightSide) == made) return Q_EMIT tabCloseRequested(tab);
    });
    setTabButton(index, RightSide, made);
  }
}

ScreenTabs::ScreenTabs(QWidget* parent)
    : QWidget(parent), bar_(new ShrinkingTabBar(this)), allBttn_(new QToolButton(this)) {
  allBttn_->setObjectName(QStringLiteral("AllScreensBttn"));
  allBttn_->setAccessibleName(QStringLiteral("All open screens"));
  allBttn_->setToolTip(QStringLiteral("All open screens (Ctrl+Tab and Ctrl+Shift+Tab go through them)"));
  allBttn_->setArrowType(Qt::DownArrow);
  allBttn_->setAutoRaise(true);
  allBttn_->setFocusPolicy(Qt::NoFocus);
  allBttn_->setPopupMode(QToolButton::InstantPopup);
  allBttn_->setMenu(new QMenu(allBttn_));
  allBttn_->hide();
  setAutoFillBackground(true);
  connect(allBttn_->menu(), &QMenu::aboutToShow, this, &ScreenTabs::listScreens);
  connect(bar_, &QTabBar::currentChanged, this, [this](int index) {
    if (QMdiSubWindow* window = windowAt(index)) Q_EMIT chosen(window);
  });
  connect(bar_, &QTabBar::tabCloseRequested, this, [this](int index) { Q_EMIT closeAsked(windowAt(index)); });
}

QMdiSubWindow* ScreenTabs::windowAt(int index) const {
  return bar_->tabData(index).value<QMdiSubWindow*>();
}

int ScreenTabs::indexOf(const QObject* window) const {
  for (int index = 0; index < bar_->count(); ++index)
    if (windowAt(index) == window) return index;
  return -1;
}

void ScreenTabs::add(QMdiSubWindow& window) {
  {
    const QSignalBlocker quiet(bar_);  // it comes forward with its window
    const int index = bar_->addTab(window.windowTitle());
    bar_->setTabData(index, QVariant::fromValue(&window));
  }
  const auto showTitle = [this, shown = &window] {
    const int index = indexOf(shown);
    if (index < 0) return;
    bar_->setTabText(index, shown->windowTitle());
    bar_->setTabToolTip(index, shown->windowTitle().replace(QLatin1String("&&"), QLatin1String("&")));
    arrange();
  };
  showTitle();
  connect(&window, &QMdiSubWindow::windowTitleChanged, this, showTitle);
  connect(&window, &QObject::destroyed, this, [this](QObject* gone) {
    const QSignalBlocker quiet(bar_);  // the area says which window comes forward
    bar_->removeTab(indexOf(gone));
    arrange();
  });
}

void ScreenTabs::bringForward(QMdiSubWindow* window) {
  const int index = indexOf(window);
  if (index < 0) return;
  {
    const QSignalBlocker quiet(bar_);
    bar_->setCurrentIndex(index);
  }
  arrange();
}

void ScreenTabs::go(int step) {
  const int count = bar_->count();
  if (count > 1) bar_->setCurrentIndex((bar_->currentIndex() + step + count) % count);
}

void ScreenTabs::resizeEvent(QResizeEvent*) {
  arrange();
}

void ScreenTabs::arrange() {
  const bool crowded = bar_->wholeWidth() > width();
  const int room = crowded ? width() - listWidth : width();
  allBttn_->setVisible(crowded);
  allBttn_->setGeometry(room, 0, width() - room, height());
  bar_->setGeometry(0, 0, room, height());
  bar_->setRoom(room);
}

void ScreenTabs::listScreens() {
  QMenu& menu = *allBttn_->menu();
  menu.clear();
  for (int index = 0; index < bar_->count(); ++index) {
    QAction* screen = menu.addAction(bar_->tabText(index));
    screen->setCheckable(true);
    screen->setChecked(index == bar_->currentIndex());
    connect(screen, &QAction::triggered, bar_, [this, index] { bar_->setCurrentIndex(index); });
  }
}

}  // namespace velmo::shell

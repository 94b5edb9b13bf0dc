#include <gtest/gtest.h>

#include <QMdiSubWindow>
#include <QMenu>
#include <QTabBar>
#include <QToolButton>
#include <cstdlib>

#include "shell/window/screen_windows.h"
#include "windows/person.h"

namespace velmo::test {
namespace {

constexpr const char* twelve[] = {"SaleInvoicesPOS", "SaleReturns",  "PurchaseBillsSimple", "PurchaseReturns",
                                  "CashReceipts",    "BankReceipts", "CashPayments",        "BankPayments",
                                  "GeneralJournal",  "AccLedgers",   "SaleInvoicesSimple"};  // and the welcome screen

shell::ScreenWindows& screens() {
  return Person::control<shell::ScreenWindows>("");
}

QTabBar& tabs() {
  for (QTabBar* bar : screens().findChildren<QTabBar*>())
    if (bar->isVisible()) return *bar;
  throw std::runtime_error("no tabs");
}

std::string front() {
  const QMdiSubWindow* window = screens().activeSubWindow();
  return window && window->widget() ? window->widget()->objectName().toStdString() : std::string();
}

// The title in front is whole, all tabs are there, and only the one in front can be closed by its mark.
void look(const char* when) {
  const QTabBar& bar = tabs();
  ASSERT_EQ(bar.count(), 12);
  const int current = bar.currentIndex();
  for (int tab = 0; tab < bar.count(); ++tab) {
    const QWidget* mark = bar.tabButton(tab, QTabBar::RightSide);
    EXPECT_TRUE(bar.rect().contains(bar.tabRect(tab))) << when << tab;
    EXPECT_EQ(mark && mark->isVisible(), tab == current) << when << tab;
    EXPECT_GE(bar.tabRect(tab).width(), 44) << when << tab;
  }
  EXPECT_GE(bar.tabRect(current).width(), bar.fontMetrics().horizontalAdvance(bar.tabText(current)) +
                                              bar.tabButton(current, QTabBar::RightSide)->width())
      << when;
}

TEST(Tabs, ReachTwelveScreensAndShowTheTitleInFront) {
  withTheProgram([](Person& person) {
    person.look([] { screens().window()->setGeometry(0, 0, 1024, 740); });
    for (const char* name : twelve) person.openScreen(name);
    person.settle();
    person.look([] { look("opened"); });

    person.press("ctrl+Tab");
    person.waitUntil("the first screen behind the last", [] { return front() == "Navigation"; });
    person.press({"ctrl+Tab", "ctrl+Tab"});
    person.waitUntil("the third screen", [] { return front() == "SaleReturns"; });
    person.press("ctrl+shift+Tab");
    person.waitUntil("the second screen", [] { return front() == "SaleInvoicesPOS"; });
    EXPECT_EQ(person.focus(), "Grid") << "where it was";
    person.look([] { look("gone through by keys"); });

    person.look([] {
      QMenu& all = *Person::control<QToolButton>("AllScreensBttn").menu();
      Q_EMIT all.aboutToShow();
      ASSERT_EQ(all.actions().size(), 12);
      all.actions()[9]->trigger();
    });
    person.waitUntil("the tenth screen", [] { return front() == "GeneralJournal"; });

    const QPoint behind = person.look([] { return tabs().mapToGlobal(tabs().tabRect(3).center()); });
    ASSERT_EQ(
        std::system(("xdotool mousemove " + std::to_string(behind.x()) + " " + std::to_string(behind.y())).c_str()), 0);
    person.waitUntil("a mark under the mouse", [] {
      const QWidget* mark = tabs().tabButton(3, QTabBar::RightSide);
      return mark && mark->isVisible();
    });
    const QPoint mark = person.look([] {
      const QWidget* cross = tabs().tabButton(3, QTabBar::RightSide);
      return cross->mapToGlobal(cross->rect().center());
    });
    ASSERT_EQ(
        std::system(
            ("xdotool mousemove " + std::to_string(mark.x()) + " " + std::to_string(mark.y()) + " click 1").c_str()),
        0);
    person.waitUntil("one screen less", [] { return tabs().count() == 11; });
    person.look([] { EXPECT_FALSE(screens().openWindow("PurchaseBillsSimple")); });
  });
}

}  // namespace
}  // namespace velmo::test

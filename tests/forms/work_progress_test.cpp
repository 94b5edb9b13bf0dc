#include "forms/work_progress.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QThread>

namespace velmo::forms {
namespace {

QProgressDialog* shownDialog() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* dialog = qobject_cast<QProgressDialog*>(window); dialog && dialog->isVisible()) return dialog;
  return nullptr;
}

TEST(WorkProgress, ShowsItselfOnlyWhenTheWorkIsLong) {
  {
    WorkProgress quick(nullptr, "Quick", 10);
    for (int i = 0; i < 10; ++i) EXPECT_TRUE(quick.report(i));
    QApplication::processEvents();
    EXPECT_FALSE(shownDialog());
  }
  WorkProgress progress(nullptr, "Counting ...", 2000);
  QThread::msleep(560);
  EXPECT_TRUE(progress.report(500));
  QProgressDialog* dialog = shownDialog();
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->labelText(), "Counting ...");
  EXPECT_EQ(dialog->value() * 4, dialog->maximum());
  QThread::msleep(60);
  EXPECT_TRUE(progress.report(4000));  // more than was said
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->value(), dialog->maximum());
  dialog->findChild<QPushButton*>()->click();
  EXPECT_FALSE(progress.report(4000));
}

TEST(WorkProgress, MovesWithoutATotal) {
  WorkProgress progress(nullptr, "Reading ...");
  QThread::msleep(560);
  EXPECT_TRUE(progress.report(1));
  ASSERT_TRUE(shownDialog());
  EXPECT_EQ(shownDialog()->maximum(), 0);
}

}  // namespace
}  // namespace velmo::forms

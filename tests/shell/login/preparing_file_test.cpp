#include "shell/login/preparing_file.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <thread>

#include "store/values/error.h"

namespace velmo::shell {
namespace {

QWidget* notice() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->objectName() == QLatin1String("PreparingFile") && window->isVisible()) return window;
  return nullptr;
}

TEST(PreparingFile, IsToldForAsLongAsItTakesAndCannotBeSentAway) {
  bool seen = false, stays = false;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    if (QWidget* window = notice(); window && !seen) {
      seen = true;
      window->close();
      stays = window->isVisible();
    }
  });
  look.start(10);
  whilePreparing([] { return schema::FileState{}; });
  EXPECT_FALSE(seen);
  const schema::FileState state = whilePreparing([] {
    std::this_thread::sleep_for(std::chrono::milliseconds(700));
    schema::FileState mended;
    mended.totalsMended = true;
    return mended;
  });
  EXPECT_TRUE(seen);
  EXPECT_TRUE(stays);
  EXPECT_TRUE(state.totalsMended);
  EXPECT_EQ(notice(), nullptr);
  EXPECT_THROW(whilePreparing([]() -> schema::FileState { throw store::StoreError(store::ErrorKind::Busy, "in use"); }),
               store::StoreError);
}

}  // namespace
}  // namespace velmo::shell

#include <gmock/gmock.h>

#include <cstdio>
#include <exception>

#include "windows/display.h"

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  try {
    const velmo::test::Display display;
    qputenv("QT_QPA_PLATFORM", "xcb");
    return RUN_ALL_TESTS();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}

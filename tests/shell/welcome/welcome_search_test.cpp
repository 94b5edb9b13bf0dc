#include <QLineEdit>

#include "shell/welcome/navigation.h"
#include "support/company_session.h"

namespace velmo::shell {
namespace {

using WelcomeSearch = test::CompanySession;

TEST_F(WelcomeSearch, EnterHandsTheTextToTheSearch) {
  logIn();
  dialog = std::make_unique<Navigation>(*workplace, nullptr);
  auto& box = control<QLineEdit>("SearchBox");
  test::focus(box);
  test::press(box, Qt::Key_Return);
  EXPECT_EQ(screens.opened, "") << "nothing to search for";
  test::type(box, QStringLiteral("o'B 1%"));
  test::press(box, Qt::Key_Return);
  EXPECT_EQ(screens.opened, "SearchItem");
  EXPECT_EQ(context->SearchText, "o'B 1%");
  EXPECT_EQ(box.selectedText(), QStringLiteral("o'B 1%")) << "the next code takes its place";
}

}  // namespace
}  // namespace velmo::shell

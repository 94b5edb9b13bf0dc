#include <QApplication>
#include <QDialog>
#include <QTimer>

#include "schema/document_kinds.h"
#include "shell/catalogue/screen_catalogue.h"
#include "support/company_session.h"

namespace velmo::shell {
namespace {

using DocumentForms = test::CompanySession;

// Every screen of documents writes those of its kind, opens its own Find screen, and asks for its own rights there.
TEST_F(DocumentForms, TheScreensOfTheCatalogueAreThoseOfTheTable) {
  logIn();
  context->KORDconn.execute("INSERT INTO Users (UserID, UserName) VALUES (2, 'Clerk')");
  for (const schema::DocumentForm& form : schema::documentForms) {
    SCOPED_TRACE(form.screen);
    const auto entry = std::ranges::find(screenCatalogue(), form.screen, &ScreenEntry::name);
    if (entry == screenCatalogue().end() || form.findScreen.empty()) continue;
    EXPECT_EQ(entry->kind, ScreenKind::ChildWindow);
    const std::string docNo = std::to_string(1000 + form.tranType);
    if (rows("select docno from transactions where docno=" + docNo).isEmpty())
      context->KORDconn.execute(
          "INSERT INTO Transactions (DocNo, TranDate, TranType, FYID, LocationFrom, UserAdded, UserEdited, Cancel) "
          "VALUES (" +
          docNo + ", #11-01-2026#, " + std::to_string(form.tranType) + ", 1, 1, 1, 1, No)");
    context->UserID = 1;
    dialog.reset(entry->make(*workplace, nullptr));
    dialog->show();
    EXPECT_EQ(dialog->objectName().toStdString(), form.screen);
    EXPECT_EQ(read("DocNo"), std::to_string(1001 + form.tranType)) << "the number after the last of its kind";

    context->UserID = 2;
    const auto refusedWithout = [&](int right, const std::function<void()>& command) {
      const std::string id = std::to_string(right);
      context->KORDconn.execute("update userrights set operator1=yes where rightid=" + id);
      prompts.expect("Not Allowed", "You do not have access to " +
                                        rows("select * from userrights where rightid=" + id).text("RightType"));
      command();
      context->KORDconn.execute("update userrights set operator1=no where rightid=" + id);
    };
    if (form.browseRight != 0) refusedWithout(form.browseRight, [&] { click("PrevBttn"); });
    refusedWithout(form.viewRight, [&] {
      QTimer::singleShot(0, dialog.get(), [&] {
        auto* find = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(find, nullptr);
        EXPECT_EQ(find->objectName().toStdString(), form.findScreen);
        test::press(*find->findChild<QWidget*>("TranGrid"), Qt::Key_Return);
        find->reject();
      });
      click("EditBttn");
    });
  }
}

}  // namespace
}  // namespace velmo::shell

#include "masters/catalogue/inventory_settings.h"

#include <QAbstractButton>

#include "support/company_session.h"

namespace velmo::masters {
namespace {

class InventorySettings : public test::CompanySession {
 protected:
  void open(const char* stored) {
    test::NewCompany::run({stored});
    logIn();
    dialog.reset(makeInventorySettings(*workplace, nullptr));
    dialog->show();
  }
  // The options that are chosen, as "2/3"; 0 for none.
  std::string chosen() {
    int in = 0;
    int out = 0;
    for (int i = 1; i <= 3; ++i) {
      if (i < 3 && isOn("InvIn_", i)) in = i;
      if (isOn("InvOut_", i)) out = i;
    }
    return std::to_string(in) + "/" + std::to_string(out);
  }
  bool isOn(const char* name, int index) {
    return control<QAbstractButton>((name + std::to_string(index)).c_str()).isChecked();
  }
  void choose(int in, int out) {
    click(("InvIn_" + std::to_string(in)).c_str());
    click(("InvOut_" + std::to_string(out)).c_str());
  }
  std::string flags() {
    std::string all;
    for (const auto flag : {context->IGPInvLedger, context->BillInvLedger, context->OGPInvLedger, context->DCInvLedger,
                            context->InvoiceInvLedger})
      all += flag ? '1' : '0';
    return all;
  }
};

TEST_F(InventorySettings, EveryChoiceIsWrittenAndHoldsAtOnce) {
  const struct {
    int in, out;
    const char* flags;
  } cases[] = {{1, 1, "01011"}, {1, 2, "01101"}, {1, 3, "01110"}, {2, 1, "10011"}, {2, 2, "10101"}, {2, 3, "10110"}};
  for (const auto& [in, out, expected] : cases) {
    const std::string number = std::to_string(10 * in + out);
    SCOPED_TRACE(number);
    open("UPDATE BusinessInfo SET StockMovement = 23");
    EXPECT_EQ(chosen(), "2/3");
    choose(in, out);
    EXPECT_EQ(flags(), "10110") << "not before it is saved";
    click("SaveBttn");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(flags(), expected);
    EXPECT_EQ(rows("select * from businessinfo").text("StockMovement"), number);
  }
}

TEST_F(InventorySettings, ANumberThatStandsForNothingAsksForAChoice) {
  const std::pair<const char*, const char*> stored[] = {{"UPDATE BusinessInfo SET StockMovement = null", "0/0"},
                                                        {"UPDATE BusinessInfo SET StockMovement = 42", "0/2"},
                                                        {"UPDATE BusinessInfo SET StockMovement = 19", "1/0"},
                                                        {"UPDATE BusinessInfo SET StockMovement = -23", "0/0"}};
  for (const auto& [statement, options] : stored) {
    open(statement);
    EXPECT_EQ(chosen(), options) << statement;
    prompts.expect("Cannot Save", options[0] == '0' ? "Select the document by which goods come in."
                                                    : "Select the document by which goods go out.");
    click("SaveBttn");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(flags(), "00000");
  }
  choose(2, 2);
  test::press(*dialog, Qt::Key_Escape);
  EXPECT_EQ(rows("select * from businessinfo").text("StockMovement"), "-23");
}

}  // namespace
}  // namespace velmo::masters

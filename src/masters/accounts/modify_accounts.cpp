#include "masters/accounts/modify_accounts.h"

#include <QPushButton>

#include "forms/caption.h"
#include "forms/look.h"
#include "frame/master/master_dialog.h"
#include "masters/accounts/account_levels.h"
#include "masters/accounts/account_prints.h"
#include "masters/accounts/chart_of_accounts.h"
#include "masters/import/bring_in.h"
#include "schema/account_types.h"
#include "text/number.h"

namespace velmo::masters {
namespace {

using frame::MasterEntry;
using frame::MasterPanel;

const AccountWords accountWords = {
    .addFirst = "Click on Add Button before adding record.",
    .full = "You have added maximum number of accounts in the selected sub account type.",
    .nameMissing = "Enter account name to save.",
    .subTypeNotEmpty = "There have been accounts present in this sub account type. Delete them before deleting it.",
    .subject = "account",
    .none = {"No Account Found", "There is no account to be deleted."},
};

namespace account_type = schema::account_type;

// The types that the program's own accounts stand under.
constexpr int fixedTypes[] = {
    account_type::Cash,        account_type::Banks,   account_type::Customers, account_type::Inventory,
    account_type::Prepayments, account_type::Vendors, account_type::Payables,  account_type::AccumulatedProfit,
    account_type::Income,      account_type::Expense, account_type::Selling};

// The components whose types are numbered in one series.
std::string seriesOf(const std::string& component) {
  static constexpr const char* series[] = {"natureid=10 or natureid=11",
                                           "natureid=20 or natureid=21",
                                           "natureid=30",
                                           "natureid=40",
                                           "natureid=50",
                                           "natureid=60",
                                           "natureid=61 or natureid=62 or natureid=65"};
  const std::string own = "natureid=" + component;
  for (const std::string filter : series)
    if ((" " + filter + " ").find(" " + own + " ") != std::string::npos) return filter;
  return {};
}

// One more than the last type of the series, so that the hundreds keep their meaning; "" when it is full or empty.
std::string nextType(const MasterEntry& entry) {
  const std::string series = seriesOf(store::textOf(entry.value("NatureID")));
  if (series.empty()) return {};
  const std::string last = frame::lastCode(entry.connection(), "typeid", "acclevel1", series);
  if (last.empty() || last.ends_with("99")) return {};
  return std::to_string(static_cast<int>(text::leadingNumber(last)) + 1);
}

std::optional<std::string> fixedType(const MasterEntry& entry) {
  const auto type = static_cast<int>(text::leadingNumber(entry.stored("TypeID")));
  return std::ranges::count(fixedTypes, type) > 0 ? std::optional<std::string>("This account type cannot be deleted.")
                                                  : std::nullopt;
}

constexpr const char* componentMissing =
    "Select correct financial statements component to save or you may have added maximum number of account types in "
    "the selected component.";

frame::MasterLevel typeLevel() {
  return {
      .frame = "L1Frame",
      .list = "L1List",
      .suffix = "",
      .heading = "Account types",
      .key = "TypeID",
      .statement =
          [](const std::string&) {
            return std::string("SELECT typeid, type, natureid from AccLevel1 order by typeid");
          },
      .columns = {{.caption = "Code", .field = "TypeID", .width = 5},
                  {.caption = "Type", .field = "Type", .width = 26}},
      .fields =
          {{.name = "MainCode", .caption = "Code", .column = "TypeID", .use = frame::BoxUse::ShownOnly, .width = 8},
           {.name = "CatCodeTxt", .caption = "Name", .column = "Type"},
           {.name = "FSList",
            .caption = "Stands under",
            .column = "NatureID",
            .kind = frame::BoxKind::Choice,
            .choices = {.statement = "SELECT * from fsnature order by natureid",
                        .shownColumn = "AccNatureTop",
                        .boundColumn = "NatureID"},
            .span = 2}},
      .written = {{"typeid"}, {"type"}, {"natureid"}},
      .tests = {{frame::emptyText("TypeID", componentMissing), "NatureID"},
                {frame::noEntry("NatureID", componentMissing), "NatureID"},
                {frame::emptyText("Type", "Enter main account type to save."), "Type"}},
      .deletion =
          frame::MasterDeletion{
              .none = {"No Main Account Type", "There is no main account type to be deleted."},
              .refusals = {fixedType,
                           frame::hasRows(
                               "select * from acclevel2 where typeid = ",
                               [](const MasterEntry& entry) { return entry.stored("TypeID"); },
                               [](const MasterEntry&) {
                                 return std::string(
                                     "There have been sub account types present in this main account type. Delete them "
                                     "before deleting it.");
                               })},
              .question =
                  [](const MasterEntry&) {
                    return std::string("Are you sure, you want to delete this selected main account type?");
                  }},
      .firstColumn = "NatureID",
      .formColumns = 2,
      .givenCode = frame::GivenCode{.column = "TypeID", .table = "acclevel1", .next = nextType, .follows = "NatureID"},
  };
}

// A line that leads from a type whose accounts have a dialog of their own to that dialog.
struct DetailDialog {
  int type;
  const char* caption;
  const char* dialog;
};
constexpr DetailDialog detailDialogs[] = {
    {account_type::Banks, "Click Here to Record Details of Bank Accounts ....", "ModifyBanks"},
    {account_type::Customers, "Click Here to Record Details of Customers ....", "ModifyCustomers"},
    {account_type::Vendors, "Click Here to Record Details of Suppliers / Vendors ....", "ModifySuppliers"},
};

QWidget* detailLine(frame::MasterDialog& dialog) {
  auto* line = new QPushButton;
  line->setObjectName("DetailLbl");
  line->setAutoDefault(false);
  forms::makeQuiet(*line);
  MasterPanel& types = dialog.panel(0);
  const auto detail = [&types]() -> const DetailDialog* {
    const auto type = static_cast<int>(text::leadingNumber(types.key()));
    const auto found = std::ranges::find(detailDialogs, type, &DetailDialog::type);
    return found == std::end(detailDialogs) ? nullptr : &*found;
  };
  QObject::connect(&types, &MasterPanel::currentChanged, line, [line, detail] {
    const DetailDialog* found = detail();
    line->setVisible(found != nullptr);
    if (found) line->setText(forms::shownText(found->caption));
  });
  QObject::connect(line, &QPushButton::clicked, &dialog, [&dialog, detail] {
    if (const DetailDialog* found = detail()) dialog.giveWayTo(found->dialog);
  });
  return line;
}

std::vector<frame::MasterField> accountDetails() {
  return aroundContact(
      {},
      {accountBox("AccountTitle", "Account title"), accountBox("NTN", "National tax no."),
       accountBox("AccountNo", "Account no."), accountBox("CreditLimit", "Credit limit", frame::BoxKind::Amount, "0"),
       accountBox("Branch", "Branch"), accountBox("CreditTerms", "Credit terms", frame::BoxKind::Text, "0"),
       accountBox("Remarks", "Remarks", frame::BoxKind::Text, {}, 2),
       accountBox("EmpID", "Account manager no.", frame::BoxKind::Digits, "0"),
       accountBox("SectorID", "Sector no.", frame::BoxKind::Digits, "1"),
       accountBox("Region1ID", "Region no.", frame::BoxKind::Digits, "1"),
       accountBox("Region2ID", "Sub region no.", frame::BoxKind::Digits, "1")});
}

}  // namespace

QWidget* makeModifyAccounts(session::Workplace& workplace, QWidget* parent) {
  return new frame::MasterDialog(
      {.screen = "ModifyAccounts",
       .title = "Chart of Accounts",
       .levels = {typeLevel(), subTypeLevel(accountWords), accountLevel(accountWords, accountDetails())},
       .prints = chartOfAccountsPrints(),
       .find = [](frame::MasterDialog& dialog) { pickAccount(dialog, wholeChart); },
       .besideHeading = detailLine,
       .bringIn = bringIn(ImportKind::Accounts)},
      workplace, parent);
}

}  // namespace velmo::masters

#include "masters/accounts/modify_parties.h"

#include "frame/master/master_dialog.h"
#include "masters/accounts/account_levels.h"
#include "masters/accounts/account_prints.h"
#include "masters/accounts/chart_of_accounts.h"
#include "masters/import/bring_in.h"
#include "schema/account_types.h"
#include "text/blanks.h"

namespace velmo::masters {
namespace {

using frame::BoxKind;
using frame::MasterPanel;

// What the dialogs say of customers, and in the same words of suppliers and banks.
AccountWords wordsFor(const std::string& party, const std::string& title) {
  return {.addFirst = "Click on Add Button before adding " + party + ".",
          .full = "You have added maximum number of " + party + "s in the selected sub account type.",
          .nameMissing = "Enter " + party + " name to save.",
          .subTypeNotEmpty =
              "There have been " + party + "s present in this sub account type. Delete them before deleting it.",
          .subject = party,
          .none = {"No " + title + " Found", "There is no " + party + " to be deleted."}};
}

std::string subRegionsOf(const std::string& region) {
  return "select region2id, region2name from regions2 where region1id = " + (region.empty() ? "0" : region) +
         " order by region2name";
}

// Region, sub region, sector and account manager.
std::vector<frame::MasterField> classification() {
  return {{.name = "RegionList1",
           .caption = "Region",
           .column = "Region1ID",
           .kind = BoxKind::Choice,
           .initial = "1",
           .choices = {.statement = "select region1id, region1name from regions1 order by region1name",
                       .shownColumn = "region1name",
                       .boundColumn = "region1id"}},
          {.name = "RegionList2",
           .caption = "Sub region",
           .column = "Region2ID",
           .kind = BoxKind::Choice,
           .initial = "1",
           .choices = {.statement = subRegionsOf("1"), .shownColumn = "region2name", .boundColumn = "region2id"}},
          {.name = "SectorList",
           .caption = "Sector",
           .column = "SectorID",
           .kind = BoxKind::Choice,
           .initial = "1",
           .choices = {.statement = "select sectorid, sectorname from bizsectors order by sectorname",
                       .shownColumn = "sectorname",
                       .boundColumn = "sectorid"}},
          {.name = "EmpList",
           .caption = "Account manager",
           .column = "EmpID",
           .kind = BoxKind::Choice,
           .initial = "1",
           .choices = {.statement = "SELECT empid, empname FROM employees ORDER BY empname",
                       .shownColumn = "empname",
                       .boundColumn = "empid"},
           .keeper = {.button = "EmpBttn", .dialog = "Employees", .hint = "Opens the list of employees"}}};
}

std::vector<frame::MasterField> partyDetails() {
  return aroundContact(
      {}, {accountBox("CreditTerms", "Credit terms", BoxKind::Text, "0"), accountBox("NTN", "National tax no."),
           accountBox("CreditLimit", "Credit limit", BoxKind::Amount, "0"), accountBox("AccountTitle", "Account title"),
           accountBox("AccountNo", "Account no."), accountBox("Branch", "Branch"),
           accountBox("Remarks", "Remarks", BoxKind::Text, {}, 2)});
}

// The numbers behind the classification, which a dialog of parties shows by names or not at all.
void addNumbers(std::vector<frame::MasterField>& fields, const std::string& manager) {
  for (const char* column : {"EmpID", "Region1ID", "Region2ID", "SectorID"}) {
    const std::string initial = column == std::string_view("EmpID") ? manager : "1";
    frame::MasterField number = accountBox(column, column, BoxKind::Digits, initial);
    number.use = frame::BoxUse::Hidden;
    fields.push_back(std::move(number));
  }
}

std::vector<frame::MasterField> supplierDetails() {
  std::vector<frame::MasterField> fields = partyDetails();
  addNumbers(fields, "0");
  return fields;
}

std::vector<frame::MasterField> customerDetails() {
  std::vector<frame::MasterField> fields = partyDetails();
  for (frame::MasterField& field : classification()) fields.push_back(std::move(field));
  addNumbers(fields, "1");
  return fields;
}

// The credit terms of a bank account hold the bank's name.
std::vector<frame::MasterField> bankDetails() {
  std::vector<frame::MasterField> fields =
      aroundContact({accountBox("CreditTerms", "Bank"), accountBox("AccountNo", "Account no."),
                     accountBox("Branch", "Branch"), accountBox("AccountTitle", "Account title")},
                    {accountBox("CreditLimit", "Credit limit", BoxKind::Amount, "0"),
                     accountBox("NTN", "National tax no."), accountBox("Remarks", "Remarks")});
  addNumbers(fields, "0");
  return fields;
}

// The sub regions on offer are those of the region; the shown one stays while the region has it.
void offerSubRegions(MasterPanel& panel) {
  panel.box("Region2ID").offer(subRegionsOf(store::textOf(panel.box("Region1ID").value())));
}

void composeBankName(MasterPanel& panel) {
  const std::string number = panel.text("AccountNo");
  panel.setText("AccName", panel.text("CreditTerms") + (text::isBlank(number) ? "" : " (Acc No. " + number + ")"));
}

struct PartyFamily {
  const char* screen;
  const char* title;
  int type;
  AccountWords words;
  const char* heading;
  std::optional<ImportKind> import = {};
};

// The first tests and the last one are the accounts'; a family's own stand before the last.
frame::MasterDialog* makeParties(const PartyFamily& family, frame::MasterLevel accounts, session::Workplace& workplace,
                                 QWidget* parent) {
  frame::MasterLevel subTypes = subTypeLevel(family.words);
  accounts.heading = family.heading;
  return new frame::MasterDialog(
      {.screen = family.screen,
       .title = family.title,
       .rootKey = std::to_string(family.type),
       .levels = {std::move(subTypes), std::move(accounts)},
       .prints = accountsOfTypePrints(family.type, family.title),
       .find = [type = family.type](frame::MasterDialog& dialog) { pickAccount(dialog, type); },
       .bringIn = family.import ? bringIn(*family.import) : nullptr},
      workplace, parent);
}

const frame::MasterTest creditLimitIsNumeric = {frame::notNumeric("CreditLimit", "Enter numeric credit limit."),
                                                "CreditLimit"};

}  // namespace

QWidget* makeModifyCustomers(session::Workplace& workplace, QWidget* parent) {
  const AccountWords words = wordsFor("customer", "Customer");
  frame::MasterLevel customers = accountLevel(words, customerDetails());
  customers.tests.insert(customers.tests.end() - 1,
                         {{frame::noEntry("Region1ID", "Select correct region name."), "Region1ID"},
                          {frame::noEntry("Region2ID", "Select correct sub region name."), "Region2ID"},
                          {frame::noEntry("SectorID", "Select correct sector name."), "SectorID"},
                          {frame::noEntry("EmpID", "Select correct account manager name."), "EmpID"},
                          creditLimitIsNumeric});
  customers.shown = [](MasterPanel& panel) {
    offerSubRegions(panel);
    if (panel.state() == MasterPanel::State::Adding)
      panel.box("Region2ID").showInitial(panel.workplace().clock.today());
    else if (!panel.key().empty())
      panel.box("Region2ID").show(panel.rows().value("Region2ID"));
  };
  customers.changed = [](MasterPanel& panel, const std::string& column) {
    if (column == "Region1ID") offerSubRegions(panel);
  };
  return makeParties(
      {"ModifyCustomers", "Customers", schema::account_type::Customers, words, "Customers", ImportKind::Customers},
      std::move(customers), workplace, parent);
}

QWidget* makeModifySuppliers(session::Workplace& workplace, QWidget* parent) {
  const AccountWords words = wordsFor("supplier", "Supplier");
  frame::MasterLevel suppliers = accountLevel(words, supplierDetails());
  suppliers.tests.insert(suppliers.tests.end() - 1, creditLimitIsNumeric);
  return makeParties({"ModifySuppliers", "Vendors / Suppliers", schema::account_type::Vendors, words, "Suppliers",
                      ImportKind::Vendors},
                     std::move(suppliers), workplace, parent);
}

QWidget* makeModifyBanks(session::Workplace& workplace, QWidget* parent) {
  const AccountWords words = wordsFor("bank", "Bank");
  frame::MasterLevel banks = accountLevel(words, bankDetails());
  banks.tests.insert(banks.tests.end() - 1, creditLimitIsNumeric);
  banks.firstColumn = "CreditTerms";
  banks.changed = [](MasterPanel& panel, const std::string& column) {
    if (column == "CreditTerms" || column == "AccountNo") composeBankName(panel);
  };
  return makeParties({"ModifyBanks", "Bank Accounts", schema::account_type::Banks, words, "Bank accounts"},
                     std::move(banks), workplace, parent);
}

}  // namespace velmo::masters

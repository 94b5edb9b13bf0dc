#include <algorithm>

#include "masters/import/import_kind.h"
#include "schema/account_types.h"

namespace velmo::masters {
namespace {

using enum ImportValue;
constexpr ImportNeed Required = ImportNeed::Required;

ImportField text(const char* name, const char* caption, std::vector<std::string> words, const char* initial = "") {
  return {.name = name, .caption = caption, .initial = initial, .words = std::move(words)};
}

ImportField subType() {
  return {.name = "SubType",
          .caption = "Sub account type",
          .value = SubType,
          .need = Required,
          .refusal = "Select correct sub account type.",
          .words = {"sub type", "sub account type", "group", "account group", "sub type code", "level2id"}};
}

ImportField name(const char* refusal, std::vector<std::string> words) {
  return {.name = "AccName", .caption = "Name", .need = Required, .refusal = refusal, .words = std::move(words)};
}

// What every account can tell of itself.
std::vector<ImportField> details() {
  return {text("Contact", "Contact", {"contact person", "attention", "contact name"}),
          text("Address", "Address", {"street", "postal address", "billing address", "full address"}),
          text("Phone", "Phone", {"telephone", "phone no", "phone number", "tel", "telephone no"}),
          text("Mobile", "Mobile", {"mobile no", "cell", "cell phone", "mobile phone", "mobile number"}),
          text("Fax", "Fax", {"fax no", "fax number"}),
          text("EMail", "E-mail", {"email", "mail", "email address"}),
          text("Website", "Website", {"web site", "web", "url", "homepage"}),
          text("SalesTaxRegnNo", "Sales tax no.",
               {"sales tax no", "sales tax registration", "strn", "gst", "vat no", "vat number", "sales tax reg no"}),
          text("NTN", "National tax no.", {"ntn", "tax no", "tax number", "tax id", "national tax number"}),
          {.name = "CreditLimit",
           .caption = "Credit limit",
           .value = Amount,
           .initial = "0",
           .refusal = "Enter numeric credit limit.",
           .words = {"limit", "credit"}},
          text("CreditTerms", "Credit terms", {"terms", "payment terms", "credit days"}, "0"),
          text("Remarks", "Remarks", {"notes", "comment", "comments", "remark", "note"})};
}

void append(std::vector<ImportField>& fields, std::vector<ImportField> more) {
  fields.insert(fields.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

ImportDescriptor accounts() {
  ImportDescriptor kind{
      .kind = ImportKind::Accounts,
      .screen = "ImportAccounts",
      .title = "Import Accounts",
      .one = "account",
      .many = "accounts",
      .type = "",
      .full = "You have added maximum number of accounts in the selected sub account type.",
      .taken = "An account is already present with the same name in this sub account type.",
      .fields = {name("Enter account name to save.", {"account name", "account", "title", "account title"}),
                 {.name = "Type",
                  .caption = "Account type",
                  .value = AccountType,
                  .refusal = "Select correct account type.",
                  .words = {"main type", "main account type", "type"}},
                 subType()}};
  append(kind.fields, details());
  append(kind.fields,
         {text("Branch", "Branch", {"bank branch", "branch name"}),
          text("AccountTitle", "Title of bank account", {"title of account", "bank account title"}),
          text("AccountNo", "Bank account no.", {"account no", "account number", "iban", "bank account"})});
  return kind;
}

ImportDescriptor customers() {
  ImportDescriptor kind{.kind = ImportKind::Customers,
                        .screen = "ImportCustomers",
                        .title = "Import Customers",
                        .one = "customer",
                        .many = "customers",
                        .type = std::to_string(schema::account_type::Customers),
                        .full = "You have added maximum number of customers in the selected sub account type.",
                        .taken = "A customer is already present with the same name.",
                        .fields = {name("Enter customer name to save.", {"customer name", "customer", "company",
                                                                         "company name", "account name", "party name"}),
                                   subType()}};
  append(kind.fields, details());
  append(kind.fields, {{.name = "Region1ID",
                        .caption = "Region",
                        .value = Region,
                        .refusal = "Select correct region name.",
                        .words = {"region name", "area", "territory"}},
                       {.name = "Region2ID",
                        .caption = "Sub region",
                        .value = SubRegion,
                        .refusal = "Select correct sub region name.",
                        .words = {"sub region name", "city", "town"}},
                       {.name = "SectorID",
                        .caption = "Sector",
                        .value = Sector,
                        .refusal = "Select correct sector name.",
                        .words = {"sector name", "industry", "business sector"}},
                       {.name = "EmpID",
                        .caption = "Account manager",
                        .value = Employee,
                        .refusal = "Select correct account manager name.",
                        .words = {"account manager name", "salesman", "sales person", "employee", "manager"}}});
  return kind;
}

ImportDescriptor vendors() {
  ImportDescriptor kind{
      .kind = ImportKind::Vendors,
      .screen = "ImportVendors",
      .title = "Import Vendors",
      .one = "supplier",
      .many = "suppliers",
      .type = std::to_string(schema::account_type::Vendors),
      .full = "You have added maximum number of suppliers in the selected sub account type.",
      .taken = "A supplier is already present with the same name.",
      .fields = {name("Enter supplier name to save.", {"supplier name", "supplier", "vendor name", "vendor", "company",
                                                       "company name", "account name", "party name"}),
                 subType()}};
  append(kind.fields, details());
  return kind;
}

ImportField amount(const char* name, const char* caption, const char* refusal, std::vector<std::string> words) {
  return {
      .name = name, .caption = caption, .value = Amount, .initial = "0", .refusal = refusal, .words = std::move(words)};
}

std::vector<ImportField> itemFields() {
  return {
      {.name = "ItemCode",
       .caption = "Code",
       .need = Required,
       .refusal = "Enter item code to save.",
       .words = {"item code", "sku", "bar code", "product code", "article no", "article", "part no", "upc", "ean"}},
      {.name = "ItemName",
       .caption = "Name",
       .need = Required,
       .refusal = "Enter item name to save.",
       .words = {"item name", "item", "product name", "product", "title"}},
      text("Description", "Description", {"details", "long description", "item description"}),
      {.name = "Category",
       .caption = "Category",
       .value = Category,
       .refusal = "Select correct category.",
       .words = {"category name", "main category", "department", "catid"}},
      {.name = "SubCategory",
       .caption = "Sub category",
       .value = SubCategory,
       .need = Required,
       .refusal = "Select correct sub category.",
       .words = {"sub category name", "sub category code", "group", "product group", "subcatid"}},
      {.name = "BrandID",
       .caption = "Brand",
       .value = Brand,
       .refusal = "Select correct brand name.",
       .words = {"brand name", "make", "manufacturer"}},
      text("Rack", "Rack", {"shelf", "bin", "rack no"}),
      amount("PurchasePrice", "Purchase price", "Enter a numeric purchase price.",
             {"cost price", "buying price", "purchase rate", "cost", "buy price"}),
      amount("SellingPrice", "Selling price", "Enter a numeric selling price.",
             {"price", "sale price", "selling price 1", "retail price", "sale rate", "list price", "unit price"}),
      amount("SellingPrice2", "Selling price 2", "Enter a numeric selling price.", {"price 2", "wholesale price"}),
      amount("SellingPrice3", "Selling price 3", "Enter a numeric selling price.", {"price 3"}),
      {.name = "Unit",
       .caption = "Unit",
       .need = Required,
       .initial = "Pcs",
       .refusal = "Enter measurement unit to save.",
       .words = {"uom", "unit of measure", "measurement unit", "units"}},
      amount("ReorderLevel", "Re-order level", "Enter a numeric re-order quantity.",
             {"reorder", "re-order quantity", "reorder point", "minimum stock", "min stock"}),
      {.name = "ValuationType",
       .caption = "Cost method",
       .value = CostMethod,
       .initial = "Weighted Average Price",
       .refusal = "Give the cost method as \"Weighted Average Price\" or \"Manual Valuation Cost\".",
       .words = {"costing", "valuation", "valuation method", "costing method"}},
      amount("ValuationCost2", "Valuation cost", "Enter a numeric valuation cost.", {"manual cost", "fixed cost"}),
      {.name = "Status",
       .caption = "No longer in use",
       .value = YesNo,
       .initial = "No",
       .refusal = "Give Yes or No.",
       .words = {"blocked", "inactive", "discontinued"}},
  };
}

ImportDescriptor items() {
  return {.kind = ImportKind::Items,
          .screen = "ImportItems",
          .title = "Import Items",
          .one = "item",
          .many = "items",
          .type = "",
          .full = "You have added maximum number of sub categories in the selected main category.",
          .taken = "An item is already present with the same item code. Give a different item code.",
          .placeCaption = "Sub category",
          .fields = itemFields()};
}

ImportDescriptor counts() {
  return {.kind = ImportKind::Counts,
          .screen = "ImportCounts",
          .title = "Bring In Counts",
          .one = "count",
          .many = "counts",
          .type = "",
          .full = "",
          .taken = "The item is counted in another row.",
          .fresh = "",
          .possible = " can be brought in",
          .codeCaption = "Item code",
          .placeCaption = "Counted",
          .fields = {{.name = "ItemCode",
                      .caption = "Item code",
                      .need = Required,
                      .refusal = "No item that is kept in stock has this code.",
                      .words = {"code", "item", "sku", "bar code", "barcode", "product code", "article no", "article",
                                "part no", "upc", "ean"}},
                     {.name = "Counted",
                      .caption = "Counted quantity",
                      .value = Amount,
                      .need = Required,
                      .refusal = "Give the counted quantity as a number, 0 or more.",
                      .words = {"counted", "count", "quantity", "qty", "pieces", "stock"}}}};
}

}  // namespace

std::optional<std::size_t> ImportDescriptor::field(const std::string& fieldName) const {
  const auto found = std::ranges::find(fields, fieldName, &ImportField::name);
  if (found == fields.end()) return std::nullopt;
  return static_cast<std::size_t>(found - fields.begin());
}

const ImportDescriptor& importDescriptor(ImportKind kind) {
  static const ImportDescriptor descriptors[] = {accounts(), customers(), vendors(), items(), counts()};
  return descriptors[static_cast<std::size_t>(kind)];
}

}  // namespace velmo::masters

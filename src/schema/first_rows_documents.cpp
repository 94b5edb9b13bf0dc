#include "schema/first_rows.h"
#include "store/recordset/recordset.h"

namespace velmo::schema {
namespace {

struct DocumentName {
  int tranType;
  const char* name;       // "Sale Invoice No. 17" in ledgers
  const char* shortName;  // "SI 17"
};

constexpr DocumentName documentNames[] = {
    {11, "Opening Balance", "OB"},    {20, "Inward Gate Pass", "IGP"},  {21, "Purchase Bill (Sales Tax)", "PST"},
    {22, "Purchase Bill", "PB"},      {25, "Purchase Return", "PR"},    {28, "Bank Payment", "BP"},
    {29, "Cash Payment", "CP"},       {30, "Outward Gate Pass", "OGP"}, {31, "Sales Tax Invoice", "STI"},
    {32, "Sale Invoice", "SI"},       {35, "Sale Return", "SR"},        {38, "Bank Receipt", "BR"},
    {39, "Cash Receipt", "CR"},       {41, "Journal Voucher", "JV"},    {42, "Production", "PN"},
    {43, "Inventory Transfer", "IT"}, {45, "Inventory Added", "IA"},    {47, "Inventory Reduced", "IR"},
    {51, "Closing Inventory", "CI"},  {91, "Quotation", "QT"},          {92, "Purchase Order", "PO"},
    {93, "Sale Order", "SO"},         {94, "Delivery Challan", "DC"},   {95, "Bill of Material", "BM"},
};

}  // namespace

void writeDocumentTypes(store::Connection& connection) {
  store::Recordset rows(connection, "select * from TranType");
  for (const DocumentName& document : documentNames)
    rows.addNew({{"TranType", document.tranType}, {"Name", document.name}, {"short", document.shortName}});
}

}  // namespace velmo::schema

#include "masters/import/import_mapping.h"

#include "masters/import/import_sheets.h"

namespace velmo::masters {
namespace {

using test::Cells;

// "ItemCode=A Unit=D ...", of the fields that were found.
std::string found(const ImportDescriptor& kind, const ImportMapping& mapping) {
  std::string columns;
  for (std::size_t i = 0; i < kind.fields.size(); ++i)
    if (mapping.sources[i].column)
      columns += kind.fields[i].name + "=" + static_cast<char>('A' + *mapping.sources[i].column) + " ";
  return columns;
}

TEST(ImportMapping, ReadsHeadingsAsAPersonWould) {
  struct Case {
    ImportKind kind;
    std::vector<Cells> rows;
    std::optional<std::size_t> headings;
    std::string columns;
  };
  const Case cases[] = {
      {ImportKind::Items,
       {{"ITEM CODE", "Product", "Selling Price (Rs.)", "U.O.M.", "Colour", "brand_name"}},
       0,
       "ItemCode=A ItemName=B BrandID=F SellingPrice=C Unit=D "},
      {ImportKind::Items,
       {{"Price list of Hand Tools"}, {}, {"SKU", "Name", "Name", "Price"}, {"1", "Hammer", "", 5.0}},
       2,
       "ItemCode=A ItemName=B SellingPrice=D "},
      {ImportKind::Items,
       {{"itemcode", "itemname", "catid", "subcatid"}},
       0,
       "ItemCode=A ItemName=B Category=C SubCategory=D "},
      {ImportKind::Items, {{"Price", "Selling price", "Price 2"}}, 0, "SellingPrice=B SellingPrice2=C "},
      {ImportKind::Customers,
       {{"Company", "Telephone", "E-Mail", "City", "NTN", "Group"}},
       0,
       "AccName=A SubType=F Phone=B EMail=C NTN=E Region2ID=D "},
      {ImportKind::Vendors, {{"Company", "Name"}}, 0, "AccName=B "},
      {ImportKind::Accounts, {{"1", "2"}, {"3", "4"}}, 0, ""},
      {ImportKind::Accounts, {{}, {}}, std::nullopt, ""},
  };
  for (const Case& each : cases) {
    const ImportDescriptor& kind = importDescriptor(each.kind);
    const ImportMapping mapping = guessMapping(kind, test::sheetOf(each.rows));
    EXPECT_EQ(found(kind, mapping), each.columns);
    EXPECT_EQ(mapping.headingRow, each.headings) << each.columns;
    EXPECT_EQ(mapping.sources.size(), kind.fields.size());
  }
  const ImportDescriptor& items = importDescriptor(ImportKind::Items);
  const ImportMapping none = guessMapping(items, test::sheetOf({{"Code", "Name"}}), std::nullopt);
  EXPECT_EQ(found(items, none), "");
  EXPECT_EQ(none.firstRow(), 0U);
  EXPECT_EQ(none.sources[items.field("Unit").value()].otherwise, "Pcs");
}

TEST(ImportMapping, SeesTheDecimalSignInTheFigures) {
  const ImportDescriptor& items = importDescriptor(ImportKind::Items);
  const auto sign = [&items](std::vector<spreadsheet::Cell> prices) {
    std::vector<Cells> rows = {{"Code", "Price"}};
    for (spreadsheet::Cell& price : prices) rows.push_back({"1,50", std::move(price)});
    return guessMapping(items, test::sheetOf(std::move(rows))).decimalSign;
  };
  EXPECT_EQ(sign({"1,50", "2", "1.234,00"}), DecimalSign::Comma);
  EXPECT_EQ(sign({"1.50", "1,234"}), DecimalSign::Point);
  EXPECT_EQ(sign({1.5, 2.25}), DecimalSign::Point);
  EXPECT_EQ(sign({"1,234", "ten"}), DecimalSign::Point);
}

TEST(ImportMapping, NamesColumnsByHeadingOrLetters) {
  const spreadsheet::Sheet sheet = test::sheetOf({{"Code", "  Two\nlines "}});
  EXPECT_EQ(columnCaption(sheet, 0, 1), "Two lines");
  EXPECT_EQ(columnCaption(sheet, 0, 2), "Column C");
  EXPECT_EQ(columnCaption(sheet, std::nullopt, 26), "Column AA");
  EXPECT_EQ(columnCaption(sheet, std::nullopt, 16383), "Column XFD");
}

}  // namespace
}  // namespace velmo::masters

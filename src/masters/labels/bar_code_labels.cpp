#include "masters/labels/bar_code_labels.h"

#include "masters/labels/bar_code.h"
#include "printing/report_walk.h"
#include "printing/typesetter.h"
#include "printing/vector_data.h"
#include "text/format.h"

namespace velmo::masters {

using namespace printing;

namespace {

constexpr QRgb BarInk = 0xff000000;
constexpr Twips Edge = mm(1);   // of a label, that even the quiet ground keeps free
constexpr Twips Inset = mm(4);  // of the texts
constexpr Twips GuardRun = mm(1.2);

// A line or two of text across the label.
struct Band {
  Twips top = 0;
  Twips height = 0;
  FontSpec font = {};
};

// Labels of one size on a sheet. Lengths down are within the label.
struct SheetLayout {
  int columns = 0;
  int rows = 0;
  Twips width = 0;
  Twips height = 0;
  Band name = {};
  Band description = {};  // below a name of one line; no height where the label has no room
  Twips barsTop = 0;
  Twips barsHeight = 0;
  Band code = {};
  Band price = {};

  Margins margins() const {
    const Twips left = (A4.width - columns * width) / 2;
    const Twips top = (A4.height - rows * height) / 2;
    return {left, top, left, top};
  }
  Twips textWidth() const { return width - 2 * Inset; }
};

const SheetLayout& layoutOf(LabelSheet sheet) {
  static const SheetLayout large{.columns = 3,
                                 .rows = 8,
                                 .width = mm(70),
                                 .height = mm(37),
                                 .name = {mm(3.6), mm(7.8), {.size = 8, .weight = Weight::SemiBold}},
                                 .description = {mm(7.4), mm(4), {.size = 6.5}},
                                 .barsTop = mm(11.9),
                                 .barsHeight = mm(11),
                                 .code = {mm(24.4), mm(3.6), {.size = 7.5}},
                                 .price = {mm(28.2), mm(6.2), {.size = 10, .weight = Weight::Bold}}};
  static const SheetLayout small{.columns = 4,
                                 .rows = 10,
                                 .width = mm(48.5),
                                 .height = mm(25.4),
                                 .name = {mm(1.2), mm(4.4), {.size = 7, .weight = Weight::SemiBold}},
                                 .barsTop = mm(5.8),
                                 .barsHeight = mm(8.6),
                                 .code = {mm(15.8), mm(3.2), {.size = 6.5}},
                                 .price = {mm(19.2), mm(5), {.size = 8, .weight = Weight::Bold}}};
  return sheet == LabelSheet::BarCodesPrint ? large : small;
}

// What stands on the labels of one item.
struct ItemLabel {
  std::string name = {};
  std::string description = {};
  std::string code = {};
  std::string price = {};
  PlacedBars bars = {};
};

// A text as far as it fits its band: labels keep their place on the sheet. What is left out shows as an ellipsis.
std::string fitted(Typesetter& typesetter, const std::string& words, const Band& band, Twips width) {
  const auto heightOf = [&](const QString& text) {
    Twips height = 0;
    for (const TextLine& line : typesetter.lines(text, band.font, width)) height += line.height();
    return height;
  };
  const QString whole = QString::fromStdString(words).simplified();
  if (heightOf(whole) <= band.height) return whole.toStdString();
  qsizetype fits = 0;  // characters that surely fit with the ellipsis
  for (qsizetype tooMany = whole.size(); tooMany - fits > 1;) {
    const qsizetype middle = (fits + tooMany) / 2;
    (heightOf(whole.left(middle) + u'…') <= band.height ? fits : tooMany) = middle;
  }
  if (fits > 0 && whole[fits - 1].isHighSurrogate()) --fits;
  return whole.left(fits).trimmed().append(u'…').toStdString();
}

// "Rs. 12.50": at least two decimals, and more where the price has them. The currency code gives way to the amount.
std::string priceText(Typesetter& typesetter, const std::string& price, const std::string& currencyCode,
                      const SheetLayout& layout) {
  const std::string prefix = currencyCode + " ";
  const std::string figure = price.starts_with(prefix) ? price.substr(prefix.size()) : price;
  if (figure.empty()) return {};
  const std::string amount = text::formatText(figure, "#,##0.00####");
  const std::string whole = fitted(typesetter, prefix + amount, layout.price, layout.textWidth());
  return whole == prefix + amount ? whole : amount;
}

std::string readableCode(const std::string& code, Symbology symbology) {
  if (symbology == Symbology::Code39) return code;
  return code.substr(0, 1) + " " + code.substr(1, 6) + " " + code.substr(7);
}

tl::expected<ItemLabel, std::string> labelOf(const store::Recordset& items, std::int64_t row,
                                             const std::string& currencyCode, const SheetLayout& layout) {
  const auto text = [&](const char* field) { return store::textOf(items.valueAt(row, items.fieldIndex(field))); };
  const std::string code = text("ItemCode");
  const tl::expected<BarCode, std::string> barCode = barCodeOf(code);
  if (!barCode) return tl::make_unexpected(barCode.error());
  ItemLabel label{.code = readableCode(code, barCode->symbology), .bars = placeBars(*barCode, layout.width - 2 * Edge)};
  if (label.bars.bars.empty()) return tl::make_unexpected("The bar code of '" + code + "' is too wide for the label.");
  Typesetter typesetter;
  label.name = fitted(typesetter, text("ItemName"), layout.name, layout.textWidth());
  const auto lines = typesetter.lines(QString::fromStdString(label.name), layout.name.font, layout.textWidth()).size();
  if (layout.description.height > 0 && lines < 2)
    label.description = fitted(typesetter, text("Description"), layout.description, layout.textWidth());
  label.price = priceText(typesetter, text("SPrice"), currencyCode, layout);
  return label;
}

std::string cellField(const char* field, int column) {
  return field + std::to_string(column);
}

void addTexts(Section& section, const SheetLayout& layout, int column) {
  const std::pair<const char*, const Band*> bands[] = {{"ItemName", &layout.name},
                                                       {"Description", &layout.description},
                                                       {"ItemCode", &layout.code},
                                                       {"SPrice", &layout.price}};
  for (const auto& [field, band] : bands)
    section.elements.push_back({.at = {column * layout.width + Inset, band->top, layout.textWidth(), band->height},
                                .content = Field{cellField(field, column), {}, {}},
                                .font = band->font,
                                .align = Align::Centre,
                                .colour = BarInk});
}

// The bars of one item in one column, on the rows where it stands there.
void addBars(Section& section, const SheetLayout& layout, const PlacedBars& placed, int column, std::int64_t item) {
  const Twips whole = placed.quietLeft + placed.width + placed.quietRight;
  const Twips left = column * layout.width + (layout.width - whole) / 2 + placed.quietLeft;
  for (const Bar& bar : placed.bars)
    section.elements.push_back(
        {.at = {left + bar.left, layout.barsTop, bar.width, layout.barsHeight + (bar.guard ? GuardRun : 0)},
         .content = Box{.fill = BarInk},
         .visibleWhen = [field = cellField("Item", column), item](const RowScope& scope) {
           const store::Value value = scope.value(field);
           return !store::isNull(value) && store::integerOf(value) == item;
         }});
}

Section rowOfLabels(const SheetLayout& layout, const std::vector<ItemLabel>& labels) {
  Section section{.name = "Section1", .height = layout.height};
  for (int column = 0; column < layout.columns; ++column) {
    addTexts(section, layout, column);
    for (std::size_t item = 0; item < labels.size(); ++item)
      addBars(section, layout, labels[item].bars, column, static_cast<std::int64_t>(item));
  }
  return section;
}

// The labels as they follow each other on the sheet, a row of it at a time; the last row may have blank places.
std::vector<DataRow> sheetRows(const SheetLayout& layout, const std::vector<ItemLabel>& labels, int copies) {
  const auto columns = static_cast<std::size_t>(layout.columns);
  const std::size_t count = labels.size() * static_cast<std::size_t>(copies);
  std::vector<DataRow> rows((count + columns - 1) / columns);
  for (std::size_t place = 0; place < rows.size() * columns; ++place) {
    auto& fields = rows[place / columns].fields;
    const int column = static_cast<int>(place % columns);
    const std::size_t item = place / static_cast<std::size_t>(copies);
    const ItemLabel* label = place < count ? &labels[item] : nullptr;
    const auto put = [&](const char* field, store::Value value) {
      fields[cellField(field, column)] = label ? std::move(value) : store::Value{store::Null{}};
    };
    put("Item", static_cast<std::int64_t>(item));
    put("ItemName", label ? label->name : "");
    put("Description", label ? label->description : "");
    put("ItemCode", label ? label->code : "");
    put("SPrice", label ? label->price : "");
  }
  return rows;
}

}  // namespace

std::string barCodeStatement(const std::string& itemCode, const std::string& currencyCode) {
  return "SELECT '*' & [ItemCode] & '*' AS ItemBarCode, ItemCode, ItemName, Description, (" +
         store::quoted(currencyCode + " ") + " & [SellingPrice]) as SPrice FROM StockLevel3 WHERE ItemCode like " +
         store::quotedWhole(itemCode);
}

tl::expected<Report, std::string> barCodeLabels(const session::LoginContext& context, const store::Recordset& items,
                                                LabelSheet sheet, int copies, text::DateTime today) {
  if (copies < 1 || copies > MostLabelCopies)
    return tl::make_unexpected("Enter a number of labels between 1 and " + std::to_string(MostLabelCopies) + ".");
  const SheetLayout& layout = layoutOf(sheet);
  std::vector<ItemLabel> labels;
  for (std::int64_t row = 0; row < items.recordCount(); ++row) {
    tl::expected<ItemLabel, std::string> label = labelOf(items, row, context.ccode, layout);
    if (!label) return tl::make_unexpected(label.error());
    labels.push_back(std::move(*label));
  }
  if (labels.empty()) return tl::make_unexpected(std::string("There is no item of this code."));
  Report report{.title = "Bar Codes",
                .author = context.CompanyName,
                .design = {.paper = A4, .margins = layout.margins()},
                .data = std::make_shared<VectorData>(sheetRows(layout, labels, copies)),
                .printedOn = today};
  report.design.detail = rowOfLabels(layout, labels);
  return report;
}

}  // namespace velmo::masters

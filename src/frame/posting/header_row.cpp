#include "frame/posting/header_row.h"

#include <algorithm>
#include <stdexcept>

#include "store/values/names.h"

namespace velmo::frame {

namespace {

enum class Blank { Text, Zero, No, Nothing };

struct HeaderColumn {
  std::string_view name;
  Blank blank;
};

constexpr std::array headerColumns{HeaderColumn{"DocNo", Blank::Zero},         HeaderColumn{"DocNo2", Blank::Zero},
                                   HeaderColumn{"TranDate", Blank::Nothing},   HeaderColumn{"Nature", Blank::Text},
                                   HeaderColumn{"EmpID", Blank::Zero},         HeaderColumn{"JobIDFrom", Blank::Zero},
                                   HeaderColumn{"JobIDTo", Blank::Zero},       HeaderColumn{"Desc", Blank::Text},
                                   HeaderColumn{"TranType", Blank::Zero},      HeaderColumn{"D1", Blank::Text},
                                   HeaderColumn{"D1Date", Blank::Text},        HeaderColumn{"D2", Blank::Text},
                                   HeaderColumn{"D2Date", Blank::Text},        HeaderColumn{"PartyCode", Blank::Zero},
                                   HeaderColumn{"PartyCode2", Blank::Zero},    HeaderColumn{"Text1", Blank::Text},
                                   HeaderColumn{"Text2", Blank::Text},         HeaderColumn{"Text3", Blank::Text},
                                   HeaderColumn{"Text4", Blank::Text},         HeaderColumn{"Text5", Blank::Text},
                                   HeaderColumn{"Text6", Blank::Text},         HeaderColumn{"Text7", Blank::Text},
                                   HeaderColumn{"Text8", Blank::Text},         HeaderColumn{"Text9", Blank::Text},
                                   HeaderColumn{"Text10", Blank::Text},        HeaderColumn{"Text11", Blank::Text},
                                   HeaderColumn{"Text12", Blank::Text},        HeaderColumn{"Numeric1", Blank::Zero},
                                   HeaderColumn{"Numeric2", Blank::Zero},      HeaderColumn{"Discount", Blank::Zero},
                                   HeaderColumn{"Tax1", Blank::Zero},          HeaderColumn{"Tax2", Blank::Zero},
                                   HeaderColumn{"AdditionalTax", Blank::Zero}, HeaderColumn{"Carriage", Blank::Zero},
                                   HeaderColumn{"TrAmount", Blank::Zero},      HeaderColumn{"Received", Blank::Zero},
                                   HeaderColumn{"Balance", Blank::Zero},       HeaderColumn{"WordsAmt", Blank::Text},
                                   HeaderColumn{"LocationFrom", Blank::Zero},  HeaderColumn{"LocationTo", Blank::Zero},
                                   HeaderColumn{"FYID", Blank::Zero},          HeaderColumn{"UserAdded", Blank::Zero},
                                   HeaderColumn{"TimeAdded", Blank::Nothing},  HeaderColumn{"UserEdited", Blank::Zero},
                                   HeaderColumn{"TimeEdited", Blank::Nothing}, HeaderColumn{"Cancel", Blank::No},
                                   HeaderColumn{"InvLedger", Blank::No}};

// The column is expected at `from`.
std::size_t indexOf(std::string_view column, std::size_t from) {
  const int found = store::placeOfName(headerColumns, column, from, [](const HeaderColumn& item) { return item.name; });
  if (found < 0) throw std::invalid_argument("no header column " + std::string(column));
  return static_cast<std::size_t>(found);
}

store::Value blankValue(Blank blank) {
  switch (blank) {
    case Blank::Text:
      return std::string();
    case Blank::Zero:
      return std::int64_t{0};
    case Blank::No:
      return false;
    case Blank::Nothing:
      break;
  }
  return store::Null{};
}

}  // namespace

HeaderRow::HeaderRow() {
  static_assert(headerColumns.size() == columnCount);
  std::ranges::transform(headerColumns, values_.begin(), [](const auto& column) { return blankValue(column.blank); });
}

void HeaderRow::set(std::string_view column, store::Value value) {
  const std::size_t place = indexOf(column, next_);
  values_[place] = std::move(value);
  next_ = place + 1;
}

const store::Value& HeaderRow::value(std::string_view column) const {
  return values_[indexOf(column, next_)];
}

void HeaderRow::stamp(int userId, const text::DateTime& now) {
  for (const std::string_view user : {"UserAdded", "UserEdited"}) set(user, std::int64_t{userId});
  for (const std::string_view time : {"TimeAdded", "TimeEdited"}) set(time, now);
}

std::vector<store::FieldValue> HeaderRow::all() const {
  return without({});
}

std::vector<store::FieldValue> HeaderRow::without(std::span<const std::string_view> kept) const {
  std::vector<store::FieldValue> fields;
  fields.reserve(columnCount);
  for (std::size_t i = 0; i < columnCount; ++i) {
    const std::string_view name = headerColumns[i].name;
    if (std::ranges::any_of(kept, [&](std::string_view column) { return store::sameName(column, name); })) continue;
    fields.push_back({name, values_[i]});
  }
  return fields;
}

}  // namespace velmo::frame

#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "documents/stock/stock_lines.h"
#include "documents/stock/stock_types.h"
#include "frame/document/compose_document.h"
#include "frame/posting/document_number.h"
#include "frame/posting/item_lines.h"

namespace velmo::test {

struct StockLine {
  std::string code;
  double quantity = 0;
  double rate = 0;
  double discount = 0;
};

// Stock documents of one kind, saved, changed and deleted by the functions that their screen uses, without a window.
class StockDesk {
 public:
  StockDesk(session::LoginContext& context, const frame::DocumentType& type)
      : context_(context), type_(type), transfers_(type.locationChoice == frame::LocationChoice::FromAndTo) {
    tran_.open(context.KORDconn,
               "SELECT * from transactions where trantype=" + std::to_string(type.form.tranType) +
                   " and fyid = " + std::to_string(context.FYID) + " order by docno",
               store::LockType::Optimistic, store::Fetch::AsNeeded);
  }

  int tranType() const { return type_.form.tranType; }

  // Puts the lines into the sheet of a document, 0 for a new one.
  void prepare(std::int64_t tranNo, frame::DocumentValues values, const std::vector<StockLine>& lines) {
    mode_ = tranNo == 0 ? frame::HeaderWrite::Add : frame::HeaderWrite::Update;
    if (tranNo == 0) {
      values.DocNo = std::to_string(frame::nextDocNo(tran_));
    } else {
      goTo(tranNo);
      values.DocNo = tran_.text("docno");
    }
    sheet_ = store::Recordset();
    frame::openSheet(context_.KORDconn, sheet_, tranNo,
                     {.condition = transfers_ ? std::string_view(documents::leavingLines) : ""});
    for (std::int64_t row = 0; row < sheet_.recordCount(); ++row) {
      const auto at = static_cast<std::size_t>(row);
      if (at >= lines.size() && store::isNull(sheet_.valueAt(row, sheet_.fieldIndex("itemcode")))) break;
      sheet_.moveTo(row);
      at < lines.size() ? fill(lines[at]) : clear();
    }
    values.totals =
        frame::RecalculateTotals(frame::sumLines(sheet_), {.Discount = "0", .Carriage = "0", .Received = "0"},
                                 frame::ReceivedRule::AsTyped, context_.currencyname);
    values_ = std::move(values);
  }
  // One durable change; gives the document.
  std::int64_t post(const text::DateTime& now) {
    auto document = frame::composeDocument(type_, values_, context_, now, {}, mode_);
    if (!document) throw std::logic_error(document.error());
    return frame::writeDocument(context_.KORDconn, *document, tran_, [this](std::int64_t tranNo) {
      documents::writeStockLines(
          context_.KORDconn, sheet_,
          transfers_ ? documents::StockMovement::BetweenPlaces : documents::StockMovement::OneWay, values_, tranNo);
    });
  }
  void remove(std::int64_t tranNo) {
    goTo(tranNo);
    tran_.remove();
    tran_.requery();
  }

 private:
  void goTo(std::int64_t tranNo) {
    tran_.requery();
    tran_.moveFirst();
    if (!tran_.find("tranno=" + std::to_string(tranNo))) throw std::logic_error("no such document");
  }
  void clear() {
    for (const char* column : {"itemcode", "grossamt", "discamt", "itemvalue"})
      sheet_.update({{column, store::Null{}}});
  }
  void fill(const StockLine& line) {
    const double gross = line.quantity * line.rate;
    sheet_.update({{"itemcode", line.code},
                   {"itemname", std::string("Hinge, brass, 75 mm")},
                   {type_.form.tranType == schema::tran_type::InventoryAdded ? "stockin" : "stockout", line.quantity},
                   {"unit", std::string("Pcs")},
                   {"rate", line.rate},
                   {"grossamt", gross},
                   {"discamt", line.discount},
                   {"itemvalue", gross - line.discount}});
  }

  session::LoginContext& context_;
  const frame::DocumentType& type_;
  bool transfers_;
  frame::HeaderWrite mode_ = frame::HeaderWrite::Add;
  store::Recordset tran_;
  store::Recordset sheet_;
  frame::DocumentValues values_;
};

// What a document holds beside its lines.
inline frame::DocumentValues stockValues(const text::DateTime& day, std::int64_t from = 1, std::int64_t to = 1) {
  frame::DocumentValues values;
  values.TrDate = day;
  values.LocationList = {.text = "From", .id = from, .matches = true};
  values.LocationListTo = {.text = "To", .id = to, .matches = true};
  return values;
}

}  // namespace velmo::test

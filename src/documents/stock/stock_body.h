#pragma once

#include "documents/stock/stock_kind.h"
#include "frame/document/document_body.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {
class ItemGrid;
}

namespace velmo::documents {

class StockTotals;

// The body of documents of the kind, as DocumentType::makeBody wants it.
std::function<std::shared_ptr<frame::DocumentBody>(const frame::BodyPlace&)> stockBody(StockKind kind);

// Goods that come, go or move without a party: one sheet of item lines and its total.
class StockBody : public frame::DocumentBody {
  Q_OBJECT

 public:
  StockBody(StockKind kind, const frame::BodyPlace& place) : kind_(std::move(kind)), place_(place) {}

  Parts build() override;
  void addCommands(frame::CommandBar& commands) override;
  void open(std::int64_t tranNo) override;
  void clear() override { recalculate(); }
  void show(const store::Recordset&) override { recalculate(); }
  void bind() override;
  void detach() override;
  bool commitEdit() override;
  void focusFirst() override;
  void focusNextPart(const QWidget* focus) override;
  void fill(frame::DocumentValues& values) const override;
  tl::expected<frame::DocumentWrite, std::string> compose(const frame::DocumentValues& values,
                                                          const text::DateTime& now, frame::HeaderWrite mode) override;
  void writeRows(const frame::DocumentValues& values, std::int64_t tranNo) override;
  // The lines that were typed.
  store::Recordset printRows(const store::Recordset& tran) override;

 private:
  void recalculate();

  StockKind kind_;
  frame::BodyPlace place_;
  store::Recordset SubTran_;
  frame::ItemGrid* lines_ = nullptr;
  StockTotals* totals_ = nullptr;
};

}  // namespace velmo::documents

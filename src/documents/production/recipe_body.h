#pragma once

#include "documents/production/cost_panel.h"
#include "frame/document/document_body.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {
class ItemGrid;
}

namespace velmo::documents {

class ProductCard;

// A recipe: the product, what goes into it, and what it costs.
class RecipeBody : public frame::DocumentBody {
  Q_OBJECT

 public:
  explicit RecipeBody(const frame::BodyPlace& place) : place_(place) {}

  Parts build() override;
  void addCommands(frame::CommandBar& commands) override;
  void open(std::int64_t tranNo) override;
  void clear() override;
  void show(const store::Recordset& tran) override;
  void bind() override;
  void detach() override;
  bool commitEdit() override;
  void focusFirst() override;
  void focusNextPart(const QWidget* focus) override;
  void fill(frame::DocumentValues& values) const override;
  tl::expected<frame::DocumentWrite, std::string> compose(const frame::DocumentValues& values,
                                                          const text::DateTime& now, frame::HeaderWrite mode) override;
  void writeRows(const frame::DocumentValues& values, std::int64_t tranNo) override;

 private:
  void recalculate();

  frame::BodyPlace place_;
  store::Recordset SubTran_;
  ProductCard* product_ = nullptr;
  frame::ItemGrid* lines_ = nullptr;
  CostPanel* costs_ = nullptr;
  Costs counted_;
};

}  // namespace velmo::documents

#pragma once

#include "documents/production/cost_panel.h"
#include "documents/production/production_sheets.h"
#include "frame/document/document_body.h"

class QPushButton;

namespace velmo::frame {
class ItemGrid;
}

namespace velmo::documents {

class ProductionCard;

// One product made of many items: the accounts, the line that comes out, the lines that go in, and the costs.
class ProductionBody : public frame::DocumentBody {
  Q_OBJECT

 public:
  explicit ProductionBody(const frame::BodyPlace& place) : place_(place) {}

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
  void reopen(std::int64_t tranNo, frame::HeaderWrite nextSave) override;
  store::Recordset printRows(const store::Recordset& tran) override;

 private:
  QWidget* buildSheets();
  frame::ItemGrid* buildGrid(const char* name, const char* accessibleName, const char* serialName,
                             const char* quantityField);
  void importComponents();
  void valueOutput(double pieces);
  void recalculate();

  frame::BodyPlace place_;
  ProductionSheets sheets_;
  ProductionCard* card_ = nullptr;
  frame::ItemGrid* GridOut_ = nullptr;
  frame::ItemGrid* GridIn_ = nullptr;
  QPushButton* ImportBttn_ = nullptr;
  CostPanel* costs_ = nullptr;
  Costs counted_;
};

}  // namespace velmo::documents

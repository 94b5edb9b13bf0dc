#pragma once

#include <QFrame>
#include <QTimer>
#include <optional>
#include <string>
#include <string_view>

#include "frame/items/item_grid_kind.h"
#include "frame/items/item_history.h"
#include "frame/picking/pick_list.h"
#include "frame/picking/pick_list_model.h"
#include "session/login_context.h"

class QLabel;
class QListView;

namespace velmo::forms {
class RecordsetModel;
class TableView;
}  // namespace velmo::forms

namespace velmo::frame {

// The panel `StockBox` below an item's cell: the drop list `ItemCodeList`, and what is known of the highlighted item:
// description, unit, price, category, stock balance and its last lines with the party, in `DetailGrid`.
//
// Keystrokes are answered from memory. The store is asked about an item only once the highlight has rested on it for
// a moment, and not again while it stays there.
class StockPanel : public QFrame {
  Q_OBJECT

 public:
  StockPanel(const ItemGridKind& kind, session::LoginContext& context, QWidget* parent);
  ~StockPanel() override;

  // The entries that hold the text, the first one highlighted; all of them for an empty text.
  void narrow(const QString& typed);
  void enterList();
  bool isInside(const QWidget* widget) const;
  std::string highlightedCode() const;

  // The party whose lines the history shows; nothing for all parties.
  void setParty(std::optional<std::int64_t> code, std::string_view name);
  QSize wantedSize() const;
  int rowHeight() const;  // of the list; it shows whole rows where the panel is a number of them lower than wanted

 Q_SIGNALS:
  void chosen(const QString& itemCode);
  void givenUp();      // Esc in the list
  void listEntered();  // the list gained the focus
  void listLeft();     // the list lost it to another widget

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* buildList();
  QWidget* buildDetails();
  bool listKey(int key);
  void highlightChanged();
  void ShowItemHistory();
  void clearDetails();
  std::string balanceText(const ListedItem& item) const;

  ItemGridKind kind_;
  session::LoginContext& context_;
  PickList InvCodes_;
  PickListModel entries_;
  QListView* ItemCodeList_ = nullptr;
  QLabel* description_ = nullptr;
  QLabel* ItemUnit_ = nullptr;
  QLabel* price_ = nullptr;
  QLabel* ItemCategory_ = nullptr;
  QLabel* StockBalance_ = nullptr;
  QLabel* HisParty_ = nullptr;
  forms::TableView* DetailGrid_ = nullptr;
  forms::RecordsetModel* history_ = nullptr;
  QTimer historyTimer_;
  std::optional<std::int64_t> partyCode_;
  std::string partyName_;
  std::string InvCodeTxt_;  // the item whose details are shown
};

}  // namespace velmo::frame

#pragma once

#include <optional>
#include <string>

#include "frame/picking/code_box.h"
#include "session/login_context.h"

namespace velmo::frame {

enum class ItemKinds { Goods, Services };

// The items of a kind, blocked ones too, as a drop list shows them: "100  (Claw Hammer)".
PickListSource itemsOf(ItemKinds kinds);

// A box for the code of an item of one kind, which is looked up among LoginContext::ItemsRS.
class ItemCodeBox : public CodeBox {
  Q_OBJECT

 public:
  ItemCodeBox(session::LoginContext& context, CodeDropList& list, ItemKinds kinds, QWidget* parent = nullptr);

  store::Value code() const override { return code_; }

 protected:
  void lookUp() override;

 private:
  bool isOfKind(const store::Recordset& item) const;

  session::LoginContext& context_;
  ItemKinds kinds_;
  store::Value code_;  // as the item has it, whatever the letters' case that was typed
};

}  // namespace velmo::frame

#pragma once

#include <QFrame>

#include "frame/posting/document_values.h"
#include "session/workplace.h"
#include "store/recordset/recordset.h"

class QLineEdit;

namespace velmo::forms {
class NumberBox;
}
namespace velmo::frame {
class ItemCodeBox;
}

namespace velmo::documents {

// The product of a recipe: `ICode`, `IName`, `UnitBox` and `QtyBox`.
class ProductCard : public QFrame {
  Q_OBJECT

 public:
  // Its list floats above the fields of `screen`.
  ProductCard(session::Workplace& workplace, QWidget* screen);

  void clear();
  void show(const store::Recordset& tran);
  void fill(frame::DocumentValues& values) const;
  void focusCode();

 Q_SIGNALS:
  void moveOn();  // the user is done with the code

 private:
  void bringUnit(const QString& name);

  session::Workplace& workplace_;
  frame::ItemCodeBox* ICode_;
  QLineEdit* IName_;
  QLineEdit* UnitBox_;
  forms::NumberBox* QtyBox_;
};

}  // namespace velmo::documents

#pragma once

#include <QFrame>

#include "frame/posting/document_values.h"
#include "store/recordset/recordset.h"

namespace velmo::forms {
class DropCombo;
}

namespace velmo::documents {

// The accounts of a production: `IHead_0`, which is credited for what goes in, `IHead_1`, which is debited for what
// comes out, and `PartyList`, who did a part of the work for money.
class ProductionCard : public QFrame {
  Q_OBJECT

 public:
  explicit ProductionCard(store::Connection& books);

  void clear();
  void show(const store::Recordset& tran);
  // Into IncomeCode, ACodeTxt and PartyCodeTxt with their names; a text that is no entry has no code.
  void fill(frame::DocumentValues& values) const;
  void focusFirst();

 private:
  forms::DropCombo* heads_[2];
  forms::DropCombo* PartyList_;
};

}  // namespace velmo::documents

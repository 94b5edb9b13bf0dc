#include "documents/production/production_card.h"

#include <QGridLayout>

#include "forms/caption.h"
#include "forms/drop_combo.h"
#include "forms/look.h"

namespace velmo::documents {

namespace {

constexpr std::int64_t inputAccount = 50001002;
constexpr std::int64_t outputAccount = 50001008;
constexpr const char* heads =
    "Select acccode, accname from acclevel3 where acccode=50001002 or acccode=50001007 or acccode=50001008 order by "
    "acccode";
constexpr const char* parties =
    "SELECT acccode, accname from AccLevel3 where Level1ID=120 or Level1ID=210 order by acccode";

}  // namespace

ProductionCard::ProductionCard(store::Connection& books) {
  forms::makeCard(*this);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  const auto addList = [&](const char* name, const QString& caption, const char* statement) {
    auto* list = new forms::DropCombo;
    list->setObjectName(name);
    list->setMinimumContentsLength(14);
    list->setSource(store::Recordset(books, statement, store::LockType::ReadOnly), "accname", "acccode");
    const int row = grid->rowCount();
    grid->addWidget(forms::captionFor(*list, caption), row, 0);
    grid->addWidget(list, row, 1);
    return list;
  };
  heads_[0] = addList("IHead_0", tr("Input Account to be Credited"), heads);
  heads_[1] = addList("IHead_1", tr("Output Account to be Debited"), heads);
  PartyList_ = addList("PartyList", tr("Production Outsource to Party"), parties);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(grid->rowCount(), 1);
}

void ProductionCard::clear() {
  heads_[0]->setBoundValue(inputAccount);
  heads_[1]->setBoundValue(outputAccount);
  PartyList_->setBoundValue(store::Null{});
}

void ProductionCard::show(const store::Recordset& tran) {
  heads_[0]->setBoundValue(tran.integer("partycode"));
  heads_[1]->setBoundValue(tran.integer("partycode2"));
  PartyList_->setBoundValue(store::integerOf(tran.value("text3")));
}

void ProductionCard::fill(frame::DocumentValues& values) const {
  const auto take = [](const forms::DropCombo& list, std::string& code, std::string& name) {
    code = list.matchesEntry() ? store::textOf(list.boundValue()) : std::string();
    name = list.currentText().toStdString();
  };
  take(*heads_[0], values.IncomeCode, values.IncomeAcc);
  take(*heads_[1], values.ACodeTxt, values.Acc);
  take(*PartyList_, values.PartyCodeTxt, values.PartyNameTxt);
}

void ProductionCard::focusFirst() {
  heads_[0]->setFocus(Qt::TabFocusReason);
}

}  // namespace velmo::documents

#include "masters/catalogue/item_filter.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QRadioButton>

#include "forms/drop_combo.h"
#include "frame/master/grid_editor.h"
#include "store/connection/connection.h"

namespace velmo::masters {
namespace {

enum Choice { AllItems, OfCategory, OfBrand };

// Keeps the three in step, and the grid with them. Lives as long as the editor.
class ItemFilter : public QObject {
 public:
  ItemFilter(frame::GridEditor& editor, QHBoxLayout& row, std::string columns)
      : QObject(&editor), editor_(editor), columns_(std::move(columns)) {
    add(row, AllItems, "All Inventory Items", nullptr);
    add(row, OfCategory, "Category", categories_ = makeList("CatList", "Category"));
    add(row, OfBrand, "Brand", brands_ = makeList("BrandList", "Brand"));
    row.addStretch(1);
    store::Connection& connection = editor.workplace().context.KORDconn;
    categories_->setSource(
        {connection, "SELECT catid, catname from Stocklevel1 where catid not like 'Service' order by catname",
         store::LockType::ReadOnly},
        "catname", "catid");
    brands_->setSource(
        {connection, "SELECT brandid, brandname FROM brands ORDER BY brandname", store::LockType::ReadOnly},
        "brandname", "brandid");
    options_.button(AllItems)->setChecked(true);
    connect(&options_, &QButtonGroup::idClicked, this, &ItemFilter::optionChosen);
    connect(categories_, &forms::DropCombo::entryChanged, this, [this] { entryChosen(OfCategory); });
    connect(brands_, &forms::DropCombo::entryChanged, this, [this] { entryChosen(OfBrand); });
    show();
  }

 private:
  forms::DropCombo* makeList(const char* name, const char* caption) {
    auto* list = new forms::DropCombo;
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(QLatin1String(caption));
    list->setMinimumWidth(150);
    return list;
  }

  void add(QHBoxLayout& row, Choice choice, const char* caption, forms::DropCombo* list) {
    auto* option = new QRadioButton(QLatin1String(caption));
    option->setObjectName(QStringLiteral("ItemOpt_%1").arg(static_cast<int>(choice)));
    options_.addButton(option, choice);
    row.addWidget(option);
    if (list) row.addWidget(list);
  }

  forms::DropCombo* listOf(int choice) const {
    return choice == OfCategory ? categories_ : choice == OfBrand ? brands_ : nullptr;
  }

  void optionChosen(int choice) {
    changing_ = true;
    for (const int other : {OfCategory, OfBrand})
      if (other != choice) listOf(other)->setBoundValue({});
    changing_ = false;
    show();
    if (forms::DropCombo* list = listOf(choice)) list->setFocus();
  }

  void entryChosen(Choice choice) {
    if (!changing_ && options_.checkedId() == choice) show();
  }

  // Without a category or brand the grid stays as it is. A user who keeps his edits keeps the choice that they belong
  // to.
  void show() {
    const int which = options_.checkedId();
    const forms::DropCombo* list = listOf(which);
    if (list && !list->matchesEntry()) return;
    const store::Value chosen = list ? list->boundValue() : store::Value();
    if (editor_.show(filteredItems(columns_, which, store::textOf(chosen)))) {
      which_ = which;
      chosen_ = chosen;
      return;
    }
    changing_ = true;
    options_.button(which_)->setChecked(true);
    for (const int each : {OfCategory, OfBrand}) listOf(each)->setBoundValue(each == which_ ? chosen_ : store::Value());
    changing_ = false;
  }

  frame::GridEditor& editor_;
  std::string columns_;
  QButtonGroup options_;
  forms::DropCombo* categories_ = nullptr;
  forms::DropCombo* brands_ = nullptr;
  bool changing_ = false;
  int which_ = AllItems;  // on show
  store::Value chosen_;
};

}  // namespace

std::string filteredItems(const std::string& columns, int which, const std::string& chosen) {
  std::string choice;
  if (which == OfCategory) choice = "catid like " + store::quotedWhole(chosen) + " and ";
  if (which == OfBrand) choice = "brandid = " + chosen + " and ";
  return "SELECT " + columns + " from stocklevel3 where " + choice + "catid not like 'Service' order by itemcode";
}

void addItemFilter(frame::GridEditor& editor, QHBoxLayout& row, const std::string& columns) {
  new ItemFilter(editor, row, columns);
}

}  // namespace velmo::masters

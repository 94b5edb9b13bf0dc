#include <utility>

#include "store/sql/bind/binder.h"

namespace velmo::store::sql {

void SelectBinder::bindSources(const SourceSyntax* from) {
  clause_ = "FROM";
  if (from != nullptr) bound_.from = join(*from);
}

void SelectBinder::addSource(BoundSource source) {
  if (findSource(source.name) >= 0) {
    refuse(clause_, source.place, "Two tables of the statement have the name " + source.name + ".");
  }
  bound_.sources.push_back(std::move(source));
}

std::unique_ptr<BoundJoin> SelectBinder::leaf(const SourceSyntax& syntax) {
  BoundSource source;
  source.place = syntax.place;
  if (syntax.derived) {
    source.derived = std::make_shared<BoundSelect>(SelectBinder(context_).select(*syntax.derived));
    source.name = syntax.alias;
    for (const BoundItem& item : source.derived->items) source.columns.push_back({item.name, item.type});
  } else {
    source.table = context_.catalog.find(syntax.table);
    if (source.table == nullptr) {
      refuse(clause_, syntax.place, "There is no table " + std::string(syntax.table) + ".");
    }
    const bool renamed = !syntax.alias.empty() && !sameWord(syntax.alias, source.table->name);
    source.name = renamed ? std::string(syntax.alias) : source.table->name;
    for (const Column& column : source.table->columns) source.columns.push_back({column.name, column.type});
  }
  addSource(std::move(source));
  auto join = std::make_unique<BoundJoin>();
  join->source = static_cast<int>(bound_.sources.size()) - 1;
  return join;
}

// The sources of one join stand side by side in the list of sources, so that those its ON may name are the ones from
// its own first on.
std::unique_ptr<BoundJoin> SelectBinder::join(const SourceSyntax& syntax) {
  if (!syntax.left) return leaf(syntax);
  const std::size_t first = bound_.sources.size();
  auto both = std::make_unique<BoundJoin>();
  both->left = join(*syntax.left);
  both->right = join(*syntax.right);
  both->outer = syntax.join != JoinKind::Inner;
  if (syntax.join == JoinKind::Right) std::swap(both->left, both->right);
  if (syntax.condition) {
    firstVisible_ = first;
    both->condition = condition(*syntax.condition, "ON");
    firstVisible_ = 0;
    clause_ = "FROM";
  }
  return both;
}

}  // namespace velmo::store::sql

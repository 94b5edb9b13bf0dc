#include "store/sql/compile.h"

#include "store/sql/bind.h"
#include "store/sql/emit.h"
#include "store/sql/parse.h"
#include "store/sql/tokens.h"

namespace velmo::store::sql {

tl::expected<CompiledStatement, CompileError> compile(std::string_view statement, const Catalog& catalog) {
  const auto tokens = tokenize(statement);
  if (!tokens) return tl::unexpected(tokens.error());
  const auto tree = parse(*tokens);
  if (!tree) return tl::unexpected(tree.error());
  const auto bound = bind(*tree, *tokens, catalog);
  if (!bound) return tl::unexpected(bound.error());
  return emit(*bound, *tokens);
}

}  // namespace velmo::store::sql

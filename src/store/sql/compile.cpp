#include "store/sql/compile.h"

#include "store/sql/bind/bind.h"
#include "store/sql/bind/kept_select.h"
#include "store/sql/bind/pushed_tests.h"
#include "store/sql/emit/emit.h"
#include "store/sql/parse/parse.h"
#include "store/sql/parse/parser_depth.h"
#include "store/sql/parse/tokens.h"

namespace velmo::store::sql {
namespace {

constexpr const char* tooDeep = "The statement is too large: its parts stand too deep in each other.";

}  // namespace

tl::expected<CompiledStatement, CompileError> compile(std::string_view statement, const Catalog& catalog) {
  const auto tokens = tokenize(statement);
  if (!tokens) return tl::unexpected(tokens.error());
  const auto tree = parse(*tokens);
  if (!tree) return tl::unexpected(tree.error());
  auto bound = bind(*tree, *tokens, catalog);
  if (!bound) return tl::unexpected(bound.error());
  if (auto* select = std::get_if<BoundSelect>(&*bound)) {
    pushTests(*select);
    readKeptTotals(*select, *tokens, catalog);
  }
  CompiledStatement compiled = emit(*bound, *tokens);
  if (parserDepth(compiled.sql) > deepestParser) {
    return tl::unexpected(CompileError{.clause = "", .length = statement.size(), .message = tooDeep});
  }
  return compiled;
}

}  // namespace velmo::store::sql

#pragma once

#include <string_view>
#include <vector>

#include "store/sql/parse/parse.h"

namespace velmo::store::sql {

// A place in the tokens of a statement, with the readers of each node family: expressions (parse_expression.cpp),
// selects and their sources (parse_select.cpp), and the statements that write (parse.cpp). Readers throw Refusal.
class Parser {
 public:
  explicit Parser(const Tokens& tokens) : tokens_(tokens.tokens) {}

  Statement statement();

 private:
  // The cursor.
  const Token& peek(std::size_t ahead = 0) const;
  Token take();
  bool at(TokenKind kind) const { return peek().kind == kind; }
  bool at(Keyword keyword) const { return peek().keyword == keyword; }
  bool skip(TokenKind kind);
  bool skip(Keyword keyword);
  void expect(TokenKind kind, std::string_view what);
  void expect(Keyword keyword, std::string_view what);
  bool atName() const;
  Token takeName(std::string_view what);
  [[noreturn]] void refuseHere(const std::string& message) const;
  Place placeFrom(const Place& first) const;

  // Guards against nesting that would exhaust the stack.
  class Deeper {
   public:
    explicit Deeper(Parser& parser);
    ~Deeper() { --parser_.depth_; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

   private:
    Parser& parser_;
  };

  // Expressions, weakest binding first.
  ExpressionPtr expression() { return disjunction(); }
  ExpressionPtr disjunction();
  ExpressionPtr conjunction();
  ExpressionPtr negation();
  ExpressionPtr comparison();
  ExpressionPtr concatenation();
  ExpressionPtr sum();
  ExpressionPtr remainder();
  ExpressionPtr wholeQuotient();
  ExpressionPtr product();
  ExpressionPtr signedTerm();
  ExpressionPtr power();
  ExpressionPtr primary();
  ExpressionPtr nameOrCall();
  ExpressionPtr call(const Token& function);
  ExpressionPtr testOf(ExpressionPtr tested);
  ExpressionPtr patternTest(ExpressionPtr tested, bool negated);
  ExpressionPtr rangeTest(ExpressionPtr tested, bool negated);
  ExpressionPtr listTest(ExpressionPtr tested, bool negated);
  ExpressionPtr nullTest(ExpressionPtr tested);
  ExpressionPtr operation(Operator operation, std::vector<ExpressionPtr> operands);
  ExpressionPtr operation(Operator operation, ExpressionPtr left, ExpressionPtr right);

  // Selects.
  Select select();
  void selectHead(Select& select);
  SelectItem selectItem();
  SourcePtr sources();
  SourcePtr joinedSource();
  SourcePtr source();
  SourcePtr derivedSource(TokenKind close);
  std::string_view sourceAlias();
  std::vector<ExpressionPtr> expressionList();
  std::vector<OrderSyntax> orderList();

  // Statements that write.
  Insert insertStatement();
  Update updateStatement();
  Delete deleteStatement();
  Assignment columnName();

  const std::vector<Token>& tokens_;
  std::size_t next_ = 0;
  int depth_ = 0;
  std::string_view clause_;
};

}  // namespace velmo::store::sql

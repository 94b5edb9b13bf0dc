#include <utility>

#include "store/sql/parse/parser.h"

namespace velmo::store::sql {
namespace {

bool isReserved(Keyword keyword) {
  switch (keyword) {
    case Keyword::And:
    case Keyword::As:
    case Keyword::Between:
    case Keyword::By:
    case Keyword::From:
    case Keyword::Group:
    case Keyword::Having:
    case Keyword::In:
    case Keyword::Inner:
    case Keyword::Is:
    case Keyword::Join:
    case Keyword::Like:
    case Keyword::Mod:
    case Keyword::On:
    case Keyword::Or:
    case Keyword::Order:
    case Keyword::Select:
    case Keyword::Union:
    case Keyword::Where:
      return true;
    default:
      return false;
  }
}

std::optional<Operator> comparisonOf(TokenKind kind) {
  switch (kind) {
    case TokenKind::Equal:
      return Operator::Equal;
    case TokenKind::NotEqual:
      return Operator::NotEqual;
    case TokenKind::Less:
      return Operator::Less;
    case TokenKind::LessOrEqual:
      return Operator::LessOrEqual;
    case TokenKind::Greater:
      return Operator::Greater;
    case TokenKind::GreaterOrEqual:
      return Operator::GreaterOrEqual;
    default:
      return std::nullopt;
  }
}

ExpressionPtr leaf(ExpressionKind kind, const Token& token) {
  auto expression = std::make_unique<Expression>();
  expression->kind = kind;
  expression->place = token.place;
  expression->literal = token.literal;
  expression->name = token.text;
  return expression;
}

}  // namespace

ExpressionPtr Parser::operation(Operator operation, std::vector<ExpressionPtr> operands) {
  auto expression = std::make_unique<Expression>();
  expression->kind = ExpressionKind::Operation;
  expression->operation = operation;
  expression->place = spanning(operands.front()->place, operands.back()->place);
  for (const ExpressionPtr& operand : operands) expression->depth = std::max(expression->depth, operand->depth + 1);
  expression->operands = std::move(operands);
  if (expression->depth > deepestNesting) refuse(clause_, expression->place, "The expression is nested too deeply.");
  return expression;
}

ExpressionPtr Parser::operation(Operator kind, ExpressionPtr left, ExpressionPtr right) {
  std::vector<ExpressionPtr> operands;
  operands.push_back(std::move(left));
  operands.push_back(std::move(right));
  return operation(kind, std::move(operands));
}

ExpressionPtr Parser::disjunction() {
  const Deeper deeper(*this);
  std::vector<ExpressionPtr> operands;
  do {
    operands.push_back(conjunction());
  } while (skip(Keyword::Or));
  return operands.size() == 1 ? std::move(operands.front()) : operation(Operator::Or, std::move(operands));
}

ExpressionPtr Parser::conjunction() {
  std::vector<ExpressionPtr> operands;
  do {
    operands.push_back(negation());
  } while (skip(Keyword::And));
  return operands.size() == 1 ? std::move(operands.front()) : operation(Operator::And, std::move(operands));
}

ExpressionPtr Parser::negation() {
  if (!at(Keyword::Not)) return comparison();
  const Deeper deeper(*this);
  const Place first = take().place;
  std::vector<ExpressionPtr> operands;
  operands.push_back(negation());
  ExpressionPtr negated = operation(Operator::Not, std::move(operands));
  negated->place = placeFrom(first);
  return negated;
}

ExpressionPtr Parser::comparison() {
  ExpressionPtr left = concatenation();
  for (;;) {
    if (const auto comparison = comparisonOf(peek().kind)) {
      take();
      left = operation(*comparison, std::move(left), concatenation());
    } else if (at(Keyword::Like) || at(Keyword::Between) || at(Keyword::In) || at(Keyword::Is) || at(Keyword::Not)) {
      left = testOf(std::move(left));
    } else {
      return left;
    }
  }
}

ExpressionPtr Parser::testOf(ExpressionPtr tested) {
  if (skip(Keyword::Is)) return nullTest(std::move(tested));
  const bool negated = skip(Keyword::Not);
  if (skip(Keyword::Like)) return patternTest(std::move(tested), negated);
  if (skip(Keyword::Between)) return rangeTest(std::move(tested), negated);
  if (skip(Keyword::In)) return listTest(std::move(tested), negated);
  refuseHere("Here LIKE, BETWEEN or IN is expected.");
}

ExpressionPtr Parser::nullTest(ExpressionPtr tested) {
  const bool negated = skip(Keyword::Not);
  expect(Keyword::Nothing, "NULL");
  std::vector<ExpressionPtr> operands;
  operands.push_back(std::move(tested));
  ExpressionPtr test = operation(Operator::IsNull, std::move(operands));
  test->negated = negated;
  test->place = placeFrom(test->place);
  return test;
}

ExpressionPtr Parser::patternTest(ExpressionPtr tested, bool negated) {
  ExpressionPtr test = operation(Operator::Like, std::move(tested), concatenation());
  test->negated = negated;
  return test;
}

ExpressionPtr Parser::rangeTest(ExpressionPtr tested, bool negated) {
  std::vector<ExpressionPtr> operands;
  operands.push_back(std::move(tested));
  operands.push_back(concatenation());
  expect(Keyword::And, "AND");
  operands.push_back(concatenation());
  ExpressionPtr test = operation(Operator::Between, std::move(operands));
  test->negated = negated;
  return test;
}

ExpressionPtr Parser::listTest(ExpressionPtr tested, bool negated) {
  expect(TokenKind::OpenParenthesis, "an opening parenthesis");
  if (at(Keyword::Select)) refuseHere("A SELECT cannot stand in a condition.");
  std::vector<ExpressionPtr> operands;
  operands.push_back(std::move(tested));
  do {
    operands.push_back(expression());
  } while (skip(TokenKind::Comma));
  expect(TokenKind::CloseParenthesis, "a closing parenthesis");
  ExpressionPtr test = operation(Operator::In, std::move(operands));
  test->negated = negated;
  test->place = placeFrom(test->place);
  return test;
}

ExpressionPtr Parser::concatenation() {
  std::vector<ExpressionPtr> operands;
  do {
    operands.push_back(sum());
  } while (skip(TokenKind::Ampersand));
  return operands.size() == 1 ? std::move(operands.front()) : operation(Operator::Concatenate, std::move(operands));
}

ExpressionPtr Parser::sum() {
  ExpressionPtr left = remainder();
  while (at(TokenKind::Plus) || at(TokenKind::Minus)) {
    const Operator kind = take().kind == TokenKind::Plus ? Operator::Add : Operator::Subtract;
    left = operation(kind, std::move(left), remainder());
  }
  return left;
}

ExpressionPtr Parser::remainder() {
  ExpressionPtr left = wholeQuotient();
  while (skip(Keyword::Mod)) left = operation(Operator::Modulo, std::move(left), wholeQuotient());
  return left;
}

ExpressionPtr Parser::wholeQuotient() {
  ExpressionPtr left = product();
  while (skip(TokenKind::Backslash)) left = operation(Operator::WholeDivide, std::move(left), product());
  return left;
}

ExpressionPtr Parser::product() {
  ExpressionPtr left = signedTerm();
  while (at(TokenKind::Star) || at(TokenKind::Slash)) {
    const Operator kind = take().kind == TokenKind::Star ? Operator::Multiply : Operator::Divide;
    left = operation(kind, std::move(left), signedTerm());
  }
  return left;
}

ExpressionPtr Parser::signedTerm() {
  if (!at(TokenKind::Minus) && !at(TokenKind::Plus)) return power();
  const Deeper deeper(*this);
  const Token sign = take();
  if (sign.kind == TokenKind::Plus) return signedTerm();
  std::vector<ExpressionPtr> operands;
  operands.push_back(signedTerm());
  ExpressionPtr negated = operation(Operator::Negate, std::move(operands));
  negated->place = placeFrom(sign.place);
  return negated;
}

ExpressionPtr Parser::power() {
  ExpressionPtr left = primary();
  while (skip(TokenKind::Caret)) {
    const bool signedExponent = at(TokenKind::Minus) || at(TokenKind::Plus);
    left = operation(Operator::Power, std::move(left), signedExponent ? signedTerm() : primary());
  }
  return left;
}

ExpressionPtr Parser::primary() {
  const Token& token = peek();
  switch (token.kind) {
    case TokenKind::Literal:
      return leaf(ExpressionKind::Literal, take());
    case TokenKind::FixedNumber:
      return leaf(ExpressionKind::FixedNumber, take());
    case TokenKind::BracketedName:
    case TokenKind::Word:
      return nameOrCall();
    case TokenKind::OpenParenthesis: {
      take();
      if (at(Keyword::Select)) refuseHere("A SELECT cannot stand in an expression.");
      ExpressionPtr inner = expression();
      expect(TokenKind::CloseParenthesis, "a closing parenthesis");
      inner->place = placeFrom(token.place);
      return inner;
    }
    default:
      refuseHere("Here a value or a column is expected.");
  }
}

ExpressionPtr Parser::nameOrCall() {
  const Token token = peek();
  const bool beforeDot = peek(1).kind == TokenKind::Dot;
  if (isReserved(token.keyword) && !beforeDot) refuseHere("Here a value or a column is expected.");
  take();
  if (token.kind == TokenKind::Word && at(TokenKind::OpenParenthesis)) return call(token);
  if (!beforeDot) {
    switch (token.keyword) {
      case Keyword::Yes:
      case Keyword::True:
      case Keyword::On:
        return leaf(ExpressionKind::Yes, token);
      case Keyword::No:
      case Keyword::False:
      case Keyword::Off:
        return leaf(ExpressionKind::No, token);
      case Keyword::Nothing:
        return leaf(ExpressionKind::Nothing, token);
      default:
        return leaf(ExpressionKind::Name, token);
    }
  }
  take();
  ExpressionPtr name = leaf(ExpressionKind::Name, token);
  name->qualifier = token.text;
  name->name = takeName("a column").text;
  name->place = placeFrom(token.place);
  return name;
}

ExpressionPtr Parser::call(const Token& function) {
  const Deeper deeper(*this);
  take();
  ExpressionPtr call = leaf(ExpressionKind::Call, function);
  if (at(TokenKind::Star) && peek(1).kind == TokenKind::CloseParenthesis) {
    take();
    call->countsRows = true;
  } else if (!at(TokenKind::CloseParenthesis)) {
    if (skip(Keyword::Distinct)) refuseHere("An aggregate takes all rows, not distinct ones.");
    call->operands = expressionList();
  }
  expect(TokenKind::CloseParenthesis, "a closing parenthesis");
  for (const ExpressionPtr& operand : call->operands) call->depth = std::max(call->depth, operand->depth + 1);
  if (call->depth > deepestNesting) refuse(clause_, function.place, "The expression is nested too deeply.");
  call->place = placeFrom(function.place);
  return call;
}

}  // namespace velmo::store::sql

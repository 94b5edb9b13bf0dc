#include <utility>

#include "store/sql/parse/parser.h"

namespace velmo::store::sql {
namespace {

// Words that end a name's place, so that they cannot name a table or an alias without brackets.
bool endsClause(Keyword keyword) {
  switch (keyword) {
    case Keyword::And:
    case Keyword::As:
    case Keyword::From:
    case Keyword::Group:
    case Keyword::Having:
    case Keyword::Inner:
    case Keyword::Join:
    case Keyword::Left:
    case Keyword::On:
    case Keyword::Or:
    case Keyword::Order:
    case Keyword::Right:
    case Keyword::Select:
    case Keyword::Set:
    case Keyword::Union:
    case Keyword::Values:
    case Keyword::Where:
      return true;
    default:
      return false;
  }
}

}  // namespace

bool Parser::atName() const {
  return at(TokenKind::BracketedName) || (at(TokenKind::Word) && !endsClause(peek().keyword));
}

Token Parser::takeName(std::string_view what) {
  if (!at(TokenKind::BracketedName) && !at(TokenKind::Word)) refuseHere("Here " + std::string(what) + " is expected.");
  return take();
}

Select Parser::select() {
  const Deeper deeper(*this);
  clause_ = "SELECT";
  Select select;
  const Place first = take().place;
  selectHead(select);
  do {
    select.items.push_back(selectItem());
  } while (skip(TokenKind::Comma));
  if (skip(Keyword::From)) {
    clause_ = "FROM";
    select.from = sources();
  }
  if (skip(Keyword::Where)) {
    clause_ = "WHERE";
    select.where = expression();
  }
  if (skip(Keyword::Group)) {
    clause_ = "GROUP BY";
    expect(Keyword::By, "BY");
    select.groupBy = expressionList();
  }
  if (skip(Keyword::Having)) {
    clause_ = "HAVING";
    select.having = expression();
  }
  if (skip(Keyword::Order)) {
    clause_ = "ORDER BY";
    expect(Keyword::By, "BY");
    select.orderBy = orderList();
  }
  if (at(Keyword::Union)) refuseHere("The dialect has no UNION.");
  select.place = placeFrom(first);
  return select;
}

void Parser::selectHead(Select& select) {
  if (skip(Keyword::Distinct)) {
    select.distinct = true;
  } else if (!skip(Keyword::DistinctRow)) {
    skip(Keyword::All);
  }
  if (!at(Keyword::Top) || peek(1).kind != TokenKind::FixedNumber) return;
  take();
  const Token number = take();
  std::int64_t rows = 0;
  for (const char digit : number.text) {
    if (digit < '0' || digit > '9' || number.text.size() > 9)
      refuse(clause_, number.place, "TOP takes a number of rows.");
    rows = rows * 10 + (digit - '0');
  }
  if (rows == 0) refuse(clause_, number.place, "TOP takes a number of rows.");
  if (at(Keyword::Percent)) refuseHere("TOP takes a number of rows, not a share.");
  select.top = rows;
}

SelectItem Parser::selectItem() {
  SelectItem item;
  item.place = peek().place;
  if (skip(TokenKind::Star)) {
    item.star = true;
    return item;
  }
  if (atName() && peek(1).kind == TokenKind::Dot && peek(2).kind == TokenKind::Star) {
    item.star = true;
    item.starQualifier = take().text;
    take();
    take();
    item.place = placeFrom(item.place);
    return item;
  }
  item.expression = expression();
  item.place = item.expression->place;
  if (skip(Keyword::As)) {
    const Token alias = takeName("a name");
    item.alias = alias.text;
    item.aliasPlace = alias.place;
  }
  return item;
}

SourcePtr Parser::sources() {
  SourcePtr all = joinedSource();
  while (skip(TokenKind::Comma)) {
    auto both = std::make_unique<SourceSyntax>();
    both->left = std::move(all);
    both->right = joinedSource();
    both->place = spanning(both->left->place, both->right->place);
    all = std::move(both);
  }
  return all;
}

SourcePtr Parser::joinedSource() {
  const Deeper deeper(*this);
  SourcePtr left = source();
  int joins = 0;
  for (;;) {
    JoinKind kind = JoinKind::Inner;
    if (at(Keyword::Left) || at(Keyword::Right)) {
      kind = at(Keyword::Left) ? JoinKind::Left : JoinKind::Right;
      take();
      skip(Keyword::Outer);
    } else if (!skip(Keyword::Inner) && !at(Keyword::Join)) {
      return left;
    }
    expect(Keyword::Join, "JOIN");
    if (++joins > deepestNesting) refuseHere("The statement joins too many tables.");
    auto both = std::make_unique<SourceSyntax>();
    both->join = kind;
    both->left = std::move(left);
    both->right = source();
    expect(Keyword::On, "ON");
    both->condition = expression();
    both->place = spanning(both->left->place, both->condition->place);
    left = std::move(both);
  }
}

SourcePtr Parser::source() {
  const Deeper deeper(*this);
  const Place first = peek().place;
  if (skip(TokenKind::OpenDerived)) return derivedSource(TokenKind::CloseDerived);
  if (at(TokenKind::OpenParenthesis)) {
    take();
    if (at(Keyword::Select)) return derivedSource(TokenKind::CloseParenthesis);
    SourcePtr inner = sources();
    expect(TokenKind::CloseParenthesis, "a closing parenthesis");
    inner->place = placeFrom(first);
    return inner;
  }
  if (!atName()) refuseHere("Here a table is expected.");
  auto table = std::make_unique<SourceSyntax>();
  table->table = take().text;
  table->alias = sourceAlias();
  table->place = placeFrom(first);
  return table;
}

SourcePtr Parser::derivedSource(TokenKind close) {
  const Place first = peek().place;
  const std::string_view outerClause = clause_;
  auto derived = std::make_unique<SourceSyntax>();
  if (!at(Keyword::Select)) refuseHere("Here a SELECT is expected.");
  derived->derived = std::make_unique<Select>(select());
  clause_ = "FROM";
  expect(close, close == TokenKind::CloseDerived ? "a closing bracket" : "a closing parenthesis");
  if (close == TokenKind::CloseDerived) skip(TokenKind::Dot);
  derived->alias = sourceAlias();
  if (derived->alias.empty()) refuseHere("A derived table needs a name.");
  derived->place = placeFrom(first);
  clause_ = outerClause;
  return derived;
}

std::string_view Parser::sourceAlias() {
  if (skip(Keyword::As)) return takeName("a name").text;
  return atName() ? take().text : std::string_view();
}

std::vector<ExpressionPtr> Parser::expressionList() {
  std::vector<ExpressionPtr> list;
  do {
    list.push_back(expression());
  } while (skip(TokenKind::Comma));
  return list;
}

std::vector<OrderSyntax> Parser::orderList() {
  std::vector<OrderSyntax> list;
  do {
    OrderSyntax item;
    item.expression = expression();
    item.descending = skip(Keyword::Desc);
    if (!item.descending) skip(Keyword::Asc);
    list.push_back(std::move(item));
  } while (skip(TokenKind::Comma));
  return list;
}

}  // namespace velmo::store::sql

#include "store/sql/parse/parse.h"

#include <utility>

#include "store/sql/parse/parser.h"

namespace velmo::store::sql {

const Token& Parser::peek(std::size_t ahead) const {
  return tokens_[std::min(next_ + ahead, tokens_.size() - 1)];
}

Token Parser::take() {
  const Token token = peek();
  if (next_ + 1 < tokens_.size()) ++next_;
  return token;
}

bool Parser::skip(TokenKind kind) {
  if (!at(kind)) return false;
  take();
  return true;
}

bool Parser::skip(Keyword keyword) {
  if (!at(keyword)) return false;
  take();
  return true;
}

void Parser::expect(TokenKind kind, std::string_view what) {
  if (!skip(kind)) refuseHere("Here " + std::string(what) + " is expected.");
}

void Parser::expect(Keyword keyword, std::string_view what) {
  if (!skip(keyword)) refuseHere("Here " + std::string(what) + " is expected.");
}

void Parser::refuseHere(const std::string& message) const {
  refuse(clause_, peek().place, message);
}

Place Parser::placeFrom(const Place& first) const {
  return next_ == 0 ? first : spanning(first, tokens_[next_ - 1].place);
}

Parser::Deeper::Deeper(Parser& parser) : parser_(parser) {
  if (++parser_.depth_ > deepestNesting) {
    --parser_.depth_;
    parser_.refuseHere("The statement is nested too deeply.");
  }
}

Statement Parser::statement() {
  Statement statement;
  if (at(Keyword::Select)) {
    statement = select();
  } else if (at(Keyword::Update)) {
    statement = updateStatement();
  } else if (at(Keyword::Delete)) {
    statement = deleteStatement();
  } else if (at(Keyword::Insert)) {
    statement = insertStatement();
  } else {
    refuseHere("A statement starts with SELECT, INSERT, UPDATE or DELETE.");
  }
  skip(TokenKind::Semicolon);
  if (!at(TokenKind::End)) refuseHere("The statement should end here.");
  return statement;
}

Assignment Parser::columnName() {
  Assignment assignment;
  const Token first = takeName("a column");
  assignment.column = first.text;
  if (skip(TokenKind::Dot)) {
    assignment.qualifier = first.text;
    assignment.column = takeName("a column").text;
  }
  assignment.place = placeFrom(first.place);
  return assignment;
}

Update Parser::updateStatement() {
  clause_ = "UPDATE";
  take();
  Update update;
  update.source = sources();
  clause_ = "SET";
  expect(Keyword::Set, "SET");
  do {
    Assignment assignment = columnName();
    expect(TokenKind::Equal, "=");
    assignment.value = expression();
    update.assignments.push_back(std::move(assignment));
  } while (skip(TokenKind::Comma));
  if (skip(Keyword::Where)) {
    clause_ = "WHERE";
    update.where = expression();
  }
  return update;
}

Delete Parser::deleteStatement() {
  clause_ = "DELETE";
  Delete statement;
  statement.place = take().place;
  if (!skip(TokenKind::Star) && atName()) {
    statement.target = take().text;
    expect(TokenKind::Dot, "a dot");
    expect(TokenKind::Star, "*");
  }
  expect(Keyword::From, "FROM");
  clause_ = "FROM";
  statement.source = sources();
  if (skip(Keyword::Where)) {
    clause_ = "WHERE";
    statement.where = expression();
  }
  return statement;
}

Insert Parser::insertStatement() {
  clause_ = "INSERT";
  take();
  expect(Keyword::Into, "INTO");
  const Token table = takeName("a table");
  Insert insert;
  insert.table = table.text;
  insert.place = table.place;
  if (skip(TokenKind::OpenParenthesis)) {
    do {
      insert.columns.push_back(columnName());
    } while (skip(TokenKind::Comma));
    expect(TokenKind::CloseParenthesis, "a closing parenthesis");
  }
  if (at(Keyword::Select)) {
    insert.select = std::make_unique<Select>(select());
    return insert;
  }
  clause_ = "VALUES";
  expect(Keyword::Values, "VALUES or SELECT");
  expect(TokenKind::OpenParenthesis, "an opening parenthesis");
  insert.values = expressionList();
  expect(TokenKind::CloseParenthesis, "a closing parenthesis");
  return insert;
}

tl::expected<Statement, CompileError> parse(const Tokens& tokens) {
  try {
    return Parser(tokens).statement();
  } catch (const Refusal& refusal) {
    return tl::unexpected(refusal.error);
  }
}

}  // namespace velmo::store::sql

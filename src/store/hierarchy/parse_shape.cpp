#include "store/hierarchy/parse_shape.h"

#include <algorithm>
#include <cctype>

#include "store/values/error.h"

namespace velmo::store::shape {
namespace {

constexpr int deepest = 32;  // commands within commands

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  Command whole() {
    Command command = shape();
    skipBlanks();
    if (at_ < text_.size()) refuse("nothing more");
    return command;
  }

 private:
  Command shape() {
    if (++depth_ > deepest) refuse("fewer commands within commands");
    expectWord("SHAPE");
    Command command = source();
    takeAlias(command.alias);
    if (takeWord("APPEND")) {
      do {
        command.chapters.push_back(appended());
        AppendedCommand& chapter = command.chapters.back();
        if (chapter.name.empty()) chapter.name = "Chapter" + std::to_string(command.chapters.size());
      } while (take(','));
    }
    --depth_;
    return command;
  }

  // A command without its alias: braces, a table, or a shape with or without parentheses.
  Command source() {
    if (peekWord("SHAPE")) return shape();
    if (takeWord("TABLE")) return {.statement = "SELECT * FROM [" + name() + "]", .alias = {}, .chapters = {}};
    if (take('(')) {
      Command command = source();
      takeAlias(command.alias);
      expect(')', "a closing parenthesis");
      return command;
    }
    return {.statement = braced(), .alias = {}, .chapters = {}};
  }

  AppendedCommand appended() {
    expect('(', "an opening parenthesis");
    AppendedCommand chapter{.name = {}, .command = std::make_unique<Command>(source()), .relations = {}};
    takeAlias(chapter.command->alias);
    expectWord("RELATE");
    do {
      Relation relation{.parent = name(), .child = {}};
      expectWord("TO");
      relation.child = name();
      chapter.relations.push_back(std::move(relation));
    } while (take(','));
    expect(')', "a closing parenthesis");
    chapter.name = chapter.command->alias;
    takeAlias(chapter.name);
    return chapter;
  }

  // The statement between braces; braces inside its quotes are text.
  std::string braced() {
    expect('{', "a statement in braces");
    const std::size_t start = at_;
    int open = 1;
    char quote = '\0';
    for (; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      if (quote != '\0') {
        if (c == quote) quote = '\0';
      } else if (c == '\'' || c == '"') {
        quote = c;
      } else if (c == '{') {
        ++open;
      } else if (c == '}' && --open == 0) {
        return std::string(text_.substr(start, at_++ - start));
      }
    }
    refuse("a closing brace");
  }

  // Takes "AS name" when it stands here; otherwise `alias` stays as it is.
  void takeAlias(std::string& alias) {
    if (takeWord("AS")) alias = name();
  }

  std::string name() {
    skipBlanks();
    const char first = at_ < text_.size() ? text_[at_] : '\0';
    const char closing = first == '[' ? ']' : first == '"' || first == '\'' ? first : '\0';
    if (closing != '\0') {
      const std::size_t end = text_.find(closing, at_ + 1);
      if (end == std::string_view::npos) refuse("the end of a name");
      const std::string_view inside = text_.substr(at_ + 1, end - at_ - 1);
      at_ = end + 1;
      return std::string(inside);
    }
    const std::size_t start = at_;
    while (at_ < text_.size() && isNameCharacter(text_[at_])) ++at_;
    if (at_ == start) refuse("a name");
    return std::string(text_.substr(start, at_ - start));
  }

  static bool isNameCharacter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) || byte >= 0x80 || c == '_' || c == '.';
  }

  bool peekWord(std::string_view word) {
    skipBlanks();
    const std::string_view here = text_.substr(at_, word.size());
    const bool same = std::ranges::equal(
        here, word, [](char left, char right) { return std::toupper(static_cast<unsigned char>(left)) == right; });
    return same && (at_ + word.size() >= text_.size() || !isNameCharacter(text_[at_ + word.size()]));
  }

  bool takeWord(std::string_view word) {
    if (!peekWord(word)) return false;
    at_ += word.size();
    return true;
  }

  void expectWord(std::string_view word) {
    if (!takeWord(word)) refuse(std::string(word));
  }

  bool take(char c) {
    skipBlanks();
    if (at_ >= text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }

  void expect(char c, const std::string& what) {
    if (!take(c)) refuse(what);
  }

  void skipBlanks() {
    while (at_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[at_]))) ++at_;
  }

  [[noreturn]] void refuse(const std::string& expected) const {
    const std::string here = at_ < text_.size() ? "\"" + std::string(text_.substr(at_, 30)) + "\"" : "its end";
    throw StoreError(ErrorKind::Statement, "The hierarchy statement does not fit: " + expected +
                                               " was expected at place " + std::to_string(at_ + 1) + ", before " +
                                               here + ".");
  }

  std::string_view text_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

}  // namespace

Command parseShape(std::string_view text) {
  return Parser(text).whole();
}

}  // namespace velmo::store::shape

#include "store/sql/parse/parser_depth.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

namespace velmo::store::sql {
namespace {

// How many symbols stand open behind a word that starts a clause: SELECT, DISTINCT or nothing, and the list make 3.
struct ClauseWord {
  std::string_view word;
  int open;
};
constexpr std::array clauseWords{ClauseWord{"SELECT", 3}, ClauseWord{"FROM", 5},   ClauseWord{"JOIN", 5},
                                 ClauseWord{"ON", 9},     ClauseWord{"WHERE", 5},  ClauseWord{"GROUP", 7},
                                 ClauseWord{"HAVING", 7}, ClauseWord{"ORDER", 9},  ClauseWord{"UPDATE", 3},
                                 ClauseWord{"SET", 8},    ClauseWord{"VALUES", 6}, ClauseWord{"INTO", 4}};

constexpr std::array operatorWords{"AND", "OR", "BETWEEN", "IN", "IS", "COLLATE"};
// Words that neither open a clause nor stand for a value.
constexpr std::array fillingWords{"DISTINCT", "AS", "BY", "DESC", "INNER", "LEFT", "LIMIT", "DELETE", "INSERT"};

// What stands open between one parenthesis and the next.
struct Frame {
  int below = 0;         // symbols in front of the frame
  int clause = 0;        // of the clause that is being read
  int list = 0;          // of the values before a comma
  int pending = 0;       // of the expression that is being read
  bool between = false;  // its AND is still to come
  bool value = false;    // the last token ended a value
};

class DepthMeter {
 public:
  int measure(std::string_view sql) {
    for (; !sql.empty(); sql.remove_prefix(next(sql))) {
    }
    return deepest_;
  }

 private:
  static constexpr int bottom = 6;     // the statement itself, and an INSERT before its SELECT
  static constexpr int largeName = 3;  // table, dot and column, before they are one value

  Frame& frame() { return frames_.back(); }
  int open() { return frame().below + frame().clause + frame().list + frame().pending; }
  void value() {
    deepest_ = std::max(deepest_, open() + largeName);
    frame().value = true;
  }

  // Reads one token and returns its length.
  std::size_t next(std::string_view sql) {
    const char first = sql[0];
    const bool isName = first == '"';
    if (isName || first == '?' || std::isalnum(static_cast<unsigned char>(first)) != 0) {
      const std::size_t length = isName ? nameLength(sql) : wordLength(sql);
      isName ? value() : word(sql.substr(0, length), sql.substr(length).starts_with('('));
      return length;
    }
    if (first == '(') {
      enter();
    } else if (first == ')') {
      leave();
    } else if (first == ',') {
      frame() = {.below = frame().below, .clause = frame().clause, .list = 2};
    } else if (first != ' ' && first != '.') {
      binary();
      return std::max<std::size_t>(1, std::min(sql.find_first_not_of("<=>|"), sql.size()));
    }
    return 1;
  }

  static std::size_t nameLength(std::string_view sql) {
    std::size_t end = sql.find('"', 1);
    while (end != std::string_view::npos && sql.substr(end).starts_with("\"\"")) end = sql.find('"', end + 2);
    return end == std::string_view::npos ? sql.size() : end + 1;
  }

  static std::size_t wordLength(std::string_view sql) {
    std::size_t length = 1;
    while (length < sql.size() && (std::isalnum(static_cast<unsigned char>(sql[length])) != 0 || sql[length] == '_')) {
      ++length;
    }
    return length;
  }

  void word(std::string_view word, bool beforeParenthesis) {
    calls_ = beforeParenthesis;
    for (const ClauseWord& clause : clauseWords) {
      if (clause.word == word) {
        frame() = {.below = frame().below, .clause = clause.open};
        return;
      }
    }
    if (word == "NOT") return frame().value ? void() : void(++frame().pending);
    if (std::ranges::find(fillingWords, word) != fillingWords.end()) return;
    if (std::ranges::find(operatorWords, word) == operatorWords.end()) return value();
    if (word == "AND" && frame().between) {
      frame() = {.below = frame().below, .clause = frame().clause, .list = frame().list, .pending = 4};
      return;
    }
    binary();
    frame().between = word == "BETWEEN";
  }

  // An operator behind a value keeps the value and itself open; one before a value is a sign.
  void binary() {
    frame().pending = frame().value ? 2 : frame().pending + 1;
    frame().value = false;
  }

  // A call keeps its name, the parenthesis and the place of DISTINCT open.
  void enter() {
    const int below = open() + (calls_ ? 3 : 1);
    calls_ = false;
    frames_.push_back({.below = below});
    deepest_ = std::max(deepest_, below);
  }

  void leave() {
    if (frames_.size() > 1) frames_.pop_back();
    frame().value = true;
  }

  std::vector<Frame> frames_{Frame{.below = bottom}};
  int deepest_ = 0;
  bool calls_ = false;
};

}  // namespace

int parserDepth(std::string_view sql) {
  return DepthMeter().measure(sql);
}

}  // namespace velmo::store::sql

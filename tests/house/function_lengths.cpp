#include "house/function_lengths.h"

#include <algorithm>
#include <regex>

namespace velmo::house {
namespace {

bool isDigitSeparator(std::string_view source, std::size_t at) {
  const auto isHex = [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; };
  return at > 0 && at + 2 < source.size() && isHex(source[at - 1]) && isHex(source[at + 1]) && source[at + 2] != '\'';
}

std::size_t endOfQuoted(std::string_view source, std::size_t at) {
  const char quote = source[at];
  for (++at; at < source.size() && source[at] != quote; ++at)
    if (source[at] == '\\') ++at;
  return at + 1;
}

std::size_t endOfRawText(std::string_view source, std::size_t at) {
  const std::size_t open = source.find('(', at);
  const std::string close = ")" + std::string(source.substr(at + 2, open - at - 2)) + "\"";
  return source.find(close, open) + close.size();
}

// Without comments, texts and directives, each line where it was.
std::string bareSource(std::string_view source) {
  std::string bare;
  bool lineBegins = true;
  for (std::size_t at = 0; at < source.size();) {
    std::size_t end = at;
    if (source.substr(at).starts_with("//") || (lineBegins && source[at] == '#'))
      end = std::min(source.find('\n', at), source.size());
    else if (source.substr(at).starts_with("/*"))
      end = source.find("*/", at) + 2;
    else if (source.substr(at).starts_with("R\""))
      end = endOfRawText(source, at);
    else if (source[at] == '"' || (source[at] == '\'' && !isDigitSeparator(source, at)))
      end = endOfQuoted(source, at);
    if (end == at) {
      lineBegins = source[at] == '\n';
      bare += source[at++];
    } else {
      bare.append(static_cast<std::size_t>(std::ranges::count(source.substr(at, end - at), '\n')), '\n');
      at = end;
    }
  }
  return bare;
}

enum class Block { Scope, Function, Data };

Block blockAfter(const std::string& head) {
  static const std::regex scope(R"(\b(namespace|class|struct|enum|union|extern)\b[^()]*$)");
  static const std::regex noValue(R"(\([^()]*\)|operator\s*[=!<>]+|[<>=!]=)");
  if (std::regex_search(head, scope)) return Block::Scope;
  std::string outside = head;
  for (std::string inner; inner != outside;) {
    inner = outside;
    outside = std::regex_replace(inner, noValue, "");
  }
  const bool isValue = outside.find('=') != outside.npos;
  return head.find(')') == head.npos || isValue ? Block::Data : Block::Function;
}

// Goes through a bare source and keeps the functions that it comes past.
struct Reader {
  std::vector<FunctionLength> functions = {};

  void read(char c) {
    if (c == '\n') ++line;
    if (c == '{') {
      begin();
    } else if (c == '}') {
      end();
    } else if (c == ';') {
      head.clear();
      if (inFunction) ++open.statements;
    } else {
      head += c == '\n' ? ' ' : c;
    }
  }

 private:
  // Braces right behind a name hold its value, as among a constructor's initialisers; a body stands apart.
  void begin() {
    const bool isValue = !head.empty() && head.back() != ' ';
    const Block block = depth > 0 || isValue ? Block::Data : blockAfter(head);
    if (block == Block::Scope) {
      ++scopes;
    } else if (depth++ == 0) {
      inFunction = block == Block::Function;
      open = {.head = head, .line = line};
      resumed = isValue ? head : std::string();
    }
    head.clear();
  }

  void end() {
    head.clear();
    if (depth == 0) {
      --scopes;
    } else if (--depth == 0) {
      head = resumed;
      if (!inFunction) return;
      open.lines = line - open.line + 1;
      functions.push_back(open);
      inFunction = false;
    }
  }

  std::string head = {};     // what stands since the last end of something
  std::string resumed = {};  // the head that goes on behind a value in braces
  FunctionLength open = {};
  int scopes = 0;
  int depth = 0;  // of braces within what is no scope
  int line = 1;
  bool inFunction = false;
};

}  // namespace

std::vector<FunctionLength> functionsIn(std::string_view source) {
  Reader reader;
  for (const char c : bareSource(source)) reader.read(c);
  return std::move(reader.functions);
}

bool isTooLong(const FunctionLength& function) {
  constexpr int longest = 60;
  constexpr int statementsOfATable = 5;
  return function.lines > longest && function.statements > statementsOfATable;
}

}  // namespace velmo::house

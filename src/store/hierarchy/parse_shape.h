#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmo::store::shape {

struct Command;

// Parent field, child field.
struct Relation {
  std::string parent;
  std::string child;
};

struct AppendedCommand {
  std::string name;  // of the chapter
  std::unique_ptr<Command> command;
  std::vector<Relation> relations;
};

// A statement and the commands appended to it.
struct Command {
  std::string statement;
  std::string alias;
  std::vector<AppendedCommand> chapters;
};

// "SHAPE {...} [AS a] APPEND ({...} [AS b] RELATE x TO y [, x2 TO y2]) [AS c] [, (...)]". In the place of {...} may
// stand (SHAPE ...), SHAPE ... or TABLE name, to any depth. A chapter without a name outside its parentheses takes the
// one inside, and "Chapter1", "Chapter2" ... without either. Throws StoreError (Statement) that points at the place.
Command parseShape(std::string_view text);

}  // namespace velmo::store::shape

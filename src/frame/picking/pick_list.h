#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/connection/connection.h"
#include "text/like.h"

namespace velmo::frame {

// The statement behind a drop list, in the pieces of which its two forms are made: all entries, and the entries whose
// display text is like '%typed%'.
struct PickListSource {
  std::string select;           // "SELECT acccode, accname, (...) as Account from acclevel3"
  std::string condition;        // what every entry fulfils
  std::string order;            // "acccode"
  std::string displayColumn;    // of the select: what is shown and matched
  std::string keyColumn;        // of the select: what a choice hands on
  std::string beforeName = {};  // the display is the key, this, the name of the entry, and
  std::string behindName = {};  // this
  std::vector<std::string> tables;

  std::string statement() const;
};

// The entries of a drop list in memory, so that every keystroke is answered from there: exactly the rows, in the same
// order, that the statement with "like '%typed%'" would give. Typed wildcards work, typed quotes are plain characters.
//
//   read     the statement's rows, display texts and keys each in one buffer
//   fold     the display texts for all of Unicode, in a second buffer
//   narrow   scan the folded buffer, no further than entries are asked for; a text that extends one all of whose
//            entries are found is looked for among those
//
// The entries are read again at the next narrow() after a row of the source's tables was written through
// this connection, or after another program changed the file.
class PickList {
 public:
  // Reads nothing yet. The connection outlives the list.
  PickList(store::Connection& connection, PickListSource source);

  // The entries that hold the text, as typed; all of them for "".
  void narrow(std::string_view typed);

  int sizeUpTo(int wanted) const;  // of the present entries, but never above `wanted`: looks for that many only
  // An entry below what sizeUpTo() gave.
  std::string_view display(int entry) const;
  std::string_view key(int entry) const;
  std::string_view name(int entry) const;         // the whole display where it is not made as the source says
  int longestKey() const { return longestKey_; }  // of all entries, in bytes; as they were read last
  int indexOf(std::string_view key) const;  // -1 when it is not among the present entries; letters' case is ignored
  const PickListSource& source() const { return source_; }

 private:
  // Texts one behind the other; text i ends at ends[i].
  struct Texts {
    std::string buffer;
    std::vector<std::uint32_t> ends;
    void clear();
    void append(std::string_view text);
    std::string_view at(std::size_t i) const;
    std::uint32_t beginOf(std::size_t i) const { return i == 0 ? 0 : ends[i - 1]; }
  };

  // A search under way.
  struct Search {
    std::string literal;                              // folded; what an entry must hold, "" for nothing
    std::optional<text::LikePattern> rest;            // what it must match besides
    std::optional<std::vector<std::uint32_t>> among;  // the only entries to look at; nothing: all
    std::size_t next = 0;                             // the first of them that was not looked at
    std::vector<std::uint32_t> found;
  };

  void readWhenStale();
  void read();
  std::string rarestLiteral(std::string_view typed) const;
  std::size_t nextHolding(std::string_view literal, std::size_t from) const;
  std::optional<std::vector<std::uint32_t>> foundWithin(std::string_view literal);
  bool findNext() const;
  std::size_t place(int entry) const;

  store::Connection& connection_;
  PickListSource source_;
  int longestKey_ = 0;
  std::optional<std::int64_t> readAt_;  // the state of the file that the entries were read in
  Texts displays_;
  Texts keys_;
  Texts folded_;
  std::array<std::uint32_t, 256> foldedBytes_ = {};  // how often each is in the folded texts
  mutable std::optional<Search> search_;             // nothing: all entries are present
};

}  // namespace velmo::frame

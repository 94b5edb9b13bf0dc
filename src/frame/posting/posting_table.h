#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <variant>
#include <vector>

#include "frame/posting/document_values.h"
#include "frame/posting/fixed_accounts.h"

namespace velmo::frame {

// A figure of the totals column, read back from its shown text.
enum class Figure { GrTot, TExc, GTotal, Carriage, NetTotal, Received, Balance };

double figureOf(const DocumentTotals& totals, Figure figure);

enum class Sign { AboveZero, BelowZero };

struct FigureTest {
  Figure figure;
  Sign sign;
};

constexpr FigureTest above(Figure figure) {
  return {figure, Sign::AboveZero};
}
constexpr FigureTest below(Figure figure) {
  return {figure, Sign::BelowZero};
}

enum class PostedAccount {
  Party,  // PartyCodeTxt, PartyNameTxt
  Head,   // IncomeCode, IncomeAcc
  Debit   // ACodeTxt, Acc
};

enum class Narration {
  Document,  // the party and the number of the document
  Lines      // the party and every item line
};

struct PostedAmount {
  Figure figure;
  bool negated = false;
  constexpr PostedAmount(Figure shown) : figure(shown) {}  // NOLINT: a figure is an amount
  constexpr PostedAmount(Figure shown, bool turned) : figure(shown), negated(turned) {}
};

constexpr PostedAmount minus(Figure figure) {
  return {figure, true};
}

// A row of a posting table as an accountant reads it: when, account, narration, debit or credit. All tests of `when`
// must hold; none means always.
struct PostingRow {
  std::vector<FigureTest> when = {};
  std::variant<PostedAccount, FixedAccount> account;
  Narration narration = Narration::Document;
  std::optional<PostedAmount> debit = {};
  std::optional<PostedAmount> credit = {};
};

struct PostingTable {
  // What stands behind the party's name in a narration of the document: "Invoice No 12". None where every row has one
  // of its own.
  std::function<std::string(const DocumentValues&)> documentName;
  std::vector<PostingRow> rows;
  // The narration of every row, where a kind of document has one of its own.
  std::function<std::string(const DocumentValues&)> narration = {};
};

struct LedgerLine {
  std::int64_t accCode = 0;
  std::string accName;
  std::string desc;
  std::optional<double> debit;
  std::optional<double> credit;

  bool operator==(const LedgerLine&) const = default;
};

// The ledger lines of a document in the order of the table, or the sentence that tells why it cannot be posted: debits
// and credits that differ by half a cent or more. `lineNarrations` are those of all item lines, joined.
tl::expected<std::vector<LedgerLine>, std::string> ledgerLines(const PostingTable& table, const DocumentValues& values,
                                                               std::string_view lineNarrations);

// The lines, or the sentence that tells by how much they do not balance.
tl::expected<std::vector<LedgerLine>, std::string> balanced(std::vector<LedgerLine> lines);

}  // namespace velmo::frame

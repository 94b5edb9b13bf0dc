#include "reports/ledgers/ledgers_data.h"

#include "store/values/error.h"
#include "store/values/names.h"

namespace velmo::reports {
namespace {

store::StoreError absent(std::string_view what, std::string_view name) {
  return {store::ErrorKind::Misuse, "The rows have no " + std::string(what) + " '" + std::string(name) + "'."};
}

// The lines of a ledger as they are stored. Empty ones do not show.
class StoredLines : public frame::ReportRows {
 public:
  explicit StoredLines(std::shared_ptr<LedgerRows> all)
      : all_(std::move(all)), debit_(all_->field("Debit")), credit_(all_->field("Credit")) {
    takeIn();
  }

  std::int64_t ready() const override { return static_cast<std::int64_t>(shown_.size()); }
  bool hasMore() const override { return all_->hasMore(); }
  void read(int rows) override {
    all_->read(rows);
    takeIn();
  }
  int field(std::string_view name) const override { return all_->field(name); }
  store::Value value(std::int64_t row, int field) const override {
    return all_->stored(shown_[static_cast<std::size_t>(row)], field);
  }

  // A field of the last line of all; null without one.
  store::Value atTheEnd(std::string_view name) {
    constexpr int rowsAtOnce = 4096;
    while (hasMore()) read(rowsAtOnce);
    return all_->ready() == 0 ? store::Value(store::Null{}) : all_->stored(all_->ready() - 1, field(name));
  }

 private:
  void takeIn() {
    for (; seen_ < all_->ready(); ++seen_) {
      const bool filled =
          store::numberOf(all_->stored(seen_, debit_)) != 0 || store::numberOf(all_->stored(seen_, credit_)) != 0;
      if (filled) shown_.push_back(seen_);
    }
  }

  std::shared_ptr<LedgerRows> all_;
  int debit_;
  int credit_;
  std::vector<std::int64_t> shown_;
  std::int64_t seen_ = 0;
};

// The lines of an account are read when they are asked for, and forgotten with it.
class Accounts : public printing::ReportRows {
 public:
  using Opener = std::function<std::shared_ptr<LedgerRows>(std::int64_t account)>;

  Accounts(store::Recordset accounts, Opener openLines)
      : accounts_(std::move(accounts)), openLines_(std::move(openLines)), code_(accounts_.fieldIndex("AccCode")) {}

  bool next() override {
    lines_.reset();
    return ++position_ < accounts_.recordCount();
  }

  store::Value value(std::string_view field) const override {
    if (store::sameName(field, "ClBalance")) return closing("OpBalance", "Balance");
    if (store::sameName(field, "ClStatus")) return closing("OpStatus", "Status");
    const int place = accounts_.fieldIndex(field);
    if (place < 0) throw absent("field", field);
    return accounts_.valueAt(position_, place);
  }

  std::unique_ptr<printing::ReportRows> children(std::string_view member) const override {
    if (!store::sameName(member, "ChildCmd")) throw absent("chapter", member);
    return frame::ReportRowsData(lines()).rows();
  }

 private:
  const std::shared_ptr<StoredLines>& lines() const {
    if (lines_ == nullptr)
      lines_ = std::make_shared<StoredLines>(openLines_(store::integerOf(accounts_.valueAt(position_, code_))));
    return lines_;
  }

  store::Value closing(std::string_view opening, std::string_view stored) const {
    return store::isNull(lines()->atTheEnd("Balance")) ? value(opening) : lines()->atTheEnd(stored);
  }

  store::Recordset accounts_;
  Opener openLines_;
  int code_;
  std::int64_t position_ = -1;
  mutable std::shared_ptr<StoredLines> lines_;  // of the account at the position, once they were asked for
};

}  // namespace

LedgersData::LedgersData(const store::Connection& books, LedgersChoice choice)
    : books_(books.snapshot()),
      choice_(std::move(choice)),
      accounts_(books_, accountsStatement(choice_.fyid, choice_.selection, choice_.openingBefore),
                store::LockType::ReadOnly) {}

std::unique_ptr<printing::ReportRows> LedgersData::rows() const {
  return std::make_unique<Accounts>(accounts_.clone(), [this](std::int64_t account) {
    return openLedger(books_,
                      {.account = account,
                       .fyid = choice_.fyid,
                       .period = choice_.period,
                       .lines = LedgerLines::EmptyToo,
                       .evenly = true},
                      0, choice_.lengths);
  });
}

}  // namespace velmo::reports

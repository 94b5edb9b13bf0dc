#include "reports/ledgers/ledgers_data.h"

#include <cmath>

#include "printing/forward_rows.h"
#include "store/values/error.h"
#include "store/values/names.h"

namespace velmo::reports {
namespace {

using printing::ReportRows;

// What is stored with the last line of a ledger.
struct Closing {
  bool known = false;  // once the lines were walked
  store::Value balance = {};
  store::Value status = {};
};

// The lines of a ledger as they are stored. Empty ones do not show.
class StoredLines : public ReportRows {
 public:
  StoredLines(std::unique_ptr<ReportRows> all, std::shared_ptr<Closing> closing)
      : all_(std::move(all)), closing_(std::move(closing)) {}

  bool next() override {
    while (all_->next()) {
      last_ = {.known = true, .balance = value("Balance"), .status = value("Status")};
      if (store::numberOf(value("Debit")) != 0 || store::numberOf(value("Credit")) != 0) return true;
    }
    last_.known = true;
    *closing_ = last_;
    return false;
  }
  store::Value value(std::string_view field) const override { return all_->value(field); }
  std::unique_ptr<ReportRows> children(std::string_view member) const override { return all_->children(member); }

 private:
  std::unique_ptr<ReportRows> all_;
  std::shared_ptr<Closing> closing_;
  Closing last_ = {};
};

// What is known of an account is read when it is asked for, its lines one after the other.
class Accounts : public ReportRows {
 public:
  Accounts(store::Connection& books, const LedgersChoice& choice)
      : books_(books), choice_(choice), accounts_(books, accountsStatement(choice.selection)) {}

  bool next() override {
    opening_.reset();
    closing_ = std::make_shared<Closing>();
    return accounts_.next();
  }

  store::Value value(std::string_view field) const override {
    if (store::sameName(field, "OpBalance")) return std::fabs(opening());
    if (store::sameName(field, "OpStatus")) return std::string(frame::sideOf(opening()));
    if (store::sameName(field, "ClBalance")) return isClosed() ? closing().balance : value("OpBalance");
    if (store::sameName(field, "ClStatus")) return isClosed() ? closing().status : value("OpStatus");
    return accounts_.value(field);
  }

  std::unique_ptr<ReportRows> children(std::string_view member) const override {
    if (!store::sameName(member, "ChildCmd"))
      throw store::StoreError(store::ErrorKind::Misuse, "The rows have no chapter '" + std::string(member) + "'.");
    return lines();
  }

 private:
  std::int64_t account() const { return store::integerOf(accounts_.value("AccCode")); }

  std::unique_ptr<ReportRows> lines() const {
    const LedgerChoice ledger{
        .account = account(), .fyid = choice_.fyid, .period = choice_.period, .lines = LedgerLines::EmptyToo};
    return std::make_unique<StoredLines>(
        std::make_unique<printing::ForwardRows>(books_, evenLedgerStatement(books_, ledger, choice_.lengths)),
        closing_);
  }

  double opening() const {
    if (!opening_) opening_ = broughtForward(books_, account(), choice_.fyid, choice_.openingBefore).value_or(0);
    return *opening_;
  }

  const Closing& closing() const {
    if (closing_->known) return *closing_;
    const std::unique_ptr<ReportRows> all = lines();
    while (all->next()) {
    }
    return *closing_;
  }

  bool isClosed() const { return !store::isNull(closing().balance); }

  store::Connection& books_;
  const LedgersChoice& choice_;
  printing::ForwardRows accounts_;
  // Of the present one:
  mutable std::optional<double> opening_;
  std::shared_ptr<Closing> closing_;
};

}  // namespace

LedgersData::LedgersData(const store::Connection& books, LedgersChoice choice)
    : books_(books.snapshot()), choice_(std::move(choice)) {}

bool LedgersData::isEmpty() const {
  return !store::ForwardReader(books_, accountsStatement(choice_.selection)).next();
}

std::unique_ptr<printing::ReportRows> LedgersData::rows() const {
  return std::make_unique<Accounts>(books_, choice_);
}

}  // namespace velmo::reports

#include "reports/ledgers/vouchers_data.h"

#include "printing/forward_rows.h"

namespace velmo::reports {
namespace {

using printing::ForwardRows;
using printing::ReportRows;

std::string documentsStatement(const std::string& currencyName, const std::string& chosen) {
  return "select tranno, docno, trandate, desc, (" + store::quoted(currencyName + " ") +
         " & transactions.wordsamt) as WordsAmt, trantype, iif(cancel=0, '', 'CANCELLED') as CStatus from transactions "
         "where (" +
         chosen + ") order by docno";
}

std::string linesStatement(std::int64_t tranNo) {
  return "SELECT Serial, AccCode, AccName, TranNo, Desc, Debit, Credit from SubTransactions WHERE "
         "(((SubTransactions.Debit)<>0) OR ((SubTransactions.Credit)<>0)) AND TranNo = " +
         std::to_string(tranNo) + " order by debit desc, credit desc";
}

}  // namespace

VouchersData::VouchersData(const store::Connection& books, std::string currencyName, std::string chosen)
    : books_(books.snapshot()), currencyName_(std::move(currencyName)), chosen_(std::move(chosen)) {}

bool VouchersData::isEmpty() const {
  return !store::ForwardReader(books_, "select tranno from transactions where (" + chosen_ + ")").next();
}

std::unique_ptr<ReportRows> VouchersData::rows() const {
  const auto lines = [this](const ForwardRows& document, std::string_view) {
    return std::make_unique<ForwardRows>(books_, linesStatement(store::integerOf(document.value("tranno"))));
  };
  return std::make_unique<ForwardRows>(books_, documentsStatement(currencyName_, chosen_), lines);
}

}  // namespace velmo::reports

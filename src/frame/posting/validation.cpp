#include "frame/posting/validation.h"

#include <algorithm>

#include "frame/posting/posting_table.h"
#include "text/blanks.h"
#include "text/decimal_sum.h"
#include "text/number.h"

namespace velmo::frame {

namespace {

bool isSerialNumber(const std::string& text) {
  constexpr std::size_t mostDigits = 9;
  return !text.empty() && text.size() <= mostDigits &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

bool exceedsCreditLimit(const DocumentValues& values, const SaveSituation& situation) {
  if (values.totals.Balance == "0.00" || values.CreditLimit <= 0) return false;
  const double added = situation.addMode
                           ? figureOf(values.totals, Figure::Balance)
                           : text::sumOf({figureOf(values.totals, Figure::NetTotal), -situation.storedBalance});
  return text::roundHalfEven(text::sumOf({values.PartyBalance, added, -values.CreditLimit}), 2) > 0;
}

ValidationStep numberIsSerial() {
  return {.fails = [](const DocumentValues& v, const SaveSituation&) { return !isSerialNumber(v.DocNo); },
          .text = "Serial number must be a numeric figure.",
          .control = "DocNo"};
}

}  // namespace

const std::vector<ValidationStep>& documentSteps() {
  static const std::vector<ValidationStep> steps{
      {.fails = [](const DocumentValues& v, const SaveSituation& s) { return v.TrDate < s.yearStart; },
       .text = "Transaction date cannot be before starting date of financial year.",
       .control = "TrDate"},
      {.fails = [](const DocumentValues& v, const SaveSituation& s) { return v.TrDate > s.yearEnd; },
       .text = "Transaction date cannot be after ending date of financial year.",
       .control = "TrDate"},
      numberIsSerial()};
  return steps;
}

const std::vector<ValidationStep>& undatedSteps() {
  static const std::vector<ValidationStep> steps{numberIsSerial()};
  return steps;
}

ValidationStep locationIsListed() {
  return {.fails = [](const DocumentValues& v, const SaveSituation&) { return !v.LocationList.matches; },
          .text = "Select a correct location of inventory.",
          .control = "LocationList"};
}

ValidationStep jobIsListedOrBlank() {
  return {.fails = [](const DocumentValues& v,
                      const SaveSituation&) { return !text::isBlank(v.JobList.text) && !v.JobList.matches; },
          .text = "Select a correct job or leave it blank if you do not want to save a job reference.",
          .control = "JobList"};
}

ValidationStep employeeIsListedOrBlank() {
  return {.fails = [](const DocumentValues& v,
                      const SaveSituation&) { return !text::isBlank(v.EmpList.text) && !v.EmpList.matches; },
          .text = "Select a correct employee or leave it blank if you do not want to save an employee reference.",
          .control = "EmpList"};
}

ValidationStep receivedWithinNetTotal(std::string_view text) {
  return {.fails =
              [](const DocumentValues& v, const SaveSituation&) {
                return figureOf(v.totals, Figure::Received) > figureOf(v.totals, Figure::NetTotal);
              },
          .text = text,
          .control = "Received"};
}

ValidationStep creditLimitKept() {
  return {.fails = exceedsCreditLimit,
          .text = "This will increase the balance of party from assigned credit limit. Do you want to continue?",
          .onFailure = OnFailure::Ask,
          .title = "Credit Limit Increase"};
}

}  // namespace velmo::frame

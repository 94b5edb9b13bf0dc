#include "shell/catalogue/direct_back_up.h"

#include <QtGlobal>
#include <filesystem>

#include "schema/company_file.h"
#include "session/settings.h"
#include "store/connection/connection_string.h"
#include "text/format.h"

namespace velmo::shell {
namespace {

// The books of each financial year: what was debited and credited.
constexpr const char* trialTotals =
    "SELECT Transactions.FYID, Count(SubTransactions.Serial) AS Lines, Sum(SubTransactions.Debit) AS Debits, "
    "Sum(SubTransactions.Credit) AS Credits FROM Transactions INNER JOIN SubTransactions ON "
    "Transactions.TranNo = SubTransactions.TranNo GROUP BY Transactions.FYID ORDER BY Transactions.FYID";

std::string sizeWords(std::uintmax_t bytes) {
  return text::formatNumber(static_cast<double>(bytes) / (1024.0 * 1024.0), "#,##0.0") + " MB";
}

// For the day on which it is needed. The back-up is good without that.
void remember(session::Workplace& workplace, const std::filesystem::path& file) {
  store::Connection& books = workplace.context.KORDconn;
  try {
    session::saveSetting(books, session::settings::BackUpPlace, file.string());
    session::saveSetting(books, session::settings::BackUpTime, workplace.clock.now().iso());
  } catch (const store::StoreError& failure) {
    qWarning("%s", failure.what());
  }
}

}  // namespace

std::string proposedBackUpName(const text::DateTime& now) {
  return "KORD Back-Up (Date " + text::formatDate(now, "dd-mm-yy") + ") (Time " +
         text::formatDate(now, "hh-mm-ss am/pm") + ")";
}

void saveDirectBackUp(session::Workplace& workplace, const std::function<void(store::BackUpStage)>& progress) {
  const std::filesystem::path folder = std::filesystem::current_path();
  const std::string chosen =
      workplace.files.saveFile("Save Back-Up", "Back-up copies (*)", proposedBackUpName(workplace.clock.now()));
  if (chosen.empty()) return;
  const std::filesystem::path source = folder / store::parseConnectionString(schema::plainConnectionString).dataSource;
  try {
    const store::BackUpResult saved =
        store::backUp(schema::companyCatalog(), {.source = schema::connectionStringFor(source),
                                                 .destination = schema::connectionStringFor(folder / chosen),
                                                 .proofs = {trialTotals},
                                                 .newestSchemaVersion = schema::schemaVersion,
                                                 .progress = progress});
    remember(workplace, saved.file);
    workplace.prompts.tell(
        "Back-Up",
        "The back-up was saved and checked: " + text::formatNumber(static_cast<double>(saved.records), "#,##0") +
            " records, " + sizeWords(saved.bytes) + ", in \"" + saved.file.string() + "\".");
  } catch (const store::StoreError& failure) {
    workplace.prompts.tell("Back-Up Not Saved", failure.what());
  } catch (const std::filesystem::filesystem_error& failure) {
    workplace.prompts.tell("Back-Up Not Saved", failure.what());
  }
}

}  // namespace velmo::shell

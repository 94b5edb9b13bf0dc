#include "demo_company/company_folder.h"

#include "schema/company_file.h"
#include "store/values/error.h"

namespace velmo::demo {

void makeCompanyIn(const std::filesystem::path& folder, const text::DateTime& now,
                   const std::function<void(const std::string& connectionString)>& fill) {
  const std::filesystem::path place = folder / "Uninstall";
  if (std::filesystem::exists(place / "Uninstall.MDB"))
    throw store::StoreError(store::ErrorKind::Misuse, "The folder " + folder.string() + " holds a company already.");
  const std::filesystem::path making = folder / "Uninstall being made";
  std::filesystem::remove_all(making);
  const std::string connectionString = schema::connectionStringFor(making / "Uninstall.MDB");
  schema::prepareCompanyFile(connectionString, now);
  fill(connectionString);
  std::filesystem::remove(place);  // an empty folder of that name
  std::filesystem::rename(making, place);
}

}  // namespace velmo::demo

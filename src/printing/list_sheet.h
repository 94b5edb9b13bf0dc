#pragma once

#include <memory>
#include <string>
#include <vector>

#include "printing/pieces.h"
#include "session/login_context.h"

namespace velmo::printing {

// A level of headings over the lines of a list: the code and the name of a row.
struct ListLevel {
  std::string dataMember = {};  // the chapter that holds its rows; of the outermost level only a name
  std::string codeField = {};   // none: the name alone
  std::string nameField = {};
};

// A list of master data under the headings of what it belongs to, outer to inner.
struct ListSheet {
  std::string title = {};
  std::vector<ListLevel> levels = {};
  std::string dataMember = {};  // the chapter of the lines
  std::vector<Column> columns = {};
  std::string counted = {};  // what the lines are: "Accounts"
};

// On A4: company, title and column headings on every page, the headings of the levels again on the pages that they run
// on to, and never without a line below them; the count of the lines at the end.
Report listReport(const session::LoginContext& context, const ListSheet& sheet, std::shared_ptr<const ReportData> rows,
                  text::DateTime today);

// Columns that several lists have.
Column codeColumn(const std::string& heading, const std::string& dataField);
Column priceColumn(const session::LoginContext& context, const std::string& dataField);

// The column of a Yes/No field shows these words for Yes and nothing for No.
void showYesAs(Report& report, const std::string& dataField, const std::string& words);

// The rows without those that have no children in a chapter.
std::shared_ptr<const ReportData> withoutEmptyGroups(std::shared_ptr<const ReportData> rows,
                                                     const std::string& dataMember);

}  // namespace velmo::printing

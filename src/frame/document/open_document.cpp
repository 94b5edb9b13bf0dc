#include "frame/document/open_document.h"

#include <algorithm>

#include "store/recordset/recordset.h"
#include "text/blanks.h"

namespace velmo::frame {

namespace {

std::int64_t keyOf(session::LoginContext& context, int tranType, const std::string& number) {
  constexpr std::size_t mostDigits = 9;
  const bool isNumber = !number.empty() && number.size() <= mostDigits &&
                        std::ranges::all_of(number, [](char c) { return c >= '0' && c <= '9'; });
  if (!isNumber) return 0;
  const store::Recordset found(context.KORDconn,
                               "Select tranno from transactions where docno = " + number + " and trantype = " +
                                   std::to_string(tranType) + " and fyid = " + std::to_string(context.FYID),
                               store::LockType::ReadOnly);
  return found.isEmpty() ? 0 : found.integer("tranno");
}

}  // namespace

void openDocumentOf(session::Workplace& workplace, const schema::DocumentForm& form, const std::string& number,
                    std::string_view words) {
  if (!workplace.rights().demand(form.viewRight)) return;
  session::LoginContext& context = workplace.context;
  const std::int64_t tranNo = keyOf(context, form.tranType, number);
  if (tranNo == 0)
    return workplace.prompts.tell("Record Not Found",
                                  std::string(text::trimmed(words)) + " " + number +
                                      " is not there any more. It may have been deleted, or its number changed.");
  context.OpenTranNo = tranNo;
  context.OpenTranFlag = true;
  if (!workplace.screens.openScreen(form.screen)) context.OpenTranFlag = false;
}

}  // namespace velmo::frame

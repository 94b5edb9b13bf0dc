#include "shell/catalogue/document_voucher.h"

#include "printing/preview_window.h"
#include "printing/recordset_data.h"
#include "vouchers/print/voucher_print.h"

namespace velmo::shell {
namespace {

std::string voucherHierarchy(const std::string& currencyName, std::int64_t tranNo) {
  return "Shape {select tranno, docno, trandate, desc, (" + store::quoted(currencyName + " ") +
         " & transactions.wordsamt) as WordsAmt, trantype, iif(cancel=0, '', 'CANCELLED') as CStatus from transactions "
         "where tranno= " +
         std::to_string(tranNo) +
         "} as ParentCmd append ({SELECT Serial, AccCode, AccName, TranNo, Desc, Debit, Credit from SubTransactions "
         "WHERE ((SubTransactions.Debit)<>0) OR ((SubTransactions.Credit)<>0) order by debit desc, credit desc} as "
         "ChildCmd relate tranno to tranno) as ChildCmd";
}

}  // namespace

void showDocumentVoucher(session::Workplace& workplace, std::int64_t tranNo, QWidget* parent) {
  session::LoginContext& context = workplace.context;
  store::Recordset hierarchy;
  hierarchy.openShape(context.KORDconn, voucherHierarchy(context.currencyname, tranNo));
  if (hierarchy.isEmpty()) return;
  const int tranType = static_cast<int>(hierarchy.integer("trantype"));
  const auto voucher = std::make_shared<const printing::RecordsetData>(hierarchy);
  printing::showPreview(parent, vouchers::voucherPrint(context, voucher, tranType, workplace.clock.today()),
                        workplace.files);
}

}  // namespace velmo::shell

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "guide.h"
#include "masters/labels/bar_code_labels.h"
#include "printing/preview_window.h"
#include "shell/window/screen_windows.h"
#include "travel_logo.h"

namespace velmo::tour {

namespace {

// A choice in the invoice's print settings and the layout that it prints.
struct LayoutChoice {
  const char* size;
  const char* type;
  const char* layout;
};

constexpr LayoutChoice layouts[] = {{"InvSize_1", "InvType_1", "Invoice"},   {"InvSize_1", "InvType_2", "Invoice0"},
                                    {"InvSize_3", "InvType_1", "Invoice01"}, {"InvSize_4", "InvType_1", "Invoice02"},
                                    {"InvSize_2", "InvType_1", "Invoice6"},  {"InvSize_2", "InvType_2", "Invoice7"}};

enum class Head { Company, CompanyWithLogo, OwnLetterhead };

// An invoice of this week with most to print: part of it paid, and with the customer's order number.
std::int64_t fullInvoice(store::Connection& connection) {
  const store::Recordset found(connection,
                               "SELECT TOP 1 Transactions.TranNo, Count(StockFlow.Serial) AS Lines FROM Transactions "
                               "INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE "
                               "Transactions.TranType=32 and Transactions.Received>0 and Transactions.Balance>0 and "
                               "Transactions.D1<>'' GROUP BY Transactions.TranNo ORDER BY Count(StockFlow.Serial) "
                               "DESC, Transactions.TranNo DESC");
  if (found.isEmpty()) throw std::logic_error("the tour's company has no invoice that is worth a picture");
  return found.integer("TranNo");
}

class Printery {
 public:
  Printery(Guide& guide, shell::MainShell& shell) : guide_(guide), shell_(shell) {}

  // Chooses the layout where the user does, from the invoice itself, and prints the invoice in it at once.
  void printInvoice(std::int64_t tranNo, const LayoutChoice& choice, Head head) {
    QWidget& screen = show(tranNo);
    guide_.inDialog([&] { guide_.control<QPushButton>(screen, "SetBttn").click(); },
                    [&](QWidget& settings) { choose(settings, choice, head); });
    guide_.control<QPushButton>(screen, "PrintBill_0").click();
    printing::PreviewWindow& preview = guide_.preview();
    const std::string suffix = head == Head::OwnLetterhead     ? "-letterhead"
                               : head == Head::CompanyWithLogo ? "-logo"
                                                               : "";
    guide_.paper(preview.pages(), std::string("paper-") + choice.layout + suffix);
    preview.close();
    guide_.rest(20);
  }

  void printLabels(masters::LabelSheet sheet, const std::string& name) {
    session::Workplace& workplace = shell_.workplace();
    const store::Recordset item(workplace.context.KORDconn,
                                "SELECT TOP 1 ItemCode FROM StockLevel3 WHERE Status=No ORDER BY ItemCode");
    const store::Recordset labels(workplace.context.KORDconn,
                                  masters::barCodeStatement(item.text("ItemCode"), workplace.context.ccode));
    constexpr int copies = 24;
    const auto report = masters::barCodeLabels(workplace.context, labels, sheet, copies, workplace.clock.today());
    if (!report) throw std::logic_error(report.error());
    guide_.paper(*report, "paper-" + name);
  }

 private:
  QWidget& show(std::int64_t tranNo) {
    session::LoginContext& context = shell_.workplace().context;
    context.OpenTranFlag = true;
    context.OpenTranNo = tranNo;
    shell_.workplace().screens.openScreen("SaleInvoicesSimple");
    guide_.rest(50);
    return *shell_.screens().openWindow("SaleInvoicesSimple");
  }

  void choose(QWidget& settings, const LayoutChoice& choice, Head head) {
    guide_.control<QRadioButton>(settings, choice.size).click();
    guide_.control<QRadioButton>(settings, choice.type).click();
    guide_.control<QCheckBox>(settings, "HeadCheck").setChecked(head == Head::OwnLetterhead);
    guide_.control<QLineEdit>(settings, "TM").setText(QStringLiteral("1800"));
    guide_.control<QPushButton>(settings, "SaveBttn").click();
  }

  Guide& guide_;
  shell::MainShell& shell_;
};

}  // namespace

void visitPrintOuts(Guide& guide, shell::MainShell& shell) {
  Printery printery(guide, shell);
  const std::int64_t invoice = fullInvoice(shell.workplace().context.KORDconn);
  for (const LayoutChoice& choice : layouts)
    for (const Head head : {Head::Company, Head::OwnLetterhead}) printery.printInvoice(invoice, choice, head);
  {
    const TravelLogo logo;
    for (const std::size_t which : {0, 5}) printery.printInvoice(invoice, layouts[which], Head::CompanyWithLogo);
  }
  printery.printLabels(masters::LabelSheet::BarCodesPrint, "BarCodesPrint");
  printery.printLabels(masters::LabelSheet::BarCodesPrint2, "BarCodesPrint2");
}

}  // namespace velmo::tour

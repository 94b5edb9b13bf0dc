#include "store/sql/statements.h"

namespace velmo::test {

namespace {

// The two sub-ledgers of open items differ in their table, the key of an item and the documents that open one.
struct Side {
  std::string table, key, innerKeys, types;
};
const Side receivable{"AgingDr", "DocNo", "AgingDr.DocNo, ",
                      "((AgingDr.TranType) = 11 Or (AgingDr.TranType) = 31 Or (AgingDr.TranType) = 32)"};
const Side payable{"AgingCr", "VendorInvNo", "AgingCr.DocNo, AgingCr.VendorInvNo, ",
                   "((AgingCr.TranType) = 11 Or (AgingCr.TranType) = 21 Or (AgingCr.TranType) = 22)"};

const std::string of = ".";

std::string grouped(const Side& side) {
  return " FROM Transactions INNER JOIN " + side.table + " ON Transactions.TranNo = " + side.table +
         ".TranNo WHERE (((Transactions.Cancel)=No)) GROUP BY " + side.innerKeys + side.table + ".TranDate, " +
         side.table + ".PartyCode, " + side.table + ".FYID HAVING (" + side.table + ".FYID=2))";
}

std::string keys(const Side& side) {
  return side.innerKeys + side.table + ".TranDate, " + side.table + ".PartyCode, " + side.table + ".FYID, Sum(" +
         side.table + ".TrAmount) AS TrAmounts, ";
}

std::string balances(const Side& side) {
  return "(SELECT " + keys(side) + "Sum(" + side.table + ".TotPayment) AS Payments, [TrAmounts]-[Payments] AS BalAmt" +
         grouped(side);
}

std::string movements(const Side& side) {
  std::string sums;
  for (const char* column : {"Return", "Payment", "WHTax", "AdvAdj", "Discount", "TotPayment"})
    sums += "Sum(" + side.table + of + column + ") AS " + column + "s, ";
  return "(SELECT " + keys(side) + sums + "[TrAmounts]-[TotPayments] AS BalAmt" + grouped(side);
}

const std::string movementColumns =
    R"(SubAging.TrAmounts, SubAging.Returns, SubAging.Payments, SubAging.WHTaxs, SubAging.AdvAdjs, SubAging.Discounts, SubAging.TotPayments, SubAging.BalAmt)";

std::string matched(const Side& side) {
  return " ON (" + side.table + ".PartyCode = SubAging.PartyCode) AND (" + side.table +
         ".TranDate = SubAging.TranDate) AND (" + side.table + of + side.key + " = SubAging." + side.key + "))";
}

std::string itemColumns(const Side& side) {
  return "SELECT " + side.table + ".TranNo, " + side.innerKeys + side.table + ".TranDate, " + side.table +
         ".PartyCode, ";
}

std::string ordered(const Side& side) {
  return " ORDER BY " + side.table + ".TranDate, " + side.table + of + side.key;
}

std::string pending(const Side& side) {
  return itemColumns(side) + "SubAging.TrAmounts, SubAging.BalAmt FROM Transactions INNER JOIN (" + side.table +
         " INNER JOIN " + balances(side) + " AS SubAging" + matched(side) + " ON Transactions.TranNo = " + side.table +
         ".TranNo Where (";
}

std::string carriedOver(const Side& side, const std::string& party = "") {
  return pending(side) + party + side.types + " And ((" + side.table +
         ".FYID) = 2) And ((Transactions.Cancel) = No) And ((SubAging.BalAmt) > 0))" + ordered(side);
}

std::string aged(const Side& side, const std::string& filter) {
  const std::string days = "(#11-22-2025#-[" + side.table + "].[trandate])";
  const auto bucket = [&](const char* above, const char* upTo, const char* name) {
    std::string condition;
    if (*above) condition = days + ">" + above;
    if (*upTo) condition += (condition.empty() ? "" : " And ") + days + "<=" + upTo;
    return "IIf(" + condition + ",[BalAmt],'') AS " + name;
  };
  const std::string employee = side.table == "AgingDr" ? "AccLevel3.EmpID, " : "";
  return itemColumns(side) + "AccLevel3.AccName, " + employee +
         "Transactions.Cancel, SubAging.TrAmounts, SubAging.Payments, SubAging.BalAmt, (#11-22-2025#-[" + side.table +
         "].[TranDate]) AS DaysPast, " + bucket("", "10", "010Days") + ", " + bucket("10", "20", "1120Days") + ", " +
         bucket("20", "30", "2130Days") + ", " + bucket("30", "", "Above30Days") + ", " + bucket("", "30", "030Days") +
         ", " + bucket("30", "60", "3160Days") + ", " + bucket("60", "90", "6190Days") + ", " +
         bucket("90", "", "Above90Days") + " FROM Transactions INNER JOIN (AccLevel3 INNER JOIN (" + side.table +
         " INNER JOIN " + balances(side) + " as SubAging ON " + side.table + of + side.key + " = SubAging." + side.key +
         " and " + side.table + ".trandate = SubAging.trandate and " + side.table +
         ".partycode = SubAging.partycode) ON AccLevel3.AccCode = " + side.table +
         ".PartyCode) ON Transactions.TranNo = " + side.table + ".TranNo Where (" + side.types + filter + " And ((" +
         side.table + ".FYID) = 2) And ((SubAging.BalAmt)>0) And ((Transactions.Cancel) = No))" + ordered(side);
}

std::string activityByInvoice(const Side& side, const std::string& filter) {
  return "SELECT " + side.table + ".TranNo, " + side.table + ".TranType, " + side.innerKeys + side.table +
         ".TranDate, " + side.table + ".PartyCode, " + movementColumns +
         R"(, AccLevel3.AccName, Employees.EmpName, Transactions.Cancel FROM (Transactions LEFT JOIN Employees ON Transactions.EmpID = Employees.EmpID) INNER JOIN (AccLevel3 INNER JOIN ()" +
         side.table + " INNER JOIN " + movements(side) + " AS SubAging" + matched(side) +
         " ON AccLevel3.AccCode = " + side.table + ".PartyCode) ON Transactions.TranNo = " + side.table +
         ".TranNo Where (" + side.types + filter + " And ((" + side.table +
         ".FYID) = 2) And ((Transactions.Cancel) = No))" + ordered(side);
}

std::string activityOfInvoice(const Side& side, const std::string& key) {
  const auto& t = side.table;
  return "SELECT " + t + ".TranNo, " + t + ".TranType, TranType.Name, ([short] & ' ' & [" + t +
         "].[docno2]) AS DocRef, " + t + ".DocNo2, " + t + ".TranDate2, " + t + ".TrAmount, " + t + ".Return, " + t +
         ".Payment, " + t + ".WHTax, " + t + ".AdvAdj, " + t + ".Discount, " + t +
         ".TotPayment FROM Transactions INNER JOIN (" + t + " INNER JOIN TranType ON " + t +
         ".TranType = TranType.TranType) ON Transactions.TranNo = " + t + ".TranNo WHERE (((" + t + of + side.key +
         ")=" + key + ") AND ((" + t + ".TranDate)=#09-01-2025#) AND ((" + t + ".PartyCode)=12001002) AND ((" + t +
         ".FYID)=2) AND ((Transactions.Cancel)=No)) ORDER BY " + t + ".TranDate2, " + t + ".TranNo";
}

std::string activityByParty(const Side& side, const std::string& period, const std::string& parties) {
  const auto& t = side.table;
  std::string sums;
  for (const char* column : {"TrAmount", "Return", "Payment", "WHTax", "AdvAdj", "Discount", "TotPayment"})
    sums += "Sum(" + t + of + column + ") AS " + column + "s, ";
  return "SELECT " + t + ".PartyCode, AccLevel3.AccName, AccLevel3.EmpID, Employees.EmpName, " + sums + "(Sum(" + t +
         ".TrAmount)-Sum(" + t +
         R"(.TotPayment)) AS TotBalance FROM Employees RIGHT JOIN (Transactions INNER JOIN (AccLevel3 INNER JOIN )" +
         t + " ON AccLevel3.AccCode = " + t + ".PartyCode) ON Transactions.TranNo = " + t +
         ".TranNo) ON Employees.EmpID = AccLevel3.EmpID Where (((" + t + ".FYID) = 2" + period +
         ") And ((Transactions.Cancel) = No)) GROUP BY " + t +
         ".PartyCode, AccLevel3.AccName, AccLevel3.EmpID, Employees.EmpName HAVING (" + parties +
         ") ORDER BY AccLevel3.AccName";
}

}  // namespace

Statements settlementStatements() {
  const std::string oneInvoice = " And ((AgingDr.TranDate)>=#07-01-2025# And (AgingDr.TranDate)<=#09-30-2025#)";
  return {
      {"pending invoices of a customer", carriedOver(receivable, "((AgingDr.PartyCode) = 12001002) And ")},
      {"invoices to carry over", carriedOver(receivable)},
      {"bills to carry over", carriedOver(payable)},
      {"aged receivables", aged(receivable, "")},
      {"aged receivables of a customer", aged(receivable, " And ((AgingDr.PartyCode) = 12001002)")},
      {"aged receivables of an employee", aged(receivable, " AND ((AccLevel3.EmpID) = 1)")},
      {"aged payables", aged(payable, "")},
      {"aged payables of a vendor", aged(payable, " And ((AgingCr.PartyCode) = 21001002)")},
      {"activity by invoice", activityByInvoice(receivable, "")},
      {"activity by invoice, filtered",
       activityByInvoice(
           receivable,
           oneInvoice +
               R"( And (Left(AgingDr.PartyCode,5) = 12001) And ((AgingDr.PartyCode) = 12001002) AND ((Transactions.Empid)=1))")},
      {"activity by bill", activityByInvoice(payable, "")},
      {"activity by bill of a vendor type",
       activityByInvoice(
           payable,
           R"( And (Left(AgingCr.PartyCode,5) = 21001) And ((AgingCr.TranDate)>=#07-01-2025# And (AgingCr.TranDate)<=#06-30-2026#))")},
      {"settlements of an invoice", activityOfInvoice(receivable, "1")},
      {"settlements of a bill", activityOfInvoice(payable, "'V-77'")},
      {"activity by customer", activityByParty(receivable, "", "((AgingDr.PartyCode) > 0)")},
      {"activity by customer, filtered",
       activityByParty(
           receivable, " And ((AgingDr.TranDate2)>=#07-01-2025# And (AgingDr.TranDate2)<=#09-30-2025#)",
           R"(((AgingDr.PartyCode) = 12001002) And (Left(AgingDr.PartyCode,5) = 12001) AND ((AccLevel3.Empid)=1))")},
      {"activity by vendor", activityByParty(payable, "", "((AgingCr.PartyCode) > 0)")},
  };
}

}  // namespace velmo::test

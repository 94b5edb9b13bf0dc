#include "printing/print_at_once.h"

#include <QPrinter>
#include <QPrinterInfo>

#include "printing/printer.h"

namespace velmo::printing {

std::vector<std::string> printerNames() {
  std::vector<std::string> names;
  for (const QString& name : QPrinterInfo::availablePrinterNames()) names.push_back(name.toStdString());
  return names;
}

std::optional<std::string> printAtOnce(Report report, const std::string& printer) {
  const QPrinterInfo info = QPrinterInfo::printerInfo(QString::fromStdString(printer));
  if (info.isNull()) return "The printer \"" + printer + "\" is not there any more.";
  PageSource pages(std::move(report));
  PrintJob job(pages, std::make_unique<QPrinter>(info, QPrinter::HighResolution));
  while (job.step()) {
  }
  return job.problem();
}

}  // namespace velmo::printing

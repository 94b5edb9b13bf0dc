#include "shell/settings/print_format.h"

#include <stdexcept>

#include "session/own_letterhead.h"

namespace velmo::shell {
namespace {

constexpr PrintFormat ofInvoices[] = {{1, 1, 1, 11}, {1, 2, 2, 12}, {3, 0, 3, 13},
                                      {4, 0, 4, 14}, {2, 1, 6, 16}, {2, 2, 7, 17}};
constexpr PrintFormat ofOrders[] = {{.withHeaders = 1, .onLetterhead = session::on_letterhead::order}};
constexpr PrintFormat ofQuotations[] = {{.withHeaders = 1, .onLetterhead = session::on_letterhead::quotation}};

}  // namespace

std::span<const PrintFormat> invoiceFormats() {
  return ofInvoices;
}
std::span<const PrintFormat> orderFormats() {
  return ofOrders;
}
std::span<const PrintFormat> quotationFormats() {
  return ofQuotations;
}

int formatNumberOf(std::span<const PrintFormat> formats, const PrintChoice& choice) {
  for (const PrintFormat& format : formats)
    if (format.size == choice.size && (format.type == 0 || format.type == choice.type))
      return choice.onLetterhead ? format.onLetterhead : format.withHeaders;
  throw std::logic_error("no print format of this size and type");
}

PrintChoice choiceOf(std::span<const PrintFormat> formats, int formatNumber) {
  for (const PrintFormat& format : formats)
    if (formatNumber == format.withHeaders || formatNumber == format.onLetterhead)
      return {.size = format.size, .type = format.type, .onLetterhead = formatNumber == format.onLetterhead};
  return {.size = formats.front().size, .type = formats.front().type};
}

}  // namespace velmo::shell

#pragma once

#include <span>

namespace velmo::shell {

// One layout of a document: its number on plain paper and on the company's own letterhead. Size 0 and type 0 stand
// for documents and sizes that have no such choice.
struct PrintFormat {
  int size = 0;
  int type = 0;
  int withHeaders = 0;
  int onLetterhead = 0;
};

struct PrintChoice {
  int size = 0;
  int type = 0;  // 0 leaves the type as it is
  bool onLetterhead = false;
};

std::span<const PrintFormat> invoiceFormats();
std::span<const PrintFormat> orderFormats();  // purchase orders and delivery challans
std::span<const PrintFormat> quotationFormats();

// The number to be stored. The choice's size has to be one of the formats'.
int formatNumberOf(std::span<const PrintFormat> formats, const PrintChoice& choice);
// What a stored number stands for; the first format with headers when it is none of them.
PrintChoice choiceOf(std::span<const PrintFormat> formats, int formatNumber);

}  // namespace velmo::shell

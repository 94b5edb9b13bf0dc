#include "masters/labels/bar_code.h"

#include <zint.h>

#include <memory>

namespace velmo::masters {

using printing::Twips;

namespace {

constexpr int GuardBars[] = {0, 2, 28, 30, 56, 58};  // among the elements of EAN-13

struct SymbolDeleter {
  void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};
using Symbol = std::unique_ptr<zint_symbol, SymbolDeleter>;

// Null when the library refuses the text.
Symbol encode(int symbology, const std::string& text) {
  Symbol symbol(ZBarcode_Create());
  if (!symbol) throw std::bad_alloc();
  symbol->symbology = symbology;
  const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
  if (ZBarcode_Encode(symbol.get(), bytes, static_cast<int>(text.size())) >= ZINT_ERROR) return nullptr;
  return symbol;
}

// The lengths of the runs of equal modules.
std::vector<int> elementsOf(const zint_symbol& symbol) {
  const auto dark = [&](int module) { return ((symbol.encoded_data[0][module / 8] >> (module % 8)) & 1) != 0; };
  std::vector<int> elements;
  for (int module = 0; module < symbol.width; ++module) {
    if (module == 0 || dark(module) != dark(module - 1)) elements.push_back(0);
    ++elements.back();
  }
  return elements;
}

bool looksLikeEan13(const std::string& code) {
  return code.size() == 13 &&
         std::all_of(code.begin(), code.end(), [](char letter) { return '0' <= letter && letter <= '9'; });
}

std::string inCapitals(std::string text) {
  for (char& letter : text)
    if ('a' <= letter && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  return text;
}

// Narrow elements of Code 39 are an even number of Twips, so that wide ones of two and a half are whole.
PlacedBars measured(const BarCode& code, Twips module) {
  PlacedBars placed{.module = module};
  for (std::size_t index = 0; index < code.elements.size(); ++index) {
    const int modules = code.elements[index];
    const bool wide = code.symbology == Symbology::Code39 && modules > 1;
    const Twips width = wide ? module * 5 / 2 : module * modules;
    if (index % 2 == 0) {
      const bool guard =
          code.symbology == Symbology::Ean13 &&
          std::find(std::begin(GuardBars), std::end(GuardBars), static_cast<int>(index)) != std::end(GuardBars);
      placed.bars.push_back({placed.width, width, guard});
    }
    placed.width += width;
  }
  const bool ean = code.symbology == Symbology::Ean13;
  placed.quietLeft = module * (ean ? 11 : 10);
  placed.quietRight = module * (ean ? 7 : 10);
  return placed;
}

}  // namespace

tl::expected<BarCode, std::string> barCodeOf(const std::string& code) {
  if (looksLikeEan13(code))
    if (const Symbol symbol = encode(BARCODE_EANX, code)) return BarCode{Symbology::Ean13, elementsOf(*symbol)};
  if (const Symbol symbol = code.empty() ? nullptr : encode(BARCODE_CODE39, inCapitals(code)))
    return BarCode{Symbology::Code39, elementsOf(*symbol)};
  return tl::make_unexpected("The code '" + code +
                             "' cannot be printed as a bar code, which holds only letters, digits, blanks and the "
                             "characters - . $ / + %, up to 85 of them.");
}

PlacedBars placeBars(const BarCode& code, Twips room) {
  const bool ean = code.symbology == Symbology::Ean13;
  const Twips widest = ean ? 18 : 14;
  const Twips narrowest = ean ? 14 : 8;  // 0.25 and 0.14 mm
  const Twips step = ean ? 1 : 2;
  for (Twips module = widest; module >= narrowest; module -= step) {
    PlacedBars placed = measured(code, module);
    if (placed.quietLeft + placed.width + placed.quietRight <= room) return placed;
  }
  return {};
}

}  // namespace velmo::masters

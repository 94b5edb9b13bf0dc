#include "spreadsheet/text_decoding.h"

#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <memory>

#include "spreadsheet/read_failure.h"

namespace velmo::spreadsheet {
namespace {

constexpr const char* western = "windows-1252";

bool isUtf8(std::string_view bytes) {
  const auto length = static_cast<std::int32_t>(bytes.size());
  for (std::int32_t at = 0; at < length;) {
    UChar32 character = 0;
    U8_NEXT(bytes.data(), at, length, character);
    if (character < 0) return false;
  }
  return true;
}

std::string byteOrderMark(std::string_view bytes) {
  UErrorCode error = U_ZERO_ERROR;
  std::int32_t length = 0;
  const char* name =
      ucnv_detectUnicodeSignature(bytes.data(), static_cast<std::int32_t>(bytes.size()), &length, &error);
  return name ? name : "";
}

// UTF-16 without a byte order mark: of text in which ASCII is frequent, every other byte is often zero.
std::string utf16ByZeros(std::string_view bytes) {
  std::size_t zeros[2] = {0, 0};
  for (std::size_t i = 0; i < bytes.size(); ++i)
    if (bytes[i] == '\0') ++zeros[i % 2];
  const std::size_t some = bytes.size() / 8;
  if (zeros[1] > some && zeros[0] == 0) return "UTF-16LE";
  if (zeros[0] > some && zeros[1] == 0) return "UTF-16BE";
  return {};
}

bool isWestern(const char* encoding) {
  const std::string_view name = encoding;
  return name == "ISO-8859-1" || name == western;
}

// Lists give few letters to go by: another encoding than the western one has to be likely, and clearly likelier.
std::string byLanguage(std::string_view bytes) {
  constexpr std::int32_t likely = 30;  // per cent
  constexpr std::int32_t clearly = 10;
  constexpr std::size_t enough = 1 << 16;
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)> detector(ucsdet_open(&error), &ucsdet_close);
  const std::string_view sample = bytes.substr(0, enough);
  ucsdet_setText(detector.get(), sample.data(), static_cast<std::int32_t>(sample.size()), &error);
  std::int32_t count = 0;
  const UCharsetMatch** matches = ucsdet_detectAll(detector.get(), &count, &error);
  if (U_FAILURE(error) || count == 0) return western;
  std::int32_t westernConfidence = 0;
  for (std::int32_t i = 0; i < count; ++i)
    if (isWestern(ucsdet_getName(matches[i], &error)))
      westernConfidence = std::max(westernConfidence, ucsdet_getConfidence(matches[i], &error));
  const std::int32_t confidence = ucsdet_getConfidence(matches[0], &error);
  return confidence >= std::max(likely, westernConfidence + clearly) ? ucsdet_getName(matches[0], &error) : western;
}

std::string converted(std::string_view bytes, const std::string& encoding) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<UConverter, decltype(&ucnv_close)> from(ucnv_open(encoding.c_str(), &error), &ucnv_close);
  const std::unique_ptr<UConverter, decltype(&ucnv_close)> to(ucnv_open("UTF-8", &error), &ucnv_close);
  if (U_FAILURE(error)) throw damagedFile();
  constexpr std::size_t longestCharacter = 3;  // in UTF-8, for one byte of any encoding
  std::string text(bytes.size() * longestCharacter + longestCharacter, '\0');
  char* end = text.data();
  const char* start = bytes.data();
  ucnv_convertEx(to.get(), from.get(), &end, text.data() + text.size(), &start, bytes.data() + bytes.size(), nullptr,
                 nullptr, nullptr, nullptr, true, true, &error);
  if (U_FAILURE(error)) throw damagedFile();
  text.resize(static_cast<std::size_t>(end - text.data()));
  return text;
}

// What no text file holds: characters that steer a printer or nothing at all.
bool looksBinary(std::string_view text) {
  return std::ranges::any_of(text, [](char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r' && byte != '\f' && byte != '\v' && byte != 0x1A;
  });
}

std::string withLineFeeds(const std::string& text) {
  std::string lines;
  lines.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r')
      lines += text[i];
    else if (i + 1 == text.size() || text[i + 1] != '\n')
      lines += '\n';
  }
  return lines;
}

}  // namespace

DecodedText decoded(std::string_view bytes, const std::string& encoding) {
  std::string from = encoding == "UTF-16" ? std::string() : encoding;
  if (from.empty()) from = byteOrderMark(bytes);
  if (from.empty()) from = utf16ByZeros(bytes);
  if (from.empty() && !encoding.empty()) from = "UTF-16LE";  // of the two orders the usual one
  if (from.empty()) from = isUtf8(bytes) ? "UTF-8" : byLanguage(bytes);
  std::string text = from == "UTF-8" && isUtf8(bytes) ? std::string(bytes) : converted(bytes, from);
  if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
  if (looksBinary(text)) throw notASpreadsheet();
  return {.text = withLineFeeds(text), .encoding = from};
}

}  // namespace velmo::spreadsheet

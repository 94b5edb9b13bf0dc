#include "spreadsheet/sheet_reader.h"

#include <QFile>

#include "spreadsheet/ods_reader.h"
#include "spreadsheet/xlsx_reader.h"
#include "store/file/open_database.h"

namespace velmo::spreadsheet {
namespace {

constexpr qint64 longestText = qint64{1} << 29;

enum class FileKind { Workbook, OpenDocument, SeparatedValues };

// Files of the old office programs, and encrypted new ones, are folders of streams; the names are in UTF-16.
ReadFailure sentenceForCompoundFile(QFile& file) {
  const QByteArray all = file.readAll();
  const auto names = [&all](QStringView name) {
    return all.contains(QByteArray(reinterpret_cast<const char*>(name.utf16()), name.size() * 2));
  };
  if (names(u"EncryptedPackage")) return protectedFile();
  if (names(u"Workbook") || names(u"Book"))
    return ReadFailure("The file is of the old kind .xls, which cannot be read. Save it as .xlsx and choose it again.");
  return notASpreadsheet();
}

void openForReading(QFile& file) {
  if (!file.open(QIODevice::ReadOnly))
    throw ReadFailure("The file \"" + file.fileName().toStdString() +
                      "\" cannot be opened: " + file.errorString().toStdString() + ".");
}

FileKind kindOf(const std::filesystem::path& path) {
  QFile file(QString::fromStdString(path.string()));
  if (std::filesystem::is_directory(path)) throw ReadFailure("A folder was chosen. Choose a file in it.");
  if (store::isOpenDatabase(path))
    throw ReadFailure("This is the company's own file, which is open. Choose a spreadsheet or a text file.");
  openForReading(file);
  if (file.size() == 0) throw ReadFailure("The file is empty.");
  const QByteArray head = file.peek(512);
  if (head.startsWith("\xD0\xCF\x11\xE0")) throw sentenceForCompoundFile(file);
  const QByteArray words = head.trimmed().toLower();
  for (const char* page : {"<!doctype", "<html", "<?xml", "<table", "{\\rtf", "%pdf"})
    if (words.startsWith(page)) throw notASpreadsheet();
  if (!head.startsWith("PK\x03\x04")) return FileKind::SeparatedValues;
  const Archive archive(path);
  if (!archive.has("mimetype")) return FileKind::Workbook;
  const QByteArray type = archive.open("mimetype")->readAll();
  if (type.startsWith("application/vnd.oasis.opendocument.spreadsheet")) return FileKind::OpenDocument;
  throw notASpreadsheet();
}

QByteArray bytesOf(const std::filesystem::path& path) {
  QFile file(QString::fromStdString(path.string()));
  openForReading(file);
  if (file.size() > longestText) throw tooLarge();
  return file.readAll();
}

// Sentences instead of exceptions.
template <typename Read>
auto answer(Read read) -> tl::expected<decltype(read()), std::string> {
  try {
    return read();
  } catch (const ReadFailure& failure) {
    return tl::unexpected(std::string(failure.what()));
  } catch (const std::filesystem::filesystem_error& failure) {
    return tl::unexpected("The file cannot be opened: " + failure.code().message() + ".");
  } catch (const std::bad_alloc&) {
    return tl::unexpected(std::string(tooLarge().what()));
  }
}

}  // namespace

tl::expected<std::vector<std::string>, std::string> sheetNames(const std::filesystem::path& file) {
  return answer([&]() -> std::vector<std::string> {
    const FileKind kind = kindOf(file);
    if (kind == FileKind::SeparatedValues) return {std::string()};
    const Archive archive(file);
    return kind == FileKind::Workbook ? XlsxBook(archive).sheetNames() : OdsBook(archive).sheetNames();
  });
}

tl::expected<Sheet, std::string> readSheet(const std::filesystem::path& file, std::size_t sheet,
                                           const TextChoice& choice, const Progress& progress) {
  return answer([&] {
    const FileKind kind = kindOf(file);
    if (kind == FileKind::SeparatedValues) {
      const QByteArray bytes = bytesOf(file);
      return readSeparatedValues({bytes.data(), static_cast<std::size_t>(bytes.size())}, choice, progress);
    }
    const Archive archive(file);
    return kind == FileKind::Workbook ? XlsxBook(archive).read(sheet, progress)
                                      : OdsBook(archive).read(sheet, progress);
  });
}

}  // namespace velmo::spreadsheet

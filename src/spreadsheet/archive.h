#pragma once

#include <QIODevice>
#include <filesystem>
#include <memory>
#include <string>

#include "spreadsheet/read_failure.h"

struct zip;
struct zip_file;

namespace velmo::spreadsheet {

// One part of an archive, read from its beginning to its end.
class ArchivePart : public QIODevice {
 public:
  explicit ArchivePart(zip_file* part);
  ~ArchivePart() override;

  bool isSequential() const override { return true; }
  bool atEnd() const override { return ended_ && QIODevice::atEnd(); }
  // Reads what is left and throws ReadFailure unless all of the part was sound.
  void check();

 protected:
  qint64 readData(char* data, qint64 most) override;
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  zip_file* part_;
  qint64 taken_ = 0;
  bool ended_ = false;
  bool damaged_ = false;
  bool tooLong_ = false;
};

// The zip archive that a modern spreadsheet file is. Every member throws ReadFailure.
class Archive {
 public:
  explicit Archive(const std::filesystem::path& file);
  ~Archive();
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  bool has(const std::string& part) const;
  std::unique_ptr<ArchivePart> open(const std::string& part) const;

 private:
  zip* archive_;
};

}  // namespace velmo::spreadsheet

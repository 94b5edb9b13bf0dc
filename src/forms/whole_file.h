#pragma once

#include <QSaveFile>
#include <string>

namespace velmo::forms {

// A file that appears under its name only when all of it is on the disk. Whoever writes to it need not look what every
// write returned, as QSaveFile would ask of him: what the end of a full disk swallowed is remembered.
class WholeFile : public QSaveFile {
 public:
  // The path is UTF-8.
  explicit WholeFile(const std::string& path) : QSaveFile(QString::fromStdString(path)) {}

  // Refused where the company's file, its log or a copy of it stands.
  bool open(OpenMode mode) override;
  // Nothing was lost so far.
  bool isSound() const { return !refused_ && !cut_ && error() == NoError; }
  // Gives the file its name. False, and no file, when some of it is missing; an older file of that name stays then.
  bool finish();
  // Why opening, writing or finishing failed, to stand within a sentence.
  std::string reason() const;

 protected:
  qint64 writeData(const char* data, qint64 size) override;

 private:
  bool refuses();

  bool refused_ = false;
  bool cut_ = false;
};

}  // namespace velmo::forms

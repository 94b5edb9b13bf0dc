#include "forms/whole_file.h"

#include "store/file/file_check.h"

namespace velmo::forms {

bool WholeFile::refuses() {
  refused_ = store::isDatabaseFile(fileName().toStdString());
  return refused_;
}

bool WholeFile::open(OpenMode mode) {
  return !refuses() && QSaveFile::open(mode);
}

qint64 WholeFile::writeData(const char* data, qint64 size) {
  const qint64 taken = QSaveFile::writeData(data, size);
  cut_ = cut_ || taken != size;
  return taken;
}

bool WholeFile::finish() {
  return flush() && !refuses() && isSound() && commit();  // what is not committed goes with the object
}

// The system gives no reason for a write that took a part.
std::string WholeFile::reason() const {
  if (refused_) return "a company's file stands there under that name";
  const QString words = errorString();
  const bool unknown = error() == NoError || words == QLatin1String("Unknown error");
  return unknown ? "the disk is full" : words.toStdString();
}

}  // namespace velmo::forms

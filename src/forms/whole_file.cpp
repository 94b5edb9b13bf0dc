#include "forms/whole_file.h"

namespace velmo::forms {

qint64 WholeFile::writeData(const char* data, qint64 size) {
  const qint64 taken = QSaveFile::writeData(data, size);
  cut_ = cut_ || taken != size;
  return taken;
}

bool WholeFile::finish() {
  return flush() && isSound() && commit();  // what is not committed goes with the object
}

// The system gives no reason for a write that took a part.
std::string WholeFile::reason() const {
  const QString words = errorString();
  const bool unknown = error() == NoError || words == QLatin1String("Unknown error");
  return unknown ? "the disk is full" : words.toStdString();
}

}  // namespace velmo::forms

#include "shell/settings/logo_file.h"

#include <QFile>
#include <QImageReader>

#include "forms/whole_file.h"
#include "store/file/open_database.h"

namespace velmo::shell {
namespace {

constexpr qint64 largestFile = qint64{64} * 1024 * 1024;

QImage pictureIn(const QString& file, const QSize& largest) {
  if (store::isOpenDatabase(file.toStdString())) return {};
  QImageReader reader(file);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (!QList<QByteArray>{"jpeg", "jpg", "png", "bmp", "gif"}.contains(reader.format())) return {};
  const QSize size = reader.size();
  if (size.isValid() && (size.width() > largest.width() || size.height() > largest.height()))
    reader.setScaledSize(size.scaled(largest, Qt::KeepAspectRatio).expandedTo({1, 1}));
  const QImage picture = reader.read();
  // A frame may be larger than the canvas that the file tells of.
  const bool large = picture.width() > largest.width() || picture.height() > largest.height();
  return large ? picture.scaled(largest, Qt::KeepAspectRatio, Qt::SmoothTransformation) : picture;
}

std::string named(const QString& name) {
  return "\"" + name.toStdString() + "\"";
}

}  // namespace

std::filesystem::path logoFile() {
  return std::filesystem::current_path() / "mylogo.jpg";
}

QPixmap logoPicture(const QSize& largest) {
  return QPixmap::fromImage(pictureIn(QString::fromStdString(logoFile().string()), largest));
}

std::string replaceLogo(const std::filesystem::path& chosen) {
  constexpr QSize asOnPaper(1600, 1600);
  const QString name = QString::fromStdString(chosen.string());
  if (store::isOpenDatabase(chosen))
    return "The file " + named(name) + " is the company's own file. The logo was not changed; choose a .jpg picture.";
  QFile source(name);
  if (!source.open(QIODevice::ReadOnly))
    return "The file " + named(name) + " cannot be read (" + source.errorString().toStdString() +
           "). The logo was not changed.";
  if (source.size() > largestFile)
    return "The file " + named(name) + " is larger than 64 MB. The logo was not changed; choose a smaller picture.";
  if (pictureIn(name, asOnPaper).isNull())
    return "The file " + named(name) +
           " is not a picture that can be printed, or is too large. The logo was not changed; choose a .jpg picture.";
  std::error_code absent;
  if (std::filesystem::equivalent(chosen, logoFile(), absent)) return {};
  forms::WholeFile logo(logoFile().string());
  if (!logo.open(QIODevice::WriteOnly) || logo.write(source.readAll()) != source.size() || !logo.finish())
    return "The logo cannot be saved (" + logo.reason() + "). It was not changed.";
  return {};
}

std::string removeLogo() {
  std::error_code failed;
  std::filesystem::remove(logoFile(), failed);
  return failed ? "The logo cannot be removed: " + failed.message() + "." : std::string();
}

}  // namespace velmo::shell

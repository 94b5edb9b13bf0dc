#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>

#include "printing/pdf_writer.h"
#include "printing/plain_face.h"
#include "printing/printer.h"
#include "printing/sample_report.h"
#include "printing/typesetter.h"
#include "store/values/error.h"
#include "support/small_disk.h"

namespace velmo::printing::test {
namespace {

Report listOf(int count) {
  ReportDesign design = smallSheet();
  design.detail = showing("name");
  return reportOf(design, rows(count));
}

int pageObjects(const QByteArray& pdf) {
  return static_cast<int>(pdf.count("/Type /Page\n"));
}

TEST(PdfWriter, WritesWholeFilesOnly) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("list.pdf"));
  ASSERT_EQ(writePdf(listOf(25), path.toStdString()), std::nullopt);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray first = file.readAll();
  EXPECT_EQ(pageObjects(first), 3);
  EXPECT_TRUE(first.contains("/FontFile2") || first.contains("/FontFile3"));
  EXPECT_TRUE(first.contains("/ToUnicode"));
  file.close();

  const auto stop = [](int written, int) { return written < 2; };
  EXPECT_EQ(writePdf(listOf(50), path.toStdString(), stop), "");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), first);
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST(PdfWriter, RefusedFilesAreToldInASentenceAndLeaveNothing) {
  const QTemporaryDir folder;
  QDir(folder.path()).mkdir(QStringLiteral("taken.pdf"));
  for (const char* name : {"no/such/folder.pdf", "taken.pdf"}) {
    const std::string path = folder.path().toStdString() + "/" + name;
    const auto problem = writePdf(listOf(1), path);
    ASSERT_TRUE(problem.has_value()) << path;
    EXPECT_EQ(problem->rfind("The file '" + path + "' could not be written: ", 0), 0U) << *problem;
    EXPECT_EQ(problem->back(), '.');
  }
  EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

TEST(PdfWriter, FullDiskKeepsTheFormerFileAndLeavesNoPart) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("list.pdf"));
  ASSERT_EQ(writePdf(listOf(2), path.toStdString()), std::nullopt);
  const qint64 size = QFileInfo(path).size();
  const struct {
    int lines;
    qint64 room;
  } cases[] = {{5000, 0}, {5000, 100}, {5000, size}, {2, size / 2}, {2, size - 4000}, {2, size - 20}, {2, size - 1}};
  for (const auto& [lines, room] : cases) {
    SCOPED_TRACE(std::to_string(lines) + " lines, room for " + std::to_string(room));
    int pages = 0;
    const velmo::test::SmallDisk disk(static_cast<rlim_t>(room));
    const auto problem = writePdf(listOf(lines), path.toStdString(), [&](int written, int) {
      pages = written;
      return true;
    });
    ASSERT_TRUE(problem.has_value());
    EXPECT_EQ(problem->rfind("The file '" + path.toStdString() + "' could not be written: ", 0), 0U) << *problem;
    EXPECT_TRUE(problem->ends_with(". Nothing was saved.")) << *problem;
    EXPECT_LT(pages, 250) << "nobody waits for all pages to learn of it";
    EXPECT_EQ(QFileInfo(path).size(), size);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
  }
  const velmo::test::SmallDisk disk(static_cast<rlim_t>(size));
  EXPECT_EQ(writePdf(listOf(2), path.toStdString()), std::nullopt) << "room enough";
}

TEST(PdfWriter, DataThatFailsLeavesNoFile) {
  const QTemporaryDir folder;
  ReportDesign design = smallSheet();
  design.detail = showing("name");
  std::vector<DataRow> data = rows(30);
  data.push_back({.fields = {{"another", std::string("field")}}, .chapters = {}});
  EXPECT_THROW((void)writePdf(reportOf(design, data), folder.filePath(QStringLiteral("list.pdf")).toStdString()),
               store::StoreError);
  EXPECT_TRUE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

// As another program reads the file.
QString readBy(const char* program, const QStringList& arguments) {
  QProcess reader;
  reader.start(QLatin1String(program), arguments);
  return reader.waitForFinished() ? QString::fromUtf8(reader.readAllStandardOutput()) : QString();
}

TEST(PdfWriter, TextIsSearchableAndTheFileBearsItsTitle) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("list.pdf"));
  ReportDesign design = smallSheet();
  design.detail = showing("name");
  design.pageFooter = labelled("Page  %p  of  %P");
  Report report = reportOf(design, {row("Wave & Tide (fi, fl) 1,234.50"), row("Žluťoučký kůň")});
  report.title = "Größe";
  report.author = "Harbour Timber";
  ASSERT_EQ(writePdf(report, path.toStdString()), std::nullopt);
  const QString text = readBy("pdftotext", {QStringLiteral("-layout"), path, QStringLiteral("-")});
  const QString facts = readBy("pdfinfo", {path});
  ASSERT_FALSE(text.isEmpty() || facts.isEmpty()) << "pdftotext or pdfinfo is missing";
  for (const char* words : {"Wave & Tide (fi, fl) 1,234.50", "Žluťoučký kůň", "Page 1 of 1"})
    EXPECT_TRUE(text.simplified().contains(QString::fromUtf8(words))) << words << " in " << text.toStdString();
  for (const char* words : {"Größe", "Harbour Timber"})
    EXPECT_TRUE(facts.contains(QString::fromUtf8(words))) << words << " in " << facts.toStdString();
}

TEST(PageJob, GoesThroughTheRangeThatWasAskedFor) {
  const struct {
    int from;
    int to;
    int written;  // of three
  } cases[] = {{0, 0, 3}, {2, 2, 1}, {2, 9, 2}, {4, 5, 0}};
  for (const auto& [from, to, written] : cases) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("printed.pdf"));
    PageSource pages(listOf(25));
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFileName(path);
    if (from > 0) printer->setFromTo(from, to);
    PrintJob job(pages, std::move(printer));
    while (job.step()) {
    }
    EXPECT_EQ(job.written(), written) << from << " to " << to;
    EXPECT_EQ(job.total(), written);
    EXPECT_EQ(job.problem().value_or(""), written > 0 ? "" : "The report has no page 4.");
    QFile file(path);
    EXPECT_EQ(file.open(QIODevice::ReadOnly) ? pageObjects(file.readAll()) : 0, written);

    const QString saved = folder.filePath(QStringLiteral("saved.pdf"));
    PdfJob saving(pages, saved.toStdString(), {from, to});
    while (saving.step()) {
    }
    EXPECT_EQ(saving.written(), written) << from << " to " << to;
    EXPECT_EQ(saving.total(), written);
    EXPECT_EQ(saving.problem(), job.problem());
    QFile savedFile(saved);
    EXPECT_EQ(savedFile.open(QIODevice::ReadOnly) ? pageObjects(savedFile.readAll()) : 0, written);
  }
}

TEST(Painter, DrawsTextWhereThePageSays) {
  const Page page = pagesOf(listOf(1)).at(0);
  QImage image(page.width / 10, page.height / 10, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.scale(0.1, 0.1);
  paintPage(painter, page, 1);
  painter.end();
  const Frame at = page.drawing.texts.at(0).at;
  int inside = 0;
  int outside = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (qGray(image.pixel(x, y)) < 128)
        ++(x * 10 >= at.left - 20 && x * 10 <= at.right() + 20 && y * 10 >= at.top && y * 10 <= at.bottom() ? inside
                                                                                                            : outside);
  EXPECT_GT(inside, 20);
  EXPECT_EQ(outside, 0);
}

TEST(Painter, PlainGlyphsStandWhereShapedTextWould) {
  const FontSpec spec{.size = 17, .weight = Weight::Bold};
  for (const QString& text : {QStringLiteral("AVATAR To. Wave"), QStringLiteral("(1,234.50)"), QString(u'x')}) {
    const RunKind kind = Typesetter::kindOf(text);
    const PlainFace& face = plainFace(spec, kind);
    ASSERT_TRUE(face.holds(text));
    const double shaped = QFontMetricsF(reportFont(spec, kind)).horizontalAdvance(text);
    EXPECT_NEAR(face.width(text), shaped, 0.01 * shaped) << text.toStdString();
  }
  for (const QString& text : {QStringLiteral("é"), QStringLiteral("ہتھوڑا"), QString(TotalPagesMark)})
    EXPECT_FALSE(plainFace(spec, RunKind::Words).holds(text)) << text.toStdString();
}

}  // namespace
}  // namespace velmo::printing::test

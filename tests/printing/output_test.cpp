#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include "printing/pdf_writer.h"
#include "printing/preview_window.h"
#include "sample_report.h"

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
  const auto problem = writePdf(listOf(1), folder.filePath(QStringLiteral("no/such/folder.pdf")).toStdString());
  ASSERT_TRUE(problem.has_value());
  EXPECT_NE(problem->find("could not be written"), std::string::npos);
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

class NamedFile : public session::FileChooser {
 public:
  explicit NamedFile(std::string path) : path_(std::move(path)) {}
  std::string openFile(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::string saveFile(const std::string&, const std::string&, const std::string& proposed) override {
    proposed_ = proposed;
    return path_;
  }
  std::string path_;
  std::string proposed_;
};

TEST(PreviewWindow, KeysTurnPagesZoomFindSaveAndClose) {
  const QTemporaryDir folder;
  NamedFile files(folder.filePath(QStringLiteral("saved.pdf")).toStdString());
  int closed = 0;
  QPointer<PreviewWindow> window = showPreview(nullptr, listOf(95), files, [&] { ++closed; });
  const auto trigger = [&](const char* name) { window->findChild<QAction*>(QLatin1String(name))->trigger(); };
  PageView& view = window->view();
  EXPECT_GE(window->pages().made(), 1);
  trigger("LastBttn");
  EXPECT_EQ(view.currentPage(), 9);
  trigger("PrevBttn");
  EXPECT_EQ(view.currentPage(), 8);
  trigger("FirstBttn");
  trigger("NextBttn");
  EXPECT_EQ(window->findChild<QSpinBox*>(QStringLiteral("PageBox"))->value(), 2);
  view.setZoom(10);
  EXPECT_EQ(view.zoom(), PageView::LeastZoom);
  trigger("ZoomInBttn");
  EXPECT_EQ(view.zoom(), 75);
  trigger("FitPageBttn");
  EXPECT_TRUE(view.find(QStringLiteral("R77"), false));
  EXPECT_EQ(view.currentPage(), 7);
  EXPECT_FALSE(view.find(QStringLiteral("no such text"), false));
  trigger("PdfBttn");
  EXPECT_EQ(files.proposed_, "Sample.pdf");
  EXPECT_TRUE(QFile::exists(QString::fromStdString(files.path_)));
  trigger("CloseBttn");
  EXPECT_EQ(closed, 1);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window.isNull());
}

}  // namespace
}  // namespace velmo::printing::test

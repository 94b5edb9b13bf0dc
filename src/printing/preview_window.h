#pragma once

#include <QMainWindow>
#include <QTimer>
#include <QToolBar>
#include <functional>
#include <memory>

#include "printing/page_job.h"
#include "printing/page_view.h"
#include "session/prompts.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QProgressBar;
class QPushButton;
class QSpinBox;

namespace velmo::printing {

// A report on the screen: pages, zoom, find, print, save as PDF. The first page shows at once, the others are made in
// idle moments; printing, saving, and the way to a page or a find that is not yet made go on in such moments too, with
// a progress bar, and can be stopped. What failed is told above the pages. Several may be open, and none holds up the
// screens. Deletes itself when it is closed.
class PreviewWindow : public QMainWindow {
  Q_OBJECT

 public:
  // `files` must outlive the window.
  PreviewWindow(Report report, session::FileChooser& files, QWidget* parent = nullptr);
  ~PreviewWindow() override;

  // Called once, when the window closes: the caller lets go of the rows that were printed.
  void onClosed(std::function<void()> action) { closed_ = std::move(action); }
  PageSource& pages() { return pages_; }
  PageView& view() { return *view_; }

  void print();  // asks for the printer
  void print(std::unique_ptr<QPrinter> printer);
  void savePdf();
  // Prints or saves in idle moments. `doing` stands before "page 3 of 9", `done` is said at the end.
  void run(std::unique_ptr<PageJob> job, const QString& doing, const QString& done);
  bool isRunning() const { return job_ != nullptr; }
  // Also while pages are made that somebody waits for.
  bool isBusy() const { return isRunning() || awaited_.has_value(); }
  void stop();  // what it is busy with

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* addCommand(const QString& name, const QString& caption, const QString& hint, const QKeySequence& keys,
                      std::function<void()> action);
  void addKey(const QKeySequence& keys, std::function<void()> action);
  void buildBar();
  void addPageCommands();
  void addPageBox();
  void addZoomCommands();
  void addFindBox();
  void buildStatus();
  void buildPages();
  void makeMore();
  bool moreCome() const { return !pages_.complete() && !dataFailed_; }
  void makeInIdleMoment();
  // What somebody waits for while pages are made or looked through.
  struct Wait {
    QString words = {};                  // with the place of a number of pages
    std::function<int()> pages = {};     // that number
    std::function<bool()> attempt = {};  // true at its end, which it must come to when no more pages come
  };
  // Tries again and again, for a moment at once and then in idle moments.
  void await(Wait wait);
  void goTo(int index);  // page, from 0; the last one when there are less
  void workOn();
  void endJob(const QString& message);
  void showWork();
  void tellProblem(const QString& sentence);
  void showState();
  void writePdf(const std::string& path, PageRange range);
  void chooseZoom(const QString& choice);
  void find(bool backwards);

  PageSource pages_;
  session::FileChooser& files_;
  PageView* view_ = nullptr;
  QToolBar* bar_ = nullptr;
  QSpinBox* pageBox_ = nullptr;
  QLabel* totalLbl_ = nullptr;
  QComboBox* zoomBox_ = nullptr;
  QLineEdit* findTxt_ = nullptr;
  QAction* printBttn_ = nullptr;
  QAction* pdfBttn_ = nullptr;
  QLabel* problemLbl_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QPushButton* stopBttn_ = nullptr;
  QTimer idle_;
  QTimer work_;
  std::unique_ptr<PageJob> job_;
  QString doing_;
  QString done_;
  std::optional<Wait> awaited_;
  bool dataFailed_ = false;
  std::function<void()> closed_;
};

// Opens the preview. It closes with the window that `parent` stands in, and goes behind it when that is clicked.
PreviewWindow* showPreview(QWidget* parent, Report report, session::FileChooser& files,
                           std::function<void()> onClosed = {});

}  // namespace velmo::printing

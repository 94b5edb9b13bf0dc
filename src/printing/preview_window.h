#pragma once

#include <QMainWindow>
#include <QTimer>
#include <QToolBar>
#include <functional>

#include "printing/page_view.h"
#include "session/prompts.h"

class QAction;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace velmo::printing {

// A report on the screen: pages, zoom, find, print, save as PDF. The first page shows at once, the others are made in
// idle moments. Deletes itself when it is closed.
class PreviewWindow : public QMainWindow {
  Q_OBJECT

 public:
  // `files` must outlive the window.
  PreviewWindow(Report report, session::FileChooser& files, QWidget* parent = nullptr);

  // Called once, when the window closes: the caller lets go of the rows that were printed.
  void onClosed(std::function<void()> action) { closed_ = std::move(action); }
  PageSource& pages() { return pages_; }
  PageView& view() { return *view_; }

  void print();
  void savePdf();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QAction* addCommand(const QString& name, const QString& caption, const QKeySequence& keys,
                      std::function<void()> action);
  void buildBar();
  void addPageBox();
  void addFindBox();
  void makeMore();
  void showState();
  void find(bool backwards);
  void fail(const std::string& reason);

  PageSource pages_;
  session::FileChooser& files_;
  PageView* view_ = nullptr;
  QToolBar* bar_ = nullptr;
  QSpinBox* pageBox_ = nullptr;
  QLabel* totalLbl_ = nullptr;
  QLabel* zoomLbl_ = nullptr;
  QLineEdit* findTxt_ = nullptr;
  QTimer idle_;
  std::function<void()> closed_;
};

// Opens the preview; with a parent it is modal to the parent's window.
PreviewWindow* showPreview(QWidget* parent, Report report, session::FileChooser& files,
                           std::function<void()> onClosed = {});

}  // namespace velmo::printing

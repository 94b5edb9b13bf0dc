#include "printing/preview_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>

#include "printing/pdf_writer.h"
#include "printing/printer.h"

namespace velmo::printing {

namespace {

constexpr int IdleSlice = 20;  // milliseconds of page making between two events
constexpr int ZoomStep = 25;   // per cent

}  // namespace

PreviewWindow::PreviewWindow(Report report, session::FileChooser& files, QWidget* parent)
    : QMainWindow(parent, Qt::Window), pages_(std::move(report)), files_(files) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName(QStringLiteral("PreviewWindow"));
  setWindowTitle(QString::fromStdString(pages_.report().title) + QStringLiteral(" - Preview"));
  resize(1000, 720);
  view_ = new PageView(pages_, this);
  setCentralWidget(view_);
  buildBar();
  statusBar()->setSizeGripEnabled(false);
  connect(view_, &PageView::viewChanged, this, &PreviewWindow::showState);
  connect(&idle_, &QTimer::timeout, this, &PreviewWindow::makeMore);
  idle_.start(0);
  view_->setFocus();
  showState();
}

QAction* PreviewWindow::addCommand(const QString& name, const QString& caption, const QKeySequence& keys,
                                   std::function<void()> action) {
  auto* command = new QAction(caption, this);
  command->setObjectName(name);
  command->setShortcut(keys);
  command->setToolTip(caption + QStringLiteral(" (") + keys.toString(QKeySequence::NativeText) + QStringLiteral(")"));
  connect(command, &QAction::triggered, this, std::move(action));
  addAction(command);
  bar_->addAction(command);
  return command;
}

void PreviewWindow::buildBar() {
  bar_ = addToolBar(QStringLiteral("Preview"));
  bar_->setMovable(false);
  bar_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  addCommand(QStringLiteral("PrintBttn"), QStringLiteral("Print"), QKeySequence::Print, [this] { print(); });
  addCommand(QStringLiteral("PdfBttn"), QStringLiteral("Save as PDF"), QKeySequence::Save, [this] { savePdf(); });
  bar_->addSeparator();
  addCommand(QStringLiteral("FirstBttn"), QStringLiteral("First"), QKeySequence(Qt::CTRL | Qt::Key_Home),
             [this] { view_->showPage(0); });
  addCommand(QStringLiteral("PrevBttn"), QStringLiteral("Previous"), QKeySequence(Qt::Key_PageUp),
             [this] { view_->showPage(view_->currentPage() - 1); });
  addPageBox();
  addCommand(QStringLiteral("NextBttn"), QStringLiteral("Next"), QKeySequence(Qt::Key_PageDown),
             [this] { view_->showPage(view_->currentPage() + 1); });
  addCommand(QStringLiteral("LastBttn"), QStringLiteral("Last"), QKeySequence(Qt::CTRL | Qt::Key_End), [this] {
    pages_.makeAll();
    view_->pagesChanged();
    view_->showPage(pages_.made() - 1);
  });
  bar_->addSeparator();
  addCommand(QStringLiteral("ZoomOutBttn"), QStringLiteral("\u2212"), QKeySequence::ZoomOut, [this] {
    view_->setZoom(view_->zoom() - ZoomStep);
  })->setToolTip(QStringLiteral("Smaller (Ctrl+-)"));
  zoomLbl_ = new QLabel(bar_);
  zoomLbl_->setAlignment(Qt::AlignCenter);
  zoomLbl_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000 %")));
  zoomLbl_->setAccessibleName(QStringLiteral("Zoom"));
  bar_->addWidget(zoomLbl_);
  addCommand(QStringLiteral("ZoomInBttn"), QStringLiteral("+"), QKeySequence::ZoomIn, [this] {
    view_->setZoom(view_->zoom() + ZoomStep);
  })->setToolTip(QStringLiteral("Larger (Ctrl++)"));
  addCommand(QStringLiteral("FitWidthBttn"), QStringLiteral("Fit Width"), QKeySequence(Qt::CTRL | Qt::Key_1),
             [this] { view_->setFit(Fit::Width); });
  addCommand(QStringLiteral("FitPageBttn"), QStringLiteral("Fit Page"), QKeySequence(Qt::CTRL | Qt::Key_2),
             [this] { view_->setFit(Fit::Page); });
  bar_->addSeparator();
  addFindBox();
  addCommand(QStringLiteral("CloseBttn"), QStringLiteral("Close"), QKeySequence(Qt::Key_Escape), [this] { close(); });
}

void PreviewWindow::addPageBox() {
  pageBox_ = new QSpinBox(bar_);
  pageBox_->setObjectName(QStringLiteral("PageBox"));
  pageBox_->setAccessibleName(QStringLiteral("Page"));
  pageBox_->setToolTip(QStringLiteral("Page (Ctrl+G)"));
  pageBox_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  pageBox_->setAlignment(Qt::AlignRight);
  pageBox_->setKeyboardTracking(false);
  pageBox_->setMinimum(1);
  bar_->addWidget(pageBox_);
  totalLbl_ = new QLabel(bar_);
  totalLbl_->setObjectName(QStringLiteral("TotalLbl"));
  totalLbl_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral(" of 0000 ")));
  bar_->addWidget(totalLbl_);
  connect(pageBox_, &QSpinBox::valueChanged, this, [this](int number) { view_->showPage(number - 1); });
  auto* toPage = new QAction(this);
  toPage->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_G));
  connect(toPage, &QAction::triggered, this, [this] {
    pageBox_->setFocus();
    pageBox_->selectAll();
  });
  addAction(toPage);
}

void PreviewWindow::addFindBox() {
  findTxt_ = new QLineEdit(bar_);
  findTxt_->setObjectName(QStringLiteral("FindTxt"));
  findTxt_->setAccessibleName(QStringLiteral("Find"));
  findTxt_->setPlaceholderText(QStringLiteral("Find"));
  findTxt_->setToolTip(QStringLiteral("Find (Ctrl+F), next (F3), previous (Shift+F3)"));
  findTxt_->setClearButtonEnabled(true);
  findTxt_->setMaximumWidth(220);
  bar_->addWidget(findTxt_);
  connect(findTxt_, &QLineEdit::returnPressed, this, [this] { find(false); });
  const auto addKey = [this](const QKeySequence& keys, std::function<void()> action) {
    auto* command = new QAction(this);
    command->setShortcut(keys);
    connect(command, &QAction::triggered, this, std::move(action));
    addAction(command);
  };
  addKey(QKeySequence::Find, [this] {
    findTxt_->setFocus();
    findTxt_->selectAll();
  });
  addKey(QKeySequence(Qt::Key_F3), [this] { find(false); });
  addKey(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { find(true); });
}

void PreviewWindow::makeMore() {
  pages_.makeFor(IdleSlice);
  if (pages_.complete()) idle_.stop();
  view_->pagesChanged();
}

void PreviewWindow::showState() {
  const QSignalBlocker quiet(pageBox_);
  pageBox_->setMaximum(std::max(1, pages_.made()));
  if (!pageBox_->hasFocus()) pageBox_->setValue(view_->currentPage() + 1);
  totalLbl_->setText(pages_.complete() ? QStringLiteral(" of %1 ").arg(pages_.total()) : QStringLiteral(" of ... "));
  zoomLbl_->setText(QStringLiteral("%1 %").arg(view_->zoom()));
}

void PreviewWindow::find(bool backwards) {
  const QString text = findTxt_->text();
  if (text.isEmpty() || view_->find(text, backwards))
    statusBar()->clearMessage();
  else
    statusBar()->showMessage(QStringLiteral("\"%1\" is not in this report.").arg(text));
}

void PreviewWindow::fail(const std::string& reason) {
  statusBar()->showMessage(QString::fromStdString(reason));
}

void PreviewWindow::print() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  pages_.makeAll();
  dialog.setMinMax(1, pages_.total());
  if (dialog.exec() != QDialog::Accepted) return;
  if (const auto problem = printPages(pages_, printer)) fail(*problem);
}

void PreviewWindow::savePdf() {
  const std::string path = files_.saveFile("Save as PDF", "PDF (*.pdf)", pages_.report().title + ".pdf");
  if (path.empty()) return;
  const auto problem = writePdf(pages_.report(), path, [this](int written, int total) {
    if (written % 50 == 0) {
      statusBar()->showMessage(QStringLiteral("Writing page %1 of %2").arg(written).arg(total));
      statusBar()->repaint();
    }
    return true;
  });
  if (problem)
    fail(*problem);
  else
    statusBar()->showMessage(QStringLiteral("Saved as %1").arg(QString::fromStdString(path)));
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
  idle_.stop();
  if (closed_) std::exchange(closed_, {})();
  event->accept();
}

PreviewWindow* showPreview(QWidget* parent, Report report, session::FileChooser& files,
                           std::function<void()> onClosed) {
  auto* window = new PreviewWindow(std::move(report), files, parent);
  window->onClosed(std::move(onClosed));
  if (parent) window->setWindowModality(Qt::WindowModal);
  window->show();
  return window;
}

}  // namespace velmo::printing

#include "printing/preview_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>
#include <QWindow>

#include "printing/pdf_writer.h"
#include "printing/printer.h"
#include "store/error.h"

namespace velmo::printing {

namespace {

constexpr int Slice = 20;     // milliseconds of work between two events
constexpr int ZoomStep = 25;  // per cent
constexpr int MostPages = 999999;
const QString FitWidth = QStringLiteral("Fit width");
const QString FitPage = QStringLiteral("Fit page");

QString percent(int zoom) {
  return QStringLiteral("%1 %").arg(zoom);
}

}  // namespace

PreviewWindow::PreviewWindow(Report report, session::FileChooser& files, QWidget* parent)
    : QMainWindow(parent, Qt::Window), pages_(std::move(report)), files_(files) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_QuitOnClose, false);
  setObjectName(QStringLiteral("PreviewWindow"));
  setWindowTitle(QString::fromStdString(pages_.report().title) + QStringLiteral(" - Preview"));
  resize(1000, 720);
  view_ = new PageView(pages_, this);
  setCentralWidget(view_);
  buildBar();
  buildStatus();
  connect(view_, &PageView::viewChanged, this, &PreviewWindow::showState);
  connect(&idle_, &QTimer::timeout, this, &PreviewWindow::makeMore);
  connect(&work_, &QTimer::timeout, this, &PreviewWindow::workOn);
  idle_.start(0);
  view_->setFocus();
  showState();
}

// Before the pages that it goes through.
PreviewWindow::~PreviewWindow() {
  job_.reset();
}

QAction* PreviewWindow::addCommand(const QString& name, const QString& caption, const QString& hint,
                                   const QKeySequence& keys, std::function<void()> action) {
  auto* command = new QAction(caption, this);
  command->setObjectName(name);
  command->setShortcut(keys);
  command->setToolTip(hint + QStringLiteral(" (") + keys.toString(QKeySequence::NativeText) + QStringLiteral(")"));
  connect(command, &QAction::triggered, this, std::move(action));
  addAction(command);
  bar_->addAction(command);
  bar_->widgetForAction(command)->setAccessibleName(hint);
  return command;
}

void PreviewWindow::addKey(const QKeySequence& keys, std::function<void()> action) {
  auto* command = new QAction(this);
  command->setShortcut(keys);
  connect(command, &QAction::triggered, this, std::move(action));
  addAction(command);
}

void PreviewWindow::buildBar() {
  bar_ = addToolBar(QStringLiteral("Preview"));
  bar_->setMovable(false);
  bar_->setContextMenuPolicy(Qt::PreventContextMenu);
  bar_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  bar_->setStyleSheet(QStringLiteral("QToolBar { padding: 6px 8px; spacing: 4px; } QToolButton { padding: 5px 9px; }"));
  printBttn_ = addCommand(QStringLiteral("PrintBttn"), QStringLiteral("Print"), QStringLiteral("Print"),
                          QKeySequence::Print, [this] { print(); });
  pdfBttn_ = addCommand(QStringLiteral("PdfBttn"), QStringLiteral("Save as PDF"), QStringLiteral("Save as PDF"),
                        QKeySequence::Save, [this] { savePdf(); });
  bar_->addSeparator();
  addPageCommands();
  bar_->addSeparator();
  addZoomCommands();
  bar_->addSeparator();
  addFindBox();
  addCommand(QStringLiteral("CloseBttn"), QStringLiteral("Close"), QStringLiteral("Close"),
             QKeySequence(Qt::Key_Escape), [this] { isRunning() ? stop() : static_cast<void>(close()); });
}

void PreviewWindow::addPageCommands() {
  addCommand(QStringLiteral("FirstBttn"), QStringLiteral("\u00AB"), QStringLiteral("First page"),
             QKeySequence(Qt::CTRL | Qt::Key_Home), [this] { view_->showPage(0); });
  addCommand(QStringLiteral("PrevBttn"), QStringLiteral("\u2039"), QStringLiteral("Previous page"),
             QKeySequence(Qt::Key_PageUp), [this] { view_->showPage(view_->currentPage() - 1); });
  addPageBox();
  addCommand(QStringLiteral("NextBttn"), QStringLiteral("\u203A"), QStringLiteral("Next page"),
             QKeySequence(Qt::Key_PageDown), [this] { view_->showPage(view_->currentPage() + 1); });
  addCommand(QStringLiteral("LastBttn"), QStringLiteral("\u00BB"), QStringLiteral("Last page"),
             QKeySequence(Qt::CTRL | Qt::Key_End), [this] { view_->showPage(MostPages); });
}

void PreviewWindow::addPageBox() {
  pageBox_ = new QSpinBox(bar_);
  pageBox_->setObjectName(QStringLiteral("PageBox"));
  pageBox_->setAccessibleName(QStringLiteral("Page"));
  pageBox_->setToolTip(QStringLiteral("Page (Ctrl+G)"));
  pageBox_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  pageBox_->setAlignment(Qt::AlignRight);
  pageBox_->setKeyboardTracking(false);
  pageBox_->setRange(1, MostPages);
  pageBox_->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 24);
  bar_->addWidget(pageBox_);
  totalLbl_ = new QLabel(bar_);
  totalLbl_->setObjectName(QStringLiteral("TotalLbl"));
  totalLbl_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral(" of 0000 ")));
  bar_->addWidget(totalLbl_);
  connect(pageBox_, &QSpinBox::valueChanged, this, [this](int number) { view_->showPage(number - 1); });
  connect(pageBox_, &QSpinBox::editingFinished, this, [this] {
    view_->setFocus();
    showState();
  });
  addKey(QKeySequence(Qt::CTRL | Qt::Key_G), [this] {
    pageBox_->setFocus();
    pageBox_->selectAll();
  });
}

void PreviewWindow::addZoomCommands() {
  addCommand(QStringLiteral("ZoomOutBttn"), QStringLiteral("\u2212"), QStringLiteral("Smaller"), QKeySequence::ZoomOut,
             [this] { view_->setZoom(view_->zoom() - ZoomStep); });
  zoomBox_ = new QComboBox(bar_);
  zoomBox_->setObjectName(QStringLiteral("ZoomBox"));
  zoomBox_->setAccessibleName(QStringLiteral("Zoom"));
  zoomBox_->setToolTip(QStringLiteral("Zoom (Ctrl+1 fits the width, Ctrl+2 the page)"));
  zoomBox_->setEditable(true);
  zoomBox_->setInsertPolicy(QComboBox::NoInsert);
  zoomBox_->addItems({FitWidth, FitPage});
  for (const int zoom : {50, 75, 100, 125, 150, 200, 300, 400}) zoomBox_->addItem(percent(zoom));
  zoomBox_->setFixedWidth(fontMetrics().horizontalAdvance(FitWidth) + 48);
  bar_->addWidget(zoomBox_);
  connect(zoomBox_, &QComboBox::textActivated, this, &PreviewWindow::chooseZoom);
  connect(zoomBox_->lineEdit(), &QLineEdit::returnPressed, this, [this] { chooseZoom(zoomBox_->currentText()); });
  addCommand(QStringLiteral("ZoomInBttn"), QStringLiteral("+"), QStringLiteral("Larger"), QKeySequence::ZoomIn,
             [this] { view_->setZoom(view_->zoom() + ZoomStep); });
  addCommand(QStringLiteral("FitWidthBttn"), QStringLiteral("Width"), QStringLiteral("Fit width"),
             QKeySequence(Qt::CTRL | Qt::Key_1), [this] { view_->setFit(Fit::Width); });
  addCommand(QStringLiteral("FitPageBttn"), QStringLiteral("Page"), QStringLiteral("Fit page"),
             QKeySequence(Qt::CTRL | Qt::Key_2), [this] { view_->setFit(Fit::Page); });
}

void PreviewWindow::chooseZoom(const QString& choice) {
  QString digits = choice;
  const int zoom = digits.remove(u'%').trimmed().toInt();
  if (choice == FitWidth)
    view_->setFit(Fit::Width);
  else if (choice == FitPage)
    view_->setFit(Fit::Page);
  else if (zoom > 0)
    view_->setZoom(zoom);
  view_->setFocus();
  showState();
}

void PreviewWindow::addFindBox() {
  findTxt_ = new QLineEdit(bar_);
  findTxt_->setObjectName(QStringLiteral("FindTxt"));
  findTxt_->setAccessibleName(QStringLiteral("Find"));
  findTxt_->setPlaceholderText(QStringLiteral("Find"));
  findTxt_->setToolTip(QStringLiteral("Find (Ctrl+F), next (F3), previous (Shift+F3)"));
  findTxt_->setClearButtonEnabled(true);
  findTxt_->setMinimumWidth(120);
  findTxt_->setMaximumWidth(280);
  bar_->addWidget(findTxt_);
  connect(findTxt_, &QLineEdit::returnPressed, this, [this] { find(false); });
  connect(findTxt_, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (text.isEmpty()) find(false);
  });
  addKey(QKeySequence::Find, [this] {
    findTxt_->setFocus();
    findTxt_->selectAll();
  });
  addKey(QKeySequence(Qt::Key_F3), [this] { find(false); });
  addKey(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { find(true); });
}

void PreviewWindow::buildStatus() {
  statusBar()->setSizeGripEnabled(false);
  progress_ = new QProgressBar(this);
  progress_->setObjectName(QStringLiteral("Progress"));
  progress_->setAccessibleName(QStringLiteral("Progress"));
  progress_->setTextVisible(false);
  progress_->setFixedWidth(200);
  stopBttn_ = new QPushButton(QStringLiteral("Stop"), this);
  stopBttn_->setObjectName(QStringLiteral("StopBttn"));
  stopBttn_->setToolTip(QStringLiteral("Stop (Esc)"));
  statusBar()->addPermanentWidget(progress_);
  statusBar()->addPermanentWidget(stopBttn_);
  progress_->hide();
  stopBttn_->hide();
  connect(stopBttn_, &QPushButton::clicked, this, &PreviewWindow::stop);
}

void PreviewWindow::makeMore() {
  try {
    pages_.makeFor(Slice);
  } catch (const store::StoreError& error) {
    idle_.stop();
    statusBar()->showMessage(QString::fromUtf8(error.what()));
  }
  if (pages_.complete()) idle_.stop();
  view_->pagesChanged();
}

void PreviewWindow::showState() {
  const QSignalBlocker quietPage(pageBox_);
  const QSignalBlocker quietZoom(zoomBox_);
  if (pages_.complete()) pageBox_->setMaximum(std::max(1, pages_.total()));
  if (!pageBox_->hasFocus()) pageBox_->setValue(view_->currentPage() + 1);
  totalLbl_->setText(pages_.complete() ? QStringLiteral(" of %1 ").arg(pages_.total()) : QStringLiteral(" of ... "));
  if (!zoomBox_->lineEdit()->hasFocus()) zoomBox_->setEditText(percent(view_->zoom()));
}

void PreviewWindow::find(bool backwards) {
  const QString text = findTxt_->text();
  if (view_->find(text, backwards) || text.isEmpty())
    statusBar()->clearMessage();
  else
    statusBar()->showMessage(QStringLiteral("\"%1\" is not in this report.").arg(text));
}

void PreviewWindow::print() {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  QPrintDialog dialog(printer.get(), this);
  if (pages_.complete()) dialog.setMinMax(1, pages_.total());
  if (dialog.exec() != QDialog::Accepted) return;
  run(std::make_unique<PrintJob>(pages_, std::move(printer)), QStringLiteral("Printing"), QStringLiteral("Printed."));
}

void PreviewWindow::savePdf() {
  const std::string path = files_.saveFile("Save as PDF", "PDF (*.pdf)", pages_.report().title + ".pdf");
  if (path.empty()) return;
  run(std::make_unique<PdfJob>(pages_.report(), path, pages_.total()), QStringLiteral("Writing"),
      QStringLiteral("Saved as %1").arg(QString::fromStdString(path)));
}

void PreviewWindow::run(std::unique_ptr<PageJob> job, const QString& doing, const QString& done) {
  if (isRunning()) throw std::logic_error("a preview prints or saves one thing at a time");
  job_ = std::move(job);
  doing_ = doing;
  done_ = done;
  printBttn_->setEnabled(false);
  pdfBttn_->setEnabled(false);
  progress_->setRange(0, 0);
  progress_->show();
  stopBttn_->show();
  work_.start(0);
  workOn();
}

void PreviewWindow::workOn() {
  QElapsedTimer timer;
  timer.start();
  try {
    bool more = true;
    while (more && timer.elapsed() < Slice) more = job_->step();
    if (!more) {
      endJob(job_->problem() ? QString::fromStdString(*job_->problem()) : done_);
      return;
    }
  } catch (const store::StoreError& error) {
    endJob(QString::fromUtf8(error.what()));
    return;
  }
  progress_->setRange(0, job_->total());
  progress_->setValue(job_->written());
  statusBar()->showMessage(
      job_->total() == 0 ? doing_ + QStringLiteral(": counting pages")
                         : QStringLiteral("%1 page %2 of %3").arg(doing_).arg(job_->written()).arg(job_->total()));
}

void PreviewWindow::stop() {
  if (isRunning()) endJob(QStringLiteral("Stopped."));
}

void PreviewWindow::endJob(const QString& message) {
  work_.stop();
  job_.reset();
  progress_->hide();
  stopBttn_->hide();
  printBttn_->setEnabled(true);
  pdfBttn_->setEnabled(true);
  statusBar()->showMessage(message);
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
  idle_.stop();
  work_.stop();
  job_.reset();
  if (closed_) std::exchange(closed_, {})();
  event->accept();
}

// A window that goes for good takes its previews with it; one that is only minimised does not.
bool PreviewWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Hide && !event->spontaneous()) close();
  return QMainWindow::eventFilter(watched, event);
}

PreviewWindow* showPreview(QWidget* parent, Report report, session::FileChooser& files,
                           std::function<void()> onClosed) {
  QWidget* owner = parent ? parent->window() : nullptr;
  auto* window = new PreviewWindow(std::move(report), files, owner);
  window->onClosed(std::move(onClosed));
  if (owner) {
    owner->installEventFilter(window);
    window->winId();  // makes the native window, whose order on the screen is its own from here on
    window->windowHandle()->setTransientParent(nullptr);
  }
  window->show();
  return window;
}

}  // namespace velmo::printing

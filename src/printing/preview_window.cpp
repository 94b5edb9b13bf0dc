#include "printing/preview_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>
#include <QWindow>

#include "forms/stop_listening.h"
#include "printing/pdf_writer.h"
#include "printing/printer.h"
#include "store/values/error.h"

namespace velmo::printing {

namespace {

constexpr int Slice = 20;      // milliseconds of work between two events
constexpr int Patience = 250;  // milliseconds that a command may take before it goes on in idle moments

}  // namespace

PreviewWindow::PreviewWindow(Report report, session::FileChooser& files, QWidget* parent)
    : QMainWindow(parent, Qt::Window), pages_(std::move(report)), files_(files) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_QuitOnClose, false);
  setObjectName(QStringLiteral("PreviewWindow"));
  setWindowTitle(QString::fromStdString(pages_.report().title) + QStringLiteral(" - Preview"));
  resize(1000, 720);
  buildPages();
  buildBar();
  buildStatus();
  connect(view_, &PageView::viewChanged, this, &PreviewWindow::showState);
  connect(&idle_, &QTimer::timeout, this, &PreviewWindow::makeInIdleMoment);
  connect(&work_, &QTimer::timeout, this, &PreviewWindow::workOn);
  idle_.start(0);
  view_->setFocus();
  showState();
}

// Before the pages that it goes through.
PreviewWindow::~PreviewWindow() {
  forms::stopListening(*this);
  job_.reset();
}

void PreviewWindow::buildPages() {
  auto* whole = new QWidget(this);
  auto* column = new QVBoxLayout(whole);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  problemLbl_ = new QLabel(whole);
  problemLbl_->setObjectName(QStringLiteral("ProblemLbl"));
  problemLbl_->setTextFormat(Qt::PlainText);
  problemLbl_->setWordWrap(true);
  problemLbl_->setMargin(10);
  problemLbl_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  problemLbl_->setProperty("look", QStringLiteral("warning"));
  problemLbl_->hide();
  column->addWidget(problemLbl_);
  view_ = new PageView(pages_, whole);
  column->addWidget(view_, 1);
  setCentralWidget(whole);
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
  if (!moreCome()) return;
  try {
    pages_.makeFor(Slice);
  } catch (const store::StoreError& error) {
    dataFailed_ = true;
    tellProblem(QString::fromUtf8(error.what()));
  }
  view_->pagesChanged();
}

void PreviewWindow::makeInIdleMoment() {
  makeMore();
  if (awaited_ && awaited_->attempt()) awaited_.reset();
  if (awaited_ && !isRunning()) statusBar()->showMessage(awaited_->words.arg(awaited_->pages()));
  if (!awaited_ && !moreCome()) idle_.stop();
  showWork();
}

void PreviewWindow::await(Wait wait) {
  awaited_.reset();
  QElapsedTimer timer;
  timer.start();
  bool done = wait.attempt();
  while (!done && timer.elapsed() < Patience) {
    makeMore();
    done = wait.attempt();
  }
  if (!done) {
    awaited_ = std::move(wait);
    idle_.start();
  }
  showWork();
}

void PreviewWindow::goTo(int index) {
  await({.words = QStringLiteral("Making the pages up to there: %1 so far"),
         .pages = [this] { return pages_.made(); },
         .attempt =
             [this, index] {
               const int last = pages_.made() - 1;
               if (index > last && moreCome()) return false;
               view_->showPage(std::min(index, last));
               if (!isRunning()) statusBar()->clearMessage();
               return true;
             }});
}

void PreviewWindow::find(bool backwards) {
  const QString text = findTxt_->text();
  await({.words = QStringLiteral("Looking through the pages: %1 so far"),
         .pages = [this] { return view_->pagesTried(); },
         .attempt =
             [this, text, search = view_->find(text, backwards)]() mutable {
               if (search == Search::MorePages || search == Search::MoreTime) search = view_->findOn();
               if (search == Search::MoreTime || (search == Search::MorePages && moreCome())) return false;
               if (search == Search::Found || text.isEmpty())
                 statusBar()->clearMessage();
               else
                 statusBar()->showMessage(QStringLiteral("\"%1\" is not in this report.").arg(text));
               return true;
             }});
}

void PreviewWindow::print() {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  QPrintDialog dialog(printer.get(), this);
  if (pages_.complete()) dialog.setMinMax(1, pages_.total());
  if (dialog.exec() != QDialog::Accepted) return;
  print(std::move(printer));
}

// A printer that is a file is written as every other file: whole, or with a reason why not.
void PreviewWindow::print(std::unique_ptr<QPrinter> printer) {
  if (const QString file = printer->outputFileName(); !file.isEmpty())
    return writePdf(file.toStdString(), {printer->fromPage(), printer->toPage()});
  run(std::make_unique<PrintJob>(pages_, std::move(printer)), QStringLiteral("Printing"), QStringLiteral("Printed."));
}

void PreviewWindow::savePdf() {
  const std::string path = files_.saveFile("Save as PDF", "PDF (*.pdf)", pages_.report().title + ".pdf");
  if (!path.empty()) writePdf(path, {});
}

void PreviewWindow::writePdf(const std::string& path, PageRange range) {
  run(std::make_unique<PdfJob>(pages_, path, range), QStringLiteral("Writing"),
      QStringLiteral("Saved as %1").arg(QString::fromStdString(path)));
}

void PreviewWindow::run(std::unique_ptr<PageJob> job, const QString& doing, const QString& done) {
  if (isRunning()) throw std::logic_error("a preview prints or saves one thing at a time");
  job_ = std::move(job);
  doing_ = doing;
  done_ = done;
  problemLbl_->hide();
  printBttn_->setEnabled(false);
  pdfBttn_->setEnabled(false);
  progress_->setRange(0, 0);
  showWork();
  work_.start(0);
  workOn();
}

void PreviewWindow::workOn() {
  const int known = pages_.made();
  QElapsedTimer timer;
  timer.start();
  try {
    bool more = true;
    while (more && timer.elapsed() < Slice) more = job_->step();
    if (pages_.made() != known) view_->pagesChanged();
    if (!more) {
      const std::optional<std::string> problem = job_->problem();
      if (problem) tellProblem(QString::fromStdString(*problem));
      endJob(problem ? QString() : done_);
      return;
    }
  } catch (const store::StoreError& error) {
    tellProblem(QString::fromUtf8(error.what()));
    endJob({});
    return;
  }
  progress_->setRange(0, job_->total());
  progress_->setValue(job_->written());
  statusBar()->showMessage(
      job_->total() == 0 ? doing_ + QStringLiteral(": counting pages")
                         : QStringLiteral("%1 page %2 of %3").arg(doing_).arg(job_->written()).arg(job_->total()));
}

void PreviewWindow::stop() {
  if (!isBusy()) return;
  awaited_.reset();
  endJob(QStringLiteral("Stopped."));
}

void PreviewWindow::endJob(const QString& message) {
  work_.stop();
  job_.reset();
  printBttn_->setEnabled(true);
  pdfBttn_->setEnabled(true);
  statusBar()->showMessage(message);
  showWork();
}

void PreviewWindow::showWork() {
  if (!isRunning()) progress_->setRange(0, 0);
  progress_->setVisible(isBusy());
  stopBttn_->setVisible(isBusy());
}

// Above the pages, where it cannot be overlooked, and as long as it takes to read it.
void PreviewWindow::tellProblem(const QString& sentence) {
  problemLbl_->setText(sentence);
  problemLbl_->show();
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
    window->winId();  // makes the native window
    // Its order on the screen is its own, but a dialog holds up all windows that are not its own.
    if (!owner->isModal()) window->windowHandle()->setTransientParent(nullptr);
  }
  window->show();
  return window;
}

}  // namespace velmo::printing

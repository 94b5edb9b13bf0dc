#include "forms/work_progress.h"

#include <QCoreApplication>
#include <QProgressDialog>
#include <limits>

namespace velmo::forms {
namespace {

constexpr int longestSilence = 500;   // milliseconds without a word
constexpr int betweenPaintings = 25;  // milliseconds
constexpr int fineness = 1000;        // steps of the bar

}  // namespace

WorkProgress::WorkProgress(QWidget* parent, const QString& words, std::int64_t total, Shows shows)
    : total_(total),
      patience_(shows == Shows::AtOnce ? 0 : longestSilence),
      dialog_(std::make_unique<QProgressDialog>(parent)) {
  dialog_->setObjectName(QStringLiteral("WorkProgress"));
  dialog_->setWindowTitle(QStringLiteral("Please Wait"));
  dialog_->setLabelText(words);
  dialog_->setCancelButtonText(QStringLiteral("Stop"));
  dialog_->setWindowModality(Qt::ApplicationModal);
  dialog_->setMinimumDuration(std::numeric_limits<int>::max());
  dialog_->setMinimumWidth(360);
  dialog_->setAutoClose(false);
  dialog_->setAutoReset(false);
  dialog_->setRange(0, total > 0 ? fineness : 0);
  dialog_->reset();  // the dialog would otherwise show itself
  sinceStart_.start();
  sincePaint_.start();
}

WorkProgress::~WorkProgress() = default;

bool WorkProgress::report(std::int64_t done) {
  if (sincePaint_.elapsed() < betweenPaintings) return !dialog_->wasCanceled();
  sincePaint_.restart();
  if (sinceStart_.elapsed() < patience_) {  // windows repaint; what is pressed is heard when the work is done
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return true;
  }
  if (!dialog_->isVisible() && !dialog_->wasCanceled()) dialog_->show();
  if (total_ > 0) dialog_->setValue(static_cast<int>(std::min(done, total_) * fineness / total_));
  QCoreApplication::processEvents();
  return !dialog_->wasCanceled();
}

}  // namespace velmo::forms

#include "shell/login/preparing_file.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <future>

namespace velmo::shell {
namespace {

constexpr std::chrono::milliseconds moment(300);
constexpr std::chrono::milliseconds frame(16);

// Nothing in it can be answered, and it is gone when there is nothing to wait for.
class Preparing : public QDialog {
 public:
  Preparing() {
    setObjectName(QStringLiteral("PreparingFile"));
    setWindowTitle(QStringLiteral("Velmo Point of Sale"));
    setWindowFlag(Qt::WindowCloseButtonHint, false);
    auto* words = new QLabel(tr("The company's file is being prepared. After a new version of the program this can "
                                "take a minute or two. Please do not switch the computer off."),
                             this);
    words->setWordWrap(true);
    words->setMinimumWidth(fontMetrics().averageCharWidth() * 56);
    auto* bar = new QProgressBar(this);
    bar->setRange(0, 0);
    auto* column = new QVBoxLayout(this);
    column->addWidget(words);
    column->addWidget(bar);
  }

  void reject() override {}
};

}  // namespace

schema::FileState whilePreparing(const std::function<schema::FileState()>& prepare) {
  std::future<schema::FileState> prepared = std::async(std::launch::async, prepare);
  if (prepared.wait_for(moment) == std::future_status::ready) return prepared.get();
  Preparing window;
  window.show();
  while (prepared.wait_for(frame) != std::future_status::ready) QCoreApplication::processEvents();
  return prepared.get();
}

}  // namespace velmo::shell

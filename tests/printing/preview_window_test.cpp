#include "printing/preview_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QThread>
#include <QToolBar>
#include <QWindow>

#include "printing/sample_report.h"
#include "store/values/error.h"
#include "support/small_disk.h"
#include "support/stand_ins.h"

namespace velmo::printing::test {
namespace {

// Rows that come slowly, so that a long report is long on any machine.
class SlowData : public ReportData {
 public:
  explicit SlowData(std::vector<DataRow> rows) : data_(std::move(rows)) {}
  std::unique_ptr<ReportRows> rows() const override { return std::make_unique<Rows>(data_.rows()); }

 private:
  class Rows : public ReportRows {
   public:
    explicit Rows(std::unique_ptr<ReportRows> rows) : rows_(std::move(rows)) {}
    bool next() override {
      QThread::usleep(100);
      return rows_->next();
    }
    store::Value value(std::string_view field) const override { return rows_->value(field); }
    std::unique_ptr<ReportRows> children(std::string_view member) const override { return rows_->children(member); }

   private:
    std::unique_ptr<ReportRows> rows_;
  };

  VectorData data_;
};

class PreviewWindowTest : public testing::Test {
 protected:
  ~PreviewWindowTest() override { delete window_; }

  void show(int count, QWidget* parent = nullptr) { show(std::make_shared<VectorData>(rows(count)), parent); }
  void show(std::shared_ptr<const ReportData> data, QWidget* parent = nullptr) {
    ReportDesign design = smallSheet();
    design.detail = showing("name");
    Report report = reportOf(design, {});
    report.data = std::move(data);
    window_ = showPreview(parent, std::move(report), files_, [this] { ++closed_; });
    window_->resize(900, 600);
  }
  PageView& view() { return window_->view(); }
  template <typename Control>
  Control& control(const char* name) {
    return *window_->findChild<Control*>(QLatin1String(name));
  }
  // As the keyboard finds it, whichever control has the focus.
  void press(const QKeySequence& keys) {
    for (QAction* action : window_->actions())
      if (action->shortcut() == keys) return action->trigger();
    ADD_FAILURE() << keys.toString().toStdString() << " does nothing";
  }
  template <typename Condition>
  static bool comesTrue(Condition condition) {
    constexpr int Longest = 60000;  // milliseconds, on a machine that has much else to do
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < Longest) QCoreApplication::processEvents();
    return condition();
  }
  static bool holds(const QPointer<PreviewWindow>& window) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return !window.isNull();
  }

  const QTemporaryDir folder_ = {};
  velmo::test::NamedFile files_ = {};
  int closed_ = 0;
  QPointer<PreviewWindow> window_ = {};
};

// The boxes of its bar lose the focus as it goes, behind the pages.
TEST_F(PreviewWindowTest, GoesWithTheFocusInItsBar) {
  for (const char* box : {"PageBox", "ZoomBox", "FindTxt"}) {
    show(3);
    window_->activateWindow();
    QApplication::setActiveWindow(window_);
    control<QWidget>(box).setFocus();
    files_.name = folder_.filePath("three.pdf").toStdString();
    window_->savePdf();
    ASSERT_TRUE(comesTrue([this] { return !window_->isBusy(); }));
    delete window_.data();
  }
}

TEST_F(PreviewWindowTest, KeysTurnThePages) {
  show(95);
  EXPECT_GE(window_->pages().made(), 1);
  const struct {
    QKeySequence keys;
    int page;  // of ten
  } steps[] = {{Qt::Key_PageDown, 2},        {Qt::CTRL | Qt::Key_End, 10}, {Qt::Key_PageDown, 10}, {Qt::Key_PageUp, 9},
               {Qt::CTRL | Qt::Key_Home, 1}, {Qt::Key_PageUp, 1},          {QKeySequence::Find, 1}};
  for (const auto& [keys, page] : steps) {
    press(keys);
    EXPECT_EQ(view().currentPage(), page - 1) << keys.toString().toStdString();
    EXPECT_EQ(control<QSpinBox>("PageBox").value(), page) << keys.toString().toStdString();
  }
  EXPECT_EQ(control<QLabel>("TotalLbl").text(), QStringLiteral(" of 10 "));
  control<QSpinBox>("PageBox").setValue(7);
  EXPECT_EQ(view().currentPage(), 6);
}

TEST_F(PreviewWindowTest, ZoomHasItsBoundsAndFits) {
  show(3);
  auto& box = control<QComboBox>("ZoomBox");
  const struct {
    const char* typed;
    int zoom;
  } cases[] = {{"130 %", 130}, {"130", 130}, {"10", 50}, {"9999%", 400}, {"wide", 400}, {"-5", 400}};
  for (const auto& [typed, zoom] : cases) {
    Q_EMIT box.textActivated(QLatin1String(typed));
    EXPECT_EQ(view().zoom(), zoom) << typed;
    EXPECT_EQ(box.currentText(), QStringLiteral("%1 %").arg(zoom)) << typed;
  }
  view().setZoom(100);
  press(QKeySequence::ZoomIn);
  EXPECT_EQ(view().zoom(), 125);
  press(QKeySequence::ZoomOut);
  EXPECT_EQ(view().zoom(), 100);
  press(Qt::CTRL | Qt::Key_1);
  const int wide = view().zoom();
  press(Qt::CTRL | Qt::Key_2);
  EXPECT_GT(wide, view().zoom());
}

TEST_F(PreviewWindowTest, FindGoesRoundInBothDirectionsAndMarksTheHits) {
  show(95);
  auto& box = control<QLineEdit>("FindTxt");
  const struct {
    const char* sought;
    bool backwards;
    int page;  // 0: not found
  } steps[] = {{"R77", false, 8}, {"r77", false, 8}, {"r1", false, 1}, {"r95", false, 10},
               {"r9", true, 10},  {"xyz", false, 0}, {"r5", false, 1}};
  for (const auto& [sought, backwards, page] : steps) {
    press(Qt::CTRL | Qt::Key_Home);
    box.setText(QLatin1String(sought));
    press(backwards ? Qt::SHIFT | Qt::Key_F3 : QKeySequence(Qt::Key_F3));
    EXPECT_EQ(window_->statusBar()->currentMessage().isEmpty(), page > 0) << sought;
    if (page > 0) {
      EXPECT_EQ(view().currentPage(), page - 1) << sought;
    }
  }
  box.setText(QStringLiteral("no such text"));
  press(Qt::Key_F3);
  EXPECT_EQ(window_->statusBar()->currentMessage(), QStringLiteral("\"no such text\" is not in this report."));

  const auto marked = [&] {
    const QImage image = view().viewport()->grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) {
        const QColor colour = image.pixelColor(x, y);
        if (colour.red() > 240 && colour.blue() < 160 && colour.green() > 160) ++count;
      }
    return count;
  };
  EXPECT_EQ(marked(), 0);
  box.setText(QStringLiteral("r1"));
  press(Qt::Key_F3);
  const int several = marked();
  EXPECT_GT(several, 50);
  box.clear();
  EXPECT_EQ(marked(), 0);
}

TEST_F(PreviewWindowTest, SavesWhileTheProgramGoesOn) {
  show(20000);
  files_.name = folder_.filePath(QStringLiteral("saved.pdf")).toStdString();
  press(QKeySequence::Save);
  EXPECT_EQ(files_.proposedName, "Sample.pdf");
  EXPECT_TRUE(window_->isRunning()) << "2,000 pages are not written between two keys";
  EXPECT_FALSE(control<QAction>("PrintBttn").isEnabled());
  EXPECT_TRUE(control<QProgressBar>("Progress").isVisible());
  press(Qt::Key_PageDown);
  EXPECT_EQ(view().currentPage(), 1);
  EXPECT_TRUE(comesTrue([&] { return control<QProgressBar>("Progress").value() > 0; }));
  press(Qt::Key_Escape);
  EXPECT_FALSE(window_->isRunning());
  EXPECT_TRUE(window_->isVisible()) << "the first Esc stops, the second closes";
  EXPECT_EQ(window_->statusBar()->currentMessage(), QStringLiteral("Stopped."));
  EXPECT_TRUE(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
  EXPECT_TRUE(control<QAction>("PrintBttn").isEnabled());
  press(QKeySequence::Save);
  press(Qt::Key_Escape);
  press(Qt::Key_Escape);
  EXPECT_EQ(closed_, 1);
  EXPECT_FALSE(holds(window_));
  EXPECT_TRUE(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

// Of 6,000 pages only the first ones are there when the keys come.
TEST_F(PreviewWindowTest, NeitherALongWayNorALongSearchHoldsUpTheProgram) {
  const auto find = [&](const char* text) {
    control<QLineEdit>("FindTxt").setText(QLatin1String(text));
    press(Qt::Key_F3);
  };
  const struct {
    std::function<void()> command;
    int page;  // that it comes to in the end, from 0
  } ways[] = {{[&] { press(Qt::CTRL | Qt::Key_End); }, 599},
              {[&] { find("r6000"); }, 599},
              {[&] { control<QSpinBox>("PageBox").setValue(550); }, 549},
              {[&] { find("no such text"); }, 0}};
  for (const auto& [command, page] : ways) {
    delete window_;
    show(std::make_shared<SlowData>(rows(6000)));
    QElapsedTimer timer;
    timer.start();
    command();
    EXPECT_LT(timer.elapsed(), 5000) << "the command itself, whatever the report's length";
    EXPECT_TRUE(window_->isBusy() && control<QPushButton>("StopBttn").isVisible());
    EXPECT_TRUE(comesTrue([&] { return !window_->statusBar()->currentMessage().isEmpty(); }));
    press(Qt::Key_Escape);
    EXPECT_FALSE(window_->isBusy() || control<QPushButton>("StopBttn").isVisible());
    EXPECT_EQ(view().currentPage(), 0);
    command();
    EXPECT_TRUE(comesTrue([&] { return !window_->isBusy(); }));
    EXPECT_EQ(view().currentPage(), page);
  }
  EXPECT_EQ(window_->statusBar()->currentMessage(), QStringLiteral("\"no such text\" is not in this report."));
  EXPECT_EQ(window_->pages().total(), 600);
}

TEST_F(PreviewWindowTest, FindsOnThePagesThatAreThereWithoutTheOthers) {
  show(60000);
  control<QLineEdit>("FindTxt").setText(QStringLiteral("r25"));
  press(Qt::Key_F3);
  EXPECT_EQ(view().currentPage(), 2);
  EXPECT_FALSE(window_->isBusy() || window_->pages().complete());
}

TEST_F(PreviewWindowTest, TellsHowSavingEnded) {
  show(3);
  const auto save = [&](const QString& name) {
    files_.name = folder_.filePath(name).toStdString();
    press(QKeySequence::Save);
    EXPECT_TRUE(comesTrue([&] { return !window_->isRunning(); }));
  };
  auto& problem = control<QLabel>("ProblemLbl");
  save(QStringLiteral("no/x.pdf"));
  EXPECT_TRUE(problem.isVisible());
  EXPECT_TRUE(problem.text().startsWith(QStringLiteral("The file '") + folder_.filePath(QStringLiteral("no/x.pdf"))));
  EXPECT_TRUE(window_->statusBar()->currentMessage().isEmpty());
  save(QStringLiteral("x.pdf"));
  EXPECT_TRUE(problem.isHidden());
  EXPECT_EQ(window_->statusBar()->currentMessage(),
            QStringLiteral("Saved as ") + folder_.filePath(QStringLiteral("x.pdf")));
  EXPECT_TRUE(QFile::exists(folder_.filePath(QStringLiteral("x.pdf"))));
}

TEST_F(PreviewWindowTest, PrintsToAFileAsItSavesOne) {
  show(95);
  const QString path = folder_.filePath(QStringLiteral("printed.pdf"));
  const auto print = [&](rlim_t room) {
    const velmo::test::SmallDisk disk(room);
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFileName(path);
    printer->setFromTo(2, 3);
    window_->print(std::move(printer));
    EXPECT_TRUE(comesTrue([&] { return !window_->isRunning(); }));
  };
  print(5000);
  EXPECT_TRUE(control<QLabel>("ProblemLbl").isVisible());
  EXPECT_TRUE(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
  print(RLIM_INFINITY);
  EXPECT_EQ(window_->statusBar()->currentMessage(), QStringLiteral("Saved as ") + path);
  EXPECT_TRUE(QFile::exists(path));
}

TEST_F(PreviewWindowTest, DataThatFailsOnTheWayIsTold) {
  ReportDesign design = smallSheet();
  design.detail = showing("name");
  std::vector<DataRow> data = rows(30);
  data.push_back({.fields = {{"another", std::string("field")}}, .chapters = {}});
  window_ = showPreview(nullptr, reportOf(design, data), files_);
  press(Qt::CTRL | Qt::Key_End);
  EXPECT_TRUE(control<QLabel>("ProblemLbl").isVisible());
  EXPECT_FALSE(window_->isBusy());
  EXPECT_EQ(view().currentPage(), window_->pages().made() - 1);
}

TEST_F(PreviewWindowTest, LivesBesideItsOwnerAndGoesWithIt) {
  QWidget owner;
  auto* inside = new QWidget(&owner);
  owner.show();
  show(3, inside);
  velmo::test::NamedFile files;
  const QPointer<PreviewWindow> second = showPreview(inside, reportOf(smallSheet(), {}), files);
  EXPECT_EQ(window_->windowModality(), Qt::NonModal);
  EXPECT_EQ(window_->windowHandle()->transientParent(), nullptr) << "it would stay before the till";
  delete inside;
  EXPECT_TRUE(holds(window_) && holds(second));
  second->close();
  EXPECT_TRUE(holds(window_));
  owner.close();
  EXPECT_EQ(closed_, 1);
  EXPECT_FALSE(holds(window_) || holds(second));
}

TEST_F(PreviewWindowTest, BarFitsANarrowScreen) {
  show(3);
  window_->resize(1024, 768);
  QCoreApplication::processEvents();
  for (const char* name : {"PageBox", "ZoomBox", "FindTxt"}) EXPECT_TRUE(control<QWidget>(name).isVisible()) << name;
  auto* close = window_->findChild<QToolBar*>()->widgetForAction(&control<QAction>("CloseBttn"));
  EXPECT_TRUE(close->isVisible());
  for (QAction* action : window_->actions())
    if (!action->text().isEmpty()) {
      EXPECT_TRUE(action->toolTip().contains(action->shortcut().toString(QKeySequence::NativeText)));
    }
}

}  // namespace
}  // namespace velmo::printing::test

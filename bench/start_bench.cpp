#include "start_bench.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <QDialog>
#include <QFile>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <chrono>

#include "figures.h"
#include "large_company_folder.h"
#include "shell/application.h"

namespace velmo::bench {
namespace {

constexpr const char* startOption = "--start-and-say-when";

qint64 now() {
  return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::microseconds(1);
}

// The program itself, which says when login and main window have been painted, and ends then.
class SayingApplication : public shell::Application {
 public:
  using Application::Application;

  bool notify(QObject* receiver, QEvent* event) override {
    const bool isPaint = event->type() == QEvent::Paint && receiver->isWidgetType();
    const QPointer<QWidget> widget = isPaint ? static_cast<QWidget*>(receiver) : nullptr;
    const bool result = Application::notify(receiver, event);
    if (widget && widget->isWindow())  // said when all within it is painted as well
      QTimer::singleShot(0, this, [this, widget] {
        if (widget) painted(*widget);
      });
    return result;
  }

 private:
  void painted(QWidget& window) {
    if (window.objectName() == QLatin1String("Parent")) {
      say();
      _exit(0);
    }
    auto* login = qobject_cast<QDialog*>(&window);
    if (!login || std::exchange(isLoggingIn_, true)) return;
    say();
    login->findChild<QPushButton*>("OkBttn")->click();
  }

  static void say() {
    std::printf("%lld\n", static_cast<long long>(now()));
    std::fflush(stdout);
  }

  bool isLoggingIn_ = false;
};

struct Start {
  double login = 0;  // milliseconds from the start of the process
  double shell = 0;  // from the click on OK
};

// A display that the program does not find too narrow.
QString platformWithDisplay(const QTemporaryDir& folder) {
  QFile file(folder.filePath(QStringLiteral("display.json")));
  if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no file for the display");
  file.write(R"({"synchronousWindowSystemEvents": false, "windowFrameMargins": false, "screens": [{"name": "one",
    "x": 0, "y": 0, "width": 1366, "height": 768, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  return QStringLiteral("offscreen:configfile=") + file.fileName();
}

Start startIn(const std::filesystem::path& folder) {
  const QTemporaryDir display;
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platformWithDisplay(display));
  program.setProcessEnvironment(environment);
  program.setWorkingDirectory(QString::fromStdString(folder.string()));
  program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  const qint64 began = now();
  program.start(QCoreApplication::applicationFilePath(), {startOption});
  program.waitForFinished(60000);
  const QList<QByteArray> said = program.readAllStandardOutput().split('\n');
  if (said.size() < 2 || said[1].isEmpty()) throw std::runtime_error("the program did not start");
  const qint64 login = said[0].toLongLong(), shell = said[1].toLongLong();
  return {static_cast<double>(login - began) / 1e3, static_cast<double>(shell - login) / 1e3};
}

// Takes the company's file out of the system's memory, so that the disk is read.
void makeCold(const std::filesystem::path& folder) {
  for (const auto& entry : std::filesystem::directory_iterator(folder / "Uninstall")) {
    const int file = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) continue;
    ::fsync(file);
    ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    ::close(file);
  }
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

struct Starts {
  std::vector<double> login, shell;
};

// As a user starts it: the process, the check of the file, login, the main window; with the file in memory and without,
// beside a company that has no documents.
void StartOfTheProgram(benchmark::State& state) {
  const QTemporaryDir empty;
  const std::filesystem::path emptyFolder = empty.path().toStdString();
  std::filesystem::create_directories(emptyFolder / "Uninstall");
  startIn(emptyFolder);  // which makes the company
  enterShop();
  const CompanyCopy copy;
  const std::filesystem::path folder = std::filesystem::current_path();
  startIn(folder);
  for (auto _ : state) {
    Starts none, warm, cold;
    const auto add = [](Starts& starts, const Start& start) {
      starts.login.push_back(start.login);
      starts.shell.push_back(start.shell);
    };
    for (int round = 0; round < 7; ++round) {
      add(none, startIn(emptyFolder));
      add(warm, startIn(folder));
      makeCold(folder);
      add(cold, startIn(folder));
    }
    const char* group = "From the start of the process to login, and from there to the main window";
    const double atMost = median(none.login) + 100;
    tell({.group = group, .name = "login, company without documents", .value = median(none.login)});
    tell({.group = group, .name = "login, the shop's file in memory", .value = median(warm.login), .goal = atMost});
    tell({.group = group, .name = "login, the shop's file on the disk", .value = median(cold.login), .goal = atMost});
    tell({.group = group, .name = "main window, company without documents", .value = median(none.shell)});
    tell({.group = group, .name = "main window, the shop's file in memory", .value = median(warm.shell)});
    tell({.group = group, .name = "main window, the shop's file on the disk", .value = median(cold.shell)});
    state.counters["login_ms"] = median(warm.login);
    state.counters["login_cold_ms"] = median(cold.login);
    state.counters["login_empty_ms"] = median(none.login);
  }
}
BENCHMARK(StartOfTheProgram)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

std::optional<int> startedToSayWhen(int argc, char** argv) {
  if (argc != 2 || std::string_view(argv[1]) != startOption) return {};
  SayingApplication application(argc, argv);
  return application.run();
}

}  // namespace velmo::bench

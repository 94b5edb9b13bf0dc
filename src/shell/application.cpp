#include "shell/application.h"

#include <QScreen>
#include <filesystem>

#include "forms/look.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "shell/idle/damage_notice.h"
#include "shell/login/brand_panel.h"
#include "shell/login/login_form.h"
#include "shell/login/preparing_file.h"
#include "shell/window/main_shell.h"

namespace velmo::shell {
namespace {

constexpr const char* programTitle = "Velmo Point of Sale";

}  // namespace

void introduceProgram(QApplication& application) {
  application.setApplicationName(QStringLiteral("velmo"));
  application.setApplicationVersion(QStringLiteral(VELMO_VERSION));
  application.setDesktopFileName(QStringLiteral("velmo"));
  application.setWindowIcon(programIcon());
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  introduceProgram(*this);
  // The login window closes before the main window shows.
  setQuitOnLastWindowClosed(false);
}

int Application::run() {
  forms::applyLook(*this, forms::desktopBrightness());
  try {
    const std::filesystem::path folder = schema::programFolder();
    std::filesystem::current_path(folder);
    const text::DateTime now = clock_.now();
    const schema::FileState file =
        whilePreparing([&now] { return schema::prepareCompanyFile(schema::plainConnectionString, now); });
    if (!file.damage.empty()) tellDamageAtStart(prompts_, clock_, schema::plainConnectionString, file);
    std::unique_ptr<session::LoginContext> context;
    {
      LoginForm login(schema::companyCatalog(), schema::plainConnectionString, prompts_, file);
      if (login.exec() != QDialog::Accepted) return 0;
      context = login.takeContext();
    }
    MainShell shell(std::move(context), {.clock = clock_,
                                         .prompts = prompts_,
                                         .files = files_,
                                         .programFolder = folder,
                                         .screenWidth = primaryScreen()->size().width(),
                                         .file = file});
    shell.showMaximized();
    setQuitOnLastWindowClosed(true);
    return exec();
  } catch (const std::exception& failure) {
    prompts_.tell(programTitle, failure.what());
    return 1;
  }
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const store::StoreError& failure) {
    // A failure while painting would come again behind its own message box.
    if (tellingFailure_) {
      qWarning("%s", failure.what());
    } else {
      tellingFailure_ = true;
      prompts_.tell(programTitle, failure.what());
      tellingFailure_ = false;
    }
    return false;
  }
}

}  // namespace velmo::shell

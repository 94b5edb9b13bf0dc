#include <QImage>
#include <QLabel>
#include <QTextBrowser>
#include <fstream>

#include "session/settings.h"
#include "shell/catalogue/direct_back_up.h"
#include "shell/settings/logo_file.h"
#include "shell/settings/settings_company.h"
#include "shell/welcome/navigation.h"
#include "support/small_disk.h"

namespace velmo::shell {
namespace {

namespace fs = std::filesystem;

class LogoAndBackUp : public test::SettingsCompany {
 protected:
  fs::path picture(const char* name, const char* format, int side = 40) {
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::red);
    const fs::path file = company.folder() / name;
    EXPECT_TRUE(image.save(QString::fromStdString(file.string()), format));
    return file;
  }
  static std::string content(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  void choose(const fs::path& file) {
    files.name = file.string();
    control<QPushButton>("NewBttn").click();
  }
  void expectShown(bool shown) {
    EXPECT_EQ(control<QLabel>("LogoImg").isVisible(), shown);
    EXPECT_EQ(control<QLabel>("Lbl").isVisible(), !shown);
    EXPECT_EQ(control<QLabel>("LogoImg").pixmap(Qt::ReturnByValue).isNull(), !shown);
  }

  const fs::path logo = company.folder() / "mylogo.jpg";
};

TEST_F(LogoAndBackUp, LogoIsCopiedShownAndRemoved) {
  open("LogoSetting");
  expectShown(false);
  choose({});
  EXPECT_EQ(files.titleSeen, "Select Logo (.jpg Pictures Only)");
  EXPECT_FALSE(fs::exists(logo));
  for (const auto& [name, format] : {std::pair{"red.jpg", "JPG"}, {"really a png.jpg", "PNG"}}) {
    const fs::path chosen = picture(name, format);
    choose(chosen);
    expectShown(true);
    EXPECT_EQ(content(logo), content(chosen));
  }
  const std::string before = content(logo);
  choose(logo);  // itself
  EXPECT_EQ(content(logo), before);
  control<QPushButton>("NoLogoBttn").click();
  expectShown(false);
  EXPECT_FALSE(fs::exists(logo));
}

TEST_F(LogoAndBackUp, LogoStaysWhenTheChosenFileIsNoPicture) {
  const std::string before = content(fs::path(picture("mylogo.jpg", "JPG")));
  const fs::path words = company.folder() / "words.jpg";
  std::ofstream(words) << "this is no picture";
  const fs::path cut = picture("cut.jpg", "PNG");
  fs::resize_file(cut, 30);
  const fs::path large = company.folder() / "large.jpg";
  std::ofstream(large) << "x";
  fs::resize_file(large, 65L * 1024 * 1024);
  open("LogoSetting");
  const auto refusal = [](const fs::path& file) {
    return "The file \"" + file.string() +
           "\" is not a picture that can be printed, or is too large. The logo was not changed; choose a .jpg picture.";
  };
  prompts.expect("Cannot Save", refusal(words));
  choose(words);
  prompts.expect("Cannot Save", refusal(cut));
  choose(cut);
  prompts.expect("Cannot Save", "The file \"" + large.string() +
                                    "\" is larger than 64 MB. The logo was not changed; choose a smaller picture.");
  choose(large);
  prompts.expect("Cannot Save", "The file \"" + (company.folder() / "gone.jpg").string() +
                                    "\" cannot be read (No such file or directory). The logo was not changed.");
  choose(company.folder() / "gone.jpg");
  EXPECT_EQ(content(logo), before);
  expectShown(true);
}

// 4,000 x 2 pixels in a file that tells of 10 x 2.
TEST_F(LogoAndBackUp, LogoIsNoLargerThanAskedForWhateverItsFileTells) {
  const QByteArray wide = QByteArray::fromBase64(
      "R0lGODlhCgACAPAAAP8AAAAAACH5BAAAAAAALAAAAACgDwIAAAJkhI+py+0Po5y02ouz3rz7D4biSJbmiabqyrbuC8fyTNf2jef6zvf+"
      "DwwKh8Si8YhMKpfMpvMJjUqn1Kr1is1qt9yu9wsOi8fksvmMTqvX7Lb7DY/L5/S6/Y7P6/f8vv8PGBhYAAA7");
  std::ofstream(logo, std::ios::binary).write(wide.data(), wide.size());
  const QSize shown = logoPicture({100, 100}).size();
  EXPECT_LE(shown.width(), 100);
  EXPECT_FALSE(shown.isEmpty());
}

TEST_F(LogoAndBackUp, LogoStaysWhenTheDiskIsFull) {
  const std::string before = content(fs::path(picture("mylogo.jpg", "JPG", 10)));
  open("LogoSetting");
  for (const int side : {40, 900}) {  // within a buffer of the file, and beyond it
    const fs::path chosen = picture("chosen.jpg", "PNG", side);
    const test::SmallDisk disk(fs::file_size(chosen) - 1);
    files.name = chosen.string();
    prompts.expect("Cannot Save", "The logo cannot be saved (the disk is full). It was not changed.");
    control<QPushButton>("NewBttn").click();
    EXPECT_EQ(content(logo), before);
  }
}

TEST_F(LogoAndBackUp, FileDialogThatWandersLeavesTheProgramInItsFolder) {
  const fs::path chosen = picture("red.jpg", "JPG");
  open("LogoSetting");
  files.meanwhile = [] { fs::current_path("/"); };
  choose(chosen);
  EXPECT_EQ(fs::current_path(), company.folder());
  EXPECT_TRUE(fs::exists(logo));
}

TEST_F(LogoAndBackUp, UnreadableLogoIsToldApartFromNone) {
  std::ofstream(logo) << "damaged";
  open("LogoSetting");
  expectShown(false);
  EXPECT_TRUE(control<QLabel>("Lbl").text().contains(QStringLiteral("not a picture")));
  EXPECT_TRUE(control<QPushButton>("NoLogoBttn").isEnabled());
}

TEST_F(LogoAndBackUp, AboutSavesAWorkingCopy) {
  open("About");
  auto& button = control<QPushButton>("Bluff");
  EXPECT_TRUE(button.isVisible());
  files.name = "";
  button.click();
  EXPECT_EQ(files.proposedName, "KORD Back-Up (Date 22-11-26) (Time 02-07-09 pm)");

  const fs::path copy = company.folder() / "a \"copy\" of today's";
  files.name = copy.string();
  store::Connection counting(schema::companyCatalog());
  std::int64_t records = 0;
  for (const store::Table& table : schema::companyCatalog().tables())
    records += rows("select count(*) as N from [" + table.name + "]").integer("N");
  prompts.listen();
  saveDirectBackUp(*workplace, {});
  EXPECT_EQ(prompts.told.at(0).title, "Back-Up");
  EXPECT_NE(prompts.told.at(0).text.find("saved and checked: " + std::to_string(records) + " records"),
            std::string::npos)
      << prompts.told.at(0).text;
  EXPECT_EQ(session::setting(context->KORDconn, session::settings::BackUpPlace), copy.string());
  EXPECT_EQ(session::setting(context->KORDconn, session::settings::BackUpTime), clock.now().iso());
  counting.open(schema::connectionStringFor(copy));
  EXPECT_EQ(store::Recordset(counting, "select * from businessinfo").recordCount(), 1);
  EXPECT_TRUE(button.isEnabled());
}

TEST_F(LogoAndBackUp, AboutSaysWhyABackUpWasNotSaved) {
  open("About");
  const std::string own = company.file().string();
  prompts.expect("Back-Up Not Saved",
                 "\"" + own + "\" is the company's own file. Choose another name for the back-up.");
  files.name = own;
  control<QPushButton>("Bluff").click();
  prompts.expect("Back-Up Not Saved",
                 "The folder \"/media/pulled\" is not there. Nothing was saved; if it is on a stick or another "
                 "computer, connect it and try again.");
  files.name = "/media/pulled/copy";
  control<QPushButton>("Bluff").click();
  EXPECT_TRUE(control<QPushButton>("Bluff").isEnabled());
}

TEST_F(LogoAndBackUp, WelcomeScreenLeadsToEachHelpText) {
  logIn();
  Navigation welcome(*workplace, nullptr);
  for (int index = 0; index < 6; ++index) {
    auto* link = welcome.findChild<QAbstractButton*>(QStringLiteral("Trouble_") + QString::number(index));
    ASSERT_TRUE(link);
    test::press(*link, Qt::Key_Return);
    EXPECT_EQ(context->HelpTopicID, index + 1);
    EXPECT_EQ(screens.opened, "HelpForm");
    open("HelpForm");
    EXPECT_EQ(control<QLabel>("Heading").text(), link->text());
    auto& matter = control<QTextBrowser>("Matter");
    EXPECT_TRUE(matter.isReadOnly());
    EXPECT_GT(matter.toPlainText().size(), 100);
    EXPECT_FALSE(matter.toPlainText().contains(QLatin1Char('<')));
  }
  context->HelpTopicID = 99;
  open("HelpForm");
  EXPECT_TRUE(control<QTextBrowser>("Matter").toPlainText().isEmpty());
}

}  // namespace
}  // namespace velmo::shell

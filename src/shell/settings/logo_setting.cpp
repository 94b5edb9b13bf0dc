#include "shell/settings/logo_setting.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/look.h"
#include "shell/settings/logo_file.h"

namespace velmo::shell {
namespace {

constexpr QSize pictureSize(400, 220);

class LogoSetting : public QDialog {
 public:
  LogoSetting(session::Workplace& workplace, QWidget* parent) : QDialog(parent), workplace_(workplace) {
    setWindowTitle(QStringLiteral("My Logo"));
    auto* column = new QVBoxLayout(this);
    forms::setGrid(*column, forms::spacing::Section + forms::spacing::Normal, forms::spacing::Section);
    auto* heading = new QLabel(QStringLiteral("My logo"), this);
    forms::makeHeading(*heading);
    column->addWidget(heading);
    column->addWidget(makePicture());
    auto* row = new QHBoxLayout;
    forms::setGrid(*row, 0);
    newButton_ = addButton(*row, "NewBttn", QStringLiteral("&New Logo..."));
    forms::makePrimary(*newButton_);
    newButton_->setDefault(true);
    noLogoButton_ = addButton(*row, "NoLogoBttn", QStringLiteral("No &Logo"));
    row->addStretch(1);
    QPushButton* close = addButton(*row, "CloseBttn", QStringLiteral("&Close"));
    column->addLayout(row);
    connect(newButton_, &QPushButton::clicked, this, &LogoSetting::choose);
    connect(noLogoButton_, &QPushButton::clicked, this, &LogoSetting::clear);
    connect(close, &QPushButton::clicked, this, &LogoSetting::accept);
    showLogo();
  }

 private:
  QWidget* makePicture() {
    auto* card = new QFrame(this);
    forms::makeCard(*card);
    auto* inside = new QVBoxLayout(card);
    forms::setGrid(*inside, forms::spacing::Section);
    picture_ = new QLabel(card);
    picture_->setObjectName(QStringLiteral("LogoImg"));
    picture_->setAccessibleName(QStringLiteral("Logo"));
    words_ = new QLabel(card);
    words_->setObjectName(QStringLiteral("Lbl"));
    words_->setWordWrap(true);
    forms::makeCaption(*words_);
    for (QLabel* label : {picture_, words_}) {
      label->setFixedSize(pictureSize);
      label->setAlignment(Qt::AlignCenter);
      inside->addWidget(label);
    }
    return card;
  }

  QPushButton* addButton(QHBoxLayout& row, const char* name, const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setMinimumSize(104, 34);
    button->setAutoDefault(false);
    row.addWidget(button);
    return button;
  }

  // As it will be printed: on white, whatever the look, and as sharp as the screen shows it.
  QPixmap logoOnPaper() const {
    const qreal density = devicePixelRatioF();
    const QPixmap logo = logoPicture(pictureSize * density);
    if (logo.isNull()) return {};
    QPixmap paper(pictureSize * density);
    paper.fill(Qt::white);
    QPainter(&paper).drawPixmap((paper.width() - logo.width()) / 2, (paper.height() - logo.height()) / 2, logo);
    paper.setDevicePixelRatio(density);
    return paper;
  }

  void showLogo() {
    std::error_code absent;
    const bool there = std::filesystem::exists(logoFile(), absent);
    const QPixmap picture = logoOnPaper();
    picture_->setPixmap(picture);
    picture_->setVisible(!picture.isNull());
    words_->setText(there ? QStringLiteral("The logo file \"mylogo.jpg\" is not a picture. Print-outs leave it out.")
                          : QStringLiteral("There is no logo. Print-outs begin with the company's name."));
    words_->setVisible(picture.isNull());
    noLogoButton_->setEnabled(there);
  }

  void tellFailure(const std::string& reason) {
    if (!reason.empty()) workplace_.prompts.tell("Cannot Save", reason);
  }

  void choose() {
    // A file dialog may leave the program elsewhere, and the company's file is found from its folder.
    const std::filesystem::path folder = std::filesystem::current_path();
    const std::string chosen = workplace_.files.openFile(
        "Select Logo (.jpg Pictures Only)", "Pictures (*.jpg *.jpeg *.JPG *.JPEG);;All files (*)", folder.string());
    std::filesystem::path file = chosen;
    if (!chosen.empty()) file = std::filesystem::absolute(file);
    std::filesystem::current_path(folder);
    if (chosen.empty()) return;
    tellFailure(replaceLogo(file));
    showLogo();
  }

  void clear() {
    tellFailure(removeLogo());
    showLogo();
    newButton_->setFocus();
  }

  session::Workplace& workplace_;
  QLabel* picture_ = nullptr;
  QLabel* words_ = nullptr;
  QPushButton* newButton_ = nullptr;
  QPushButton* noLogoButton_ = nullptr;
};

}  // namespace

QWidget* makeLogoSetting(session::Workplace& workplace, QWidget* parent) {
  return new LogoSetting(workplace, parent);
}

}  // namespace velmo::shell

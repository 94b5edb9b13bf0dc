#include "frame/master/master_dialog.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/stop_listening.h"
#include "printing/preview_window.h"

namespace velmo::frame {

namespace {

// Most of the window that the dialog stands over, within bounds that suit its boxes.
QSize roomyWithin(const QWidget* parent) {
  const QSize room = parent ? parent->window()->size() - QSize(40, 40) : QSize(1000, 700);
  return room.boundedTo({1180, 860}).expandedTo({980, 690});
}

}  // namespace

MasterDialog::MasterDialog(MasterType type, session::Workplace& workplace, QWidget* parent)
    : QDialog(parent), type_(std::move(type)), workplace_(workplace) {
  setObjectName(forms::shownText(type_.screen));
  setWindowTitle(forms::shownText(type_.title));
  for (const MasterLevel& level : type_.levels) panels_.push_back(new MasterPanel(level, workplace_, this));
  connectPanels();
  buildLayout();
  buildKeys();
  panels_.front()->load({type_.rootKey});
  panels_.front()->focusList();
}

MasterDialog::~MasterDialog() {
  forms::stopListening(*this);
}

// One level stands alone; of two or three the inner one, with most to show, has the wider right side.
void MasterDialog::buildLayout() {
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, forms::spacing::Section);
  if (panels_.size() > 1) column->addLayout(buildHead());

  auto* sides = new QHBoxLayout;
  forms::setGrid(*sides, 0, forms::spacing::Normal + forms::spacing::Tight);
  auto* outer = new QVBoxLayout;
  forms::setGrid(*outer, 0, forms::spacing::Normal + forms::spacing::Tight);
  for (std::size_t i = 0; i + 1 < panels_.size(); ++i) outer->addWidget(panels_[i], 1);
  if (panels_.size() > 1) sides->addLayout(outer, 2);
  sides->addWidget(panels_.back(), 3);
  column->addLayout(sides, 1);

  auto* foot = new QHBoxLayout;
  forms::setGrid(*foot, 0);
  buildFoot(*foot);
  column->addLayout(foot);
  const bool wide = panels_.size() > 1 || panels_.back()->level().formColumns > 1;
  resize(wide ? roomyWithin(parentWidget()) : QSize(620, 540));
}

QHBoxLayout* MasterDialog::buildHead() {
  auto* head = new QHBoxLayout;
  forms::setGrid(*head, 0);
  auto* heading = new QLabel(forms::shownText(type_.title));
  forms::makeHeading(*heading);
  head->addWidget(heading);
  head->addStretch(1);
  if (type_.besideHeading) head->addWidget(type_.besideHeading(*this));
  return head;
}

void MasterDialog::buildFoot(QHBoxLayout& foot) {
  const auto make = [&](const char* name, const QString& caption, const QString& hint) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(hint);
    button->setAutoDefault(false);
    foot.addWidget(button);
    return button;
  };
  if (type_.find) {
    auto* find = make("FindBttn", tr("&Find"), tr("Looks for a row by any part of its code or name (Ctrl+F)"));
    find->setShortcut(QKeySequence::Find);
    connect(find, &QPushButton::clicked, this, [this] {
      if (mayClose()) type_.find(*this);
    });
  }
  if (!type_.prints.empty()) {
    auto* print = make("PrintBttn", tr("&Print"), tr("Shows a list as it will be printed"));
    auto* menu = new QMenu(print);
    for (const MasterPrint& choice : type_.prints)
      connect(menu->addAction(forms::shownText(choice.caption)), &QAction::triggered, this,
              [this, &choice] { printChoice(choice); });
    print->setMenu(menu);
  }
  if (type_.bringIn) {
    auto* import = make("ImportBttn", tr("&Bring In…"), tr("Brings rows in from a spreadsheet or a CSV file"));
    connect(import, &QPushButton::clicked, this, [this] {
      if (mayClose() && type_.bringIn(*this)) reload();
    });
  }
  foot.addStretch(1);
  auto* close = make("CloseBttn", tr("&Close"), tr("Closes this window (Esc)"));
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void MasterDialog::buildKeys() {
  const auto onKey = [this](const QKeySequence& keys, auto command) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, command);
  };
  onKey(QKeySequence::New, [this] { active().add(); });
  onKey(QKeySequence::Save, [this] { active().save(); });
  onKey(QKeySequence(Qt::Key_Escape), [this] { escape(); });
  for (int i = 0; i < levels() && levels() > 1; ++i)
    onKey(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + i)), [this, i] { panel(i).focusList(); });
}

void MasterDialog::connectPanels() {
  for (int i = 0; i < levels(); ++i) {
    connect(&panel(i), &MasterPanel::currentChanged, this, [this, i] { loadBelow(i); });
    connect(&panel(i), &MasterPanel::busyChanged, this, [this, i] { holdOthers(i); });
  }
}

void MasterDialog::loadBelow(int level) {
  if (level + 1 >= levels()) return;
  std::vector<std::string> keys = panel(level).parentKeys();
  keys.push_back(panel(level).key());
  panel(level + 1).load(std::move(keys));
}

// While a level is being changed, the others wait.
void MasterDialog::holdOthers(int level) {
  for (int i = 0; i < levels(); ++i)
    if (i != level) panel(i).setEnabled(!panel(level).isBusy());
}

MasterPanel& MasterDialog::active() {
  for (MasterPanel* panel : panels_)
    if (panel->isBusy()) return *panel;
  return *panels_.back();
}

void MasterDialog::escape() {
  if (active().isBusy())
    active().cancel();
  else
    reject();
}

void MasterDialog::goTo(const std::vector<std::string>& keys) {
  for (std::size_t i = 0; i < keys.size() && i < panels_.size(); ++i)
    if (!panels_[i]->goTo(keys[i])) return;
  panels_[std::min(keys.size(), panels_.size()) - 1]->focusList();
}

void MasterDialog::reload() {
  std::vector<std::string> keys;
  for (const MasterPanel* panel : panels_) keys.push_back(panel->key());
  panels_.front()->load({type_.rootKey});
  goTo(keys);
}

void MasterDialog::giveWayTo(const std::string& dialog) {
  session::ScreenOpener& screens = workplace_.screens;
  done(Accepted);
  if (!isVisible()) QTimer::singleShot(0, qApp, [&screens, dialog] { screens.openDialog(dialog); });
}

void MasterDialog::printChoice(const MasterPrint& print) {
  workplace_.attempt("Cannot Print", [&] {
    if (std::optional<printing::Report> report = print.report(*this))
      printing::showPreview(this, std::move(*report), workplace_.files,
                            [&context = workplace_.context, closed = print.closed] {
                              if (closed) closed(context);
                            });
  });
}

// Enter leads on to the next box, as Tab does.
void MasterDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    focusNextChild();
  else
    QDialog::keyPressEvent(event);
}

// What was typed and not saved is lost only when the user says so.
bool MasterDialog::mayClose() {
  MasterPanel& panel = active();
  if (!panel.isBusy()) return true;
  const session::Answer answer =
      workplace_.prompts.ask({.title = "Not Saved",
                              .text = "What you have typed has not been saved. Do you want to drop it?",
                              .buttons = session::Buttons::YesNo});
  if (answer != session::Answer::Yes) return false;
  panel.cancel();
  return true;
}

void MasterDialog::done(int result) {
  if (mayClose()) QDialog::done(result);
}

}  // namespace velmo::frame

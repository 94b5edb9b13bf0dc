#include "forms/style_sheet.h"

#include <QHash>
#include <QPalette>

void loadPictures() {
  Q_INIT_RESOURCE(pictures);
}

namespace velmo::forms {
namespace {

// A word behind @ stands for a colour or a picture. Every field has the same outline of 1 px, 2 px with the focus; the
// padding gives way so that nothing moves.
constexpr const char* sheet = R"(
QLineEdit, QPlainTextEdit, QTextEdit, QComboBox, QDateEdit, QTimeEdit, QSpinBox {
  border: 1px solid @border; border-radius: 5px; padding: 4px 6px; background: @base; color: @text;
  selection-background-color: @accent; selection-color: @onAccent; }
QComboBox, QDateEdit { padding-right: 2px; }
QLineEdit:focus, QPlainTextEdit:focus, QTextEdit:focus, QComboBox:focus, QComboBox:on, QDateEdit:focus, QTimeEdit:focus, QSpinBox:focus {
  border: 2px solid @accent; padding: 3px 5px; }
QComboBox:focus, QComboBox:on, QDateEdit:focus { padding-right: 1px; }
QLineEdit:read-only, QLineEdit:disabled, QComboBox:disabled, QDateEdit:disabled {
  background: @window; color: @readOnlyText; }
QComboBox QLineEdit, QDateEdit QLineEdit, QTimeEdit QLineEdit, QSpinBox QLineEdit { border: none; padding: 0; background: transparent; }
QComboBox::drop-down, QDateEdit::drop-down { border: none; width: 22px; subcontrol-origin: padding; subcontrol-position: center right; }
QComboBox::down-arrow, QDateEdit::down-arrow { image: url(@chevron); width: 12px; height: 12px; }
QComboBox QAbstractItemView { border: 1px solid @border; background: @base; outline: 0; padding: 2px; }
QAbstractItemView QLineEdit { border: 2px solid @accent; border-radius: 0; padding: 0 3px; }

QPushButton { border: 1px solid @border; border-radius: 5px; padding: 5px 14px; background: @button; outline: 0; }
QPushButton:hover { border-color: @accent; }
QPushButton:pressed, QPushButton:checked { background: @pressed; }
QPushButton:focus { border: 2px solid @accent; padding: 4px 13px; }
QPushButton:disabled { color: @disabledText; }
QPushButton[look="primary"] { background: @accent; color: @onAccent; border-color: @accent; font-weight: 600; }
QPushButton[look="primary"]:hover { background: @accentHover; }
QPushButton[look="primary"]:focus { border: 2px solid @text; }
QPushButton[look="primary"]:disabled { background: @idleGround; border-color: @border; color: @quietText; }
QPushButton[look="quiet"] { background: transparent; border-color: transparent; color: @accent; }
QPushButton[look="quiet"]:hover { background: @pressed; }
QPushButton[look="quiet"]:focus { border-color: @accent; }
QPushButton[look="quiet"]:disabled { color: @disabledText; }

QTableView { border: 1px solid @border; border-radius: 5px; gridline-color: @gridline; background: @base;
  alternate-background-color: @alternate; selection-background-color: @selection; selection-color: @text; outline: 0; }
QTableView::item { border: none; padding: 0 3px; }
QTableView::item:focus { border: 2px solid @accent; padding: 0 1px; }
QHeaderView { background: @window; }
QHeaderView::section { background: @window; color: @quietText; border: none; border-right: 1px solid @gridline;
  border-bottom: 1px solid @border; padding: 5px 6px; font-weight: 600; }
QListView { border: 1px solid @border; background: @base; outline: 0; }
QListWidget { border: 1px solid @border; border-radius: 5px; background: @base; padding: 3px; outline: 0; }
QListWidget:focus { border: 2px solid @accent; padding: 2px; }
QListWidget::item { border: 1px solid transparent; border-radius: 4px; padding: 3px 6px; }
QListWidget::item:selected { background: @selection; color: @text; }
QListWidget::item:selected:active { background: @accent; color: @onAccent; }
QTableCornerButton::section { background: @window; border: none; border-bottom: 1px solid @border; }

QGroupBox { border: 1px solid @border; border-radius: 6px; margin-top: 9px; padding: 8px 6px 4px 6px; }
QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 4px; color: @quietText; }
QCheckBox::indicator, QRadioButton::indicator { width: 15px; height: 15px; border: 1px solid @quietText;
  background: @base; }
QCheckBox::indicator { border-radius: 4px; }
QRadioButton::indicator { border-radius: 8px; }
QCheckBox::indicator:checked { background: @accent; border-color: @accent; image: url(@tick); }
QRadioButton::indicator:checked { border-color: @accent; background: qradialgradient(cx: 0.5, cy: 0.5, radius: 0.5,
  fx: 0.5, fy: 0.5, stop: 0 @onAccent, stop: 0.42 @onAccent, stop: 0.52 @accent, stop: 1 @accent); }
QCheckBox::indicator:focus, QRadioButton::indicator:focus { border: 2px solid @accent; width: 13px; height: 13px; }
QCheckBox::indicator:checked:focus, QRadioButton::indicator:checked:focus { border-color: @text; }
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { border-color: @border; background: @window; }
QCheckBox::indicator:checked:disabled { background: @border; }
QRadioButton::indicator:checked:disabled { background: qradialgradient(cx: 0.5, cy: 0.5, radius: 0.5, fx: 0.5, fy: 0.5,
  stop: 0 @disabledText, stop: 0.42 @disabledText, stop: 0.52 @window, stop: 1 @window); }
QCalendarWidget QWidget#qt_calendar_navigationbar { background: @card; }
QCalendarWidget QToolButton { color: @text; background: transparent; border: none; border-radius: 4px; padding: 3px 8px; }
QCalendarWidget QToolButton:hover { background: @pressed; }
QCalendarWidget QToolButton#qt_calendar_prevmonth { qproperty-icon: url(@back); }
QCalendarWidget QToolButton#qt_calendar_nextmonth { qproperty-icon: url(@forward); }
[look="card"] { background: @card; border: 1px solid @border; border-radius: 10px; }
QLabel[look="caption"] { color: @quietText; }
QLabel[look="warning"] { color: @warning; }
QLineEdit[look="total"], QLineEdit[look="total"]:read-only { background: @totalGround; color: @text; border-color: @totalGround; }

QMenuBar { background: @card; border-bottom: 1px solid @border; padding: 2px; }
QMenuBar::item { padding: 5px 10px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: @accent; color: @onAccent; }
QMenu { background: @card; border: 1px solid @border; padding: 4px; }
QMenu::item { padding: 5px 28px 5px 12px; border-radius: 4px; }
QMenu::item:selected { background: @accent; color: @onAccent; }
QMenu::item:disabled { color: @disabledText; background: transparent; }
QMenu::separator { height: 1px; background: @gridline; margin: 4px 8px; }
QStatusBar { background: @card; border-top: 1px solid @border; }
QStatusBar::item { border: none; }
QTabBar::tab { background: @window; color: @quietText; border: none; border-bottom: 2px solid transparent; padding: 7px 10px; }
QTabBar::tab:selected { background: @base; color: @text; border-bottom: 2px solid @accent; }
QTabBar::tab:hover { color: @text; }
QTabBar::close-button { image: url(@cross); }
QTabBar::close-button:hover { background: @pressed; border-radius: 3px; }
QToolButton#AllScreensBttn::menu-indicator { image: none; }
QDialogButtonBox, QMessageBox { dialogbuttonbox-buttons-have-icons: 0; }
QProgressBar { border: 1px solid @border; border-radius: 5px; background: @base; color: @text; text-align: center;
  min-height: 14px; }
QProgressBar::chunk { background: @accent; border-radius: 4px; }
QScrollBar { background: transparent; border: none; margin: 0; }
QScrollBar:vertical { width: 13px; }
QScrollBar:horizontal { height: 13px; }
QScrollBar::handle { background: @scrollHandle; border-radius: 4px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 32px; }
QScrollBar::handle:horizontal { min-width: 32px; }
QScrollBar::handle:hover, QScrollBar::handle:pressed { background: @quietText; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; border: none; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QAbstractScrollArea::corner { background: transparent; border: none; }
QToolTip { background: @card; color: @text; border: 1px solid @border; padding: 4px; }
)";

QColor mixed(const QColor& ground, const QColor& ink, qreal share) {
  const auto part = [share](int from, int to) { return qRound(from + (to - from) * share); };
  return QColor(part(ground.red(), ink.red()), part(ground.green(), ink.green()), part(ground.blue(), ink.blue()));
}

}  // namespace

QString styleSheet(const QPalette& palette, const Colours& look, Brightness brightness) {
  loadPictures();
  const QColor base = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  const QString tone = brightness == Brightness::Dark ? QStringLiteral("dark") : QStringLiteral("light");
  const QHash<QString, QString> words = {
      {QStringLiteral("accent"), look.accent.name()},
      {QStringLiteral("accentHover"), mixed(look.accent, text, 0.15).name()},
      {QStringLiteral("onAccent"), look.onAccent.name()},
      {QStringLiteral("border"), look.border.name()},
      {QStringLiteral("gridline"), mixed(base, look.border, 0.55).name()},
      {QStringLiteral("quietText"), look.quietText.name()},
      {QStringLiteral("card"), look.card.name()},
      {QStringLiteral("warning"), look.warning.name()},
      {QStringLiteral("base"), base.name()},
      {QStringLiteral("alternate"), palette.color(QPalette::AlternateBase).name()},
      {QStringLiteral("window"), palette.color(QPalette::Window).name()},
      {QStringLiteral("button"), palette.color(QPalette::Button).name()},
      {QStringLiteral("text"), text.name()},
      {QStringLiteral("readOnlyText"), mixed(text, base, 0.15).name()},
      {QStringLiteral("idleGround"), mixed(palette.color(QPalette::Window), look.border, 0.35).name()},
      {QStringLiteral("disabledText"), palette.color(QPalette::Disabled, QPalette::Text).name()},
      {QStringLiteral("scrollHandle"), mixed(look.border, look.quietText, 0.25).name()},
      {QStringLiteral("pressed"), mixed(palette.color(QPalette::Button), look.accent, 0.15).name()},
      {QStringLiteral("selection"), mixed(base, look.accent, 0.18).name()},
      {QStringLiteral("totalGround"), mixed(base, look.accent, 0.10).name()},
      {QStringLiteral("chevron"), QStringLiteral(":/velmo/pictures/chevron-") + tone + QStringLiteral(".svg")},
      {QStringLiteral("back"), QStringLiteral(":/velmo/pictures/back-") + tone + QStringLiteral(".svg")},
      {QStringLiteral("forward"), QStringLiteral(":/velmo/pictures/forward-") + tone + QStringLiteral(".svg")},
      {QStringLiteral("tick"), QStringLiteral(":/velmo/pictures/tick-") + tone + QStringLiteral(".svg")},
      {QStringLiteral("cross"), QStringLiteral(":/velmo/pictures/cross-") + tone + QStringLiteral(".svg")},
  };

  const QString source = QString::fromLatin1(sheet);
  QString result;
  qsizetype from = 0;
  for (qsizetype at = source.indexOf(QLatin1Char('@')); at >= 0; at = source.indexOf(QLatin1Char('@'), from)) {
    result += source.mid(from, at - from);
    from = at + 1;
    while (from < source.size() && source.at(from).isLetter()) ++from;
    result += words.value(source.mid(at + 1, from - at - 1));
  }
  return result + source.mid(from);
}

}  // namespace velmo::forms

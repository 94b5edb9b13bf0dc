#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

#include "printing/preview_window.h"

// The commands of the preview, in the bar above the pages.
namespace velmo::printing {

namespace {

constexpr int ZoomStep = 25;  // per cent
constexpr int MostPages = 999999;
const QString FitWidth = QStringLiteral("Fit width");
const QString FitPage = QStringLiteral("Fit page");

QString percent(int zoom) {
  return QStringLiteral("%1 %").arg(zoom);
}

}  // namespace

QAction* PreviewWindow::addCommand(const QString& name, const QString& caption, const QString& hint,
                                   const QKeySequence& keys, std::function<void()> action) {
  auto* command = new QAction(caption, this);
  command->setObjectName(name);
  command->setShortcut(keys);
  command->setToolTip(hint + QStringLiteral(" (") + keys.toString(QKeySequence::NativeText) + QStringLiteral(")"));
  connect(command, &QAction::triggered, this, std::move(action));
  addAction(command);
  bar_->addAction(command);
  bar_->widgetForAction(command)->setAccessibleName(hint);
  return command;
}

void PreviewWindow::addKey(const QKeySequence& keys, std::function<void()> action) {
  auto* command = new QAction(this);
  command->setShortcut(keys);
  connect(command, &QAction::triggered, this, std::move(action));
  addAction(command);
}

void PreviewWindow::buildBar() {
  bar_ = addToolBar(QStringLiteral("Preview"));
  bar_->setMovable(false);
  bar_->setContextMenuPolicy(Qt::PreventContextMenu);
  bar_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  bar_->setStyleSheet(QStringLiteral("QToolBar { padding: 6px 8px; spacing: 4px; } QToolButton { padding: 5px 9px; }"));
  printBttn_ = addCommand(QStringLiteral("PrintBttn"), QStringLiteral("Print"), QStringLiteral("Print"),
                          QKeySequence::Print, [this] { print(); });
  pdfBttn_ = addCommand(QStringLiteral("PdfBttn"), QStringLiteral("Save as PDF"), QStringLiteral("Save as PDF"),
                        QKeySequence::Save, [this] { savePdf(); });
  bar_->addSeparator();
  addPageCommands();
  bar_->addSeparator();
  addZoomCommands();
  bar_->addSeparator();
  addFindBox();
  addCommand(QStringLiteral("CloseBttn"), QStringLiteral("Close"), QStringLiteral("Close"),
             QKeySequence(Qt::Key_Escape), [this] { isBusy() ? stop() : static_cast<void>(close()); });
}

void PreviewWindow::addPageCommands() {
  addCommand(QStringLiteral("FirstBttn"), QStringLiteral("\u00AB"), QStringLiteral("First page"),
             QKeySequence(Qt::CTRL | Qt::Key_Home), [this] { goTo(0); });
  addCommand(QStringLiteral("PrevBttn"), QStringLiteral("\u2039"), QStringLiteral("Previous page"),
             QKeySequence(Qt::Key_PageUp), [this] { goTo(view_->currentPage() - 1); });
  addPageBox();
  addCommand(QStringLiteral("NextBttn"), QStringLiteral("\u203A"), QStringLiteral("Next page"),
             QKeySequence(Qt::Key_PageDown), [this] { goTo(view_->currentPage() + 1); });
  addCommand(QStringLiteral("LastBttn"), QStringLiteral("\u00BB"), QStringLiteral("Last page"),
             QKeySequence(Qt::CTRL | Qt::Key_End), [this] { goTo(MostPages); });
}

void PreviewWindow::addPageBox() {
  pageBox_ = new QSpinBox(bar_);
  pageBox_->setObjectName(QStringLiteral("PageBox"));
  pageBox_->setAccessibleName(QStringLiteral("Page"));
  pageBox_->setToolTip(QStringLiteral("Page (Ctrl+G)"));
  pageBox_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  pageBox_->setAlignment(Qt::AlignRight);
  pageBox_->setKeyboardTracking(false);
  pageBox_->setRange(1, MostPages);
  pageBox_->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 24);
  bar_->addWidget(pageBox_);
  totalLbl_ = new QLabel(bar_);
  totalLbl_->setObjectName(QStringLiteral("TotalLbl"));
  totalLbl_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral(" of 0000 ")));
  bar_->addWidget(totalLbl_);
  connect(pageBox_, &QSpinBox::valueChanged, this, [this](int number) { goTo(number - 1); });
  connect(pageBox_, &QSpinBox::editingFinished, this, [this] {
    view_->setFocus();
    showState();
  });
  addKey(QKeySequence(Qt::CTRL | Qt::Key_G), [this] {
    pageBox_->setFocus();
    pageBox_->selectAll();
  });
}

void PreviewWindow::addZoomCommands() {
  addCommand(QStringLiteral("ZoomOutBttn"), QStringLiteral("\u2212"), QStringLiteral("Smaller"), QKeySequence::ZoomOut,
             [this] { view_->setZoom(view_->zoom() - ZoomStep); });
  zoomBox_ = new QComboBox(bar_);
  zoomBox_->setObjectName(QStringLiteral("ZoomBox"));
  zoomBox_->setAccessibleName(QStringLiteral("Zoom"));
  zoomBox_->setToolTip(QStringLiteral("Zoom (Ctrl+1 fits the width, Ctrl+2 the page)"));
  zoomBox_->setEditable(true);
  zoomBox_->setInsertPolicy(QComboBox::NoInsert);
  zoomBox_->addItems({FitWidth, FitPage});
  for (const int zoom : {50, 75, 100, 125, 150, 200, 300, 400}) zoomBox_->addItem(percent(zoom));
  zoomBox_->setFixedWidth(fontMetrics().horizontalAdvance(FitWidth) + 48);
  bar_->addWidget(zoomBox_);
  connect(zoomBox_, &QComboBox::textActivated, this, &PreviewWindow::chooseZoom);
  connect(zoomBox_->lineEdit(), &QLineEdit::returnPressed, this, [this] { chooseZoom(zoomBox_->currentText()); });
  addCommand(QStringLiteral("ZoomInBttn"), QStringLiteral("+"), QStringLiteral("Larger"), QKeySequence::ZoomIn,
             [this] { view_->setZoom(view_->zoom() + ZoomStep); });
  addCommand(QStringLiteral("FitWidthBttn"), QStringLiteral("Width"), QStringLiteral("Fit width"),
             QKeySequence(Qt::CTRL | Qt::Key_1), [this] { view_->setFit(Fit::Width); });
  addCommand(QStringLiteral("FitPageBttn"), QStringLiteral("Page"), QStringLiteral("Fit page"),
             QKeySequence(Qt::CTRL | Qt::Key_2), [this] { view_->setFit(Fit::Page); });
}

void PreviewWindow::chooseZoom(const QString& choice) {
  QString digits = choice;
  const int zoom = digits.remove(u'%').trimmed().toInt();
  if (choice == FitWidth)
    view_->setFit(Fit::Width);
  else if (choice == FitPage)
    view_->setFit(Fit::Page);
  else if (zoom > 0)
    view_->setZoom(zoom);
  view_->setFocus();
  showState();
}

void PreviewWindow::addFindBox() {
  findTxt_ = new QLineEdit(bar_);
  findTxt_->setObjectName(QStringLiteral("FindTxt"));
  findTxt_->setAccessibleName(QStringLiteral("Find"));
  findTxt_->setPlaceholderText(QStringLiteral("Find"));
  findTxt_->setToolTip(QStringLiteral("Find (Ctrl+F), next (F3), previous (Shift+F3)"));
  findTxt_->setClearButtonEnabled(true);
  findTxt_->setMinimumWidth(120);
  findTxt_->setMaximumWidth(280);
  bar_->addWidget(findTxt_);
  connect(findTxt_, &QLineEdit::returnPressed, this, [this] { find(false); });
  connect(findTxt_, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (text.isEmpty()) find(false);
  });
  addKey(QKeySequence::Find, [this] {
    findTxt_->setFocus();
    findTxt_->selectAll();
  });
  addKey(QKeySequence(Qt::Key_F3), [this] { find(false); });
  addKey(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { find(true); });
}

void PreviewWindow::showState() {
  const QSignalBlocker quietPage(pageBox_);
  const QSignalBlocker quietZoom(zoomBox_);
  if (pages_.complete()) pageBox_->setMaximum(std::max(1, pages_.total()));
  if (!pageBox_->hasFocus()) pageBox_->setValue(view_->currentPage() + 1);
  totalLbl_->setText(pages_.complete() ? QStringLiteral(" of %1 ").arg(pages_.total()) : QStringLiteral(" of ... "));
  if (!zoomBox_->lineEdit()->hasFocus()) zoomBox_->setEditText(percent(view_->zoom()));
}

}  // namespace velmo::printing

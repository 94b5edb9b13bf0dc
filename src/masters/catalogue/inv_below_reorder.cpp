#include "masters/catalogue/inv_below_reorder.h"

#include <QHBoxLayout>
#include <QRadioButton>
#include <QShortcut>

#include "frame/master/grid_editor.h"
#include "masters/catalogue/inv_below_reorder_print.h"
#include "printing/preview_window.h"

namespace velmo::masters {
namespace {

using forms::ColumnAlignment;
using frame::GridEditor;

constexpr const char* quantityFormat = "#,##0.00;(#,##0.00)";

QRadioButton* makeOption(const char* name, const QString& caption) {
  auto* option = new QRadioButton(caption);
  option->setObjectName(QLatin1String(name));
  return option;
}

ReorderChoice choiceOf(GridEditor& editor) {
  return editor.findChild<QRadioButton*>("NonZeroBttn")->isChecked() ? ReorderChoice::NonZero : ReorderChoice::All;
}

void showItems(GridEditor& editor) {
  editor.show(belowReorderStatement(editor.workplace().context.FYID, choiceOf(editor)));
}

void addChoice(GridEditor& editor, QHBoxLayout& row) {
  auto* all = makeOption("AllBttn", GridEditor::tr("&All Items"));
  auto* nonZero = makeOption("NonZeroBttn", GridEditor::tr("Items With a &Re-Order Level"));
  all->setChecked(true);
  row.addWidget(all);
  row.addWidget(nonZero);
  row.addStretch(1);
  QObject::connect(nonZero, &QRadioButton::toggled, &editor, [&editor] { showItems(editor); });
  showItems(editor);
}

void printItems(GridEditor& editor) {
  session::LoginContext& context = editor.workplace().context;
  store::Recordset rows;
  rows.openShape(context.KORDconn, belowReorderHierarchy(context.FYID, choiceOf(editor)));
  printing::showPreview(&editor, invBelowReorderPrint(context, rows, editor.workplace().clock.now()),
                        editor.workplace().files);
}

// As a child window the screen closes with the frame around it.
void closeWindow(GridEditor& editor) {
  (editor.parentWidget() ? editor.parentWidget() : &editor)->close();
}

}  // namespace

QWidget* makeInvBelowReorder(session::Workplace& workplace, QWidget* parent) {
  auto* editor = new GridEditor({.screen = "InvBelowReorder",
                                 .title = "Items Below Re-Order Level",
                                 .grid = "DetailGrid",
                                 .columns = {{.caption = "Item Code", .field = "ItemCode", .width = 18},
                                             {.caption = "In Stock",
                                              .field = "TBal",
                                              .format = quantityFormat,
                                              .alignment = ColumnAlignment::Right,
                                              .width = 14,
                                              .figures = forms::FigureKind::Exact},
                                             {.caption = "Re-Order Level",
                                              .field = "ReorderLevel",
                                              .format = quantityFormat,
                                              .alignment = ColumnAlignment::Right,
                                              .width = 14,
                                              .figures = forms::FigureKind::Exact},
                                             {.caption = "Unit", .field = "Unit", .width = 10},
                                             {.caption = "Item Name", .field = "ItemName", .width = 44}},
                                 .filters = addChoice,
                                 .commands = {{"PrintBttn", "&Print", "Shows the list as it will be printed (Ctrl+P)",
                                               printItems, "Cannot Print"}},
                                 .saves = false},
                                workplace, parent);
  QObject::connect(editor, &GridEditor::closeRequested, editor, [editor] { closeWindow(*editor); });
  QObject::connect(new QShortcut(QKeySequence::Print, editor), &QShortcut::activated, editor,
                   [editor] { printItems(*editor); });
  QObject::connect(new QShortcut(Qt::Key_Escape, editor), &QShortcut::activated, editor,
                   [editor] { closeWindow(*editor); });
  return editor;
}

}  // namespace velmo::masters

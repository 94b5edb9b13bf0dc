#include "masters/people/user_rights.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QTableView>

#include "forms/caption.h"
#include "forms/drop_combo.h"
#include "frame/master/grid_editor.h"

namespace velmo::masters {
namespace {

using frame::GridEditor;

constexpr int operators = 9;
constexpr int firstOperatorColumn = 2;  // of the grid
constexpr std::int64_t firstOperatorId = 2;

std::vector<forms::TableColumn> rightsColumns() {
  std::vector<forms::TableColumn> columns = {
      {.caption = "Right ID", .field = "RightID", .alignment = forms::ColumnAlignment::Right, .width = 8},
      {.caption = " Right Type", .field = "RightType", .width = 50}};
  for (int i = 1; i <= operators; ++i)
    columns.push_back({.caption = "   Right Allowed Status",
                       .field = "Operator" + std::to_string(i),
                       .width = 22,
                       .yes = "Not Allowed"});
  return columns;
}

// Shows the column of the chosen operator alone; none without one.
void showOperator(GridEditor& editor, std::int64_t userId) {
  for (int i = 0; i < operators; ++i)
    editor.grid().setColumnHidden(firstOperatorColumn + i, userId != firstOperatorId + i);
}

void flipRight(GridEditor& editor, int row) {
  for (int i = 0; i < operators; ++i) {
    if (editor.grid().isColumnHidden(firstOperatorColumn + i)) continue;
    store::Recordset& rights = editor.model().rows();
    const int field = rights.fieldIndex("Operator" + std::to_string(i + 1));
    rights.setAt(row, field, !store::isYes(rights.valueAt(row, field)));
    editor.noteEdits();
  }
}

void addLogins(GridEditor& editor, QHBoxLayout& row) {
  auto* logins = new forms::DropCombo;
  logins->setObjectName("LoginList");
  logins->setMinimumWidth(220);
  logins->setSource(
      {editor.workplace().context.KORDconn,
       "Select userid, username, password from users where userid>1 order by username", store::LockType::ReadOnly},
      "username", "userid");
  auto* id = new QLineEdit;
  id->setObjectName("UID");
  id->setReadOnly(true);
  id->setFocusPolicy(Qt::NoFocus);
  id->setFixedWidth(56);
  id->setAccessibleName("User number");
  row.addWidget(forms::captionFor(*logins, "&Login"));
  row.addWidget(logins);
  row.addWidget(id);
  row.addStretch(1);
  const auto chosen = [&editor, logins, id] {
    id->setText(QString::fromStdString(store::textOf(logins->boundValue())));
    showOperator(editor, store::integerOf(logins->boundValue()));
  };
  QObject::connect(logins, &forms::DropCombo::entryChanged, &editor, chosen);
  editor.show("SELECT * from userrights order by rightid");
  logins->setCurrentIndex(logins->count() > 0 ? 0 : -1);
  chosen();
}

}  // namespace

QWidget* makeUserRights(session::Workplace& workplace, QWidget* parent) {
  return new frame::GridDialog({.screen = "UserRights",
                                .title = "User Rights",
                                .grid = "RightsGrid",
                                .hint = "Double-click on selected right type to change right status.",
                                .columns = rightsColumns(),
                                .filters = addLogins,
                                .doubleClicked = flipRight},
                               workplace, parent);
}

}  // namespace velmo::masters

#include "frame/items/stray_scans.h"

#include <QApplication>
#include <QComboBox>

#include "forms/date_picker.h"
#include "forms/digits_box.h"
#include "forms/number_box.h"
#include "frame/items/item_grid.h"
#include "frame/items/scan_listener.h"
#include "frame/picking/account_drop_list.h"

namespace velmo::frame {

namespace {

// Controls that a scan would leave with another day, choice or figure.
bool isSpoiltByScans(const QWidget& focus) {
  for (const QWidget* widget = &focus; widget; widget = widget->parentWidget())
    if (qobject_cast<const forms::DatePicker*>(widget) || qobject_cast<const QComboBox*>(widget) ||
        qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const forms::NumberBox*>(widget) ||
        qobject_cast<const forms::DigitsBox*>(widget))
      return true;
  return false;
}

}  // namespace

void dropStrayScans(QWidget& screen, std::vector<ItemGrid*> grids) {
  auto* scanner = new ScanListener(screen, [grids = std::move(grids)](const QWidget& focus) {
    for (const ItemGrid* grid : grids)
      if (grid->isAncestorOf(&focus)) return !grid->isInCode();
    return isSpoiltByScans(focus);
  });
  QObject::connect(scanner, &ScanListener::scanned, &screen, [&screen] {
    for (AccountDropList* list : screen.findChildren<AccountDropList*>()) list->hide();
    QApplication::beep();
  });
}

}  // namespace velmo::frame

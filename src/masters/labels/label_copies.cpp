#include "masters/labels/label_copies.h"

#include <QInputDialog>

namespace velmo::masters {

std::optional<int> askLabelCopies(QWidget* parent, int most) {
  bool given = false;
  const int copies =
      QInputDialog::getInt(parent, QObject::tr("Bar Codes"), QObject::tr("Number of labels"), 1, 1, most, 1, &given);
  return given ? std::optional(copies) : std::nullopt;
}

}  // namespace velmo::masters

#pragma once

#include <QDialog>
#include <vector>

#include "documents/count/count_documents.h"
#include "session/workplace.h"

namespace velmo::documents {

// What a save would write, document by document and line by line, before it is written. exec() gives
// QDialog::Accepted when the user wants it saved.
class CountDifferences : public QDialog {
  Q_OBJECT

 public:
  CountDifferences(const std::vector<CountDocument>& documents, const QString& later, session::Workplace& workplace,
                   QWidget* parent);
};

}  // namespace velmo::documents

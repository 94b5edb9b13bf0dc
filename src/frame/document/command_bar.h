#pragma once

#include <QWidget>

#include "frame/document/document_type.h"

class QAbstractButton;
class QPushButton;

namespace velmo::frame {

// The commands of a document screen, each with its name and its shortcut in the tool tip. They go into two rows: the
// ways to other documents above, what is done to this one below.
class CommandBar : public QObject {
  Q_OBJECT

 public:
  CommandBar(const DocumentType& type, QWidget* screen);

  QWidget* navigation() const { return navigation_; }
  QWidget* actions() const { return actions_; }

  QPushButton* add;
  QPushButton* save;
  QPushButton* cancel;
  QPushButton* remove;
  QPushButton* print;     // nullptr when the document has no print-out of its own
  QPushButton* voucher;   // nullptr when the document has no ledger lines
  QPushButton* settings;  // nullptr when the print-out has only one layout
  QPushButton* find;
  QPushButton* retrieve;
  QPushButton* previous;
  QPushButton* next;
  std::vector<QPushButton*> conversions;  // as the type has them

  // Commands that this company, year or program does not offer stay disabled whatever setEnabled() says.
  void forbid(QAbstractButton& button);
  // A command that stands elsewhere on the screen but comes and goes with the others.
  void include(QAbstractButton& button);
  // Puts a command of the document's own behind the others.
  void place(QPushButton& button);
  // All commands but Previous and Next.
  void setEnabled(bool enabled);

 private:
  QPushButton* make(const char* name, const QString& caption, const QString& hint, const QKeySequence& keys = {});

  QWidget* screen_;
  QWidget* navigation_;
  QWidget* actions_;
  std::vector<QAbstractButton*> switched_;
  std::vector<QAbstractButton*> forbidden_;
};

}  // namespace velmo::frame

#pragma once

#include <QFrame>

#include "frame/document/own_fields.h"
#include "session/workplace.h"

namespace velmo::forms {
class DropCombo;
}

namespace velmo::frame {

// What a document refers to: its own reference fields, job, employee, stock location. A typed
// reference finds the date of the document it names when the focus leaves it.
class ReferencesCard : public QFrame {
  Q_OBJECT

 public:
  ReferencesCard(const DocumentType& type, OwnFields& fields, session::Workplace& workplace, QWidget* parent);
  ~ReferencesCard() override;

  // Reads the three lists from the store; their texts become empty.
  void loadLists();
  void setJob(std::int64_t id);
  void setEmployee(std::int64_t id);
  void setLocation(std::int64_t id);
  ListChoice job() const;
  ListChoice employee() const;
  ListChoice location() const;

 private:
  forms::DropCombo* makeList(const char* name);
  void lookUpDate(const DateLookup& lookup);

  OwnFields& fields_;
  session::Workplace& workplace_;
  // Those that the type has.
  forms::DropCombo* jobs_ = nullptr;
  forms::DropCombo* employees_ = nullptr;
  forms::DropCombo* locations_ = nullptr;
};

}  // namespace velmo::frame

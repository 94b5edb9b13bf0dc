#pragma once

#include <QFrame>

#include "frame/document/own_fields.h"
#include "session/workplace.h"

namespace velmo::forms {
class DropCombo;
}

namespace velmo::frame {

// What a document refers to: its own reference fields, jobs, employee, stock locations. A typed
// reference finds the date of the document it names when the focus leaves it.
class ReferencesCard : public QFrame {
  Q_OBJECT

 public:
  ReferencesCard(const DocumentType& type, OwnFields& fields, session::Workplace& workplace, QWidget* parent);
  ~ReferencesCard() override;

  // Reads the lists from the store; their texts become empty.
  void loadLists();
  // The second one is where goods arrive, of documents that have two places.
  void setJobs(std::int64_t id, std::int64_t to);
  void setEmployee(std::int64_t id);
  void setLocations(std::int64_t id, std::int64_t to);
  ListChoice job() const;
  ListChoice jobTo() const;
  ListChoice employee() const;
  ListChoice location() const;
  ListChoice locationTo() const;

 private:
  forms::DropCombo* makeList(const char* name);
  void lookUpDate(const DateLookup& lookup);

  OwnFields& fields_;
  session::Workplace& workplace_;
  // Those that the type has.
  forms::DropCombo* jobs_ = nullptr;
  forms::DropCombo* jobsTo_ = nullptr;
  forms::DropCombo* employees_ = nullptr;
  forms::DropCombo* locations_ = nullptr;
  forms::DropCombo* locationsTo_ = nullptr;
};

}  // namespace velmo::frame

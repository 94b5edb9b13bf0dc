#pragma once

#include <QAbstractButton>
#include <map>

namespace velmo::shell {

// What the program has to say of the work that it does by itself, and what a screen tells in passing: a line in the
// status bar that takes nobody's time. Of
// each subject the latest sentence stands there; what does not fit is cut short and shown when pointed at.
class StatusNote : public QAbstractButton {
 public:
  enum class Subject { Damage, Screen, Log, Totals, Documents };

  explicit StatusNote(QWidget* parent);

  void tell(Subject subject, const QString& sentence);
  void withdraw(Subject subject) { tell(subject, {}); }
  // Only unbalanced documents lead somewhere.
  bool leadsToDocuments() const { return sentences_.contains(Subject::Documents); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QString shownText() const;

  std::map<Subject, QString> sentences_;
};

}  // namespace velmo::shell

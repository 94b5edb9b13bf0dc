#pragma once

#include <QWidget>

#include "session/workplace.h"

class QGridLayout;

namespace velmo::shell {

// The welcome screen: whose books these are, the day, and the shortest way to a new document of each kind.
class Navigation : public QWidget {
  Q_OBJECT

 public:
  Navigation(session::Workplace& workplace, QWidget* parent);

 private:
  QWidget* makeGreeting();
  QWidget* makeLinks();

  session::Workplace& workplace_;
};

QWidget* makeNavigation(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::shell

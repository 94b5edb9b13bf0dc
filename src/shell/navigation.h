#pragma once

#include <QWidget>

#include "session/workplace.h"

class QLabel;

namespace velmo::shell {

// The welcome screen: whose books these are, the day, the shortest way to a new document of each kind, and help.
class Navigation : public QWidget {
  Q_OBJECT

 public:
  Navigation(session::Workplace& workplace, QWidget* parent);

  // The company's name may have changed.
  void showCompany();

 private:
  QWidget* makeGreeting();
  QWidget* makeLinks();
  QWidget* makeHelp();

  session::Workplace& workplace_;
  QLabel* companyName_ = nullptr;
};

QWidget* makeNavigation(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::shell

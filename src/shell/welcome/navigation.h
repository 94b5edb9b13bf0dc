#pragma once

#include <QWidget>

#include "session/workplace.h"

class QLabel;
class QLineEdit;

namespace velmo::shell {

// The welcome screen: whose books these are, the day, the shortest way to a new document of each kind, to an item's
// stock and to help.
class Navigation : public QWidget {
  Q_OBJECT

 public:
  Navigation(session::Workplace& workplace, QWidget* parent);

  // The company's name may have changed.
  void showCompany();

 private:
  QWidget* makeGreeting();
  QWidget* makeSearch();
  QWidget* makeLinks();
  QWidget* makeHelp();

  session::Workplace& workplace_;
  void searchItem();

  QLabel* companyName_ = nullptr;
  QLineEdit* searchBox_ = nullptr;
};

QWidget* makeNavigation(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::shell

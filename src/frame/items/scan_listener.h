#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

class QKeyEvent;
class QWidget;

namespace velmo::frame {

// Hears a scanner wherever the focus of a screen is: keys that follow each other faster than a person types, and Enter
// behind them. Keys are held until it is plain who types: a person's go on to where they were meant a moment later, a
// scanner's never get there. What is scanned while a message box stands is kept and told of afterwards.
class ScanListener : public QObject {
  Q_OBJECT

 public:
  // `screen` is what must be seen for a scan to count. `takes` tells of a widget in it that has the focus whether scans
  // are kept from it.
  ScanListener(QWidget& screen, std::function<bool(const QWidget& focus)> takes);
  ~ScanListener() override;

 Q_SIGNALS:
  void scanned(const QString& code);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool listensTo(const QWidget& receiver) const;
  bool pressed(const QKeyEvent& key);
  bool released(const QKeyEvent& key);
  void hold(const QKeyEvent& key);
  void pause();
  void letGo();
  void serve();

  QWidget& screen_;
  std::function<bool(const QWidget&)> takes_;
  std::vector<std::unique_ptr<QKeyEvent>> held_;  // presses and releases, in their order
  QString code_;                                  // the characters of the held presses
  quint64 lastAt_ = 0;                            // when the last key was pressed, in milliseconds
  QTimer pause_;
  bool readOnce_ = false;            // the pause is over, and what waited to be read was read
  const QEvent* passing_ = nullptr;  // the key that is on its way to whom it was typed to
  QStringList waiting_;
  QTimer service_;
  bool serving_ = false;
};

}  // namespace velmo::frame

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>

class QKeyEvent;
class QWidget;

namespace velmo::frame {

// Hears a scanner wherever the focus of a screen is: keys that follow each other faster than a person types, and Enter
// behind them. What the scanner typed into a field on its way is taken out again.
class ScanListener : public QObject {
  Q_OBJECT

 public:
  // `form` is what must be enabled for a scan to count; `except` hears its own keys.
  ScanListener(QWidget& form, QWidget& except);
  ~ScanListener() override;

 Q_SIGNALS:
  void scanned(const QString& code);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool heard(QWidget& focus, const QKeyEvent& key);
  void begin(QWidget& focus);
  void restore();

  QWidget& form_;
  QWidget& except_;
  QElapsedTimer sinceLast_;
  QString code_;
  QPointer<QWidget> typedInto_;
  QString textBefore_;
};

}  // namespace velmo::frame

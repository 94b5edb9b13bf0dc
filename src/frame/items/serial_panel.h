#pragma once

#include <QFrame>

class QPlainTextEdit;

namespace velmo::frame {

// The panel `SerialTxt` with the box `SerialBox`: the serial numbers of a line's products, a free text. It closes when
// the focus leaves it; Esc closes it and gives up what was typed.
class SerialPanel : public QFrame {
  Q_OBJECT

 public:
  // `number` stands behind the names of panel and box, where a screen has more than one.
  SerialPanel(const QString& number, QWidget* parent);

  void open(const QString& serials);
  void finish();  // closes; hands the text over when it was changed

 Q_SIGNALS:
  void entered(const QString& serials);
  void closedFromInside();  // the focus was in the box
  void saveRequested();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool boxKey(const QKeyEvent& event);
  void giveUp();

  QPlainTextEdit* SerialBox_ = nullptr;
  QString opened_;
};

}  // namespace velmo::frame

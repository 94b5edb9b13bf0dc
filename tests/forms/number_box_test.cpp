#include "forms/number_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QVBoxLayout>

#include "forms/digits_box.h"
#include "support/typing.h"

namespace velmo::forms {
namespace {

using test::focus;
using test::press;
using test::type;

// The two ways in which the amount fields of documents are set up.
const NumberBoxOptions plain = {};
const NumberBoxOptions carriage = {
    .sign = Sign::Signed, .editFormat = "#0.00", .restFormat = "#0.00; (#0.00)", .keyLimit = 9999999};

struct Keys {
  const char* standing;
  const char* typed;
  const char* plainResult;
  const char* signedResult;
};

TEST(NumberBox, LetsOnlyTheKeysOfAnAmountThrough) {
  const Keys table[] = {
      {"", "12.50", "12.50", "12.50"},
      {"", "1.2.3", "1.23", "1.23"},
      {"", "1/2", "12", "12"},
      {"", "-5", "5", "-5"},
      {"", "1e5", "15", "15"},
      {"", "(5,0) $%'\"", "50", "50"},
      {"", "٣१", "", ""},  // digits of other scripts are no figures here
      {"1.5", ".", "1.5", "1.5"},
      {"9999999", "9", "99999999", "99999999"},
      {"99999999", "1", "99999999", "99999999"},
      {"10000000", ".5-", "10000000", "10000000"},
  };
  for (const Keys& row : table) {
    SCOPED_TRACE(std::string(row.standing) + " + " + row.typed);
    NumberBox unsignedBox(nullptr, plain);
    unsignedBox.setText(QString::fromUtf8(row.standing));
    type(unsignedBox, QString::fromUtf8(row.typed));
    EXPECT_EQ(unsignedBox.text(), QString::fromUtf8(row.plainResult));
    NumberBox signedBox(nullptr, carriage);
    signedBox.setText(QString::fromUtf8(row.standing));
    type(signedBox, QString::fromUtf8(row.typed));
    EXPECT_EQ(signedBox.text(), QString::fromUtf8(row.signedResult));
  }
}

TEST(NumberBox, DeletesEvenAboveTheLimit) {
  NumberBox box;
  box.setText(QStringLiteral("123456789"));
  press(box, Qt::Key_Backspace);
  press(box, Qt::Key_Backspace);
  EXPECT_EQ(box.text(), QStringLiteral("1234567"));
  type(box, QStringLiteral("8"));
  EXPECT_EQ(box.text(), QStringLiteral("12345678"));
}

TEST(NumberBox, ReplacesTheSelectionWithItsPoint) {
  NumberBox box;
  box.setText(QStringLiteral("0.00"));
  box.selectAll();
  type(box, QStringLiteral(".5"));
  EXPECT_EQ(box.text(), QStringLiteral(".5"));
}

TEST(NumberBox, TakesAPastedNumberWholeOrNotAtAll) {
  struct Paste {
    const char* clip;
    const char* plainResult;
    const char* signedResult;
  };
  const Paste table[] = {
      {"1,234.50", "1234.50", "1234.50"},
      {" 7\n", "7.00", "7.00"},
      {"(5.00)", "", "-5.00"},
      {"1e308", "", ""},
      {"-1e308", "", ""},
      {"abc", "", ""},
      {"12abc", "", ""},
      {"1.2.3", "", ""},
  };
  for (const Paste& row : table) {
    SCOPED_TRACE(row.clip);
    QGuiApplication::clipboard()->setText(QString::fromUtf8(row.clip));
    NumberBox unsignedBox(nullptr, plain);
    press(unsignedBox, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(unsignedBox.text(), QString::fromUtf8(row.plainResult));
    NumberBox signedBox(nullptr, carriage);
    press(signedBox, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(signedBox.text(), QString::fromUtf8(row.signedResult));
  }
}

TEST(NumberBox, WritesItselfPlainlyWhileEditedAndFormattedAtRest) {
  QWidget window;
  auto* column = new QVBoxLayout(&window);
  auto* freight = new NumberBox(&window, carriage);
  auto* discount = new NumberBox(&window, plain);
  column->addWidget(freight);
  column->addWidget(discount);
  int withoutNumber = 0;
  QObject::connect(freight, &NumberBox::leftWithoutNumber, [&] {
    ++withoutNumber;
    freight->setText(QStringLiteral("0.00"));
  });

  freight->setText(QStringLiteral(" (12.50)"));
  focus(*discount);
  focus(*freight);
  EXPECT_EQ(freight->text(), QStringLiteral("-12.50"));
  EXPECT_EQ(freight->selectedText(), freight->text());
  type(*freight, QStringLiteral("-3.456"));
  focus(*discount);
  EXPECT_EQ(freight->text(), QStringLiteral(" (3.46)"));
  EXPECT_EQ(freight->amount(), -3.46);
  EXPECT_EQ(withoutNumber, 0);

  type(*discount, QStringLiteral("7"));
  focus(*freight);
  EXPECT_EQ(discount->text(), QStringLiteral("7.00"));
  type(*freight, QStringLiteral("-"));
  focus(*discount);
  EXPECT_EQ(withoutNumber, 1);
  EXPECT_EQ(freight->text(), QStringLiteral("0.00"));
}

TEST(DigitsBox, TakesDigitsUpToItsLength) {
  DigitsBox box;
  type(box, QStringLiteral("1a2-3.4 5678901"));
  EXPECT_EQ(box.text(), QStringLiteral("123456789"));
  press(box, Qt::Key_Backspace);
  EXPECT_EQ(box.text(), QStringLiteral("12345678"));

  for (const auto& [clip, result] : {std::pair{"42", "42"}, {"4x2", ""}, {"1234567890", ""}}) {
    QGuiApplication::clipboard()->setText(QLatin1String(clip));
    DigitsBox pasted;
    press(pasted, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(pasted.text(), QLatin1String(result)) << clip;
  }
}

}  // namespace
}  // namespace velmo::forms

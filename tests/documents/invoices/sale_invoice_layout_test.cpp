#include <QTableView>

#include "documents/invoice_company.h"
#include "forms/look.h"

namespace {

using namespace velmo;

// Every control that is shown keeps to its screen, does not lie over its neighbours and has a name for a screen reader.
// With VELMO_PICTURES set to a folder, the screens are left there as pictures.
TEST(SaleInvoiceLayout, NothingIsClippedOrUnnamedOnSmallAndLargeScreens) {
  for (const forms::Brightness brightness : {forms::Brightness::Light, forms::Brightness::Dark})
    for (const QSize size : {QSize(1024, 690), QSize(2560, 1340)}) {
      forms::applyLook(*qApp, brightness);
      test::InvoiceCompany shop;
      test::InvoiceScreen screen(shop);
      screen.widget().resize(size);
      screen.type("PartyCodeTxt", "12001002");
      screen.type("D1", "PO-9");
      screen.line(0, "H1", "12");
      screen.line(1, "N1", "1000");
      screen.type("Received", "250");
      QApplication::processEvents();
      EXPECT_EQ(screen.widget().size(), size) << "the screen needs more room than there is";
      for (QWidget* control : screen.widget().findChildren<QWidget*>()) {
        if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus) continue;
        if (control->objectName().isEmpty() || control->objectName().startsWith("qt_")) continue;
        SCOPED_TRACE(control->objectName().toStdString());
        EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()));
        EXPECT_FALSE(control->accessibleName().isEmpty());
        if (qobject_cast<QPushButton*>(control)) {
          EXPECT_GE(control->width(), control->minimumSizeHint().width());
        }
      }
      if (const QByteArray folder = qgetenv("VELMO_PICTURES"); !folder.isEmpty())
        screen.widget().grab().save(QString("%1/invoice-%2-%3.png")
                                        .arg(QString::fromLocal8Bit(folder))
                                        .arg(size.width())
                                        .arg(brightness == forms::Brightness::Dark ? "dark" : "light"));
    }
}

}  // namespace

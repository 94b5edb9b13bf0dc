#pragma once

#include <QLabel>

#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "reports/ledger_company.h"

namespace velmo::test {

// A company with balances, and a screen of them that a user works at: an opening on the first of January, trade from
// October on, a customer whose account comes back to zero by parts that no binary fraction is, and a cancelled
// document.
class BalancesDesk : public LedgerCompany {
 protected:
  BalancesDesk() {
    context->ccode = "Rs.";
    context->CompanyName = "Harbour Timber";
    addAccount(11001001, "City Bank");
    addAccount(21001002, "Mills");
    context->AccountsRS.requery();
    post({.day = "01-01-2026", .tranType = 11, .lines = {{10001001, 500.25, 0}, {31001001, 0, 500.25}}});
    post({.day = "10-01-2026", .tranType = 32, .lines = {{12001002, 1000, 0}, {40001009, 0, 1000}}});
    post({.day = "10-02-2026", .tranType = 32, .lines = {{12001003, 0.1, 0}, {12001003, 0.2, 0}, {40001009, 0, 0.3}}});
    post({.day = "10-03-2026", .tranType = 38, .lines = {{11001001, 0.3, 0}, {12001003, 0, 0.3}}});
    post({.day = "11-10-2026", .tranType = 22, .lines = {{50001002, 640.1, 0}, {21001002, 0, 640.1}}});
    post({.day = "11-22-2026", .tranType = 38, .lines = {{11001001, 300, 0}, {12001002, 0, 300}}});
    post({.day = "11-22-2026", .tranType = 32, .lines = {{12001002, 9999, 0}, {40001009, 0, 9999}}, .cancelled = true});
    post({.day = "12-01-2026", .tranType = 28, .lines = {{21001002, 640.1, 0}, {11001001, 0, 640.1}}});
  }

  void choose(const char* button, bool chosen = true) { control<QAbstractButton>(button).setChecked(chosen); }
  void chooseEntry(const char* list, const store::Value& value) {
    control<forms::DropCombo>(list).setBoundValue(value);
  }
  void range(const char* from, const char* to) {
    choose("RangeOpt");
    write("CodeFrom", from);
    write("CodeTo", to);
  }
  void setPeriod(const char* from, const char* to) {
    control<forms::DatePicker>("BalDt_0").setDay(*text::DateTime::fromIso(from));
    control<forms::DatePicker>("BalDt_1").setDay(*text::DateTime::fromIso(to));
  }
  // The rows of a grid, cells parted by "|".
  std::vector<std::string> lines(const char* grid) {
    const QAbstractItemModel& model = *control<QTableView>(grid).model();
    std::vector<std::string> result;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) cells << model.index(row, column).data().toString();
      result.push_back(cells.join('|').toStdString());
    }
    return result;
  }
  std::vector<std::string> view(const char* grid = "DetailGrid") {
    click("ViewBttn");
    return lines(grid);
  }
  void doubleClick(const char* grid, int row) {
    auto& view = control<QTableView>(grid);
    screens.opened.clear();
    Q_EMIT view.doubleClicked(view.model()->index(row, 0));
  }
};

}  // namespace velmo::test

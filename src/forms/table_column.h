#pragma once

#include <QString>
#include <QVariant>
#include <string>

#include "store/values/value.h"

namespace velmo::forms {

enum class ColumnAlignment { Left, Centre, Right };
enum class ColumnUse { Shown, Editable };

// What a spreadsheet of a list holds of a number that is shown in a format.
enum class FigureKind {
  Money,  // the amount that is shown
  Exact   // every digit: rates, costs and quantities
};

// One column of a list. Numbers and dates are written in the format ("0.00;(0.00)", "dd-mm-yyyy"); without a format
// the text is what the store gives.
struct TableColumn {
  std::string caption;
  std::string field;
  std::string format = {};
  ColumnAlignment alignment = ColumnAlignment::Left;
  int width = 12;  // in average characters
  ColumnUse use = ColumnUse::Shown;
  std::string yes = {};  // of a Yes/No column: what stands for Yes and for No
  std::string no = {};
  FigureKind figures = FigureKind::Money;
};

// What a cell shows of a value.
QString shownValue(const store::Value& value, const TableColumn& column);
// What a model answers for Qt::TextAlignmentRole.
int qtAlignment(ColumnAlignment alignment);

}  // namespace velmo::forms

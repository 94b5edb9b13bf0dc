#pragma once

#include <QWidget>

#include "session/workplace.h"

// The six columns of one kind of accounts. None of them touches the closing stock.
namespace velmo::reports {

QWidget* makeCustomerBalances(session::Workplace& workplace, QWidget* parent);
QWidget* makeVendorBalances(session::Workplace& workplace, QWidget* parent);
QWidget* makeCashBalances(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::reports

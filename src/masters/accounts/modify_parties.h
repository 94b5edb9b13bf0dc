#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// Customers, vendors and banks: the accounts of one type with the details that are theirs.
QWidget* makeModifyCustomers(session::Workplace& workplace, QWidget* parent);
QWidget* makeModifySuppliers(session::Workplace& workplace, QWidget* parent);
QWidget* makeModifyBanks(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters

#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::shell {

// How sale invoices, purchase orders, quotations and delivery challans are printed: layout, own letterhead, top margin.
QWidget* makeInvoiceSettings(session::Workplace& workplace, QWidget* parent);
QWidget* makePOSettings(session::Workplace& workplace, QWidget* parent);
QWidget* makeQuoteSettings(session::Workplace& workplace, QWidget* parent);
QWidget* makeDCSettings(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::shell

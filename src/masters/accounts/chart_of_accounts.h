#pragma once

namespace velmo::frame {
class MasterDialog;
}

namespace velmo::masters {

// `LoginContext::ChartView` when all accounts are to be picked from; otherwise it is the type of those that are.
inline constexpr int wholeChart = 1;

// Lets the user search the accounts, `ChartofAccounts`; the dialog then shows the one that was picked.
void pickAccount(frame::MasterDialog& dialog, int chartView);

}  // namespace velmo::masters

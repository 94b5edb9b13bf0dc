#pragma once

namespace velmo::frame {

class ReportScreen;

// Asks for a file and saves the rows that the screen shows, as its descriptor lays the sheet out: .xlsx or
// comma-separated values. `WaitPic` of the screen is seen meanwhile.
void saveReportSheet(ReportScreen& screen);

}  // namespace velmo::frame

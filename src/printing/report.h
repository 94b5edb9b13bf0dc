#pragma once

#include <QImage>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "printing/report_data.h"
#include "printing/report_design.h"
#include "text/date_time.h"

namespace velmo::printing {

// A design with all that one print-out puts into it. Texts are UTF-8, names are those of the design's elements.
struct Report {
  std::string title = {};   // of the window and of the file
  std::string author = {};  // of the file: the company
  ReportDesign design = {};
  std::shared_ptr<const ReportData> data = {};
  std::map<std::string, std::string, std::less<>> variables = {};  // captions of labels
  std::map<std::string, QImage, std::less<>> pictures = {};
  std::set<std::string, std::less<>> hidden = {};  // elements and sections that do not show
  text::DateTime printedOn = {};
};

}  // namespace velmo::printing

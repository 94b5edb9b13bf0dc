#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "printing/page.h"

namespace velmo::printing::test {

// What stands between the column headings and the foot of the pages, a line of a page as one text, fields parted by
// "|". Lines in bold begin with "= ", those in semi-bold with "- ".
inline std::vector<std::string> linesOf(const std::vector<Page>& pages) {
  std::vector<std::string> lines;
  for (const Page& page : pages) {
    std::map<Twips, std::vector<TextRun>> rows;
    for (const TextRun& run : page.drawing.texts)
      if (run.colour != 0xffffffff && run.colour != ink::Quiet) rows[run.at.top].push_back(run);
    for (auto& [top, runs] : rows) {
      std::ranges::sort(runs, {}, [](const TextRun& run) { return run.at.left; });
      std::string line;
      for (const TextRun& run : runs) line += (line.empty() ? "" : "|") + page.drawing.textOf(run).toStdString();
      const FontSpec font = runs.front().font;
      if (font.size > 10) continue;  // company and title
      if (font.weight == Weight::Bold) line = "= " + line;
      if (font.weight == Weight::SemiBold) line = "- " + line;
      lines.push_back(line);
    }
  }
  return lines;
}

}  // namespace velmo::printing::test

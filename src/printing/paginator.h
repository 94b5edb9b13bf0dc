#pragma once

#include <deque>
#include <optional>

#include "printing/section_layout.h"

namespace velmo::printing {

// Turns a report into pages, one after the other, and keeps none that it has handed out: the first is there at once,
// however long the report. The report must outlive the paginator. A design whose headers and footers leave no room for
// its rows throws std::logic_error.
class Paginator {
 public:
  explicit Paginator(const Report& report);

  // Nothing behind the last page. A report without rows has one page.
  std::optional<Page> next();

 private:
  void step();
  // A section as it was set on a page.
  struct Piece {
    const Section* section;
    int level;
    int page;
    Block block;
    Twips least() const { return section->keep == Keep::MayBreak ? 0 : block.height; }
  };

  Piece pieceOf(const Section& section, int level);
  void place(const Section& section, int level);
  void placeWaiting(Twips below);
  void placeHere(Piece piece, Twips below);
  void pour(const Section& section, Block block);
  void placeAtOnce(const std::optional<Section>& section, int level);
  void append(const Block& block);
  void beginPage();
  void endPage();
  Twips space() const { return bottom_ - y_; }
  Block set(const Section& section, int level);

  const Report& report_;
  const ReportDesign& design_;
  ReportWalk walk_;
  FunctionTotals totals_;
  SectionLayout layout_;
  std::deque<Page> ready_;
  std::vector<Piece> waiting_;  // headers that go on the page of what comes next
  Page page_;
  Block footer_;
  Twips y_ = 0;
  Twips bottom_ = 0;
  int pageNumber_ = 0;
  int openGroups_ = 0;     // groups whose header was printed and whose footer was not
  int closingGroup_ = -1;  // whose footer is being placed
  bool pageOpen_ = false;
  bool fresh_ = false;         // nothing but headers on the page
  bool breakPending_ = false;  // the next thing that prints begins a page
  bool ended_ = false;
};

}  // namespace velmo::printing

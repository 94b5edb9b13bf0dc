#include "printing/paginator.h"

#include <stdexcept>
#include <utility>

namespace velmo::printing {

namespace {

// A page of a roll is as long as its lines, up to what a PDF page can be.
constexpr Twips LongestPage = 14400 * 20;
// Less room than this between the headers and the footers of a page is a mistake of the design.
constexpr Twips LeastBody = mm(15);

bool breaksBefore(const Section& section) {
  return section.forcePageBreak == PageBreak::Before || section.forcePageBreak == PageBreak::Both;
}

bool breaksAfter(const Section& section) {
  return section.forcePageBreak == PageBreak::After || section.forcePageBreak == PageBreak::Both;
}

}  // namespace

Paginator::Paginator(const Report& report)
    : report_(report), design_(report.design), walk_(design_, *report.data), totals_(design_, walk_), layout_(report) {}

std::optional<Page> Paginator::next() {
  while (ready_.empty() && !ended_) step();
  if (ready_.empty()) return std::nullopt;
  Page page = std::move(ready_.front());
  ready_.pop_front();
  return page;
}

void Paginator::step() {
  const WalkStep step = walk_.next();
  switch (step.step) {
    case Step::ReportHeader:
      beginPage();
      break;
    case Step::GroupHeader: {
      const Group& group = design_.groups[static_cast<std::size_t>(step.level)];
      totals_.beginGroup(step.level);
      totals_.addRow(step.level);
      if (!group.header) break;
      if (group.header->keep == Keep::WithNext) {
        waiting_.push_back(pieceOf(*group.header, step.level));
      } else {
        place(*group.header, step.level);
        openGroups_ = step.level + 1;
      }
      break;
    }
    case Step::Detail:
      totals_.addRow(step.level);
      if (design_.detail) place(*design_.detail, step.level);
      break;
    case Step::GroupFooter: {
      const Group& group = design_.groups[static_cast<std::size_t>(step.level)];
      closingGroup_ = step.level;
      if (group.footer) place(*group.footer, step.level);
      closingGroup_ = -1;
      if (!waiting_.empty() && waiting_.back().level == step.level) placeWaiting(0);  // nothing stands below them
      openGroups_ = step.level;
      break;
    }
    case Step::ReportFooter:
      if (design_.reportFooter) place(*design_.reportFooter, 0);
      break;
    case Step::End:
      if (pageOpen_) endPage();
      ended_ = true;
      break;
  }
}

Block Paginator::set(const Section& section, int level) {
  return layout_.set(
      section,
      {.report = report_, .rows = walk_, .totals = totals_, .ownLevel = std::max(level, 0), .pageNumber = pageNumber_});
}

Paginator::Piece Paginator::pieceOf(const Section& section, int level) {
  return {.section = &section, .level = level, .page = pageNumber_, .block = set(section, level)};
}

void Paginator::place(const Section& section, int level) {
  Piece piece = pieceOf(section, level);
  if (piece.block.height == 0) return;
  placeWaiting(piece.least());
  placeHere(std::move(piece), 0);
}

// Headers, on a page that has so much room below the last of them.
void Paginator::placeWaiting(Twips below) {
  for (const Piece& header : waiting_) below += header.least();
  for (Piece& header : std::exchange(waiting_, {})) {
    const int level = header.level;
    below -= header.least();
    if (header.block.height > 0) placeHere(std::move(header), below);
    openGroups_ = level + 1;
  }
}

// On this page, or on the next one when it does not fit with so much below it.
void Paginator::placeHere(Piece piece, Twips below) {
  const Section& section = *piece.section;
  if ((breakPending_ || breaksBefore(section)) && !(pageOpen_ && fresh_)) {
    if (pageOpen_) endPage();
    beginPage();
  }
  breakPending_ = false;
  if (!fresh_ && piece.least() + below > space()) {
    endPage();
    beginPage();
  }
  if (piece.page != pageNumber_) piece.block = set(section, piece.level);  // the number may stand in it
  pour(section, std::move(piece.block));
  if (breaksAfter(section)) breakPending_ = true;
}

// What is higher than the page goes on overleaf, between two lines of text.
void Paginator::pour(const Section& section, Block block) {
  while (block.height > space()) {
    const Block top = block.takeTop(space());
    if (top.height == 0 && fresh_) throw std::logic_error("section '" + section.name + "' has no room on a page");
    if (top.height > 0) append(top);
    endPage();
    beginPage();
  }
  append(block);
  fresh_ = false;
}

void Paginator::placeAtOnce(const std::optional<Section>& section, int level) {
  if (section) append(set(*section, level));
}

void Paginator::append(const Block& block) {
  page_.drawing.add(block.drawing, design_.margins.left, y_);
  y_ += block.height;
}

void Paginator::beginPage() {
  ++pageNumber_;
  page_ = Page{.number = pageNumber_, .width = design_.paper.width, .height = design_.paper.height, .drawing = {}};
  pageOpen_ = true;
  fresh_ = true;
  y_ = design_.margins.top;
  footer_ = design_.pageFooter ? set(*design_.pageFooter, 0) : Block{};
  const Twips length = design_.paper.endless() ? LongestPage : design_.paper.height;
  bottom_ = length - design_.margins.bottom - footer_.height;
  if (pageNumber_ == 1) placeAtOnce(design_.reportHeader, 0);
  placeAtOnce(design_.pageHeader, 0);
  for (int level = 0; level < openGroups_; ++level) {
    const std::optional<Section>& header = design_.groups[static_cast<std::size_t>(level)].header;
    if (!header || header->repeat == Repeat::Once) continue;
    if (header->repeat == Repeat::EveryPage || level != closingGroup_) placeAtOnce(header, level);
  }
  if (space() < LeastBody) throw std::logic_error("the headers and footers of the report leave no room for its rows");
}

void Paginator::endPage() {
  const bool roll = design_.paper.endless();
  const Twips top = roll ? y_ : bottom_;
  page_.drawing.add(footer_.drawing, design_.margins.left, top);
  if (roll) page_.height = top + footer_.height + design_.margins.bottom;
  ready_.push_back(std::move(page_));
  pageOpen_ = false;
}

}  // namespace velmo::printing

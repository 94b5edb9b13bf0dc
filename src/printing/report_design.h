#pragma once

#include <QRgb>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "printing/geometry.h"

// A banded report as data. On paper the sections follow each other so:
//   report header (once) · page header (every page) · group headers, outer to inner · detail (once a row of the
//   innermost level) · group footers, inner to outer · report footer (once) · page footer (at the foot of every page)
// A level is one command of the hierarchy: each group is a level with a header and a footer, the detail is the last.
namespace velmo::printing {

class RowScope;

enum class Align { Left, Centre, Right };
enum class Weight { Regular, SemiBold, Bold };
enum class Slant { Upright, Italic };
enum class PageBreak { None, Before, After, Both };
// A section that does not fit on the page moves whole, or goes on overleaf. WithNext, of a group header: moves whole,
// and also when what comes next does not fit below it.
enum class Keep { Together, MayBreak, WithNext };
// Of a group header: again on the pages that the group runs on to, or on those of them alone where its rows go on, and
// not above a footer by itself.
enum class Repeat { Once, EveryPage, AboveRows };
enum class WhenEmpty { KeepPlace, Fold };                 // Fold: no height, and what stands below moves up
enum class Stretch { None, WithContents, WithSection };   // of lines and boxes, as text in them or the section grows
enum class Statistic { Sum, Avg, Min, Max, RCnt, VCnt };  // RCnt counts rows, VCnt values that are not null

namespace ink {
inline constexpr QRgb Black = 0xff16191d;
inline constexpr QRgb Quiet = 0xff5b6470;   // captions beside figures
inline constexpr QRgb Rule = 0xffb8c0ca;    // thin rules
inline constexpr QRgb Band = 0xffeef1f5;    // ground of column headings and totals
inline constexpr QRgb Accent = 0xff1f3a5f;  // titles
inline constexpr QRgb Alarm = 0xffb3261e;   // CANCELLED
inline constexpr QRgb None = 0x00000000;
}  // namespace ink

struct FontSpec {
  double size = 8.5;  // points, in tenths
  Weight weight = Weight::Regular;
  Slant slant = Slant::Upright;

  bool operator==(const FontSpec&) const = default;
};

// A fixed text, unless the report has a variable of the element's name, which is taken as it stands. In the caption
// %p is the page, %P the count of pages, %d the short and %D the long date, %i the title, %% a percent sign.
struct Label {
  std::string caption = {};
};

// A field of the row of a level; without a data member, of the section's own level.
struct Field {
  std::string dataField = {};
  std::string format = {};  // as text::formatNumber and formatDate read it
  std::string dataMember = {};
};

// Footers only: over the rows of a level (without a data member, of the detail) within this group, or within the
// report. Over no values Avg, Min and Max are blank, the others 0.
struct Function {
  Statistic statistic = Statistic::Sum;
  std::string dataField = {};
  std::string format = {};
  std::string dataMember = {};
};

// The report's picture of the element's name, as large as the frame allows, without distortion.
struct Picture {};

// Along the longer side of its frame.
struct Line {
  Twips thickness = 10;
  QRgb colour = ink::Rule;
};

struct Box {
  QRgb fill = ink::None;
  QRgb outline = ink::None;
  Twips thickness = 10;
};

using Content = std::variant<Label, Field, Function, Picture, Line, Box>;
using Condition = std::function<bool(const RowScope&)>;

// Text wraps within its frame's width, also inside a word, and the frame grows downwards; what stands below it moves.
struct Element {
  std::string name = {};
  Frame at = {};  // within the section
  Content content = Label{};
  FontSpec font = {};
  Align align = Align::Left;
  QRgb colour = ink::Black;
  WhenEmpty whenEmpty = WhenEmpty::KeepPlace;
  Stretch stretch = Stretch::None;
  Condition visibleWhen = {};  // always, when there is none
};

struct Section {
  std::string name = {};
  Twips height = 0;  // grows with its text
  std::vector<Element> elements = {};
  PageBreak forcePageBreak = PageBreak::None;
  Keep keep = Keep::Together;
  Repeat repeat = Repeat::Once;
  Condition visibleWhen = {};
};

struct Group {
  std::string dataMember = {};  // the chapter that holds the level's rows; of the outermost level only a name
  std::optional<Section> header = {};
  std::optional<Section> footer = {};
};

struct ReportDesign {
  Paper paper = A4;
  Margins margins = {};
  std::optional<Section> reportHeader = {};
  std::optional<Section> pageHeader = {};
  std::vector<Group> groups = {};  // outer to inner
  std::string detailMember = {};
  std::optional<Section> detail = {};
  std::optional<Section> reportFooter = {};
  std::optional<Section> pageFooter = {};

  Twips bodyWidth() const { return paper.width - margins.left - margins.right; }
};

}  // namespace velmo::printing

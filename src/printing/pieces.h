#pragma once

#include <string>
#include <vector>

#include "printing/report.h"
#include "session/login_context.h"

// Parts that print-outs share. Each puts its elements into a section and the texts they show into the report, so that a
// layout is a handful of calls. Lengths are Twips within the section, texts UTF-8.
namespace velmo::printing {

// What every print-out says of the company and the user.
struct Letterhead {
  std::string companyName = {};
  std::string address = {};
  std::string telephones = {};
  std::string email = {};
  std::string userName = {};
};

// A line whose caption has nothing behind it is left out.
Letterhead letterheadOf(const session::LoginContext& context);

enum class HeadStyle {
  Company,        // name, address and logo
  OwnLetterhead,  // nothing: the paper bears them
};

// The company's logo, the file "mylogo.jpg" of the current folder, at most as fine as paper shows it. Null without the
// file, or when it is no picture.
QImage companyLogo();

// Elements `CoName`, `Coadd`, `Cotel`, `CoEMail` and `Logo`, which is the file "mylogo.jpg" of the current folder.
// Without that file the lines fill the head alone. Raises the section by what it puts in.
void addCompanyHead(Report& report, Section& section, const Letterhead& head);

// The company's lines alone, in the middle, as vouchers and lists show them.
void addCompanyLines(Report& report, Section& section, const Letterhead& head);

// A caption and its text side by side.
struct Reference {
  std::string captionName = {};
  std::string caption = {};
  std::string name = {};
  std::string text = {};  // the report's variable of that name
};

// References under each other; one without text folds away. Returns the lowest edge.
Twips addReferences(Report& report, Section& section, Frame at, Twips captionWidth, const std::vector<Reference>& rows);

// A column of a table of lines.
struct Column {
  std::string heading = {};
  std::string dataField = {};
  Twips width = 0;  // 0: what the others leave; of one column
  Align align = Align::Left;
  std::string format = {};
  std::string headingName = {};
  std::string totalName = {};  // a sum stands in the totals row when it is given
};

struct ColumnPlace {
  Column column = {};
  Twips left = 0;
  Twips width = 0;
};

inline constexpr FontSpec TableFont{.size = 7.5};
// The widest amount that a column of the tables holds without a break is "(9,999,999,999.99)".
inline constexpr Twips AmountColumn = mm(26.2);

std::vector<ColumnPlace> placeColumns(const std::vector<Column>& columns, Twips bodyWidth);
void addColumnHeadings(Section& section, const std::vector<ColumnPlace>& columns, Twips bodyWidth);
// The detail section: one line of the table, closed by a thin rule.
Section tableLine(const std::vector<ColumnPlace>& columns, Twips bodyWidth);
// The sums under their columns, with a label before them.
void addTotalsRow(Section& section, const std::vector<ColumnPlace>& columns, Twips bodyWidth,
                  const std::string& labelName);

enum class Emphasis { Plain, Strong };

struct Total {
  std::string labelName = {};
  std::string label = {};
  std::string name = {};
  std::string amount = {};
  Emphasis emphasis = Emphasis::Plain;
};

// A column of totals at the right end of the section, from `top` down. Returns the lowest edge.
Twips addTotals(Report& report, Section& section, Twips top, Twips bodyWidth, const std::vector<Total>& totals);

// Lines to sign on, over the whole width, at the section's end. Raises the section.
void addSignatures(Section& section, Twips bodyWidth, const std::vector<std::string>& captions);

// The foot of every page: "Printed By: ", "Page  %p  of  %P", "Date %d".
Section pageFoot(Report& report, const Letterhead& head, Twips bodyWidth);

}  // namespace velmo::printing

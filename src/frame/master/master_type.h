#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/recordset_model.h"
#include "frame/master/given_code.h"
#include "frame/master/master_entry.h"
#include "printing/report.h"
#include "session/workplace.h"

// A dialog that keeps master data, as data: one to three levels of rows, each with a list, boxes and commands. The rows
// of a level belong to the current row of the level above.
namespace velmo::frame {

class MasterDialog;
class MasterPanel;

enum class BoxKind {
  Text,
  Secret,      // text that is not shown
  Digits,      // a number without point or sign
  Amount,      // digits and one point
  Choice,      // an entry of a list of rows; the bound column is written
  Suggestion,  // any text, with the known ones to drop down
  Account,     // the code of an account, with the accounts to drop down
  Check,
  OneOfTwo,  // two options of a Yes/No column, the first for Yes
  Day
};
// A hidden box stands for its column by another name: it follows the box that the user sees, and leads it where a
// program writes into it.
enum class BoxUse { Open, OpenWhileAdding, ShownOnly, Hidden };

// The rows behind Choice and Suggestion; read again when the list drops down.
struct ChoiceRows {
  std::string statement = {};
  std::string shownColumn = {};
  std::string boundColumn = {};
};

// A button beside a box, which opens the dialog where the box's choices are kept.
struct ChoiceKeeper {
  std::string button = {};
  std::string dialog = {};
  std::string hint = {};
};

struct MasterField {
  std::string name;  // of the control; of OneOfTwo the controls are name_0 and name_1
  std::string caption;
  std::string column;
  BoxKind kind = BoxKind::Text;
  BoxUse use = BoxUse::Open;
  std::string initial = {};  // of a new row; of Choice the bound value, of a Check or OneOfTwo "yes", of a Day "today"
  ChoiceRows choices = {};
  ChoiceKeeper keeper = {};
  std::string accounts = {};              // Account: what they fulfil, a condition on acclevel3
  std::vector<std::string> options = {};  // OneOfTwo: the two captions
  int span = 1;                           // columns of the form
  int width = 0;                          // in average characters; 0: what there is
  int longest = 0;                        // characters of a new row's text; 0: as many as a text may have
};

// A column of the row that is saved, in the order of writing: what stands in its box, or what the function makes.
struct WrittenColumn {
  std::string column;
  std::function<store::Value(const MasterEntry&)> value = {};
};

// One test before a row is saved; the order of a list of tests is the order in which the user meets them.
// It is made again where nobody else can write, before the row is.
struct MasterTest {
  std::function<std::optional<std::string>(const MasterEntry&)> refusal;  // nothing when the row passes
  std::string column = {};                                                // its box gets the focus
};

struct MasterNotice {
  std::string title;
  std::string text;
};

struct MasterDeletion {
  MasterNotice none;  // there is no row
  std::vector<std::function<std::optional<std::string>(const MasterEntry&)>> refusals = {};
  std::function<std::string(const MasterEntry&)> question;
};

struct MasterLevel {
  std::string frame;   // its name: "L1Frame"
  std::string list;    // its name: "L1List"
  std::string suffix;  // of the names of its commands: "" AddBttn, "2" AddBttn2
  std::string heading;
  std::string key;                                                     // the column that names a row among its fellows
  std::function<std::string(const std::string& parentKey)> statement;  // "" for the parent when there is none
  std::vector<forms::TableColumn> columns;                             // of the list
  std::vector<MasterField> fields;
  std::vector<WrittenColumn> written;
  std::string addFirst = "Click on Add Button before adding record.";
  std::vector<MasterTest> tests = {};
  std::optional<MasterDeletion> deletion = {};
  std::string firstColumn = {};  // its box gets the focus when a row is added; the first open one without it
  int formColumns = 1;
  std::optional<GivenCode> givenCode = {};
  // A new row was begun, and its boxes have their initial texts and its code. False: no row is begun.
  std::function<bool(MasterPanel&)> begin = {};
  // The user changed the box of a column.
  std::function<void(MasterPanel&, const std::string& column)> changed = {};
  // The panel is there: further commands of the level's own go into its row of commands.
  std::function<void(MasterPanel&)> furnish = {};
  // The boxes show another row, or a new one.
  std::function<void(MasterPanel&)> shown = {};
  // Within the transaction that writes the row, after it. keyBefore: of the row as it was read, "" for a new one.
  std::function<void(const MasterEntry&, const std::string& keyBefore)> alsoWrite = {};
};

struct MasterPrint {
  std::string caption;
  std::function<std::optional<printing::Report>(MasterDialog&)> report;  // nothing when there is nothing to print
  std::function<void(session::LoginContext&)> closed = {};               // the print-out
};

struct MasterType {
  std::string screen;
  std::string title;
  std::string rootKey = {};  // stands for the key of the level above the first
  std::vector<MasterLevel> levels;
  std::vector<MasterPrint> prints = {};
  std::function<void(MasterDialog&)> find = {};
  // A control beside the heading of a dialog of several levels.
  std::function<QWidget*(MasterDialog&)> besideHeading = {};
  // Brings rows in from a file; true when something was written.
  std::function<bool(MasterDialog&)> bringIn = {};
};

}  // namespace velmo::frame

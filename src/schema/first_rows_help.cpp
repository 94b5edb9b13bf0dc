#include "schema/first_rows.h"
#include "store/recordset/recordset.h"

namespace velmo::schema {
namespace {

struct HelpText {
  const char* heading;
  const char* matter;  // rich text
};

// In the order of the welcome screen's help links.
constexpr HelpText helpTexts[] = {
    {R"(How can I change the date format being displayed in the software?)",
     R"(<p>Date boxes on the screens follow the <b>regional settings of your computer</b>. The program has no date
format of its own to set.</p>
<ol>
<li>Save your work and close the program.</li>
<li>Open the settings of your desktop and go to <i>Region &amp; Language</i>, then <i>Formats</i>. Choose the country
whose way of writing dates you want. On a system without such a page, set the locale <tt>LC_TIME</tt>, for example
<tt>LC_TIME=en_GB.UTF-8</tt> for day, month, year.</li>
<li>Log out of the desktop and in again, and start the program.</li>
</ol>
<p>Vouchers, invoices and reports are printed with the day first (31-12-2025) whatever the setting, so that papers
from different computers look alike. Saved documents do not change: only the way their dates are shown does.</p>)"},

    {R"(What are the steps to be followed to start working in this software?)",
     R"(<p>Do these once, in this order. Nothing is lost if you come back to a step later.</p>
<ol>
<li><b>Administration &gt; My Company</b>: name, address and telephones, as they should stand on your invoices. Your
logo and your currency have entries of their own in the same menu.</li>
<li><b>Administration &gt; Financial Years</b>: check the first and last day of the year. Documents with dates outside
the year are not accepted.</li>
<li><b>Maintain &gt; Chart of Accounts</b>: the usual accounts of a trader are there already. Add what you miss, and
your banks, customers and vendors under their own entries of the menu.</li>
<li><b>Maintain &gt; Chart of Inventory</b>: a category, a sub category in it, then the items. The item code is what
your scanner reads; type it, or scan it, into the code box. Services have their own chart.</li>
<li><b>Maintain &gt; Inventory Movement Settings</b>: say which documents move your stock. As delivered, purchases bring
stock in and sale invoices take it out.</li>
<li><b>Maintain &gt; Accounts Opening Balances</b> and <b>Inventory Opening Balances</b>: what you owned and owed on the
day before the year began. Debits and credits should come out equal.</li>
<li><b>Administration &gt; User Logins</b> and <b>User Rights</b>: one login for each person, with a tick against what he
or she may not do. Every user sets an own password under <b>Passwords</b>.</li>
</ol>
<p>From then on, daily work is in the menus <b>Purchases</b>, <b>Sales</b> and <b>Adjustments</b>. Saving a document
posts it: ledgers, stock and balances under <b>Reports</b> are up to date at once.</p>)"},

    {R"(How to move focus within controls of a form?)",
     R"(<p>Everything can be done from the keyboard.</p>
<table cellpadding="4">
<tr><td><b>Tab</b>, <b>Shift+Tab</b></td><td>next and previous box, in the order in which you read the form</td></tr>
<tr><td><b>Enter</b></td><td>in a code box: takes the code and goes on to the next box; on a button: presses it</td></tr>
<tr><td><b>Alt</b> + underlined letter</td><td>goes to the box, or opens the menu, whose name has that letter
underlined</td></tr>
<tr><td><b>Down</b>, <b>Up</b></td><td>in a code box: into the list below it; in the list: along its entries. Enter or
Tab picks, Esc clears</td></tr>
<tr><td><b>Arrow keys</b></td><td>in a grid: from cell to cell. Begin to type to change a cell, Enter to leave it</td></tr>
<tr><td><b>F6</b></td><td>on a document: from the heading to the lines, to the amounts, and round again</td></tr>
<tr><td><b>Ctrl+F</b></td><td>finds a document or record; <b>Ctrl+Page Up</b> and <b>Ctrl+Page Down</b> show the
documents before and behind</td></tr>
<tr><td><b>Ctrl+Tab</b>, <b>Ctrl+Shift+Tab</b></td><td>next and previous open screen</td></tr>
<tr><td><b>F1</b></td><td>opens the help that fits the screen, or the message on show</td></tr>
<tr><td><b>Ctrl+P</b></td><td>saves the document and prints it</td></tr>
<tr><td><b>Ctrl+N</b></td><td>new record on the forms of the menu Maintain</td></tr>
<tr><td><b>Ctrl+S</b></td><td>saves the document or record on show</td></tr>
<tr><td><b>Esc</b></td><td>gives up the change on the forms of the menu Maintain</td></tr>
</table>
<p>In a code box you may type any part of the code or of the name: the list narrows as you type.</p>)"},

    {R"(When I try to print some report, it displays the message "Report width is larger than the paper width." What should I do to correct this issue?)",
     R"(<p>The report is laid out for A4 paper and the paper chosen for the printer is narrower.</p>
<ol>
<li>In the print preview, press <i>Print</i> and look at the <b>paper size</b> in the printer's properties. Choose
<b>A4</b> (210 x 297 mm). Wide reports need A4 in <b>landscape</b>.</li>
<li>If the paper size always comes back to another one, change the printer's default in the settings of your
computer.</li>
<li>If you print invoices on a till printer, choose the invoice that fits it: on the invoice screen press <i>Print
Settings</i> and take <i>Point of Sale Invoice (80mm)</i>, or one of the A5 sizes.</li>
</ol>
<p>Without a printer at hand you can always save the report as a PDF file from the preview.</p>)"},

    {R"(When I try to save a transaction, it displays the message "Transaction date cannot be before starting date of financial year." or "Transaction date cannot be after ending date of financial year.")",
     R"(<p>Each document belongs to the financial year that you chose when you logged in, and its date must lie in that
year. The line at the bottom of the main window shows the first and last day.</p>
<ul>
<li><b>The date is a slip:</b> correct the date of the document and save again.</li>
<li><b>The document belongs to another year:</b> close the program, start it, and choose that year on the login
screen.</li>
<li><b>A new year has begun:</b> the administrator adds it under <b>Administration &gt; Financial Years</b>. Log in
again with the new year; the button <i>Set as default</i> of the login screen makes it the year proposed from then on.
Balances are carried over from <b>Maintain &gt; Accounts Opening Balances</b> and <b>Inventory Opening Balances</b> with
the button that imports the balances of a previous year.</li>
<li><b>The year itself has wrong dates:</b> the administrator corrects them under <b>Financial Years</b>.</li>
</ul>)"},

    {R"(How and when should I take back-up of my data?)",
     R"(<p><b>When:</b> at the end of every day, and before anything that cannot be undone: clearing transactions, a new
version of the program, repairs to the computer. On closing, the program asks whether to take a back-up; answer
Yes.</p>
<p><b>How:</b></p>
<ul>
<li><b>About &gt; About Velmo Point of Sale</b>, then <i>Back up now...</i>: choose where, and the copy is made and
checked at once. You and others may go on working meanwhile.</li>
<li><b>Administration &gt; Back-Up Utility</b> closes the program and makes the copy.</li>
<li>Or close the program and copy the file <tt>Uninstall.MDB</tt> from the folder <tt>Uninstall</tt>. It holds everything:
accounts, items, documents and settings.</li>
</ul>
<p><b>Where:</b> on something that does not stay beside the computer, such as a memory stick or another machine. Keep
the copies of at least the last seven days and of each month's end, under their dates, and try once in a while
whether a copy opens.</p>)"},
};

}  // namespace

void writeHelp(store::Connection& connection) {
  store::Recordset rows(connection, "select * from HelpIndex");
  std::int64_t id = 0;
  for (const HelpText& text : helpTexts)
    rows.addNew({{"ID", ++id}, {"Heading", text.heading}, {"Matter", text.matter}});
}

}  // namespace velmo::schema

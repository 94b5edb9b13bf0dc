#include "shell/welcome/navigation.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "forms/link_button.h"
#include "forms/look.h"
#include "schema/document_kinds.h"
#include "text/format.h"

namespace velmo::shell {
namespace {

enum class LinkGroup { Sales, Purchases, CashAndBank };

struct RecordLink {
  int index;
  const char* caption;
  const char* screen;
  LinkGroup group;
};

// Of each group the commonest first.
constexpr RecordLink recordLinks[] = {
    {10, "Sale Invoice", "SaleInvoicesSimple", LinkGroup::Sales},
    {1, "Point of Sale Invoice", "SaleInvoicesPOS", LinkGroup::Sales},
    {5, "Delivery Challan", "DeliveryChallans", LinkGroup::Sales},
    {3, "Outwards Gate Pass", "GatePassesOut", LinkGroup::Sales},
    {0, "Purchase", "PurchaseBillsSimple", LinkGroup::Purchases},
    {4, "Inwards Gate Pass", "GatePassesIn", LinkGroup::Purchases},
    {7, "Cash Receipt", "CashReceipts", LinkGroup::CashAndBank},
    {2, "Cash Payment", "CashPayments", LinkGroup::CashAndBank},
    {9, "Bank Receipt", "BankReceipts", LinkGroup::CashAndBank},
    {8, "Bank Payment", "BankPayments", LinkGroup::CashAndBank},
};

// In the order of the help topics, which are counted from 1.
constexpr const char* helpCaptions[] = {
    "How can I change the date format being displayed in the software?",
    "What are the steps to be followed to start working in this software?",
    "How to move focus within controls of a form?",
    "When I try to print some report, it displays the message \"Report width is larger than the paper width.\" What "
    "should I do to correct this issue?",
    "When I try to save a transaction, it displays the message \"Transaction date cannot be before starting date of "
    "financial year.\" or \"Transaction date cannot be after ending date of financial year.\"",
    "How and when should I take back-up of my data?",
};

QLabel* addLabel(QLayout* layout, const char* name, const std::string& text) {
  auto* label = new QLabel(QString::fromStdString(text), layout->parentWidget());
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  layout->addWidget(label);
  return label;
}

}  // namespace

Navigation::Navigation(session::Workplace& workplace, QWidget* parent) : QWidget(parent), workplace_(workplace) {
  setWindowTitle(QStringLiteral("Welcome ") + QString::fromStdString(workplace_.context.UserName));
  auto* page = new QWidget(this);
  page->setMaximumWidth(1200);
  auto* column = new QVBoxLayout(page);
  forms::setGrid(*column, forms::spacing::Page, forms::spacing::Section);
  column->addWidget(makeGreeting());
  column->addWidget(makeLinks());
  column->addWidget(makeHelp());
  column->addStretch(1);

  auto* scroller = new QScrollArea(this);
  scroller->setFrameShape(QFrame::NoFrame);
  scroller->setWidgetResizable(true);
  auto* centring = new QWidget(scroller);
  auto* across = new QHBoxLayout(centring);
  forms::setGrid(*across, 0);
  across->addStretch(1);
  across->addWidget(page, 100);
  across->addStretch(1);
  scroller->setWidget(centring);
  auto* whole = new QVBoxLayout(this);
  forms::setGrid(*whole, 0);
  whole->addWidget(scroller);
}

QWidget* Navigation::makeGreeting() {
  auto* card = new QFrame(this);
  forms::makeCard(*card);
  auto* row = new QHBoxLayout(card);
  forms::setGrid(*row, forms::spacing::Section + forms::spacing::Normal, forms::spacing::Section);
  auto* column = new QVBoxLayout;
  forms::setGrid(*column, 0, forms::spacing::Tight);
  row->addLayout(column, 3);
  row->addWidget(makeSearch(), 2);
  forms::makeCaption(*addLabel(column, "LicLbl", "Business Name"));
  companyName_ = addLabel(column, "CoTxt", workplace_.context.CompanyName);
  forms::makeHeading(*companyName_);
  addLabel(column, "DtLbl", text::formatDate(workplace_.clock.today(), "MMMM dd, yyyy"));
  return card;
}

// Enter shows what is in stock of the items whose code holds the text.
QWidget* Navigation::makeSearch() {
  auto* place = new QWidget(this);
  auto* column = new QVBoxLayout(place);
  forms::setGrid(*column, 0, forms::spacing::Tight);
  searchBox_ = new QLineEdit(place);
  searchBox_->setObjectName(QStringLiteral("SearchBox"));
  searchBox_->setPlaceholderText(QStringLiteral("Any part of an item code"));
  searchBox_->setToolTip(QStringLiteral("Shows price and stock of the items (Enter)"));
  searchBox_->setMinimumHeight(34);
  searchBox_->setMaxLength(255);
  searchBox_->setEnabled(workplace_.screens.hasScreen("SearchItem"));
  auto* caption = new QLabel(QStringLiteral("Search &Item"), place);
  caption->setBuddy(searchBox_);
  forms::makeCaption(*caption);
  searchBox_->setAccessibleName(QStringLiteral("Search Item"));
  column->addStretch(1);
  column->addWidget(caption);
  column->addWidget(searchBox_);
  connect(searchBox_, &QLineEdit::returnPressed, this, &Navigation::searchItem);
  return place;
}

void Navigation::searchItem() {
  if (searchBox_->text().isEmpty()) return;
  workplace_.context.SearchText = searchBox_->text().toStdString();
  workplace_.screens.openDialog("SearchItem");
  searchBox_->setFocus();
  searchBox_->selectAll();
}

QWidget* Navigation::makeLinks() {
  auto* links = new QWidget(this);
  auto* row = new QHBoxLayout(links);
  forms::setGrid(*row, 0, forms::spacing::Section);
  constexpr std::pair<LinkGroup, const char*> groups[] = {
      {LinkGroup::Sales, "Sales"}, {LinkGroup::Purchases, "Purchases"}, {LinkGroup::CashAndBank, "Cash and bank"}};
  for (const auto& [group, caption] : groups) {
    auto* card = new QFrame(links);
    forms::makeCard(*card);
    auto* column = new QVBoxLayout(card);
    forms::setGrid(*column, forms::spacing::Section);
    forms::makeCaption(*addLabel(column, "", std::string("New: ") + caption));
    for (const RecordLink& link : recordLinks) {
      if (link.group != group) continue;
      auto* button = new QPushButton(QLatin1String(link.caption), card);
      button->setObjectName(QStringLiteral("RecordNew_") + QString::number(link.index));
      button->setMinimumHeight(40);
      button->setEnabled(workplace_.screens.hasScreen(link.screen));
      connect(button, &QPushButton::clicked, this, [this, &link] {
        const int right = schema::documentForm(link.screen).openRight;
        if (workplace_.rights().demand(right)) workplace_.screens.openScreen(link.screen);
      });
      column->addWidget(button);
    }
    column->addStretch(1);
    row->addWidget(card, 1);
  }
  return links;
}

QWidget* Navigation::makeHelp() {
  auto* card = new QFrame(this);
  forms::makeCard(*card);
  auto* grid = new QGridLayout(card);
  forms::setGrid(*grid, forms::spacing::Section, forms::spacing::Tight);
  grid->setHorizontalSpacing(forms::spacing::Section);
  auto* caption = new QLabel(QStringLiteral("Help"), card);
  forms::makeCaption(*caption);
  grid->addWidget(caption, 0, 0, 1, 2);
  constexpr int rows = 3;
  for (int index = 0; index < static_cast<int>(std::size(helpCaptions)); ++index) {
    auto* link = new forms::LinkButton(QLatin1String(helpCaptions[index]), card);
    link->setObjectName(QStringLiteral("Trouble_") + QString::number(index));
    link->setEnabled(workplace_.screens.hasScreen("HelpForm"));
    connect(link, &forms::LinkButton::clicked, this, [this, index] {
      workplace_.context.HelpTopicID = index + 1;
      workplace_.screens.openDialog("HelpForm");
    });
    grid->addWidget(link, 1 + index % rows, index / rows, Qt::AlignTop);
  }
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  return card;
}

void Navigation::showCompany() {
  companyName_->setText(QString::fromStdString(workplace_.context.CompanyName));
}

QWidget* makeNavigation(session::Workplace& workplace, QWidget* parent) {
  return new Navigation(workplace, parent);
}

}  // namespace velmo::shell

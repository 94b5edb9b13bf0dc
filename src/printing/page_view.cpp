#include "printing/page_view.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <limits>

#include "printing/painter.h"
#include "printing/plain_face.h"

namespace velmo::printing {

namespace {

constexpr int Gap = 24;     // around the sheets, in pixels
constexpr int Moment = 20;  // milliseconds of a search between two events
constexpr int BehindLast = std::numeric_limits<int>::max();

// The ground is darker than any window, so that the sheet stands out in both palettes.
QColor groundColour(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Window);
  return window.lightness() > 128 ? QColor(0xd8, 0xdc, 0xe2) : QColor(0x15, 0x17, 0x1a);
}

struct Span {
  double left = 0;  // on the page, in Twips
  double width = 0;
};

// Where a line of text shows what is sought; the whole line in scripts whose letters join.
std::vector<Span> spansOf(const QString& text, const QString& sought, const TextRun& run) {
  std::vector<Span> spans;
  const PlainFace& face = plainFace(run.font, run.kind);
  qsizetype at = text.indexOf(sought, 0, Qt::CaseInsensitive);
  if (at >= 0 && !face.holds(text)) return {{static_cast<double>(run.at.left), static_cast<double>(run.at.width)}};
  for (; at >= 0; at = text.indexOf(sought, at + sought.size(), Qt::CaseInsensitive)) {
    const QStringView whole(text);
    const double before = face.width(whole.left(at));
    spans.push_back({run.at.left + before, face.width(whole.left(at + sought.size())) - before});
  }
  return spans;
}

void paintShadow(QPainter& painter, const QRectF& sheet) {
  painter.setPen(Qt::NoPen);
  for (int step = 6; step > 0; --step) {
    painter.setBrush(QColor(0, 0, 0, 7));
    painter.drawRoundedRect(sheet.adjusted(-step, -step + 2, step, step + 2), step, step);
  }
}

}  // namespace

PageView::PageView(PageSource& pages, QWidget* parent) : QAbstractScrollArea(parent), pages_(pages) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  setObjectName(QStringLiteral("PageView"));
  setAccessibleName(QStringLiteral("Pages of the report"));
  pages_.page(0);
}

double PageView::scaleFor(Fit fit) const {
  if (pages_.made() == 0 || fit == Fit::Free) return scale_;
  const PageSize first = pages_.sizeOf(0);
  const double across = std::max(50.0, viewport()->width() - 2.0 * Gap) / first.width;
  if (fit == Fit::Width) return across;
  return std::min(across, std::max(50.0, viewport()->height() - 2.0 * Gap) / first.height);
}

void PageView::setFit(Fit fit) {
  const int page = currentPage();
  fit_ = fit;
  relayout();
  showPage(page);
}

void PageView::setZoom(int percent) {
  const int page = currentPage();
  fit_ = Fit::Free;
  scale_ = std::clamp(percent, LeastZoom, MostZoom) / 100.0 * logicalDpiX() / 1440.0;
  relayout();
  showPage(page);
}

int PageView::zoom() const {
  return static_cast<int>(std::lround(scale_ * 1440.0 / logicalDpiX() * 100));
}

void PageView::relayout() {
  scale_ = scaleFor(fit_);
  tops_.clear();
  double top = Gap;
  double widest = 0;
  for (int index = 0; index < pages_.made(); ++index) {
    const PageSize page = pages_.sizeOf(index);
    tops_.push_back(top);
    top += page.height * scale_ + Gap;
    widest = std::max(widest, page.width * scale_ + 2.0 * Gap);
  }
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(40);
  verticalScrollBar()->setRange(0, std::max(0, static_cast<int>(top) - viewport()->height()));
  horizontalScrollBar()->setPageStep(viewport()->width());
  horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(widest) - viewport()->width()));
  viewport()->update();
  Q_EMIT viewChanged();
}

QRectF PageView::sheet(int index) const {
  const PageSize page = pages_.sizeOf(index);
  const QSizeF size(page.width * scale_, page.height * scale_);
  const double slack = (viewport()->width() - size.width()) / 2;
  const double left = slack > Gap ? slack : Gap - horizontalScrollBar()->value();
  return {QPointF(std::floor(left), std::floor(tops_[static_cast<std::size_t>(index)] - verticalScrollBar()->value())),
          size};
}

int PageView::currentPage() const {
  const double middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
  const auto next = std::upper_bound(tops_.begin(), tops_.end(), middle);
  return next == tops_.begin() ? 0 : static_cast<int>(next - tops_.begin()) - 1;
}

void PageView::showPage(int index) {
  if (index >= pages_.made()) pages_.page(index);
  catchUp();
  if (tops_.empty()) return;
  const auto place = static_cast<std::size_t>(std::clamp(index, 0, static_cast<int>(tops_.size()) - 1));
  verticalScrollBar()->setValue(static_cast<int>(tops_[place]) - Gap);
  Q_EMIT viewChanged();
}

// Somebody else may have made pages.
void PageView::catchUp() {
  if (static_cast<int>(tops_.size()) != pages_.made()) relayout();
}

void PageView::pagesChanged() {
  const int value = verticalScrollBar()->value();
  relayout();
  verticalScrollBar()->setValue(value);
}

Search PageView::find(const QString& text, bool backwards) {
  if (text != sought_) hit_ = {};
  sought_ = text;
  step_ = backwards ? -1 : 1;
  reached_ = hit_.page >= 0 ? hit_ : Hit{currentPage(), backwards ? 0 : -1};
  pagesTried_ = 0;
  viewport()->update();
  return text.isEmpty() ? ended(Search::NotFound) : findOn();
}

Search PageView::findOn() {
  catchUp();
  QElapsedTimer timer;
  timer.start();
  while (pagesTried_ <= pages_.made()) {
    if (mayHold(reached_.page) && findOnPage()) return ended(Search::Found);
    if (!turnPage()) return Search::MorePages;
    if (timer.elapsed() >= Moment) return Search::MoreTime;
  }
  hit_ = {};
  return ended(Search::NotFound);
}

// Looks at the texts alone, which costs a part of looking at the page.
bool PageView::mayHold(int index) const {
  return withTotalPages(pages_.words(index), pages_.total()).contains(sought_, Qt::CaseInsensitive);
}

// Behind or before the place that is reached on it.
bool PageView::findOnPage() {
  const std::shared_ptr<const Page> page = pages_.page(reached_.page);
  if (!page) return false;
  const std::vector<TextRun>& runs = page->drawing.texts;
  const auto count = static_cast<int>(runs.size());
  for (int place = std::min(reached_.run, count) + step_; place >= 0 && place < count; place += step_) {
    const TextRun& run = runs[static_cast<std::size_t>(place)];
    if (!drawnText(page->drawing, run, pages_.total()).contains(sought_, Qt::CaseInsensitive)) continue;
    reached_.run = place;
    hit_ = reached_;
    const double top = tops_[static_cast<std::size_t>(hit_.page)] + run.at.top * scale_;
    verticalScrollBar()->setValue(static_cast<int>(top) - viewport()->height() / 3);
    return true;
  }
  reached_.run = step_ > 0 ? BehindLast : -1;  // when more pages come, it is not looked through again
  return false;
}

// The search goes on to the page behind or before, round the ends once all pages are there.
bool PageView::turnPage() {
  const int next = reached_.page + step_;
  const bool round = next < 0 || next >= pages_.made();
  if (round && !pages_.complete()) return false;
  reached_.page = round ? (step_ > 0 ? 0 : pages_.made() - 1) : next;
  reached_.run = step_ > 0 ? -1 : BehindLast;
  ++pagesTried_;
  return true;
}

Search PageView::ended(Search result) {
  viewport()->update();
  return result;
}

void PageView::paintHits(QPainter& painter, const Page& page, int index) const {
  const Drawing& drawing = page.drawing;
  for (int place = 0; place < static_cast<int>(drawing.texts.size()); ++place) {
    const TextRun& run = drawing.texts[static_cast<std::size_t>(place)];
    const QString text = drawnText(drawing, run, pages_.total());
    const bool current = Hit{index, place} == hit_;
    for (const Span& span : spansOf(text, sought_, run))
      painter.fillRect(QRectF(span.left - 15, run.at.top - 10, span.width + 30, run.at.height + 20),
                       current ? QColor(255, 176, 32) : QColor(255, 232, 140));
  }
}

void PageView::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), groundColour(palette()));
  painter.setRenderHint(QPainter::Antialiasing);
  const auto below = std::ranges::upper_bound(tops_, static_cast<double>(verticalScrollBar()->value()));
  const auto first = std::max<std::ptrdiff_t>(below - tops_.begin() - 1, 0);
  for (int index = static_cast<int>(first); index < static_cast<int>(tops_.size()); ++index) {
    const QRectF paper = sheet(index);
    if (paper.bottom() < 0) continue;
    if (paper.top() > viewport()->height()) break;
    paintSheet(painter, index, paper);
  }
}

void PageView::paintSheet(QPainter& painter, int index, const QRectF& paper) {
  paintShadow(painter, paper);
  painter.fillRect(paper, Qt::white);
  const std::shared_ptr<const Page> page = pages_.page(index);
  if (!page) return;
  painter.save();
  painter.translate(paper.topLeft());
  painter.scale(scale_, scale_);
  if (!sought_.isEmpty()) paintHits(painter, *page, index);
  paintPage(painter, *page, pages_.total());
  painter.restore();
}

void PageView::resizeEvent(QResizeEvent*) {
  const int page = currentPage();
  relayout();
  if (fit_ != Fit::Free) showPage(page);
}

void PageView::scrollContentsBy(int, int) {
  viewport()->update();
  Q_EMIT viewChanged();
}

void PageView::keyPressEvent(QKeyEvent* event) {
  QScrollBar* bar = verticalScrollBar();
  switch (event->key()) {
    case Qt::Key_Up:
      bar->triggerAction(QScrollBar::SliderSingleStepSub);
      break;
    case Qt::Key_Down:
      bar->triggerAction(QScrollBar::SliderSingleStepAdd);
      break;
    case Qt::Key_Space:
      bar->triggerAction(QScrollBar::SliderPageStepAdd);
      break;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (event->modifiers().testFlag(Qt::ControlModifier))
    setZoom(zoom() + (event->angleDelta().y() > 0 ? 10 : -10));
  else
    QAbstractScrollArea::wheelEvent(event);
}

}  // namespace velmo::printing

#pragma once

#include <QAbstractScrollArea>

#include "printing/page_source.h"

namespace velmo::printing {

enum class Fit { Width, Page, Free };
// MorePages: not in the pages that are made, and there will be more. MoreTime: there are pages to look through yet.
enum class Search { Found, NotFound, MorePages, MoreTime };

// The pages of a report under each other, as white sheets on a neutral ground.
class PageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit PageView(PageSource& pages, QWidget* parent = nullptr);

  static constexpr int LeastZoom = 50;  // per cent
  static constexpr int MostZoom = 400;

  void setFit(Fit fit);
  void setZoom(int percent);  // of the paper's size, held between the least and the most
  int zoom() const;
  int currentPage() const;  // index from 0, of the page at the view's middle
  void showPage(int index);
  void pagesChanged();  // more pages were made, or their count is known
  // The next place behind or before the last find that holds the text, in either case of letters, and round from the
  // last page to the first. All places are marked; a text that is nowhere, or "", marks none.
  Search find(const QString& text, bool backwards);
  // Goes on where the search stood that asked for more, for a moment.
  Search findOn();
  int pagesTried() const { return pagesTried_; }  // by the search

 Q_SIGNALS:
  void viewChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void relayout();
  void catchUp();
  QRectF sheet(int index) const;  // in the view
  double scaleFor(Fit fit) const;

  PageSource& pages_;
  Fit fit_ = Fit::Width;
  double scale_ = 0;  // pixels to the Twip
  std::vector<double> tops_;
  struct Hit {
    int page = -1;
    int run = -1;
    bool operator==(const Hit&) const = default;
  };
  void paintSheet(QPainter& painter, int index, const QRectF& paper);
  void paintHits(QPainter& painter, const Page& page, int index) const;
  bool mayHold(int index) const;
  bool findOnPage();
  bool turnPage();
  Search ended(Search result);
  Hit hit_;             // the one that was found last
  QString sought_;      // shown wherever it stands
  Hit reached_;         // by the search
  int step_ = 1;        // of the search: 1 or -1
  int pagesTried_ = 0;  // by the search
};

}  // namespace velmo::printing

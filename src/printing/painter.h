#pragma once

#include "printing/page.h"

class QPainter;

namespace velmo::printing {

// Draws a page with the painter's unit scaled to one Twip and its origin at the page's upper left corner. Blots out
// nothing: the ground is the caller's. A total of 0 is a total not yet known, drawn as "...".
void paintPage(QPainter& painter, const Page& page, int totalPages);

// A text with the count of pages in the place of its mark.
QString withTotalPages(QString text, int totalPages);
// The characters of a run as they are drawn.
QString drawnText(const Drawing& drawing, const TextRun& run, int totalPages);

}  // namespace velmo::printing

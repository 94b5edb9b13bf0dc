#pragma once

#include <QFocusEvent>
#include <QWidget>

namespace velmo::frame {

// How long a drop list outlives the focus of its box, in milliseconds: enough for the focus to reach the list.
inline constexpr int dropListDelay = 80;

// Where a floating child of `screen` stands that belongs to a rectangle of `anchor`: below it, or above it when there
// is more room; never beyond the edges of the screen. In the screen's coordinates. Where there is too little room, its
// height gives way by steps of so many pixels.
QRect placeBelow(const QWidget& anchor, const QRect& rectangle, const QWidget& screen, QSize wanted, int step = 1);

// The focus comes back by itself: a menu opened, or another window came to the front.
bool isPassingFocusLoss(const QFocusEvent& event);

}  // namespace velmo::frame

#pragma once

namespace velmo::tour {

// The logo of the tour's company while it lives, in place of one that somebody chose.
class TravelLogo {
 public:
  TravelLogo();
  ~TravelLogo();
  TravelLogo(const TravelLogo&) = delete;
  TravelLogo& operator=(const TravelLogo&) = delete;
};

}  // namespace velmo::tour

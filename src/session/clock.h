#pragma once

#include "text/date_time.h"

namespace velmo::session {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual text::DateTime now() const = 0;  // local time, whole seconds
  text::DateTime today() const { return now().date(); }
};

class SystemClock : public Clock {
 public:
  text::DateTime now() const override;
};

}  // namespace velmo::session

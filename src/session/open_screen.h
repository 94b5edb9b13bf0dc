#pragma once

namespace velmo::session {

// What the shell asks of the screens that stand open. A screen that has an answer derives from these beside QWidget.

// Asked for again while it is open: it shows what LoginContext wants shown now.
class Reopened {
 public:
  virtual ~Reopened() = default;
  virtual void reopen() = 0;
};

// Holds what a person typed and nothing has saved yet.
class UnsavedWork {
 public:
  virtual ~UnsavedWork() = default;
  // False when something typed would be dropped and the user, who wants to be asked, says no.
  virtual bool MayLeave() = 0;
  // What is typed may go: MayLeave() asks again only when more is typed.
  virtual void GiveUp() = 0;
};

}  // namespace velmo::session

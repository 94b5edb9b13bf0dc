#pragma once

#include "frame/picking/code_drop_list.h"

namespace velmo::frame {

// The drop list of the account codes of one screen, `PartyList`.
class AccountDropList : public CodeDropList {
  Q_OBJECT

 public:
  explicit AccountDropList(QWidget* screen)
      : CodeDropList({.name = "PartyList", .spoken = "Accounts", .nothing = "No account matches"}, screen) {}
};

}  // namespace velmo::frame

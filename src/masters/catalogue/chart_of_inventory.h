#pragma once

namespace velmo::frame {
class MasterDialog;
}

namespace velmo::masters {

// Lets the user search the goods, `ChartofInventory`; the dialog then shows the item that was picked.
void pickItem(frame::MasterDialog& dialog);

}  // namespace velmo::masters

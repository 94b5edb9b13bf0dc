#include "shell/screen_catalogue.h"

#include "shell/about.h"
#include "shell/navigation.h"

namespace velmo::shell {
namespace {

constexpr ScreenEntry screens[] = {
    {"Navigation", ScreenKind::ChildWindow, makeNavigation},
    {"About", ScreenKind::Dialog, makeAbout},
};

}  // namespace

std::span<const ScreenEntry> screenCatalogue() {
  return screens;
}

}  // namespace velmo::shell

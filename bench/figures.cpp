#include "figures.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace velmo::bench {
namespace {

std::vector<Figure>& figures() {
  static std::vector<Figure> all;
  return all;
}

void print(const Figure& figure) {
  std::printf("  %-58s %10.2f %-4s", figure.name.c_str(), figure.value, figure.unit);
  if (figure.goal) std::printf("  at most %8.1f%s", *figure.goal, figure.isBeyond() ? "  BEYOND" : "");
  if (!figure.remark.empty()) std::printf("  (%s)", figure.remark.c_str());
  std::printf("\n");
}

}  // namespace

void tell(const Figure& figure) {
  figures().push_back(figure);
}

void printFigures() {
  std::vector<std::string> groups;
  for (const Figure& figure : figures())
    if (std::find(groups.begin(), groups.end(), figure.group) == groups.end()) groups.push_back(figure.group);
  for (const std::string& group : groups) {
    std::printf("\n%s\n", group.c_str());
    for (const Figure& figure : figures())
      if (figure.group == group) print(figure);
  }
  bool any = false;
  for (const Figure& figure : figures()) {
    if (!figure.isBeyond()) continue;
    if (!any) std::printf("\nBeyond their goals\n");
    any = true;
    Figure named = figure;
    named.name = figure.group + ": " + figure.name;
    print(named);
  }
  if (!any && !figures().empty()) std::printf("\nNothing is beyond its goal.\n");
}

}  // namespace velmo::bench

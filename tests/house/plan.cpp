#include "house/plan.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace velmo::house {
namespace {

std::vector<std::string> namesIn(std::string_view cell) {
  std::vector<std::string> names;
  for (std::size_t open = cell.find('`'); open != cell.npos; open = cell.find('`', open)) {
    const std::size_t close = cell.find('`', open + 1);
    if (close == cell.npos) break;
    names.emplace_back(cell.substr(open + 1, close - open - 1));
    open = close + 1;
  }
  return names;
}

std::string roomOf(const std::string& file) {
  const std::size_t slash = file.rfind('/');
  return slash == file.npos ? "." : file.substr(0, slash);
}

bool standsFor(const std::string& name, const std::string& room) {
  return room == name || room.starts_with(name + "/");
}

std::string includedBy(const std::string& line) {
  constexpr std::string_view begin = "#include \"";
  if (!line.starts_with(begin)) return {};
  return line.substr(begin.size(), line.find('"', begin.size()) - begin.size());
}

std::string faultOfInclude(const PlannedRoom& room, std::set<std::string>& unused, const Include& include) {
  const std::string to = roomOf(include.included);
  bool allowed = to == room.name;
  for (const std::string& name : room.uses)
    if (standsFor(name, to)) {
      unused.erase(name);
      allowed = true;
    }
  return allowed ? std::string() : include.file + " includes " + include.included + ", which the plan does not allow";
}

}  // namespace

std::vector<PlannedRoom> readPlan(std::string_view markdown) {
  std::vector<PlannedRoom> plan;
  std::size_t at = markdown.find("\n## Rooms\n");
  if (at == markdown.npos) return plan;
  const std::string_view section = markdown.substr(at + 1, markdown.find("\n## ", at + 1) - at - 1);
  for (std::size_t line = section.find("\n| `"); line != section.npos; line = section.find("\n| `", line + 1)) {
    const std::string_view row = section.substr(line + 1, section.find('\n', line + 1) - line - 1);
    const std::size_t second = row.find('|', 1);
    const std::size_t last = row.rfind('|', row.size() - 2);
    const std::vector<std::string> uses = namesIn(row.substr(last));
    plan.push_back({namesIn(row.substr(0, second)).at(0), {uses.begin(), uses.end()}});
  }
  return plan;
}

House readHouse(const std::filesystem::path& src) {
  House house;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(src)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".cpp" && extension != ".h") continue;
    const std::string file = std::filesystem::relative(entry.path(), src).string();
    house.files.push_back(file);
    std::vector<Include>& includes = house.rooms[roomOf(file)];
    std::ifstream text(entry.path());
    if (!text) throw std::runtime_error("cannot read " + file);
    for (std::string line; std::getline(text, line);)
      if (std::string included = includedBy(line); !included.empty() && !included.ends_with(".moc"))
        includes.push_back({file, std::move(included)});
  }
  std::ranges::sort(house.files);
  return house;
}

std::vector<std::string> faultsOf(const std::vector<PlannedRoom>& plan, const House& house) {
  std::vector<std::string> faults;
  std::set<std::string> above;
  for (const PlannedRoom& room : plan) {
    std::set<std::string> unused = room.uses;
    for (const std::string& name : room.uses)
      if (std::ranges::none_of(above, [&](const std::string& one) { return standsFor(name, one); }) ||
          standsFor(name, room.name))
        faults.push_back(room.name + " uses " + name + ", which does not stand above it in the plan");
    above.insert(room.name);
    const auto found = house.rooms.find(room.name);
    if (found == house.rooms.end()) {
      faults.push_back(room.name + " is in the plan and not in the house");
      continue;
    }
    for (const Include& include : found->second)
      if (std::string fault = faultOfInclude(room, unused, include); !fault.empty()) faults.push_back(std::move(fault));
    for (const std::string& name : unused) faults.push_back(room.name + " does not need " + name);
  }
  for (const auto& [room, includes] : house.rooms)
    if (!above.contains(room)) faults.push_back(room + " is in the house and not in the plan");
  return faults;
}

}  // namespace velmo::house

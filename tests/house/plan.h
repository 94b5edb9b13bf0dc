#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// The plan of the house against the house. A room is a folder under src/ with files in it, named by its path there;
// the folder src/ itself is ".".
namespace velmo::house {

// A row of the plan: a room and the rooms that its files may include. A floor stands for all of its rooms.
struct PlannedRoom {
  std::string name;
  std::set<std::string> uses;
};

// The rows of the table below "## Rooms", in its order.
std::vector<PlannedRoom> readPlan(std::string_view markdown);

struct Include {
  std::string file;      // "frame/report/report_sheet.cpp"
  std::string included;  // "printing/report.h"
};

struct House {
  std::map<std::string, std::vector<Include>> rooms = {};  // what the files of a room include from the house
  std::vector<std::string> files = {};                     // paths under src/
};

// Throws std::runtime_error when a file cannot be read.
House readHouse(const std::filesystem::path& src);

// What is wrong, one line each: a room that only one of both has, a room that uses what stands no higher in the plan,
// an include that the plan does not allow, and an arrow of the plan that no file needs.
std::vector<std::string> faultsOf(const std::vector<PlannedRoom>& plan, const House& house);

}  // namespace velmo::house

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>
#include <regex>

#include "store/file/work_file.h"

// The names of work files, and what is told from them.
namespace velmo::store {
namespace {

namespace fs = std::filesystem;

constexpr auto longestWork = std::chrono::hours(24);

// The boot that a process belongs to; the same process number of another boot is another process.
const std::string& thisBoot() {
  static const std::string boot = [] {
    std::string id;
    std::getline(std::ifstream("/proc/sys/kernel/random/boot_id"), id);
    return id.size() < 8 ? std::string("00000000") : id.substr(0, 8);
  }();
  return boot;
}

// When the process was started, in ticks since the boot; nothing when there is no such process.
std::optional<std::string> startOf(const std::string& process) {
  std::ifstream file("/proc/" + process + "/stat");
  const std::string stat{std::istreambuf_iterator<char>(file), {}};
  std::size_t at = stat.rfind(')');  // ends the program's name, which may hold anything
  if (at == std::string::npos) return std::nullopt;
  constexpr int fieldsBetween = 20;
  for (int field = 0; field < fieldsBetween && at != std::string::npos; ++field) at = stat.find(' ', at + 1);
  if (at == std::string::npos) return std::nullopt;
  return stat.substr(at + 1, stat.find(' ', at + 1) - at - 1);
}

bool isOlderThan(const fs::path& file, std::chrono::hours age) {
  std::error_code gone;
  const auto written = fs::last_write_time(file, gone);
  return !gone && fs::file_time_type::clock::now() - written > age;
}

bool isRunning(const std::string& process) {
  return startOf(process).has_value();
}

// Tells most names apart at little cost: the patterns are slow, and folders are long.
bool mayBeFormer(std::string_view name) {
  static constexpr std::string_view kinds[] = {".copy", ".part", ".new", ".upgrade"};
  return std::any_of(std::begin(kinds), std::end(kinds),
                     [&](std::string_view kind) { return name.find(kind) != std::string_view::npos; });
}

bool isAbandoned(const fs::path& file, std::string_view formerNames) {
  // What packs an archive adds six characters to the name while it writes.
  static const std::regex ours(
      R"(\..+\.velmo-([0-9a-f]{8})-(\d{1,9})-(\d{1,20})-\d+\.[a-z]+(-wal|-shm|-journal|\.[0-9A-Za-z]{6})?)");
  static const std::regex former(R"(\.?(.+?)\.((\d{1,9})\.(copy|part)|new|upgrade)(-wal|-shm|-journal)?)");
  const std::string name = file.filename().string();
  std::smatch part;
  if (name.find(".velmo-") != std::string::npos && std::regex_match(name, part, ours)) {
    if (part[1] != thisBoot()) return isOlderThan(file, longestWork);
    return startOf(part[2]) != part[3].str();
  }
  if (!mayBeFormer(name) || !std::regex_match(name, part, former) || !part[1].str().starts_with(formerNames))
    return false;
  return part[3].matched ? !isRunning(part[3]) : isOlderThan(file, longestWork);
}

}  // namespace

fs::path workPath(const fs::path& file, std::string_view kind) {
  static std::atomic<int> number = 0;
  const std::string process = std::to_string(::getpid());
  return folderOf(file) / ("." + file.filename().string() + ".velmo-" + thisBoot() + "-" + process + "-" +
                           startOf(process).value_or("0") + "-" + std::to_string(++number) + "." + std::string(kind));
}

void clearAbandonedWork(const fs::path& folder, std::string_view formerNames) {
  std::error_code unreadable;
  for (fs::directory_iterator each(folder, unreadable), end; !unreadable && each != end; each.increment(unreadable)) {
    const fs::path file = each->path();
    std::error_code ignored;
    if (each->is_regular_file(ignored) && isAbandoned(file, formerNames)) fs::remove(file, ignored);
  }
}

}  // namespace velmo::store

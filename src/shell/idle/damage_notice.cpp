#include "shell/idle/damage_notice.h"

#include "schema/company_schema.h"
#include "session/settings.h"
#include "store/upkeep/copy_pages.h"
#include "text/format.h"

namespace velmo::shell {
namespace {

constexpr std::size_t mostNamed = 3;

std::string damagedParts(const std::vector<store::Finding>& damage) {
  std::string parts;
  for (std::size_t i = 0; i < damage.size() && i < mostNamed; ++i) parts += (i == 0 ? "" : "; ") + damage[i].words;
  return damage.size() > mostNamed ? parts + "; and others" : parts;
}

std::string copyWords(const KeptCopy& copy) {
  if (copy.failure.empty()) return "The file was copied as it is to \"" + copy.file.string() + "\".";
  return "The file could not be copied as it is: " + copy.failure;
}

// The settings may lie in what is damaged.
std::string lastBackUpWords(store::Connection& connection) {
  try {
    const std::string place = session::setting(connection, session::settings::BackUpPlace);
    const auto time = text::DateTime::fromIso(session::setting(connection, session::settings::BackUpTime));
    if (!place.empty() && time)
      return "Restore it from a back-up copy: the last one was saved on " +
             text::formatDate(*time, "dd-mm-yyyy hh:mm am/pm") + " in \"" + place + "\".";
  } catch (const store::StoreError&) {
  }
  return "Restore it from a back-up copy; the file does not tell where the last one was saved.";
}

}  // namespace

KeptCopy keepCopy(store::Connection& connection, const text::DateTime& now) {
  try {
    return {.file = store::setAside(connection, now), .failure = {}};
  } catch (const store::StoreError& failure) {
    return {.file = {}, .failure = failure.what()};
  }
}

void tellDamage(session::Prompts& prompts, store::Connection& connection, const std::vector<store::Finding>& damage,
                const KeptCopy& copy) {
  prompts.tell(
      "Company File Damaged",
      "The company's file is damaged: " + damagedParts(damage) +
          ". So that it gets no worse, nothing more is saved into it; you can go on reading and printing.\n\n" +
          copyWords(copy) + "\n\n" + lastBackUpWords(connection));
}

void tellDamageAtStart(session::Prompts& prompts, const session::Clock& clock, const std::string& connectionString,
                       const schema::FileState& state) {
  store::Connection connection(schema::companyCatalog(), schema::schemaVersion);
  connection.open(connectionString);
  connection.refuseWriting();
  tellDamage(prompts, connection, state.damage, keepCopy(connection, clock.now()));
}

}  // namespace velmo::shell

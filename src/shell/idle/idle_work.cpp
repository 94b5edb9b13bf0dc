#include "shell/idle/idle_work.h"

#include <algorithm>

#include "schema/company_checks.h"
#include "session/settings.h"
#include "shell/idle/status_note.h"

namespace velmo::shell {
namespace {

using Subject = StatusNote::Subject;
using Kind = store::Finding::Kind;

text::DateTime timeSetting(store::Connection& books, std::string_view name) {
  return text::DateTime::fromIso(session::setting(books, name)).value_or(text::DateTime());
}

// Everything was saved before: what failed is work that the program does by itself.
QString foldingFailed(const store::StoreError& failure) {
  if (failure.kind() == store::ErrorKind::Full)
    return IdleWork::tr(
        "Saved, but the disk is full: make room, so that the log can be folded into the company's file.");
  return IdleWork::tr("Saved, but the log could not be folded into the company's file yet; it is tried again.");
}

}  // namespace

IdleWork::IdleWork(session::Workplace& workplace, const std::string& connectionString, const schema::FileState& state,
                   StatusNote& note, QObject* parent)
    : QObject(parent),
      workplace_(workplace),
      connectionString_(connectionString),
      note_(note),
      checker_(this),
      pagesAreDue_(!state.seenThrough) {
  connect(&checker_, &IdleChecker::damageFound, this, &IdleWork::refuseWriting);
  connect(&checker_, &IdleChecker::finished, this, &IdleWork::roundEnded);
  if (!state.damage.empty()) refuseWriting();
  if (state.totalsMended) tellMended();
}

void IdleWork::run() {
  store::Connection& books = workplace_.context.KORDconn;
  if (!books.isOpen() || books.inTransaction() || books.refusesWriting()) return;
  foldLog();
  if (checker_.isRunning()) return;
  try {
    keepDay();
    startRound();
  } catch (const store::StoreError& failure) {
    // Anything else passes, and is met again by whoever saves.
    if (failure.kind() == store::ErrorKind::Damaged)
      foundDamage({{.kind = Kind::Damage, .words = "it cannot be read"}}, keepCopy(books, workplace_.clock.now()));
  }
}

void IdleWork::lookAgain() {
  isDemanded_ = true;
  Q_EMIT wantsToRun();
}

void IdleWork::foldLog() {
  try {
    workplace_.context.KORDconn.checkpoint();
    note_.withdraw(Subject::Log);
  } catch (const store::StoreError& failure) {
    note_.tell(Subject::Log, foldingFailed(failure));
    isDemanded_ |= failure.kind() == store::ErrorKind::Damaged;
    Q_EMIT wantsToRun();
  }
}

void IdleWork::startRound() {
  isWhole_ = isWholeDue();
  if (!isWhole_ && !pagesAreDue_) return;
  began_ = workplace_.clock.now();
  checker_.start(workplace_.context.KORDconn, connectionString_,
                 isWhole_ ? schema::companyChecks() : schema::startChecks(), began_);
}

// Whoever works with the file today may have done it.
bool IdleWork::isWholeDue() {
  store::Connection& books = workplace_.context.KORDconn;
  const text::DateTime last = std::max(lastRound_, timeSetting(books, session::settings::LastRound));
  return isDemanded_ || last.date() != workplace_.clock.today() ||
         timeSetting(books, session::settings::BackUpTime) > last;
}

void IdleWork::roundEnded(const IdleChecker::Result& result) {
  if (std::ranges::any_of(result.findings, [](const auto& each) { return each.kind == Kind::Damage; }))
    return foundDamage(result.findings, result.copy);
  tellTotals(result);
  if (!result.isThrough) return;
  pagesAreDue_ = false;
  if (isWhole_) {
    isDemanded_ = false;
    lastRound_ = began_;
    isDayKept_ = false;
    tellDocuments(result.findings);
    if (!workplace_.context.KORDconn.inTransaction()) keepDay();
  }
  Q_EMIT wantsToRun();  // the log could not be folded in while the round read
}

void IdleWork::keepDay() {
  if (isDayKept_) return;
  try {
    session::saveSetting(workplace_.context.KORDconn, session::settings::LastRound, lastRound_.iso());
    isDayKept_ = true;
  } catch (const store::StoreError&) {
    // It stands in this object until it can be saved.
  }
}

void IdleWork::refuseWriting() {
  workplace_.context.KORDconn.refuseWriting();
  note_.withdraw(Subject::Log);
  note_.tell(Subject::Damage, tr("The company's file is damaged: nothing is saved into it any more."));
}

void IdleWork::foundDamage(const std::vector<store::Finding>& damage, const KeptCopy& copy) {
  refuseWriting();
  tellDamage(workplace_.prompts, workplace_.context.KORDconn, damage, copy);
}

void IdleWork::tellMended() {
  note_.tell(Subject::Totals,
             tr("Totals that the file keeps were not those of their documents; they have been set right."));
}

void IdleWork::tellTotals(const IdleChecker::Result& result) {
  if (std::ranges::none_of(result.findings, [](const auto& each) { return each.kind == Kind::Total; })) return;
  if (result.isThrough) return tellMended();
  note_.tell(Subject::Totals,
             tr("Totals that the file keeps are not those of their documents; they could not be set right yet."));
}

void IdleWork::tellDocuments(const std::vector<store::Finding>& findings) {
  const auto unbalanced =
      std::ranges::count_if(findings, [](const auto& each) { return each.kind == Kind::Document && !each.cancelled; });
  if (unbalanced == 0) return note_.withdraw(Subject::Documents);
  note_.tell(Subject::Documents, unbalanced == 1
                                     ? tr("1 document is not balanced: click here to see it.")
                                     : tr("%1 documents are not balanced: click here to see them.").arg(unbalanced));
}

}  // namespace velmo::shell

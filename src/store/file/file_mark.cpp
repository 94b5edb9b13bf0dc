#include "store/file/file_mark.h"

#include <sqlite3.h>

#include <QCryptographicHash>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>

#include "store/sqlite/sqlite_error.h"
#include "store/values/error.h"

namespace velmo::store {
namespace {

constexpr int derivationRounds = 4096;

// PBKDF2 with HMAC-SHA-256, one block.
std::string derived(std::string_view password, std::string_view salt, int rounds) {
  QMessageAuthenticationCode code(QCryptographicHash::Sha256,
                                  QByteArray(password.data(), static_cast<qsizetype>(password.size())));
  code.addData(salt.data(), static_cast<qsizetype>(salt.size()));
  code.addData("\0\0\0\1", 4);
  QByteArray block = code.result();
  QByteArray sum = block;
  for (int round = 1; round < rounds; ++round) {
    code.reset();
    code.addData(block);
    block = code.result();
    for (qsizetype i = 0; i < sum.size(); ++i) sum[i] = static_cast<char>(sum[i] ^ block[i]);
  }
  return sum.toStdString();
}

std::string newSalt() {
  std::string salt(16, '\0');
  for (char& c : salt) c = static_cast<char>(QRandomGenerator::system()->bounded(256));
  return salt;
}

class OwnStatement {
 public:
  OwnStatement(sqlite3* database, const char* sql) {
    const int code = sqlite3_prepare_v2(database, sql, -1, &handle, nullptr);
    if (code != SQLITE_OK) throw sqliteError(database, code, "the company file");
  }
  ~OwnStatement() { sqlite3_finalize(handle); }
  OwnStatement(const OwnStatement&) = delete;
  OwnStatement& operator=(const OwnStatement&) = delete;
  sqlite3_stmt* handle = nullptr;
};

}  // namespace

void writePassword(sqlite3* database, std::string_view password) {
  const int code = sqlite3_exec(database,
                                "CREATE TABLE IF NOT EXISTS StoreIdentity (Salt BLOB NOT NULL, Verifier BLOB NOT "
                                "NULL, Rounds INTEGER NOT NULL); DELETE FROM StoreIdentity;",
                                nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw sqliteError(database, code, "the company file");
  const std::string salt = newSalt();
  const std::string verifier = derived(password, salt, derivationRounds);
  const OwnStatement insert(database, "INSERT INTO StoreIdentity (Salt, Verifier, Rounds) VALUES (?1, ?2, ?3)");
  sqlite3_bind_blob64(insert.handle, 1, salt.data(), salt.size(), SQLITE_TRANSIENT);
  sqlite3_bind_blob64(insert.handle, 2, verifier.data(), verifier.size(), SQLITE_TRANSIENT);
  sqlite3_bind_int(insert.handle, 3, derivationRounds);
  const int result = sqlite3_step(insert.handle);
  if (result != SQLITE_DONE) throw sqliteError(database, result, "the company file");
}

bool passwordFits(sqlite3* database, std::string_view password) {
  const OwnStatement read(database, "SELECT Salt, Verifier, Rounds FROM StoreIdentity");
  const int result = sqlite3_step(read.handle);
  if (result == SQLITE_DONE) throw StoreError(ErrorKind::Damaged, "The company file has lost its password.");
  if (result != SQLITE_ROW) throw sqliteError(database, result, "the company file");
  auto bytes = [&](int column) {
    const auto* data = static_cast<const char*>(sqlite3_column_blob(read.handle, column));
    return std::string(data == nullptr ? "" : data,
                       static_cast<std::size_t>(sqlite3_column_bytes(read.handle, column)));
  };
  const std::string salt = bytes(0);
  const std::string verifier = bytes(1);
  constexpr int mostRounds = 1'000'000;
  const int rounds = sqlite3_column_int(read.handle, 2);
  return rounds > 0 && rounds <= mostRounds && derived(password, salt, rounds) == verifier;
}

}  // namespace velmo::store

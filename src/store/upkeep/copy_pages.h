#pragma once

#include <filesystem>
#include <functional>

#include "store/connection/connection.h"

namespace velmo::store {

// Copies the file that the connection has open, as it sees it at one moment, page by page into the work file `to`, and
// brings that to the disk. `verify` is handed the copy before. Throws StoreError.
void copyPages(Connection::Impl& from, const std::filesystem::path& to,
               const std::function<void(sqlite3*)>& verify = {});

// Keeps the file that the connection has open, whatever state it is in, beside it as "<name> damaged 2026-11-22
// 14-07-09", and returns that. A copy that was kept since the file was last written stands for it. Throws StoreError.
std::filesystem::path setAside(Connection& connection, const text::DateTime& now);

}  // namespace velmo::store

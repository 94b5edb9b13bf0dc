#include "attack/failing_disk.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cstring>

namespace velmo::attack {
namespace {

long counted = 0;
long faultAt = 0;
Fault kind = Fault::Kill;

// Whether the operation that begins now is to fail, by something else than the end of the process.
bool fails(const sqlite3_io_methods* methods = nullptr, sqlite3_file* file = nullptr, const void* bytes = nullptr,
           int length = 0, sqlite3_int64 at = 0) {
  ++counted;
  if (faultAt == 0 || counted < faultAt) return false;
  if (kind == Fault::Kill) {
    if (bytes != nullptr) methods->xWrite(file, bytes, length / 2, at);
    ::_exit(killedStatus);
  }
  return kind == Fault::Full || counted == faultAt;
}

// A file of the file system below, behind our own table of operations.
struct CountedFile {
  sqlite3_file base;
  sqlite3_io_methods methods;
  sqlite3_file* below() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

CountedFile* counting(sqlite3_file* file) {
  return reinterpret_cast<CountedFile*>(file);
}

template <auto Method, typename... Arguments>
auto passOn(sqlite3_file* file, Arguments... arguments) {
  sqlite3_file* below = counting(file)->below();
  return (below->pMethods->*Method)(below, arguments...);
}

int countedWrite(sqlite3_file* file, const void* bytes, int length, sqlite3_int64 at) {
  sqlite3_file* below = counting(file)->below();
  if (fails(below->pMethods, below, bytes, length, at)) return kind == Fault::Full ? SQLITE_FULL : SQLITE_IOERR_WRITE;
  return below->pMethods->xWrite(below, bytes, length, at);
}

int countedSync(sqlite3_file* file, int flags) {
  return fails() && kind == Fault::Broken ? SQLITE_IOERR_FSYNC : passOn<&sqlite3_io_methods::xSync>(file, flags);
}

int countedTruncate(sqlite3_file* file, sqlite3_int64 size) {
  return fails() && kind == Fault::Broken ? SQLITE_IOERR_TRUNCATE : passOn<&sqlite3_io_methods::xTruncate>(file, size);
}

sqlite3_vfs* underneath = nullptr;

int countedDelete(sqlite3_vfs*, const char* name, int syncFolder) {
  return fails() && kind == Fault::Broken ? SQLITE_IOERR_DELETE : underneath->xDelete(underneath, name, syncFolder);
}

int countedOpen(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  CountedFile& own = *counting(file);
  own.base.pMethods = nullptr;
  const int code = underneath->xOpen(underneath, name, own.below(), flags, outFlags);
  const sqlite3_io_methods* below = own.below()->pMethods;
  if (below == nullptr) return code;
  own.methods = *below;
  own.methods.xClose = [](sqlite3_file* each) { return passOn<&sqlite3_io_methods::xClose>(each); };
  own.methods.xRead = [](sqlite3_file* each, void* bytes, int length, sqlite3_int64 at) {
    return passOn<&sqlite3_io_methods::xRead>(each, bytes, length, at);
  };
  own.methods.xWrite = countedWrite;
  own.methods.xTruncate = countedTruncate;
  own.methods.xSync = countedSync;
  own.methods.xFileSize = [](sqlite3_file* each, sqlite3_int64* size) {
    return passOn<&sqlite3_io_methods::xFileSize>(each, size);
  };
  own.methods.xLock = [](sqlite3_file* each, int lock) { return passOn<&sqlite3_io_methods::xLock>(each, lock); };
  own.methods.xUnlock = [](sqlite3_file* each, int lock) { return passOn<&sqlite3_io_methods::xUnlock>(each, lock); };
  own.methods.xCheckReservedLock = [](sqlite3_file* each, int* out) {
    return passOn<&sqlite3_io_methods::xCheckReservedLock>(each, out);
  };
  own.methods.xFileControl = [](sqlite3_file* each, int operation, void* argument) {
    return passOn<&sqlite3_io_methods::xFileControl>(each, operation, argument);
  };
  own.methods.xSectorSize = [](sqlite3_file* each) { return passOn<&sqlite3_io_methods::xSectorSize>(each); };
  own.methods.xDeviceCharacteristics = [](sqlite3_file* each) {
    return passOn<&sqlite3_io_methods::xDeviceCharacteristics>(each);
  };
  own.methods.xShmMap = [](sqlite3_file* each, int page, int size, int extend, void volatile** out) {
    return passOn<&sqlite3_io_methods::xShmMap>(each, page, size, extend, out);
  };
  own.methods.xShmLock = [](sqlite3_file* each, int offset, int count, int lockFlags) {
    return passOn<&sqlite3_io_methods::xShmLock>(each, offset, count, lockFlags);
  };
  own.methods.xShmBarrier = [](sqlite3_file* each) { return passOn<&sqlite3_io_methods::xShmBarrier>(each); };
  own.methods.xShmUnmap = [](sqlite3_file* each, int remove) {
    return passOn<&sqlite3_io_methods::xShmUnmap>(each, remove);
  };
  own.methods.iVersion = 2;  // without pages in memory, which no write would show
  own.base.pMethods = &own.methods;
  return code;
}

}  // namespace

void FailingDisk::install() {
  static sqlite3_vfs disk;
  underneath = sqlite3_vfs_find(nullptr);
  disk = *underneath;
  disk.zName = "failing-disk";
  disk.szOsFile = static_cast<int>(sizeof(CountedFile)) + underneath->szOsFile;
  disk.xOpen = countedOpen;
  disk.xDelete = countedDelete;
  sqlite3_vfs_register(&disk, 1);
}

void FailingDisk::arm(long operation, Fault fault) {
  counted = 0;
  faultAt = operation;
  kind = fault;
}

long FailingDisk::operations() {
  return counted;
}

}  // namespace velmo::attack

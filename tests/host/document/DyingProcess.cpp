// Ways for a process to be killed in the middle of its work.
#include "tests/host/document/DyingProcess.h"

#include <signal.h>
#include <sqlite3.h>
#include <stdlib.h>

namespace Quillane::Host {

namespace {

int remainingChanges = 0;

void die() { raise(SIGKILL); }

void noteChange() {
  if (--remainingChanges == 0) die();
}

/// A file that notes its changes before it hands everything on to SQLite's own, which stands behind it in memory.
struct NotingFile {
  sqlite3_file base;
  sqlite3_file* real;
};

sqlite3_vfs* realSystem = nullptr;
sqlite3_vfs notingSystem;
sqlite3_io_methods notingMethods;

sqlite3_file* realFile(sqlite3_file* file) { return reinterpret_cast<NotingFile*>(file)->real; }

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  auto* noting = reinterpret_cast<NotingFile*>(file);
  noting->real = reinterpret_cast<sqlite3_file*>(noting + 1);
  noting->base.pMethods = nullptr;
  const int result = realSystem->xOpen(realSystem, name, noting->real, flags, outFlags);
  if (noting->real->pMethods) noting->base.pMethods = &notingMethods;
  return result;
}

int deleteFile(sqlite3_vfs*, const char* name, int syncFolder) {
  noteChange();
  return realSystem->xDelete(realSystem, name, syncFolder);
}

void fillMethods() {
  notingMethods = {};
  notingMethods.iVersion = 1;
  notingMethods.xClose = [](sqlite3_file* file) { return realFile(file)->pMethods->xClose(realFile(file)); };
  notingMethods.xRead = [](sqlite3_file* file, void* data, int size, sqlite3_int64 at) {
    return realFile(file)->pMethods->xRead(realFile(file), data, size, at);
  };
  notingMethods.xWrite = [](sqlite3_file* file, const void* data, int size, sqlite3_int64 at) {
    noteChange();
    return realFile(file)->pMethods->xWrite(realFile(file), data, size, at);
  };
  notingMethods.xTruncate = [](sqlite3_file* file, sqlite3_int64 size) {
    noteChange();
    return realFile(file)->pMethods->xTruncate(realFile(file), size);
  };
  notingMethods.xSync = [](sqlite3_file* file, int flags) {
    noteChange();
    return realFile(file)->pMethods->xSync(realFile(file), flags);
  };
  notingMethods.xFileSize = [](sqlite3_file* file, sqlite3_int64* size) {
    return realFile(file)->pMethods->xFileSize(realFile(file), size);
  };
  notingMethods.xLock = [](sqlite3_file* file, int lock) {
    return realFile(file)->pMethods->xLock(realFile(file), lock);
  };
  notingMethods.xUnlock = [](sqlite3_file* file, int lock) {
    return realFile(file)->pMethods->xUnlock(realFile(file), lock);
  };
  notingMethods.xCheckReservedLock = [](sqlite3_file* file, int* reserved) {
    return realFile(file)->pMethods->xCheckReservedLock(realFile(file), reserved);
  };
  notingMethods.xFileControl = [](sqlite3_file* file, int operation, void* argument) {
    return realFile(file)->pMethods->xFileControl(realFile(file), operation, argument);
  };
  notingMethods.xSectorSize = [](sqlite3_file* file) { return realFile(file)->pMethods->xSectorSize(realFile(file)); };
  notingMethods.xDeviceCharacteristics = [](sqlite3_file* file) {
    return realFile(file)->pMethods->xDeviceCharacteristics(realFile(file));
  };
}

}  // namespace

void DyingObserver::statementExecuted(const FX::FXString&, const std::vector<Binding>&) {
  if (--remaining == 0) die();
}

void dieAtFileChange(int number) {
  remainingChanges = number;
  if (realSystem) return;
  fillMethods();
  realSystem = sqlite3_vfs_find(nullptr);
  notingSystem = *realSystem;
  notingSystem.zName = "noting";
  notingSystem.szOsFile = static_cast<int>(sizeof(NotingFile)) + realSystem->szOsFile;
  notingSystem.xOpen = openFile;
  notingSystem.xDelete = deleteFile;
  sqlite3_vfs_register(&notingSystem, 1);
}

}  // namespace Quillane::Host

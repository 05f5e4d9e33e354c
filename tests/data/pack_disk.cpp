// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pack_disk.h"

#include <sched.h>
#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <climits>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace tonalith::data {
namespace {

constexpr const char* kName = "tonalith-test-disk";

struct State {
  sqlite3_vfs* real = nullptr;
  sqlite3_vfs disk{};
  int steps = 0;
  int growths = 0;
  int lastStep = INT_MAX;
  int lastGrowth = INT_MAX;
};

State state;  // NOLINT(readability-identifier-naming): the callbacks of the engine have no context pointer

struct File {
  sqlite3_file base;
  // The file of the real disk is stored after this one.
  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_file* RealOf(sqlite3_file* file) { return reinterpret_cast<File*>(file)->Real(); }

bool IsLastStep() { return ++state.steps == state.lastStep; }

int Close(sqlite3_file* file) { return RealOf(file)->pMethods->xClose(RealOf(file)); }

int Read(sqlite3_file* file, void* bytes, int size, sqlite3_int64 place) {
  return RealOf(file)->pMethods->xRead(RealOf(file), bytes, size, place);
}

int Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 place) {
  sqlite3_file* const real = RealOf(file);
  sqlite3_int64 length = 0;
  const int result = real->pMethods->xFileSize(real, &length);
  if (result != SQLITE_OK) return result;
  if (place + size > length && ++state.growths > state.lastGrowth) return SQLITE_FULL;
  if (IsLastStep()) {
    real->pMethods->xWrite(real, bytes, size / 2, place);
    std::raise(SIGKILL);
  }
  return real->pMethods->xWrite(real, bytes, size, place);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  if (IsLastStep()) std::raise(SIGKILL);
  return RealOf(file)->pMethods->xTruncate(RealOf(file), size);
}

int Sync(sqlite3_file* file, int flags) {
  if (IsLastStep()) std::raise(SIGKILL);
  return RealOf(file)->pMethods->xSync(RealOf(file), flags);
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) { return RealOf(file)->pMethods->xFileSize(RealOf(file), size); }

int Lock(sqlite3_file* file, int level) { return RealOf(file)->pMethods->xLock(RealOf(file), level); }
int Unlock(sqlite3_file* file, int level) { return RealOf(file)->pMethods->xUnlock(RealOf(file), level); }
int CheckReservedLock(sqlite3_file* file, int* isReserved) {
  return RealOf(file)->pMethods->xCheckReservedLock(RealOf(file), isReserved);
}
int FileControl(sqlite3_file* file, int what, void* content) {
  return RealOf(file)->pMethods->xFileControl(RealOf(file), what, content);
}
int SectorSize(sqlite3_file* file) { return RealOf(file)->pMethods->xSectorSize(RealOf(file)); }
int Characteristics(sqlite3_file* file) { return RealOf(file)->pMethods->xDeviceCharacteristics(RealOf(file)); }

sqlite3_io_methods Methods() {
  sqlite3_io_methods methods{};
  methods.iVersion = 1;
  methods.xClose = Close;
  methods.xRead = Read;
  methods.xWrite = Write;
  methods.xTruncate = Truncate;
  methods.xSync = Sync;
  methods.xFileSize = FileSize;
  methods.xLock = Lock;
  methods.xUnlock = Unlock;
  methods.xCheckReservedLock = CheckReservedLock;
  methods.xFileControl = FileControl;
  methods.xSectorSize = SectorSize;
  methods.xDeviceCharacteristics = Characteristics;
  return methods;
}

int Open(sqlite3_vfs* /*disk*/, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  static const sqlite3_io_methods methods = Methods();
  file->pMethods = nullptr;
  const int result = state.real->xOpen(state.real, name, RealOf(file), flags, outFlags);
  if (result == SQLITE_OK) file->pMethods = &methods;
  return result;
}

int Delete(sqlite3_vfs* /*disk*/, const char* name, int syncFolder) {
  if (IsLastStep()) std::raise(SIGKILL);
  return state.real->xDelete(state.real, name, syncFolder);
}

}  // namespace

PackDisk::PackDisk() {
  state = {};
  state.real = sqlite3_vfs_find(nullptr);
  state.disk = *state.real;
  state.disk.pNext = nullptr;
  state.disk.zName = kName;
  state.disk.szOsFile = static_cast<int>(sizeof(File)) + state.real->szOsFile;
  state.disk.xOpen = Open;
  state.disk.xDelete = Delete;
  if (sqlite3_vfs_register(&state.disk, 1) != SQLITE_OK) throw std::runtime_error("no disk for tests");
}

PackDisk::~PackDisk() {
  sqlite3_vfs_unregister(&state.disk);
  sqlite3_vfs_register(state.real, 1);
}

void PackDisk::FillUpAfter(int growths) { state.lastGrowth = state.growths + growths; }
void PackDisk::MakeRoom() { state.lastGrowth = INT_MAX; }
void PackDisk::EndProcessAt(int step) { state.lastStep = state.steps + step; }
int PackDisk::Steps() const { return state.steps; }
int PackDisk::Growths() const { return state.growths; }

SmallDisk::SmallDisk(std::string folder, int kilobytes) : folder_(std::move(folder)) {
  const std::string size = "size=" + std::to_string(kilobytes) + "k";
  isThere_ = ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
             ::mount("tmpfs", folder_.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

SmallDisk::~SmallDisk() {
  if (isThere_) ::umount2(folder_.c_str(), MNT_DETACH);
}

void SmallDisk::FillUp(int kilobytesLeft) const {
  struct statvfs space {};
  if (::statvfs(folder_.c_str(), &space) != 0) throw std::runtime_error("no small disk");
  const auto left = static_cast<std::int64_t>(space.f_bavail * space.f_frsize) - std::int64_t{1024} * kilobytesLeft;
  std::ofstream(folder_ + "/ballast") << std::string(static_cast<std::size_t>(std::max(left, std::int64_t{0})), 'x');
}

void SmallDisk::MakeRoom() const { std::filesystem::remove(folder_ + "/ballast"); }

}  // namespace tonalith::data

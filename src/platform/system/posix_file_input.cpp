// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/system/posix_file_input.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <limits>

namespace tonalith::platform {
namespace {

class PosixInputFile : public InputFile {
 public:
  PosixInputFile(int descriptor, std::uint64_t size) : descriptor_(descriptor), size_(size) {}
  PosixInputFile(const PosixInputFile&) = delete;
  PosixInputFile& operator=(const PosixInputFile&) = delete;
  ~PosixInputFile() override { ::close(descriptor_); }

  std::int64_t Read(std::span<std::byte> into) override {
    std::size_t done = 0;
    while (done < into.size()) {
      const std::span<std::byte> rest = into.subspan(done);
      const std::int64_t count = rest.size() >= buffer_.size() ? ReadPast(rest) : ReadBuffered(rest);
      if (count < 0) return -1;
      if (count == 0) break;
      position_ += static_cast<std::uint64_t>(count);
      done += static_cast<std::size_t>(count);
    }
    return static_cast<std::int64_t>(done);
  }

  std::int64_t Seek(std::uint64_t position) override {
    if (position > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max())) return -1;
    position_ = position;
    return static_cast<std::int64_t>(position);
  }

  [[nodiscard]] std::uint64_t Size() const override { return size_; }

 private:
  std::int64_t ReadPast(std::span<std::byte> into) const {
    while (true) {
      const ssize_t count = ::pread(descriptor_, into.data(), into.size(), static_cast<off_t>(position_));
      if (count >= 0 || errno != EINTR) return count;
    }
  }

  std::int64_t ReadBuffered(std::span<std::byte> into) {
    if (position_ < bufferStart_ || position_ >= bufferStart_ + bufferFill_) {
      const std::int64_t count = ReadPast(buffer_);
      bufferStart_ = position_;
      bufferFill_ = static_cast<std::uint64_t>(std::max<std::int64_t>(count, 0));
      if (count <= 0) return count;
    }
    const auto offset = static_cast<std::size_t>(position_ - bufferStart_);
    const std::size_t count = std::min(into.size(), static_cast<std::size_t>(bufferFill_) - offset);
    std::memcpy(into.data(), buffer_.data() + offset, count);
    return static_cast<std::int64_t>(count);
  }

  int descriptor_;
  std::uint64_t size_;
  std::uint64_t position_ = 0;
  std::array<std::byte, 4096> buffer_{};
  std::uint64_t bufferStart_ = 0;
  std::uint64_t bufferFill_ = 0;
};

int OpenDescriptor(const std::string& path) {
  // O_NONBLOCK: opening a pipe without a writer returns immediately.
  return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
}

}  // namespace

std::unique_ptr<InputFile> PosixFileInput::Open(const std::string& path) {
  if (path.find('\0') != std::string::npos) return nullptr;
  int descriptor = OpenDescriptor(path);
  if (descriptor < 0 && errno == ENOENT && path.find('\\') != std::string::npos) {
    std::string slashed = path;
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    descriptor = OpenDescriptor(slashed);
  }
  if (descriptor < 0) return nullptr;
  struct stat status {};
  if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    ::close(descriptor);
    return nullptr;
  }
  return std::make_unique<PosixInputFile>(descriptor, static_cast<std::uint64_t>(status.st_size));
}

}  // namespace tonalith::platform

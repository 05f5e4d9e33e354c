// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/chm_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "core/failure.h"
#include "help/chm_reader.h"
#include "help/chm_stream.h"
#include "help/messages.h"

namespace tonalith::help {
namespace {

namespace fs = std::filesystem;

/// Size of the headers of the smallest file, in bytes.
constexpr std::uint64_t kSmallestChmFile = 96;

core::Failure Damaged() { return core::Failure::Unspecified(MessageId::kDamaged); }

class StreamReader {
 public:
  explicit StreamReader(const std::function<std::size_t(std::span<std::uint8_t>)>& source) : source_(source) {}

  ChmObjects ReadAll() {
    ChmObjects objects;
    while (const std::uint8_t marker = Byte()) {
      if (marker == kChmEndMarker) return objects;
      if (marker != kChmObjectMarker || objects.size() >= kMostChmObjects) break;
      const std::uint64_t pathLength = Length(kLongestChmPath);
      const std::uint64_t length = Length(std::min(kLargestChmObject, kLargestChmContent - content_));
      content_ += length;
      std::string path = Bytes(pathLength);
      objects.insert_or_assign(std::move(path), Bytes(length));
    }
    throw Damaged();
  }

 private:
  std::uint64_t Length(std::uint64_t highest) {
    std::uint64_t length = 0;
    for (std::size_t i = 0; i < kChmLengthSize; ++i) length |= std::uint64_t{Byte()} << (8 * i);
    if (length > highest) throw Damaged();
    return length;
  }

  /// Allocates by the bytes received, not by the claimed length.
  std::string Bytes(std::uint64_t length) {
    std::string bytes;
    while (bytes.size() < length) {
      Fill();
      const std::size_t size = std::min<std::size_t>(end_ - at_, static_cast<std::size_t>(length) - bytes.size());
      bytes.append(buffer_.begin() + static_cast<std::ptrdiff_t>(at_),
                   buffer_.begin() + static_cast<std::ptrdiff_t>(at_ + size));
      at_ += size;
    }
    return bytes;
  }

  std::uint8_t Byte() {
    Fill();
    return buffer_[at_++];
  }

  void Fill() {
    if (at_ < end_) return;
    at_ = 0;
    end_ = source_(buffer_);
    if (end_ == 0 || end_ > buffer_.size()) throw Damaged();
  }

  const std::function<std::size_t(std::span<std::uint8_t>)>& source_;
  std::array<std::uint8_t, std::size_t{64} << 10> buffer_{};
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  std::uint64_t content_ = 0;
};

/// The 8-byte little-endian number at a position; 0 where the file ends before.
std::uint64_t NumberAt(std::ifstream& file, std::uint64_t position) {
  std::array<char, 8> bytes{};
  file.clear();
  file.seekg(static_cast<std::streamoff>(std::min(position, kLargestChmFile)));
  if (!file.read(bytes.data(), bytes.size())) return 0;
  std::uint64_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | static_cast<std::uint8_t>(bytes[i]);
  return number;
}

/// The size that the file states in its first header section; the file header has the position of that section. The
/// library that reads the file ignores it and can return wrong bytes from a truncated file. 0 if it cannot be read.
std::uint64_t StatedSize(const std::string& path) {
  constexpr std::uint64_t kPositionOfSection = 0x38;
  constexpr std::uint64_t kSizeInSection = 8;
  std::ifstream file(path, std::ios::binary);
  const std::uint64_t section = NumberAt(file, kPositionOfSection);
  return section == 0 ? 0 : NumberAt(file, std::min(section, kLargestChmFile) + kSizeInSection);
}

void RequireLikelySize(const std::string& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) throw core::Failure::Unspecified(MessageId::kNoFile);
  const std::uint64_t size = fs::file_size(path, error);
  if (error) throw core::Failure::Unspecified(core::Message::Verbatim(error.message()));
  if (size < kSmallestChmFile || size < StatedSize(path)) throw Damaged();
  if (size > kLargestChmFile) throw core::Failure::Unspecified(MessageId::kTooLarge);
}

}  // namespace

ChmObjects ReadChmStream(const std::function<std::size_t(std::span<std::uint8_t>)>& source) {
  return StreamReader(source).ReadAll();
}

ChmObjects ReadChmFile(const std::string& path, const sandbox::Limits& limits) {
  try {
    RequireLikelySize(path);
    sandbox::ChildProcess process([&path](int pipe) { WriteChmObjects(path, pipe); }, limits);
    return ReadChmStream([&process](std::span<std::uint8_t> buffer) { return process.Read(buffer); });
  } catch (const core::Failure& failure) {
    throw core::Failure(failure.Number(), {MessageId::kFileNotRead, path, failure.Text()});
  }
}

}  // namespace tonalith::help

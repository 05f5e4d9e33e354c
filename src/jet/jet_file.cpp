// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "jet/jet_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <span>
#include <string_view>

#include "core/failure.h"
#include "jet/content_limit.h"
#include "jet/jet_reader.h"
#include "jet/jet_stream.h"
#include "jet/messages.h"
#include "jet/open_file.h"
#include "sandbox/child_process.h"

namespace tonalith::jet {
namespace {

constexpr std::size_t kSignatureOffset = 4;
constexpr std::string_view kSignatureJet = "Standard Jet DB";
constexpr std::string_view kSignatureAce = "Standard ACE DB";
constexpr std::size_t kVersionOffset = 0x14;
constexpr std::size_t kHeaderSize = 0x18;
constexpr std::int64_t kPageSizeJet3 = 2048;
constexpr std::int64_t kPageSize = 4096;
constexpr std::int64_t kLargestFile = std::int64_t{2} << 30;

struct Header {
  std::array<char, kHeaderSize> bytes{};
  std::int64_t fileSize = 0;
  bool isJet = false;
};

Header ReadHeader(const std::string& path) {
  Header header;
  const OpenFile file(path, O_NONBLOCK);
  struct stat status {};
  if (file.Descriptor() < 0 || ::fstat(file.Descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) return header;
  header.fileSize = status.st_size;
  const ssize_t size = ::pread(file.Descriptor(), header.bytes.data(), header.bytes.size(), 0);
  if (size < static_cast<ssize_t>(header.bytes.size())) return header;
  const std::string_view signature(header.bytes.data() + kSignatureOffset, kSignatureJet.size());
  header.isJet = signature == kSignatureJet || signature == kSignatureAce;
  return header;
}

void RequireWholePages(const Header& header) {
  const std::int64_t page = header.bytes[kVersionOffset] == 0 ? kPageSizeJet3 : kPageSize;
  if (header.fileSize > kLargestFile) throw core::Failure::Unspecified(MessageId::kTooLarge);
  if (header.fileSize % page != 0 || header.fileSize < 3 * page) {
    throw core::Failure::Unspecified({MessageId::kNoWholePages, header.fileSize});
  }
}

void WriteContent(const std::string& path, int pipe) {
  JetStreamWriter writer([pipe](std::span<const std::uint8_t> bytes) { sandbox::WriteAll(pipe, bytes); });
  try {
    ReadWithLibmdb(path, writer);
    writer.Finish();
  } catch (const core::Failure& failure) {
    writer.Refuse(failure.Text());
  }
}

// Records whether an exception comes from the visitor or from reading the stream.
class ThrowTracker : public JetVisitor {
 public:
  explicit ThrowTracker(JetVisitor& visitor) : visitor_(visitor) {}
  void OnObject(const JetObject& object) override {
    Run([&] { visitor_.OnObject(object); });
  }
  void OnTable(const JetTable& table) override {
    Run([&] { visitor_.OnTable(table); });
  }
  void OnRow(std::vector<core::Value> values) override {
    Run([&] { visitor_.OnRow(std::move(values)); });
  }
  [[nodiscard]] bool HasThrown() const { return hasThrown_; }

 private:
  template <class Step>
  void Run(Step step) {
    hasThrown_ = true;
    step();
    hasThrown_ = false;
  }

  JetVisitor& visitor_;
  bool hasThrown_ = false;
};

}  // namespace

bool IsJetFile(const std::string& path) { return ReadHeader(path).isJet; }

void ReadJetFile(const std::string& path, JetVisitor& visitor, sandbox::Limits limits,
                 const std::function<void()>& whileWaiting) {
  ThrowTracker tracker(visitor);
  try {
    const Header header = ReadHeader(path);
    if (!header.isJet) throw core::Failure::Unspecified(MessageId::kNoJetFile);
    RequireWholePages(header);
    limits.memory += static_cast<std::uint64_t>(header.fileSize) * 2;
    sandbox::ChildProcess process([&](int pipe) { WriteContent(path, pipe); }, limits, whileWaiting);
    ReadJetStream([&](std::span<std::uint8_t> buffer) { return process.Read(buffer); },
                  ContentLimit(static_cast<std::uint64_t>(header.fileSize)), tracker);
  } catch (const core::Failure& failure) {
    if (tracker.HasThrown()) throw;
    throw core::Failure(failure.Number(), {MessageId::kFileNotRead, path, failure.Text()});
  }
}

}  // namespace tonalith::jet

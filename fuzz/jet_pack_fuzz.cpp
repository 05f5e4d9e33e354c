// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Holds the reader of Jet files against two kinds of input. One that begins with 'S' is the stream that the reading
// process sends: it is taken apart in this process, and what was understood must come back from a second time through.
// Any other is a list of changes to a genuine pack, five bytes each (page, place in the page, new byte), behind a byte
// that chooses the pack. The changed file is read as the program reads it, by a process of its own: that one may crash
// or run for ever, this one gets an answer in words in good time, and keeps no process and no open file of it.

#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include "core/failure.h"
#include "jet/jet_file.h"
#include "jet/jet_stream.h"
#include "sandbox/child_process.h"
#include "support/temp_folder.h"

namespace {

using namespace tonalith;
using Input = std::span<const std::uint8_t>;

constexpr std::size_t kPage = 4096;
// The fuzzer itself may have a file open for a moment. Files that stay open add up to more than that soon.
constexpr std::ptrdiff_t kSpareFiles = 4;
constexpr std::uint64_t kBudget = std::uint64_t{1} << 20;

void Require(bool condition, const char* rule) {
  if (condition) return;
  std::fprintf(stderr, "This did not hold: %s.\n", rule);
  std::abort();
}

// Every row has a value for every column of its table.
class Checker : public jet::JetVisitor {
 public:
  void OnObject(const jet::JetObject& /*object*/) override {}
  void OnTable(const jet::JetTable& table) override { columns_ = table.columns.size(); }
  void OnRow(std::vector<core::Value> values) override {
    Require(values.size() == columns_, "a row has a value for every column");
  }

 private:
  std::size_t columns_ = 0;
};

// What a stream holds, as a stream again; as far as it could be understood.
std::vector<std::uint8_t> Again(Input stream) {
  std::vector<std::uint8_t> bytes;
  jet::JetStreamWriter writer([&](Input piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); });
  const jet::ByteSource source = [&](std::span<std::uint8_t> buffer) {
    // In pieces, as a pipe gives them.
    const std::size_t size = std::min({buffer.size(), stream.size(), std::size_t{61}});
    std::copy_n(stream.begin(), size, buffer.begin());
    stream = stream.subspan(size);
    return size;
  };
  try {
    jet::ReadJetStream(source, kBudget, writer);
    writer.Finish();
  } catch (const core::Failure& failure) {
    writer.Refuse(failure.Text());
  }
  return bytes;
}

std::string ContentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

const std::string& Pack(std::uint8_t choice) {
  static const std::string folder = TONALITH_SOURCE_DIR "/tests/jet/fixtures/";
  static const std::array<std::string, 2> packs = {ContentOf(folder + "DataPack_Jet2000.mdb"),
                                                   ContentOf(folder + "DataPack_Jet2003.mdb")};
  return packs.at(choice % packs.size());
}

std::string Changed(std::string content, Input changes) {
  for (; changes.size() >= 5; changes = changes.subspan(5)) {
    const std::size_t page = static_cast<std::size_t>(changes[0] << 8 | changes[1]) % (content.size() / kPage);
    const std::size_t place = static_cast<std::size_t>(changes[2] << 8 | changes[3]) % kPage;
    content[page * kPage + place] = static_cast<char>(changes[4]);
  }
  return content;
}

std::ptrdiff_t OpenFiles() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

/// Processes of this one's, ended ones included. The fuzzer has one of its own, which looks up the names of functions.
std::ptrdiff_t Children() {
  std::ifstream list("/proc/self/task/" + std::to_string(::getpid()) + "/children");
  return std::distance(std::istream_iterator<int>(list), {});
}

void ReadFile(const std::string& content) {
  static const tests::TempFolder folder;
  const std::string path = folder.Write("pack.mdb", content);
  static const std::ptrdiff_t before = OpenFiles();
  const std::ptrdiff_t children = Children();
  Checker checker;
  sandbox::Limits limits;
  limits.silence = std::chrono::seconds(1);
  limits.total = std::chrono::seconds(3);
  try {
    jet::ReadJetFile(path, checker, limits);
  } catch (const core::Failure& failure) {
    Require(failure.Description().starts_with("The file '" + path + "' cannot be read: "), "a failure names the file");
  }
  Require(OpenFiles() <= before + kSpareFiles, "no file stays open");
  Require(Children() == children, "no process stays");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Input input(data, size);
  if (input.empty()) return 0;
  if (input.front() == 'S') {
    const std::vector<std::uint8_t> once = Again(input.subspan(1));
    Require(Again(once) == once, "what was understood comes back");
  } else {
    ReadFile(Changed(Pack(input.front()), input.subspan(1)));
  }
  return 0;
}

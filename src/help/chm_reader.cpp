// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/chm_reader.h"

#include <chm_lib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "core/failure.h"
#include "help/chm_file.h"
#include "help/chm_stream.h"
#include "help/messages.h"
#include "sandbox/child_process.h"

namespace tonalith::help {
namespace {

struct Closing {
  void operator()(chmFile* file) const { ::chm_close(file); }
};
using OpenChm = std::unique_ptr<chmFile, Closing>;

struct Found {
  std::vector<chmUnitInfo> units;
  std::uint64_t content = 0;
  bool isTooMuch = false;
};

/// The paths of topics, pictures and lists begin with a slash; of the compiler's own objects only the settings are
/// needed.
bool IsWanted(std::string_view path) {
  if (path.size() < 2 || path.front() != '/' || path.back() == '/') return false;
  return (path[1] != '#' && path[1] != '$') || path == "/#SYSTEM";
}

int Collect(chmFile* /*file*/, chmUnitInfo* unit, void* context) {
  Found& found = *static_cast<Found*>(context);
  unit->path[CHM_MAX_PATHLEN] = '\0';
  if (!IsWanted(unit->path)) return CHM_ENUMERATOR_CONTINUE;
  found.isTooMuch = found.units.size() >= kMostChmObjects || unit->length > kLargestChmObject ||
                    found.content + unit->length > kLargestChmContent;
  if (found.isTooMuch) return CHM_ENUMERATOR_FAILURE;
  found.content += unit->length;
  found.units.push_back(*unit);
  return CHM_ENUMERATOR_CONTINUE;
}

void PutLength(std::vector<std::uint8_t>& bytes, std::uint64_t length) {
  for (std::size_t i = 0; i < kChmLengthSize; ++i) bytes.push_back(static_cast<std::uint8_t>(length >> (8 * i)));
}

void WriteHead(const chmUnitInfo& unit, int pipe) {
  const std::string_view path(unit.path);
  std::vector<std::uint8_t> head{kChmObjectMarker};
  PutLength(head, path.size());
  PutLength(head, unit.length);
  head.insert(head.end(), path.begin(), path.end());
  sandbox::WriteAll(pipe, head);
}

void WriteObject(chmFile* file, chmUnitInfo& unit, int pipe) {
  WriteHead(unit, pipe);
  std::array<std::uint8_t, std::size_t{64} << 10> buffer{};
  for (std::uint64_t at = 0; at < unit.length;) {
    const auto wanted = static_cast<std::int64_t>(std::min<std::uint64_t>(buffer.size(), unit.length - at));
    const std::int64_t size = ::chm_retrieve_object(file, &unit, buffer.data(), at, wanted);
    if (size <= 0 || size > wanted)
      throw core::Failure::Unspecified({MessageId::kObjectNotRead, std::string(unit.path)});
    sandbox::WriteAll(pipe, std::span(buffer).first(static_cast<std::size_t>(size)));
    at += static_cast<std::uint64_t>(size);
  }
}

}  // namespace

void WriteChmObjects(const std::string& path, int pipe) {
  const OpenChm file(::chm_open(path.c_str()));
  if (file == nullptr) throw core::Failure::Unspecified(MessageId::kNoHelpFile);
  Found found;
  const int outcome = ::chm_enumerate(file.get(), CHM_ENUMERATE_ALL, Collect, &found);
  if (outcome == 0 || found.isTooMuch) throw core::Failure::Unspecified(MessageId::kDamagedList);
  // In file order, so that each compressed block is decompressed once.
  std::sort(found.units.begin(), found.units.end(), [](const chmUnitInfo& a, const chmUnitInfo& b) {
    return a.space != b.space ? a.space < b.space : a.start < b.start;
  });
  for (chmUnitInfo& unit : found.units) WriteObject(file.get(), unit, pipe);
  sandbox::WriteAll(pipe, std::array{kChmEndMarker});
}

}  // namespace tonalith::help

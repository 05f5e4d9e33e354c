// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/database_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "data/data_failure.h"
#include "data/jet_file.h"

namespace tonalith::data {
namespace {

using namespace std::string_view_literals;
// The first bytes of every database file of the engine (SQLite database file format, section 1.2).
constexpr std::string_view kSignature = "SQLite format 3\0"sv;

class OpenFile {
 public:
  explicit OpenFile(const char* path) : descriptor_(::open(path, O_RDONLY | O_CLOEXEC)) {}
  ~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  [[nodiscard]] int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

}  // namespace

std::string RequireDatabaseFile(const std::string& dataSource) {
  if (dataSource.empty()) throw Unspecified("The connection string names no data source.");
  if (dataSource.find('\0') != std::string::npos) throw FileNotFound(dataSource.substr(0, dataSource.find('\0')));
  std::error_code error;
  std::string path = std::filesystem::absolute(dataSource, error).lexically_normal().string();
  if (error) throw FileNotFound(dataSource);

  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) throw FileNotFound(path);
    throw Unspecified("The file '" + path + "' cannot be reached: " + std::generic_category().message(errno) + ".");
  }
  if (S_ISDIR(status.st_mode)) throw Unspecified("'" + path + "' is a folder, not a database file.");
  if (!S_ISREG(status.st_mode)) throw UnrecognizedFormat(path);

  const OpenFile file(path.c_str());
  if (file.Descriptor() < 0) {
    throw Unspecified("The file '" + path + "' cannot be opened: " + std::generic_category().message(errno) + ".");
  }
  std::array<char, kSignature.size()> begin{};
  const ssize_t size = ::read(file.Descriptor(), begin.data(), begin.size());
  if (size < 0) {
    throw Unspecified("The file '" + path + "' cannot be read: " + std::generic_category().message(errno) + ".");
  }
  const bool isOurs = std::string_view(begin.data(), static_cast<std::size_t>(size)) == kSignature;
  if (!isOurs && !IsJetFile(path)) throw UnrecognizedFormat(path);
  return path;
}

}  // namespace tonalith::data

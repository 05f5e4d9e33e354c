// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/work_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "stress/library.h"
#include "stress/message_rules.h"

namespace tonalith::stress {
namespace {

namespace fs = std::filesystem;

fs::path MakeRoot() {
  std::string name = (fs::temp_directory_path() / "tonalith-stress-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for temporary files");
  return name;
}

std::string ContentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Write(const fs::path& path, const std::string& content) { std::ofstream(path, std::ios::binary) << content; }

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> Environment(const WorkPaths& paths) {
  const std::string home = paths.Home().string();
  std::vector<std::string> variables = {"HOME=" + home,
                                        "XDG_DATA_HOME=" + home + "/data",
                                        "XDG_CONFIG_HOME=" + home + "/config",
                                        "XDG_CACHE_HOME=" + home + "/cache",
                                        "XDG_RUNTIME_DIR=" + home,
                                        "PATH=" + home,
                                        "LC_ALL=C.UTF-8",
                                        "QT_QPA_PLATFORM=offscreen",
                                        "QT_LOGGING_RULES=*=false",
                                        "ALSOFT_DRIVERS=null"};
  for (const char* const passedOn : {"TMPDIR", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS", "LD_LIBRARY_PATH"}) {
    if (const char* const value = std::getenv(passedOn)) variables.push_back(std::string(passedOn) + "=" + value);
  }
  return variables;
}

}  // namespace

WorkFolder::WorkFolder(const fs::path& stage) : paths_{MakeRoot()} {
  fs::create_directories(paths_.Stage());
  fs::create_directories(paths_.Home() / "Documents");
  fs::permissions(paths_.Home(), fs::perms::owner_all);
  for (const char* const name : {"TonalithDB97.mdb", "TLHELP.chm", "DataPacks"}) {
    fs::copy(stage / name, paths_.Stage() / name, fs::copy_options::recursive);
  }
  // Large, and never written.
  for (const char* const name : {"Audio", "Octaves"}) {
    fs::create_directory_symlink(fs::absolute(stage / name), paths_.Stage() / name);
  }
  std::error_code error;
  fs::create_hard_link("/proc/self/exe", paths_.Program(), error);
  const fs::path self = fs::read_symlink("/proc/self/exe");
  if (error) fs::create_hard_link(self, paths_.Program(), error);
  if (error) fs::copy_file(self, paths_.Program());
}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  fs::remove_all(paths_.root, ignored);
}

void WorkFolder::AddBrokenPacks() const {
  const auto pack = [&](const char* name) { return paths_.Packs() / (std::string(kBrokenPack) + name + ".mdb"); };
  Write(pack("Empty"), "");
  Write(pack("Text"), "These are no scales.\n");
  Write(pack("Noise"), std::string(7000, '\xA5'));
  const std::string whole = ContentOf(paths_.Library());
  Write(pack("Cut"), whole.substr(0, whole.size() / 2));
  std::string scratched = whole;
  for (std::size_t i = 4096; i < scratched.size(); i += 512) scratched[i] = static_cast<char>(scratched[i] ^ 0x55);
  Write(pack("Scratched"), scratched);
  LibraryFile(pack("Bare").string(), LibraryFile::Open::kForWriting)
      .Run("CREATE TABLE Other (a); INSERT INTO Other VALUES (1)");
  LibraryFile(pack("View").string(), LibraryFile::Open::kForWriting)
      .Run(
          "CREATE TABLE ScaleTypes (ScaleTypeID, ScaleTypeNo, ScaleTypeName);"
          "CREATE VIEW Scales AS SELECT 1 AS ScaleID, 'x' AS ScaleName");
  LibraryFile(pack("Null").string(), LibraryFile::Open::kForWriting)
      .Run(
          "CREATE TABLE ScaleTypes (ScaleTypeID, ScaleTypeNo, ScaleTypeName);"
          "CREATE TABLE Scales (ScaleID, ScaleName); INSERT INTO ScaleTypes VALUES (900, 1, 'a'), (NULL, 2, 'b')");
  fs::create_directory(pack("Folder"));
}

pid_t WorkFolder::Start(const std::vector<std::string>& arguments, int output) const {
  std::vector<std::string> allArguments = {paths_.Program().string()};
  allArguments.insert(allArguments.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables = Environment(paths_);
  const std::vector<char*> argv = Pointers(allArguments);
  const std::vector<char*> environment = Pointers(variables);
  const pid_t process = ::fork();
  if (process < 0) throw std::runtime_error("no process");
  if (process > 0) return process;
  constexpr int kOutput = 3;
  if (output >= 0 && output != kOutput) ::dup2(output, kOutput);
  if (output == kOutput) ::fcntl(kOutput, F_SETFD, 0);
  ::execve(argv[0], argv.data(), environment.data());
  ::_exit(127);
}

void MakePack(const fs::path& path, const std::string& namePrefix, int scales, int type) {
  fs::remove(path);
  const LibraryFile pack(path.string(), LibraryFile::Open::kForWriting);
  const std::string number = std::to_string(type);
  pack.Run(
      "CREATE TABLE ScaleTypes (ScaleTypeID INTEGER PRIMARY KEY, ScaleTypeNo INTEGER, ScaleTypeName TEXT);"
      "CREATE TABLE Scales (ScaleID INTEGER PRIMARY KEY, ScaleName TEXT, ScaleTypeID INTEGER, ScaleDescription TEXT,"
      " StartNote TEXT, ScaleIntervals TEXT, Chord INTEGER, Sort INTEGER);"
      "INSERT INTO ScaleTypes VALUES (" +
      number + ", " + number + ", 'Type " + number +
      "');"
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
      std::to_string(scales) +
      ") "
      "INSERT INTO Scales SELECT i, '" +
      namePrefix + " ' || i, " + number + ", '" + namePrefix +
      " of ' || i, 'D',"
      " substr('2131221', 1 + i % 3), i % 2, i FROM n");
}

}  // namespace tonalith::stress

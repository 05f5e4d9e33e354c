// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "house/arrows.h"

#include <algorithm>
#include <array>
#include <regex>

namespace tonalith::house {
namespace {

namespace fs = std::filesystem;

bool IsStandardHeader(const std::string& header) {
  static const std::regex pattern("[a-z_0-9]+");
  return std::regex_match(header, pattern);
}

bool MayInclude(const Room& room, const std::string& header) {
  return IsStandardHeader(header) ||
         std::any_of(room.headers.begin(), room.headers.end(), [&](const std::string& head) {
           const bool isFileName = head.size() > 2 && head.compare(head.size() - 2, 2, ".h") == 0;
           return isFileName ? header == head : header.rfind(head, 0) == 0;
         });
}

/// The file of src/ that an include line refers to, relative to the root; empty for foreign headers.
Path OwnHeader(const Path& root, const Path& includer, const std::string& header) {
  const std::array<Path, 2> candidates{Path("src") / header, includer.parent_path() / header};
  for (const Path& candidate : candidates) {
    if (fs::exists(root / candidate)) {
      return candidate.lexically_normal();
    }
  }
  return {};
}

/// The violation of an include line in a file of the project; empty if there is none.
std::string WrongInclude(const RoomTable& table, const Path& root, const Path& file, const std::string& header) {
  const Room* const room = table.OfFile(file);
  if (room == nullptr) {
    return "this file stands in no room";
  }
  if (Path(header).extension() == ".moc") {
    return {};
  }
  const Path own = OwnHeader(root, file, header);
  if (own.empty()) {
    return MayInclude(*room, header) ? std::string() : room->name + " may not include " + header;
  }
  const Room* const used = table.OfFile(own);
  if (used == nullptr) {
    return header + " stands in no room";
  }
  return MayUse(*room, *used) ? std::string() : room->name + " may not use " + used->name + ": " + header;
}

std::string LinkViolation(const RoomTable& table, const Room& room, const std::string& link) {
  static const std::set<std::string> keywords{"PUBLIC", "PRIVATE", "INTERFACE", "tonalith_options"};
  if (keywords.count(link) != 0) {
    return {};
  }
  if (link.rfind("tonalith_", 0) == 0) {
    const Room* const used = table.OfTarget(link);
    if (used == nullptr) {
      return room.name + " links " + link + ", which is no room";
    }
    return MayUse(room, *used) ? std::string() : room.name + " may not link " + link;
  }
  const bool listed = std::find(room.libraries.begin(), room.libraries.end(), link) != room.libraries.end();
  return listed ? std::string() : room.name + " may not link " + link;
}

struct Call {
  std::string command;
  std::vector<std::string> arguments;
};

/// The commands of a CMake file with their arguments, without comments and quotes.
std::vector<Call> CallsOf(const Path& file) {
  std::string text;
  for (const std::string& line : LinesOf(file)) {
    text += line.substr(0, line.find('#')) + "\n";
  }
  static const std::regex pattern(R"((\w+)\s*\(([^()]*)\))");
  std::vector<Call> calls;
  for (std::sregex_iterator call(text.begin(), text.end(), pattern); call != std::sregex_iterator(); ++call) {
    calls.push_back({(*call)[1], Split((*call)[2].str(), " \t\r\n\"")});
  }
  return calls;
}

/// The target of a command that links, and its links; an empty target for other commands.
std::pair<std::string, std::vector<std::string>> LinksOf(const Call& call) {
  if (call.arguments.empty()) {
    return {};
  }
  if (call.command == "target_link_libraries") {
    return {call.arguments[0], {call.arguments.begin() + 1, call.arguments.end()}};
  }
  if (call.command != "tonalith_room") {
    return {};
  }
  std::vector<std::string> links;
  bool inLinks = false;
  for (const std::string& argument : call.arguments) {
    if (argument == "LINKS" || argument == "SOURCES" || argument == "QT") {
      inLinks = argument == "LINKS";
    } else if (inLinks) {
      links.push_back(argument);
    }
  }
  return {"tonalith_" + call.arguments[0], links};
}

bool IsInFolder(const Room& room, const Path& folder) {
  return room.folder == folder || room.folder.rfind(folder.generic_string() + "/", 0) == 0;
}

struct Include {
  Path file;  ///< relative to the root
  int line = 0;
  std::string header;
};

std::vector<Include> IncludesOf(const Path& root) {
  static const std::regex pattern(R"(\s*#\s*include\s*[<"]([^>"]+)[>"].*)");
  std::vector<Include> includes;
  for (const Path& file : ProjectFiles(root / "src")) {
    int number = 0;
    for (const std::string& line : LinesOf(root / "src" / file)) {
      ++number;
      std::smatch match;
      if (std::regex_match(line, match, pattern)) includes.push_back({"src" / file, number, match[1]});
    }
  }
  return includes;
}

struct Links {
  Path file;  ///< relative to the root
  std::string target;
  std::vector<std::string> links;
};

std::vector<Links> AllLinks(const Path& root) {
  std::vector<Links> all;
  for (const Path& file : ProjectFiles(root / "src")) {
    if (file.filename() != "CMakeLists.txt") continue;
    for (const Call& call : CallsOf(root / "src" / file)) {
      auto [target, links] = LinksOf(call);
      if (!target.empty()) all.push_back({"src" / file, target, std::move(links)});
    }
  }
  return all;
}

}  // namespace

std::vector<std::string> WrongIncludes(const RoomTable& table, const Path& root) {
  std::vector<std::string> violations;
  for (const Include& include : IncludesOf(root)) {
    const std::string violation = WrongInclude(table, root, include.file, include.header);
    if (violation.empty()) continue;
    violations.push_back(include.file.generic_string() + ":" + std::to_string(include.line) + ": " + violation);
  }
  return violations;
}

std::vector<std::string> WrongLinks(const RoomTable& table, const Path& root) {
  std::vector<std::string> violations;
  for (const auto& [file, target, links] : AllLinks(root)) {
    const Room* const room = table.OfTarget(target);
    if (room == nullptr || !IsInFolder(*room, file.parent_path())) {
      violations.push_back(file.generic_string() + ": " + target + " is no room of this folder");
      continue;
    }
    for (const std::string& link : links) {
      const std::string violation = LinkViolation(table, *room, link);
      if (!violation.empty()) violations.push_back(file.generic_string() + ": " + violation);
    }
  }
  return violations;
}

std::map<std::string, std::set<std::string>> IncludedRooms(const RoomTable& table, const Path& root) {
  std::map<std::string, std::set<std::string>> included;
  for (const Include& include : IncludesOf(root)) {
    const Room* const room = table.OfFile(include.file);
    const Path own = OwnHeader(root, include.file, include.header);
    const Room* const used = own.empty() ? nullptr : table.OfFile(own);
    if (room != nullptr && used != nullptr && room != used) included[room->name].insert(used->name);
  }
  return included;
}

std::vector<std::string> UnusedPermissions(const RoomTable& table, const Path& root) {
  std::map<std::string, std::set<std::string>> headers;
  for (const Include& include : IncludesOf(root)) {
    if (const Room* const room = table.OfFile(include.file)) headers[room->name].insert(include.header);
  }
  std::map<std::string, std::set<std::string>> links;
  for (const Links& call : AllLinks(root)) links[call.target].insert(call.links.begin(), call.links.end());

  std::map<std::string, std::set<std::string>> included = IncludedRooms(table, root);
  std::vector<std::string> violations;
  for (const Room& room : table.Rooms()) {
    for (const std::string& used : room.rooms) {
      if (included[room.name].count(used) == 0) violations.push_back(room.name + " never includes " + used);
    }
    for (const std::string& library : room.libraries) {
      if (links[room.target].count(library) == 0) violations.push_back(room.name + " never links " + library);
    }
    for (const std::string& head : room.headers) {
      const std::set<std::string>& seen = headers[room.name];
      const auto first = seen.lower_bound(head);
      if (first == seen.end() || first->rfind(head, 0) != 0)
        violations.push_back(room.name + " never includes " + head);
    }
  }
  return violations;
}

}  // namespace tonalith::house

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The source of the help in memory: topics, project, contents and index files, and the table of pictures. Throws
// std::runtime_error with the name of a missing file. The checks below need only this folder; each returns one line per
// fault.

#pragma once

#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "help_text/markup.h"
#include "house/house_files.h"

namespace tonalith::help_text {

struct SiteEntry {
  std::string name;
  std::string target;
};

struct HelpFolder {
  /// By file name.
  std::map<std::string, Markup> topics;
  std::map<std::string, std::string> topicTexts;
  /// The lines of the project file, by section.
  std::map<std::string, std::vector<std::string>> project;
  std::vector<SiteEntry> contents;
  std::vector<SiteEntry> index;
  std::vector<std::string> siteFaults;
  /// Name and width of each picture.
  std::map<std::string, std::string> pictures;

  static HelpFolder Read(const house::Path& folder);
  /// content/help of the project.
  static const HelpFolder& Shipped();

  /// The value of the line "name=value" in the options of the project.
  [[nodiscard]] std::string Option(std::string_view name) const;
  /// The texts in spans of that class, in all topics (with the topic) or in one.
  [[nodiscard]] std::map<std::string, std::string> Quoted(std::string_view className) const;
  [[nodiscard]] std::set<std::string> QuotedIn(const std::string& topic, std::string_view className) const;
};

/// A line about a file: its name, a colon, and the joined words.
std::string FaultOf(std::string_view file, std::initializer_list<std::string_view> words);

/// Unbalanced tags, and topics without licence, encoding or style sheet, or whose title differs from the heading.
std::vector<std::string> TopicFaults(const HelpFolder& help);
/// Links to missing topics or anchors, and external links.
std::vector<std::string> LinkFaults(const HelpFolder& help);
/// Pictures that are missing in the table, have another width, or have no alt text; pictures of the table that no topic
/// shows.
std::vector<std::string> PictureFaults(const HelpFolder& help);
/// Files missing in the project, superfluous or repeated files, and invalid options.
std::vector<std::string> ProjectFaults(const HelpFolder& help);
/// Topics that are missing in the contents, repeated, or have another title.
std::vector<std::string> ContentsFaults(const HelpFolder& help);
/// Entries without target, repeated entries, and entries out of order.
std::vector<std::string> IndexFaults(const HelpFolder& help);

}  // namespace tonalith::help_text

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The source of the help in memory: its topics, its project, contents and index files, its table of pictures. Read once
// from a folder; a file that is missing throws std::runtime_error with its name. Beside it the checks that need nothing
// but that folder. Each gives one line of text for each fault; no line means that all is well.

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
  /// Topics by the name of their file.
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

  /// The value of a line "name=value" among the options of the project.
  [[nodiscard]] std::string Option(std::string_view name) const;
  /// What the spans of that class quote, in all topics or in one, with the topic that does.
  [[nodiscard]] std::map<std::string, std::string> Quoted(std::string_view className) const;
  [[nodiscard]] std::set<std::string> QuotedIn(const std::string& topic, std::string_view className) const;
};

/// One line about a file: its name, a colon, and the words one behind the other.
std::string FaultOf(std::string_view file, std::initializer_list<std::string_view> words);

/// Tags that are not balanced, and topics without licence, encoding, style sheet, or with a title that is not their
/// heading.
std::vector<std::string> TopicFaults(const HelpFolder& help);
/// Links to topics and places that are not there, or that lead outside.
std::vector<std::string> LinkFaults(const HelpFolder& help);
/// Pictures that the table does not have, of another width than it says, or without a word for those who cannot see
/// them; pictures of the table that no topic shows.
std::vector<std::string> PictureFaults(const HelpFolder& help);
/// Files that the project does not list, or lists without need, and options that name no such file.
std::vector<std::string> ProjectFaults(const HelpFolder& help);
/// Topics that the contents leave out, show twice or under another name than their own.
std::vector<std::string> ContentsFaults(const HelpFolder& help);
/// Entries that lead nowhere, stand twice or out of order.
std::vector<std::string> IndexFaults(const HelpFolder& help);

}  // namespace tonalith::help_text

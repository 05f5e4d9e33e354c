// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A topic of a help file, converted to safe HTML for the window: few tags, well-formed, limited nesting, no scripts,
// styles, colours or frames. Boxes (class note, tip, warning, message, example) become tables; links and pictures
// become indexes into lists. Takes linear time.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tonalith::help {

struct HelpPicture {
  std::string source;
  /// In pixels at a scale factor of 1; 0 if the topic does not set it.
  int width = 0;
  int height = 0;
  std::string description;
};

struct HelpPage {
  std::string title;
  /// UTF-8, the content of a body element. `href="link:3"` refers to links[3], `src="picture:3"` to pictures[3].
  std::string html;
  /// The plain text for searching: one line per paragraph.
  std::string text;
  std::vector<std::string> links;
  std::vector<HelpPicture> pictures;
  std::vector<std::string> styleSheets;
  /// The topic was truncated because it exceeds one of the limits below.
  bool isCut = false;
};

/// In bytes. Longer topics are truncated.
inline constexpr std::size_t kLongestTopic = std::size_t{1} << 20;
/// Qt lays out a page synchronously and needs tens of microseconds per block and per tag: a page within these limits
/// takes less than half a second. The longest page of Tonalith's help has 20 KB of text.
inline constexpr std::size_t kLongestHelpText = std::size_t{128} << 10;
/// Blocks, and lines of preformatted text.
inline constexpr std::size_t kMostHelpBlocks = 4'000;
inline constexpr int kMostHelpTags = 10'000;
/// In bytes. Longer words get break opportunities, because Qt measures an unbreakable word again for every line.
inline constexpr std::size_t kLongestHelpWord = 200;

HelpPage ReadHelpPage(std::string_view bytes);

/// Escapes text for HTML.
std::string EscapedForHtml(std::string_view text);

/// Extracts the rules of a style sheet for bold, italic, alignment and line breaks. All others are dropped: the window
/// defines colours, fonts and sizes.
std::string ShapesOf(std::string_view styleSheet);

}  // namespace tonalith::help

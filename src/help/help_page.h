// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A topic of a help file, made fit for the window: well-formed HTML of few tags, closed and not too deep, without
// scripts, styles, colours or frames, whatever the file holds. Boxes (class note, tip, warning, message, example)
// arrive as tables, links and pictures as numbers into lists. Made in time that grows with the topic; never fails; one
// thread. Values, owned by whoever asked.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tonalith::help {

struct HelpPicture {
  std::string source;
  /// In pixels at a scale of 1; 0 where the topic leaves the size to the picture.
  int width = 0;
  int height = 0;
  std::string description;
};

struct HelpPage {
  std::string title;
  /// UTF-8, the content of a body. `href="link:3"` stands for links[3], `src="picture:3"` for pictures[3].
  std::string html;
  /// What is to be read, for searching: one line for each paragraph.
  std::string text;
  std::vector<std::string> links;
  std::vector<HelpPicture> pictures;
  std::vector<std::string> styleSheets;
  /// The topic goes on after what is here: it exceeds one of the limits below.
  bool isCut = false;
};

/// Longer topics are cut.
inline constexpr std::size_t kLongestTopic = std::size_t{1} << 20;
/// Qt lays a page out at once, on the user-interface thread, and takes tens of microseconds for each block and each
/// tag: a page within these limits takes less than half a second. The longest page of Tonalith's help has 20 KB of
/// text.
inline constexpr std::size_t kLongestHelpText = std::size_t{128} << 10;
/// Blocks, and lines of preformatted text.
inline constexpr std::size_t kMostHelpBlocks = 4'000;
inline constexpr int kMostHelpTags = 10'000;
/// In bytes. Longer words get places to break at, because Qt measures an unbreakable word again for every line.
inline constexpr std::size_t kLongestHelpWord = 200;

HelpPage ReadHelpPage(std::string_view bytes);

/// The text as it has to be written inside HTML.
std::string EscapedForHtml(std::string_view text);

/// What a style sheet says about the shape of the text (bold, italic, alignment, line breaks), and nothing else:
/// colours, fonts and sizes belong to the window.
std::string ShapesOf(std::string_view styleSheet);

}  // namespace tonalith::help

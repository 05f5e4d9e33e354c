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
};

/// Longer topics are cut.
inline constexpr std::size_t kLongestTopic = std::size_t{1} << 20;

HelpPage ReadHelpPage(std::string_view bytes);

/// The text as it has to be written inside HTML.
std::string EscapedForHtml(std::string_view text);

/// What a style sheet says about the shape of the text (bold, italic, alignment, line breaks), and nothing else:
/// colours, fonts and sizes belong to the window.
std::string ShapesOf(std::string_view styleSheet);

}  // namespace tonalith::help

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// HTML as the tests of the help see it: elements with their attributes and text, and what is wrong with the tags. Every
// tag but the empty ones has to be closed in order, and every attribute has to be quoted. Reads any text to its end;
// plain values.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::help_text {

struct Element {
  std::string name;
  std::map<std::string, std::string> attributes;
  /// All text inside, entities resolved.
  std::string text;

  /// Empty when there is none of that name.
  [[nodiscard]] std::string Attribute(const std::string& attribute) const;
};

struct Markup {
  /// In the order of their opening tags.
  std::vector<Element> elements;
  std::vector<std::string> faults;

  [[nodiscard]] std::vector<Element> Named(std::string_view name) const;
  /// The elements of that name and class.
  [[nodiscard]] std::vector<Element> Of(std::string_view name, std::string_view className) const;
};

Markup ReadMarkup(std::string_view html);

}  // namespace tonalith::help_text

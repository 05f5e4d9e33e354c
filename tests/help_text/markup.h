// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A strict HTML parser for the tests of the help: elements with attributes and text, and the faults of the tags. Every
// non-empty element must be closed in order, and every attribute must be quoted. Accepts any text.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::help_text {

struct Element {
  std::string name;
  std::map<std::string, std::string> attributes;
  /// All text inside, with entities resolved.
  std::string text;

  /// Empty if there is no such attribute.
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

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help_text/markup.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <regex>
#include <set>
#include <utility>

namespace tonalith::help_text {
namespace {

bool IsEmptyElement(const std::string& name) {
  static const std::set<std::string> names{"meta", "link", "img", "br", "hr", "param"};
  return names.count(name) != 0;
}

std::string Resolved(std::string_view text, std::vector<std::string>& faults) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kEntities = {
      {{"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&nbsp;", " "}}};
  std::string resolved;
  while (!text.empty()) {
    const auto* const entity = std::find_if(kEntities.begin(), kEntities.end(),
                                            [&](const auto& known) { return text.starts_with(known.first); });
    if (entity != kEntities.end()) {
      resolved += entity->second;
      text.remove_prefix(entity->first.size());
    } else {
      if (text.front() == '&') faults.push_back("unknown entity " + std::string(text.substr(0, 8)));
      resolved += text.front();
      text.remove_prefix(1);
    }
  }
  return resolved;
}

class Reader {
 public:
  explicit Reader(std::string_view html) : rest_(html) {}

  Markup Run() {
    while (!rest_.empty()) Take();
    for (const std::size_t open : open_) Fault("<" + markup_.elements[open].name + "> is not closed");
    return std::move(markup_);
  }

 private:
  void Fault(const std::string& text) { markup_.faults.push_back(text); }

  std::string_view TakeTo(std::string_view end) {
    const std::size_t at = rest_.find(end);
    const std::string_view taken = rest_.substr(0, at);
    if (at == std::string_view::npos) {
      Fault("no " + std::string(end) + " to the end");
      rest_ = {};
    } else {
      rest_.remove_prefix(at + end.size());
    }
    return taken;
  }

  void Take() {
    if (rest_.starts_with("<!--")) {
      TakeTo("-->");
    } else if (rest_.starts_with("<!")) {
      TakeTo(">");
    } else if (rest_.starts_with("</")) {
      rest_.remove_prefix(2);
      CloseElement(std::string(TakeTo(">")));
    } else if (rest_.starts_with("<")) {
      rest_.remove_prefix(1);
      OpenElement(std::string(TakeTo(">")));
    } else {
      const std::size_t end = std::min(rest_.find('<'), rest_.size());
      const std::string text = Resolved(rest_.substr(0, end), markup_.faults);
      if (text.find('>') != std::string::npos && rest_.substr(0, end).find('>') != std::string_view::npos) {
        Fault("a bare > in the text");
      }
      for (const std::size_t open : open_) markup_.elements[open].text += text;
      rest_.remove_prefix(end);
    }
  }

  void OpenElement(const std::string& tag) {
    static const std::regex attribute(R"re(\s+([a-z-]+)="([^"<]*)")re");
    const std::size_t nameEnd = std::min(tag.find_first_of(" \n\t"), tag.size());
    Element element{tag.substr(0, nameEnd), {}, {}};
    std::size_t read = nameEnd;
    for (auto found = std::sregex_iterator(tag.begin() + static_cast<std::ptrdiff_t>(nameEnd), tag.end(), attribute,
                                           std::regex_constants::match_continuous);
         found != std::sregex_iterator(); ++found) {
      element.attributes[(*found)[1]] = Resolved((*found)[2].str(), markup_.faults);
      read += static_cast<std::size_t>(found->length());
    }
    if (read != tag.size()) Fault("<" + tag + "> has an attribute that is not well formed");
    if (!IsEmptyElement(element.name)) open_.push_back(markup_.elements.size());
    markup_.elements.push_back(std::move(element));
  }

  void CloseElement(const std::string& name) {
    if (open_.empty() || markup_.elements[open_.back()].name != name) {
      const std::string inner = open_.empty() ? "nothing" : "<" + markup_.elements[open_.back()].name + ">";
      Fault("</" + name + "> where " + inner + " is open");
    } else {
      open_.pop_back();
    }
  }

  std::string_view rest_;
  /// Indexes of the open elements, the outermost first.
  std::vector<std::size_t> open_;
  Markup markup_;
};

}  // namespace

std::string Element::Attribute(const std::string& attribute) const {
  const auto found = attributes.find(attribute);
  return found == attributes.end() ? std::string() : found->second;
}

std::vector<Element> Markup::Named(std::string_view name) const {
  std::vector<Element> found;
  std::copy_if(elements.begin(), elements.end(), std::back_inserter(found),
               [&](const Element& element) { return element.name == name; });
  return found;
}

std::vector<Element> Markup::Of(std::string_view name, std::string_view className) const {
  std::vector<Element> found = Named(name);
  std::erase_if(found, [&](const Element& element) { return element.Attribute("class") != className; });
  return found;
}

Markup ReadMarkup(std::string_view html) { return Reader(html).Run(); }

}  // namespace tonalith::help_text

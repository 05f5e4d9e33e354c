// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The checks of the help folder.

#include <algorithm>
#include <cctype>

#include "help_text/displayed_text.h"
#include "help_text/help_folder.h"

namespace tonalith::help_text {
namespace {

using Faults = std::vector<std::string>;

/// Why the target of a link in `topic` does not exist; empty if it exists.
std::string WhyMissing(const HelpFolder& help, const std::string& topic, const std::string& target) {
  if (target.find(':') != std::string::npos) return "leads outside";
  const std::size_t hash = target.find('#');
  const std::string file = hash == 0 ? topic : target.substr(0, hash);
  const auto found = help.topics.find(file);
  if (found == help.topics.end()) return "there is no such topic";
  if (hash == std::string::npos) return {};
  const std::string place = target.substr(hash + 1);
  const std::vector<Element>& elements = found->second.elements;
  const bool isThere = std::any_of(elements.begin(), elements.end(), [&](const Element& element) {
    return (element.name == "a" && element.Attribute("name") == place) || element.Attribute("id") == place;
  });
  return isThere ? std::string() : "there is no such place";
}

std::string FirstText(const Markup& topic, std::string_view element) {
  const std::vector<Element> found = topic.Named(element);
  return found.empty() ? std::string() : AsDisplayed(found.front().text);
}

std::string ToLowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); });
  return text;
}

void CheckHead(const std::string& name, const std::string& text, const Markup& topic, Faults& faults) {
  static const std::string licence =
      "<!--\nSPDX-License-Identifier: CC0-1.0\nSPDX-FileCopyrightText: 2026 The Tonalith authors\n-->\n";
  if (!text.starts_with(licence)) faults.push_back(FaultOf(name, {"no licence at the top"}));
  if (text.find("charset=utf-8\"") == std::string::npos) faults.push_back(FaultOf(name, {"no encoding"}));
  const std::vector<Element> links = topic.Named("link");
  if (links.empty() || links.front().Attribute("href") != "tonalith.css")
    faults.push_back(FaultOf(name, {"no style sheet"}));
  const std::string title = FirstText(topic, "title");
  if (title.empty() || title != FirstText(topic, "h1")) faults.push_back(FaultOf(name, {"title and heading differ"}));
}

}  // namespace

Faults TopicFaults(const HelpFolder& help) {
  Faults faults = help.siteFaults;
  for (const auto& [name, topic] : help.topics) {
    for (const std::string& fault : topic.faults) faults.push_back(FaultOf(name, {fault}));
    CheckHead(name, help.topicTexts.at(name), topic, faults);
  }
  return faults;
}

Faults LinkFaults(const HelpFolder& help) {
  Faults faults;
  for (const auto& [name, topic] : help.topics) {
    for (const Element& link : topic.Named("a")) {
      if (link.attributes.count("href") == 0) continue;
      const std::string why = WhyMissing(help, name, link.Attribute("href"));
      if (!why.empty()) faults.push_back(FaultOf(name, {link.Attribute("href"), ": ", why}));
    }
  }
  return faults;
}

Faults PictureFaults(const HelpFolder& help) {
  Faults faults;
  std::set<std::string> shown;
  for (const auto& [name, topic] : help.topics) {
    for (const Element& image : topic.Named("img")) {
      const std::string source = image.Attribute("src");
      const auto picture = std::find_if(help.pictures.begin(), help.pictures.end(), [&](const auto& entry) {
        return source == "pictures/" + entry.first + ".png";
      });
      if (picture == help.pictures.end()) {
        faults.push_back(FaultOf(name, {source, ": there is no such picture"}));
        continue;
      }
      shown.insert(picture->first);
      if (image.Attribute("width") != picture->second) faults.push_back(FaultOf(name, {source, ": another width"}));
      if (image.Attribute("alt").empty()) faults.push_back(FaultOf(name, {source, ": no alt"}));
    }
  }
  for (const auto& [picture, width] : help.pictures) {
    if (shown.count(picture) == 0) faults.push_back(FaultOf("pictures.tsv", {picture, " is shown nowhere"}));
  }
  return faults;
}

Faults ProjectFaults(const HelpFolder& help) {
  std::set<std::string> wanted{"tonalith.css"};
  for (const auto& [name, topic] : help.topics) wanted.insert(name);
  for (const auto& [picture, width] : help.pictures) wanted.insert("pictures/" + picture + ".png");
  Faults faults;
  std::set<std::string> listed;
  const auto section = help.project.find("FILES");
  for (const std::string& file : section == help.project.end() ? Faults() : section->second) {
    if (!listed.insert(file).second) faults.push_back(FaultOf("tonalith.hhp", {file, " is listed twice"}));
    if (wanted.count(file) == 0) faults.push_back(FaultOf("tonalith.hhp", {file, " is not part of the help"}));
  }
  for (const std::string& file : wanted) {
    if (listed.count(file) == 0) faults.push_back(FaultOf("tonalith.hhp", {file, " is not listed"}));
  }
  const std::map<std::string, std::string> options{{"Compiled file", "TLHELP.chm"},
                                                   {"Contents file", "contents.hhc"},
                                                   {"Index file", "index.hhk"},
                                                   {"Title", "Tonalith Help"},
                                                   {"Full-text search", "Yes"}};
  for (const auto& [name, value] : options) {
    if (help.Option(name) != value) faults.push_back(FaultOf("tonalith.hhp", {name, " is not ", value}));
  }
  if (help.topics.count(help.Option("Default topic")) == 0) faults.emplace_back("tonalith.hhp: no default topic");
  return faults;
}

Faults ContentsFaults(const HelpFolder& help) {
  Faults faults;
  std::map<std::string, int> times;
  for (const SiteEntry& entry : help.contents) {
    const auto topic = help.topics.find(entry.target);
    if (topic == help.topics.end()) {
      faults.push_back(FaultOf("contents.hhc", {entry.target, ": there is no such topic"}));
      continue;
    }
    ++times[entry.target];
    if (entry.name != FirstText(topic->second, "title")) {
      faults.push_back(FaultOf("contents.hhc", {entry.target, " has another title than ", entry.name}));
    }
  }
  for (const auto& [name, topic] : help.topics) {
    if (times[name] != 1)
      faults.push_back(FaultOf("contents.hhc", {name, " stands ", std::to_string(times[name]), " times"}));
  }
  return faults;
}

Faults IndexFaults(const HelpFolder& help) {
  Faults faults;
  std::string previous;
  for (const SiteEntry& entry : help.index) {
    const std::string why = WhyMissing(help, {}, entry.target);
    if (!why.empty()) faults.push_back(FaultOf("index.hhk", {entry.name, ": ", why}));
    const std::string name = ToLowerCase(entry.name);
    if (name <= previous) faults.push_back(FaultOf("index.hhk", {entry.name, " does not stand in order"}));
    previous = name;
  }
  if (help.index.empty()) faults.emplace_back("index.hhk: no entry");
  return faults;
}

}  // namespace tonalith::help_text

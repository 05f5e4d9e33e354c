// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help_text/help_folder.h"

#include "help_text/displayed_text.h"

namespace tonalith::help_text {
namespace {

std::vector<SiteEntry> SiteEntries(const Markup& markup) {
  std::vector<SiteEntry> entries;
  for (const Element& element : markup.elements) {
    if (element.name == "object") entries.emplace_back();
    if (element.name != "param" || entries.empty()) continue;
    const std::string value = element.Attribute("value");
    if (element.Attribute("name") == "Name") entries.back().name = value;
    if (element.Attribute("name") == "Local") entries.back().target = value;
  }
  return entries;
}

std::map<std::string, std::vector<std::string>> Sections(const house::Path& file) {
  std::map<std::string, std::vector<std::string>> sections;
  std::string section;
  for (const std::string& line : house::LinesOf(file)) {
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      section = line.substr(1, line.find(']') - 1);
    } else {
      sections[section].push_back(line);
    }
  }
  return sections;
}

void AddFaults(const std::string& file, const Markup& markup, std::vector<std::string>& faults) {
  for (const std::string& fault : markup.faults) faults.push_back(FaultOf(file, {fault}));
}

}  // namespace

std::string FaultOf(std::string_view file, std::initializer_list<std::string_view> words) {
  std::string line(file);
  line += ": ";
  for (const std::string_view word : words) line += word;
  return line;
}

HelpFolder HelpFolder::Read(const house::Path& folder) {
  HelpFolder help;
  for (const house::Path& file : house::ProjectFiles(folder)) {
    if (file.extension() != ".html") continue;
    const std::string name = file.generic_string();
    help.topicTexts[name] = house::ReadFile(folder / file);
    help.topics[name] = ReadMarkup(help.topicTexts[name]);
  }
  help.project = Sections(folder / "tonalith.hhp");
  const Markup contents = ReadMarkup(house::ReadFile(folder / "contents.hhc"));
  const Markup index = ReadMarkup(house::ReadFile(folder / "index.hhk"));
  AddFaults("contents.hhc", contents, help.siteFaults);
  AddFaults("index.hhk", index, help.siteFaults);
  help.contents = SiteEntries(contents);
  help.index = SiteEntries(index);
  for (const std::string& line : house::LinesOf(folder / "pictures.tsv")) {
    if (line.empty() || line.front() == '#') continue;
    const std::size_t tab = line.find('\t');
    help.pictures[line.substr(0, tab)] = tab == std::string::npos ? std::string() : line.substr(tab + 1);
  }
  return help;
}

const HelpFolder& HelpFolder::Shipped() {
  static const HelpFolder help = Read(house::ProjectRoot() / "content/help");
  return help;
}

std::string HelpFolder::Option(std::string_view name) const {
  const auto options = project.find("OPTIONS");
  if (options == project.end()) return {};
  const std::string beginning = std::string(name) + "=";
  for (const std::string& line : options->second) {
    if (line.starts_with(beginning)) return line.substr(beginning.size());
  }
  return {};
}

std::set<std::string> HelpFolder::QuotedIn(const std::string& topic, std::string_view className) const {
  std::set<std::string> quoted;
  for (const Element& span : topics.at(topic).Of("span", className)) quoted.insert(AsDisplayed(span.text));
  return quoted;
}

std::map<std::string, std::string> HelpFolder::Quoted(std::string_view className) const {
  std::map<std::string, std::string> quoted;
  for (const auto& [topic, markup] : topics) {
    for (const std::string& text : QuotedIn(topic, className)) quoted.emplace(text, topic);
  }
  return quoted;
}

}  // namespace tonalith::help_text

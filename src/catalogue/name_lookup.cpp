// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "catalogue/name_lookup.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "catalogue/folded_text.h"
#include "catalogue/word_search.h"
#include "core/text.h"
#include "core/upper_case.h"
#include "theory/chord_symbol.h"

namespace tonalith::catalogue {
namespace {

/// How well a name fits: lower is better.
struct Rank {
  int part = 0;
  int spelling = 0;
  int kind = 0;
  auto operator<=>(const Rank&) const = default;  // NOLINT(modernize-use-nullptr)
};

/// The name that is looked for, and the best entry so far.
class Finder {
 public:
  Finder(std::string_view name, std::optional<theory::SetKind> preferred)
      : name_(name), upper_(core::UpperCase(name)), preferred_(preferred), suffix_(theory::ParseChordSuffix(name)) {}

  void Try(std::size_t index, NamePart part, std::string_view name, theory::SetKind kind) {
    // Only letters of some scripts change their length with their case, and never to less than a quarter.
    if (name.size() > 4 * name_.size() || name_.size() > 4 * name.size()) return;
    const bool isSame = name == name_;
    if (!isSame && !IsEqualInOtherCase(name)) return;
    const Rank rank{static_cast<int>(part), isSame ? 0 : 1, preferred_ && kind != *preferred_ ? 1 : 0};
    if (found_ && rank_ <= rank) return;
    found_ = index;
    rank_ = rank;
  }

  [[nodiscard]] std::optional<std::size_t> Found() const { return found_; }

 private:
  bool IsEqualInOtherCase(std::string_view name) {
    core::UpperCaseInto(buffer_, name);
    if (buffer_ != upper_) return false;
    const auto suffix = theory::ParseChordSuffix(name);
    return !suffix || !suffix_ || suffix->Set() == suffix_->Set();
  }

  std::string_view name_;
  std::u32string upper_;
  std::u32string buffer_;
  std::optional<theory::SetKind> preferred_;
  theory::Parsed<theory::Formula> suffix_;
  std::optional<std::size_t> found_;
  Rank rank_;
};

/// The number of characters to insert, remove or replace, or `limit` if it is not below that.
std::size_t Distance(std::u32string_view a, std::u32string_view b, std::size_t limit) {
  const std::size_t difference = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
  if (difference >= limit) return limit;
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    std::size_t least = row[0];
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = std::exchange(row[j + 1], std::min({row[j] + 1, row[j + 1] + 1, replaced}));
      least = std::min(least, row[j + 1]);
    }
    if (least >= limit) return limit;
  }
  return std::min(row[b.size()], limit);
}

/// Collects the nearest names.
class Nearest {
 public:
  Nearest(std::string_view name, std::size_t count) : name_(Shortened(Fold(name))), words_(name), count_(count) {}

  void Try(std::string_view candidate) {
    FoldInto(folded_, candidate);
    folded_ = Shortened(std::move(folded_));
    const std::size_t limit = best_.size() < count_ ? kFar : best_.back().distance;
    std::size_t distance = Distance(name_, folded_, limit);
    if (distance >= kOfWords && words_.Matches(candidate)) {
      distance = std::min(distance, kOfWords + folded_.size() / kCharactersPerStep);
    }
    if (distance >= limit) return;
    const auto isSame = [&](const Candidate& other) { return other.name == candidate; };
    if (std::any_of(best_.begin(), best_.end(), isSame)) return;
    const auto place = std::upper_bound(best_.begin(), best_.end(), distance,
                                        [](std::size_t d, const Candidate& other) { return d < other.distance; });
    best_.insert(place, {distance, std::string(candidate)});
    if (best_.size() > count_) best_.pop_back();
  }

  [[nodiscard]] std::vector<std::string> Names() && {
    std::vector<std::string> names;
    for (Candidate& candidate : best_) names.push_back(std::move(candidate.name));
    return names;
  }

 private:
  struct Candidate {
    std::size_t distance = 0;
    std::string name;
  };
  /// Longer names differ enough within these characters.
  static constexpr std::size_t kMostCompared = 64;
  static constexpr std::size_t kFar = kMostCompared + 1;
  /// A name that contains the words counts as two wrong characters, and a little for its length.
  static constexpr std::size_t kOfWords = 2;
  static constexpr std::size_t kCharactersPerStep = 32;

  static std::u32string Shortened(std::u32string text) {
    if (text.size() > kMostCompared) text.resize(kMostCompared);
    return text;
  }

  std::u32string name_;
  WordSearch words_;
  std::size_t count_;
  std::u32string folded_;
  std::vector<Candidate> best_;
};

}  // namespace

std::string_view WithoutBracket(std::string_view name) {
  if (!name.ends_with(')')) return name;
  const std::size_t bracket = name.rfind('(');
  if (bracket == std::string_view::npos) return name;
  const std::string_view rest = core::Trim(name.substr(0, bracket));
  return rest.empty() ? name : rest;
}

std::optional<std::size_t> FindEntry(const Catalogue& catalogue, std::string_view name,
                                     std::optional<theory::SetKind> preferred) {
  name = core::Trim(name);
  if (name.empty()) return std::nullopt;
  Finder finder(name, preferred);
  for (std::size_t i = 0; i < catalogue.Size(); ++i) {
    const theory::SetKind kind = catalogue.KindAt(i);
    const std::string_view whole = catalogue.NameAt(i);
    finder.Try(i, NamePart::kWhole, whole, kind);
    const std::string_view part = WithoutBracket(whole);
    if (part.size() != whole.size()) finder.Try(i, NamePart::kWithoutBracket, part, kind);
    for (const std::string_view alias : catalogue.AliasesAt(i)) finder.Try(i, NamePart::kAlias, alias, kind);
  }
  return finder.Found();
}

std::vector<std::string> NearestNames(const Catalogue& catalogue, std::string_view name, std::size_t count) {
  Nearest nearest(core::Trim(name), count);
  for (std::size_t i = 0; i < catalogue.Size(); ++i) {
    const std::string_view whole = catalogue.NameAt(i);
    nearest.Try(whole);
    for (const std::string_view alias : catalogue.AliasesAt(i)) nearest.Try(alias);
  }
  return std::move(nearest).Names();
}

std::vector<std::string> NearestTexts(const std::vector<std::string>& texts, std::string_view text, std::size_t count) {
  Nearest nearest(core::Trim(text), count);
  for (const std::string& candidate : texts) nearest.Try(candidate);
  return std::move(nearest).Names();
}

}  // namespace tonalith::catalogue

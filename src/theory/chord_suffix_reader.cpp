// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>
#include <vector>

#include "theory/accidental_text.h"
#include "theory/chord_symbol.h"

namespace tonalith::theory {
namespace {

enum class Quality : std::uint8_t { kMajor, kMinor, kDiminished, kHalfDiminished, kAugmented };

constexpr int kDiminishedSeventh = 9;
constexpr int kMinorSeventh = 10;
constexpr int kMajorSeventh = 11;

/// Reads one suffix from left to right. Each Take function removes what it understands from the rest.
class SuffixReader {
 public:
  explicit SuffixReader(std::string_view text) : text_(text), rest_(text) {}

  Parsed<Formula> Read() {
    TakeQuality();
    TakeNumber();
    while (!rest_.empty() && !error_) {
      const std::string_view before = rest_;
      TakeModifier();
      if (!error_ && rest_.size() == before.size()) Fail(ParseReason::kUnknownChord);
    }
    if (error_) return *error_;
    return Result();
  }

 private:
  void Fail(ParseReason reason) {
    if (!error_) error_ = ParseError{reason, text_.size() - rest_.size()};
  }

  bool TakeAny(std::initializer_list<std::string_view> words) {
    return std::ranges::any_of(words, [this](std::string_view word) { return Take(rest_, word); });
  }

  bool TakeMajorSign() {
    if (TakeAny({"major", "Major", "maj", "Maj", "MAJ", "Ma", "M", "j"})) return majorSeventh_ = true;
    // "ma" and "ma7", but not "madd9".
    const bool isWhole = rest_.size() == 2 || (rest_.size() > 2 && rest_[2] >= '0' && rest_[2] <= '9');
    if (isWhole && Take(rest_, "ma")) return majorSeventh_ = true;
    if (!TakeAny({"\u0394", "\u25B3", "^"})) return false;
    // The triangle alone is a major seventh.
    triangle_ = true;
    Replace({7, 0});
    return majorSeventh_ = true;
  }

  bool TakeMinorSign() {
    // "-5" is a flat fifth, not a minor chord.
    return !rest_.starts_with("-5") && TakeAny({"minor", "Minor", "min", "Min", "MIN", "mi", "m", "-"});
  }

  void TakeQuality() {
    SkipFiller();
    if (TakeAny({"dim", "Dim", "\u00B0", "\u00BA", "o"})) {
      SetQuality(Quality::kDiminished);
    } else if (TakeAny({"\u00F8", "\u00D8"})) {
      SetQuality(Quality::kHalfDiminished);
    } else if (TakeAny({"aug", "Aug", "+"})) {
      SetQuality(Quality::kAugmented);
    } else if (!TakeMajorSign() && !TakeAny({"dominant", "dom"}) && TakeMinorSign()) {
      SetQuality(Quality::kMinor);
    }
    SkipFiller();
    if (quality_ != Quality::kMajor) TakeMajorSeventhOfMinor();
  }

  /// "m(maj7)", "mM9", "dim/maj7".
  void TakeMajorSeventhOfMinor() {
    const std::string_view before = rest_;
    if (TakeMajorSign() && rest_.empty() && !triangle_) {
      majorSeventh_ = false;
      rest_ = before;
    }
  }

  void SetQuality(Quality quality) {
    quality_ = quality;
    if (quality == Quality::kMinor || quality == Quality::kDiminished || quality == Quality::kHalfDiminished) {
      third_ = {3, -1};
    }
    if (quality == Quality::kDiminished || quality == Quality::kHalfDiminished) Replace({5, -1});
    if (quality == Quality::kAugmented) Replace({5, 1});
    if (quality == Quality::kHalfDiminished) Stack(7, kMinorSeventh);
  }

  /// Blanks, brackets and commas only separate.
  void SkipFiller() {
    while (!rest_.empty() && std::string_view(" (),").find(rest_[0]) != std::string_view::npos) rest_.remove_prefix(1);
  }

  void TakeNumber() {
    SkipFiller();
    if (TakeAny({"6/9", "69", "6(9)", "6add9"})) {
      degrees_.push_back({6, 0});
      degrees_.push_back({9, 0});
    } else if (TakeAny({"13"})) {
      Stack(13, SeventhSemitones());
    } else if (TakeAny({"11"})) {
      Stack(11, SeventhSemitones());
    } else if (TakeAny({"9"})) {
      Stack(9, SeventhSemitones());
    } else if (TakeAny({"7"})) {
      Stack(7, SeventhSemitones());
    } else if (TakeAny({"6"})) {
      degrees_.push_back({6, 0});
    } else if (quality_ == Quality::kMajor && TakeAny({"5"})) {
      third_.reset();
    } else if (quality_ == Quality::kAugmented && TakeAny({"5"})) {
      // "+5" is the same as "+".
    } else if (TakeAny({"4"})) {
      Suspend({4, 0});
    } else if (TakeAny({"2"})) {
      degrees_.push_back({9, 0});
    }
    SkipFiller();
  }

  int SeventhSemitones() const {
    if (majorSeventh_) return kMajorSeventh;
    return quality_ == Quality::kDiminished ? kDiminishedSeventh : kMinorSeventh;
  }

  void Stack(int top, int seventh) {
    Replace({7, seventh - kMajorSeventh});
    const bool minor = third_ && third_->alteration < 0;
    if (top >= 9) degrees_.push_back({9, 0});
    if (top == 11 || (top == 13 && minor)) degrees_.push_back({11, 0});
    if (top == 13) degrees_.push_back({13, 0});
  }

  void Suspend(Degree degree) {
    third_.reset();
    degrees_.push_back(degree);
  }

  /// An altered degree replaces the natural one, but two alterations of a degree go together.
  void Replace(Degree degree) {
    if (degree.number == 3) {
      third_ = degree;
      return;
    }
    std::erase_if(degrees_, [&](Degree other) {
      return other.number == degree.number && (other.alteration == 0 || degree.number == 7);
    });
    degrees_.push_back(degree);
  }

  void TakeModifier() {
    SkipFiller();
    if (rest_.empty()) return;
    if (TakeAny({"sus"})) return TakeSuspension();
    if (TakeAny({"add", "Add"})) return TakeAdded();
    if (TakeAny({"no", "omit"})) return TakeOmitted();
    if (TakeAny({"alt"})) return Alter();
    if (TakeAny({"/"})) return TakeAdded();
    if (TakeMajorSign()) return TakeLateMajorSeventh();
    if (TakeAny({"aug"})) return Replace({5, 1});
    const std::optional<Degree> degree = TakeDegree(true);
    if (!degree) {
      // "7+" is an augmented seventh.
      if (TakeAny({"+"})) return Replace({5, 1});
      return Fail(ParseReason::kUnknownChord);
    }
    if (degree->alteration == 0) return AddDegree(*degree);
    Replace(Compound(*degree));
  }

  void TakeLateMajorSeventh() {
    const auto seventh = std::ranges::find(degrees_, 7, &Degree::number);
    if (TakeAny({"7"}) || triangle_) {
      // A diminished seventh stays: "dim7(maj7)".
      if (seventh != degrees_.end() && seventh->alteration == -2) return degrees_.push_back({7, 0});
      return Replace({7, 0});
    }
    // "7M".
    if (seventh != degrees_.end()) return Replace({7, 0});
    Fail(ParseReason::kUnknownChord);
  }

  void TakeSuspension() {
    bool any = false;
    while (true) {
      const std::string_view before = rest_;
      SkipFiller();
      const std::optional<Degree> degree = TakeDegree(false);
      if (!degree || (degree->number != 2 && degree->number != 4)) {
        rest_ = before;
        break;
      }
      Suspend(*degree);
      any = true;
    }
    if (!any) Suspend({4, 0});
  }

  void TakeAdded() {
    SkipFiller();
    if (TakeMajorSign() && (TakeAny({"7"}) || triangle_)) return degrees_.push_back({7, 0});
    const std::optional<Degree> degree = TakeDegree(false);
    if (!degree) return Fail(ParseReason::kUnknownChord);
    AddDegree(*degree);
  }

  void AddDegree(Degree degree) {
    // As in every symbol, a 7 without a sign is the minor seventh.
    if (degree.number == 7 && degree.alteration == 0) degree.alteration = majorSeventh_ ? 0 : -1;
    degrees_.push_back(Compound(degree));
  }

  /// Added seconds and fourths are ninths and elevenths.
  static Degree Compound(Degree degree) {
    if (degree.number == 2 || degree.number == 4) degree.number += kLetters;
    return degree;
  }

  void TakeOmitted() {
    const std::optional<Degree> degree = TakeDegree(false);
    if (!degree) return Fail(ParseReason::kUnknownChord);
    if (degree->number == 3 && third_) return third_.reset();
    if (std::erase_if(degrees_, [&](Degree other) { return other.number == degree->number; }) == 0) {
      Fail(ParseReason::kNothingToOmit);
    }
  }

  void Alter() {
    if (std::ranges::none_of(degrees_, [](Degree degree) { return degree.number == 7; })) Stack(7, kMinorSeventh);
    for (const Degree degree : {Degree{5, -1}, {5, 1}, {9, -1}, {9, 1}}) Replace(degree);
  }

  /// A degree with its signs. `plusAndMinus`: reads + and - as sharp and flat.
  std::optional<Degree> TakeDegree(bool plusAndMinus) {
    std::string_view after = rest_;
    int alteration = 0;
    while (true) {
      if (const std::optional<int> sign = TakeAccidentalSign(after)) {
        alteration += *sign;
      } else if (plusAndMinus && Take(after, "+")) {
        ++alteration;
      } else if (plusAndMinus && Take(after, "-")) {
        --alteration;
      } else {
        break;
      }
    }
    constexpr std::array<std::pair<std::string_view, int>, 9> kNumbers = {
        {{"13", 13}, {"11", 11}, {"9", 9}, {"7", 7}, {"6", 6}, {"5", 5}, {"4", 4}, {"3", 3}, {"2", 2}}};
    for (const auto& [digits, number] : kNumbers) {
      if (!Take(after, digits)) continue;
      // Only a seventh is doubly flat in a chord.
      const Degree degree{number, alteration};
      if (std::abs(alteration) > 1 && degree != Degree{7, -2}) return std::nullopt;
      rest_ = after;
      return degree;
    }
    return std::nullopt;
  }

  Formula Result() const {
    std::vector<Degree> all = degrees_;
    all.push_back({1, 0});
    if (third_) all.push_back(*third_);
    std::ranges::sort(all);
    return Formula(all);
  }

  std::string_view text_;
  std::string_view rest_;
  std::optional<ParseError> error_;
  Quality quality_ = Quality::kMajor;
  bool majorSeventh_ = false;
  bool triangle_ = false;
  std::optional<Degree> third_ = Degree{3, 0};
  std::vector<Degree> degrees_ = {{5, 0}};
};

}  // namespace

Parsed<Formula> ParseChordSuffix(std::string_view text) {
  if (text.size() > ChordSymbol::kMostBytes) return {ParseReason::kTooLong, ChordSymbol::kMostBytes};
  return SuffixReader(text).Read();
}

}  // namespace tonalith::theory

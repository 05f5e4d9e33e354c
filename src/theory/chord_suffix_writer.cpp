// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <algorithm>
#include <string>
#include <vector>

#include "theory/chord_symbol.h"

namespace tonalith::theory {
namespace {

/// Writes the degrees of one formula in the order of a symbol. Each step removes the degrees that it has written.
class SuffixWriter {
 public:
  explicit SuffixWriter(const Formula& formula) : left_(formula.Degrees()) {
    Remove({1, 0});
    // Next to a third, a second or fourth is an added ninth or eleventh.
    for (Degree& degree : left_) {
      if (HasNumber(3) && (degree.number == 2 || degree.number == 4)) degree.number += kLetters;
    }
    std::ranges::sort(left_);
  }

  std::string Write() {
    if (left_ == std::vector<Degree>{{5, 0}}) return "5";
    if (left_ == std::vector<Degree>{{3, 0}, {5, -1}, {5, 1}, {7, -1}, {9, -1}, {9, 1}}) return "7alt";
    const bool hasFifth = HasNumber(5);
    hasMinorThird_ = Has({3, -1});
    const bool hasThird = hasMinorThird_ || Has({3, 0});
    const bool diminished = hasMinorThird_ && Has({5, -1}) && !Has({5, 0}) && !Has({5, 1});
    if (diminished && (Has({7, -2}) || Has({7, 0}) || !HasNumber(7))) {
      WriteDiminished();
    } else {
      WriteQuality();
    }
    if (!hasThird) WriteSuspension();
    WriteFifth();
    WriteTensions();
    if (!hasThird && !suspended_) text_ += "no3";
    if (!hasFifth) text_ += "no5";
    return text_;
  }

 private:
  bool Has(Degree degree) const { return std::ranges::find(left_, degree) != left_.end(); }
  bool HasNumber(int number) const { return std::ranges::find(left_, number, &Degree::number) != left_.end(); }
  bool Remove(Degree degree) { return std::erase(left_, degree) != 0; }

  void WriteDiminished() {
    Remove({3, -1});
    Remove({5, -1});
    text_ += "dim";
    if (Remove({7, -2})) {
      WriteNumber();
    } else if (Remove({7, 0})) {
      text_ += "(maj";
      WriteNumber();
      text_ += ")";
    }
  }

  void WriteQuality() {
    if (Remove({3, -1})) {
      text_ += "m";
    } else {
      Remove({3, 0});
    }
    if (Remove({7, 0})) {
      text_ += hasMinorThird_ ? "(maj" : "maj";
      WriteNumber();
      if (hasMinorThird_) text_ += ")";
    } else if (Remove({7, -1})) {
      WriteNumber();
    } else if (Remove({6, 0})) {
      number_ = 6;
      text_ += RemoveNatural(9) ? "6/9" : "6";
    } else if (!hasMinorThird_ && Has({5, 1}) && !Has({5, 0}) && !Has({5, -1})) {
      Remove({5, 1});
      text_ += "aug";
    }
  }

  /// The highest number whose lower thirds are all present, natural or altered.
  void WriteNumber() {
    number_ = 7;
    if (HasNumber(9)) {
      if (Has({13, 0}) && (HasNumber(11) || !hasMinorThird_)) {
        number_ = 13;
      } else if (Has({11, 0})) {
        number_ = 11;
      } else if (Has({9, 0})) {
        number_ = 9;
      }
    }
    text_ += std::to_string(number_);
    if (number_ >= 9) RemoveNatural(9);
    if (number_ == 11 || (number_ == 13 && hasMinorThird_)) RemoveNatural(11);
    if (number_ == 13) RemoveNatural(13);
  }

  bool RemoveNatural(int number) {
    if (!Remove({number, 0})) return false;
    natural_.push_back(number);
    return true;
  }

  void WriteSuspension() {
    for (const int number : {2, 4}) {
      for (const int alteration : {-1, 0, 1}) {
        const Degree degree{number, alteration};
        if (!Remove(degree)) continue;
        text_ += "sus" + degree.ToText();
        suspended_ = true;
      }
    }
  }

  void WriteFifth() {
    if (Remove({5, 0})) return;
    for (const int alteration : {-1, 1}) {
      const Degree degree{5, alteration};
      if (!Remove(degree)) continue;
      // Without the brackets, C(b5) would be a chord on Cb.
      text_ += text_.empty() ? "(" + degree.ToText() + ")" : degree.ToText();
    }
  }

  /// An altered ninth to thirteenth follows a number directly; the others are added.
  void WriteTensions() {
    for (const Degree degree : left_) {
      // Written directly, an altered degree would replace a natural one of the same number.
      const bool direct = number_ > 0 && degree.alteration != 0 && degree.number > 7 &&
                          std::ranges::find(natural_, degree.number) == natural_.end();
      text_ += (direct ? "" : "add") + (degree == Degree{7, 0} ? "maj7" : degree.ToText());
      if (degree.alteration == 0) natural_.push_back(degree.number);
    }
  }

  std::vector<Degree> left_;
  std::string text_;
  /// The number after the quality, 0 if none, and the natural degrees that are written, implied by it or added.
  int number_ = 0;
  std::vector<int> natural_;
  bool hasMinorThird_ = false;
  bool suspended_ = false;
};

}  // namespace

std::string WriteChordSuffix(const Formula& formula) { return SuffixWriter(formula).Write(); }

}  // namespace tonalith::theory

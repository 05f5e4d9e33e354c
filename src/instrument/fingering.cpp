// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/fingering.h"

#include <algorithm>
#include <tuple>

namespace tonalith::instrument {
namespace {

/// One finger and the strings between which it stops a fret.
struct Touch {
  int fret = 0;
  std::size_t from = 0;
  std::size_t to = 0;

  [[nodiscard]] bool IsBarre() const { return from != to; }
};

bool IsStopped(Fret fret) { return fret && *fret > 0; }

int LowestFret(const Frets& frets) {
  int lowest = 0;
  for (const Fret fret : frets) {
    if (IsStopped(fret) && (lowest == 0 || *fret < lowest)) lowest = *fret;
  }
  return lowest;
}

/// Covers the strings that are stopped at `fret` with as few barres and fingers as possible.
std::vector<Touch> WidestTouches(const Frets& frets, int fret) {
  std::vector<Touch> touches;
  bool canExtend = false;
  for (std::size_t i = 0; i < frets.size(); ++i) {
    if (!IsStopped(frets[i]) || *frets[i] < fret) {
      canExtend = false;
    } else if (*frets[i] == fret) {
      if (canExtend) {
        touches.back().to = i;
      } else {
        touches.push_back({fret, i, i});
      }
      canExtend = true;
    }
  }
  return touches;
}

/// Whether a player lays the finger flat although single fingers would suffice.
bool IsNaturalBarre(const Frets& frets, const Touch& touch) {
  const auto begin = frets.begin() + static_cast<std::ptrdiff_t>(touch.from);
  const auto end = frets.begin() + static_cast<std::ptrdiff_t>(touch.to) + 1;
  const bool hasNeighbours =
      std::adjacent_find(begin, end, [&](Fret a, Fret b) { return a == touch.fret && b == touch.fret; }) != end;
  return hasNeighbours && std::none_of(end, frets.end(), [](Fret fret) { return fret == 0; });
}

/// How ready the player is to lay fingers flat, in this order.
enum class Barres { kNatural, kAtLowestFret, kEverywhere };

void AddTouches(const Frets& frets, int fret, Barres barres, bool isLowest, std::vector<Touch>& touches) {
  for (const Touch& touch : WidestTouches(frets, fret)) {
    const bool isFlat = barres == Barres::kEverywhere ||
                        (isLowest && (barres == Barres::kAtLowestFret || IsNaturalBarre(frets, touch)));
    if (isFlat) {
      touches.push_back(touch);
      continue;
    }
    for (std::size_t i = touch.from; i <= touch.to; ++i) {
      if (frets[i] == fret) touches.push_back({fret, i, i});
    }
  }
}

/// In the order of frets, then strings.
std::vector<Touch> TouchesOf(const Frets& frets, Barres barres) {
  const int lowest = LowestFret(frets);
  std::vector<Touch> touches;
  std::vector<int> stopped;
  for (const Fret fret : frets) {
    if (IsStopped(fret)) stopped.push_back(*fret);
  }
  std::sort(stopped.begin(), stopped.end());
  stopped.erase(std::unique(stopped.begin(), stopped.end()), stopped.end());
  for (const int fret : stopped) AddTouches(frets, fret, barres, fret == lowest, touches);
  return touches;
}

Fingering Assigned(const Frets& frets, const std::vector<Touch>& touches) {
  Fingering fingering;
  fingering.fingers.assign(frets.size(), kNoFinger);
  fingering.count = static_cast<int>(touches.size());
  const int lowest = LowestFret(frets);
  int finger = 0;
  int left = fingering.count;
  for (const Touch& touch : touches) {
    --left;
    finger = std::max(finger + 1, std::min(touch.fret - lowest + 1, kFingers - left));
    for (std::size_t i = touch.from; i <= touch.to; ++i) {
      if (frets[i] == touch.fret) fingering.fingers[i] = finger;
    }
    if (touch.IsBarre()) {
      fingering.barres.push_back({touch.fret, static_cast<int>(touch.from), static_cast<int>(touch.to)});
    }
  }
  return fingering;
}

}  // namespace

std::optional<Fingering> FingeringOf(const Frets& frets) {
  for (const Barres barres : {Barres::kNatural, Barres::kAtLowestFret, Barres::kEverywhere}) {
    const std::vector<Touch> touches = TouchesOf(frets, barres);
    if (touches.size() <= static_cast<std::size_t>(kFingers)) return Assigned(frets, touches);
  }
  return std::nullopt;
}

}  // namespace tonalith::instrument

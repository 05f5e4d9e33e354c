// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A disk for tests that want to know what happens when it fails: from construction to destruction it lies between the
// database engine and the real disk of this process. Every change of a file is one step; at a step of the test's choice
// the process is ended, in the middle of the write, or there is no room any more for a file to grow. Not for threads;
// one at a time.

#pragma once

#include <string>

namespace tonalith::data {

class PackDisk {
 public:
  PackDisk();
  ~PackDisk();
  PackDisk(const PackDisk&) = delete;
  PackDisk& operator=(const PackDisk&) = delete;

  /// Files can grow this many times more, then the disk is full. What is there can be written over all the same.
  void FillUpAfter(int growths);
  /// There is room again.
  void MakeRoom();
  /// Ends this process at a step from now on, counted from 1, with half of what that step writes on the disk.
  void EndProcessAt(int step);
  /// The steps so far, and how often a file has grown.
  [[nodiscard]] int Steps() const;
  [[nodiscard]] int Growths() const;
};

/// A real file system of a few kilobytes on a folder, for as long as this lives. The mount is seen by this process
/// alone and goes with it. IsThere tells whether the system allows it.
class SmallDisk {
 public:
  SmallDisk(std::string folder, int kilobytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  [[nodiscard]] bool IsThere() const { return isThere_; }
  /// Takes up all the room that is left, but for about so many kilobytes.
  void FillUp(int kilobytesLeft) const;
  void MakeRoom() const;

 private:
  std::string folder_;
  bool isThere_;
};

}  // namespace tonalith::data

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A disk that fails: for the current scope it is between the database engine and the real disk of this process. Every
// change of a file is one step; at a given step the process is killed during the write, or the disk is full. One object
// at a time; one thread.

#pragma once

#include <string>

namespace tonalith::data {

class PackDisk {
 public:
  PackDisk();
  ~PackDisk();
  PackDisk(const PackDisk&) = delete;
  PackDisk& operator=(const PackDisk&) = delete;

  /// Files can grow this many times, then the disk is full. Existing content can still be overwritten.
  void FillUpAfter(int growths);
  /// The disk is no longer full.
  void MakeRoom();
  /// Kills this process at a step from now on, counted from 1, after half of the data of that step is written.
  void EndProcessAt(int step);
  /// The steps so far, and how often a file has grown.
  [[nodiscard]] int Steps() const;
  [[nodiscard]] int Growths() const;
};

/// Mounts a real file system of a few kilobytes on a folder for the current scope, visible only to this process.
/// IsThere returns whether the system allows it.
class SmallDisk {
 public:
  SmallDisk(std::string folder, int kilobytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  [[nodiscard]] bool IsThere() const { return isThere_; }
  /// Fills the disk except for about this many kilobytes.
  void FillUp(int kilobytesLeft) const;
  void MakeRoom() const;

 private:
  std::string folder_;
  bool isThere_;
};

}  // namespace tonalith::data

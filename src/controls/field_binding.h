// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A text box bound to one field of a data control, both ways: the box shows the current row's content, and what the
// user types or the program sets goes into the row's pending edit at once. Changed is emitted whenever the text differs
// from what it was, whoever changed it. Text that goes back to what the row holds is no change. Setting throws
// core::Failure when the row takes no changes; typing then shows the description. Lives with its box, which owns it;
// the data control has to outlive both; user-interface thread.

#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <limits>
#include <string>

#include "core/msg_box.h"
#include "core/value.h"

class QLineEdit;
class QPlainTextEdit;

namespace tonalith::controls {

class DataControl;

class FieldBinding : public QObject {
  Q_OBJECT

 public:
  /// What a text becomes: a number field takes whole numbers as numbers, an empty text as null, and anything else as
  /// the text that it is, for the database to refuse.
  enum class Kind { kText, kNumber };

  FieldBinding(DataControl& data, std::string field, Kind kind, core::MsgBox& msgBox, QLineEdit* box);
  FieldBinding(DataControl& data, std::string field, Kind kind, core::MsgBox& msgBox, QPlainTextEdit* box);

  [[nodiscard]] QString Text() const { return readBox_(); }
  /// As if typed, but a failure is thrown.
  void SetText(const QString& text);
  /// Whether the text differs from the row's content, as the box shows it.
  [[nodiscard]] bool IsChanged() const { return Text() != takenText_; }

  /// The box shows only that many UTF-16 units of a content, because laying out a text takes time.
  void SetLongestShown(qsizetype length) { longestShown_ = length; }
  /// Whether the row holds more than the box shows. Writing the text replaces all of it.
  [[nodiscard]] bool IsShortened() const { return isShortened_; }

 Q_SIGNALS:
  /// `before` is the text that was there.
  void Changed(const QString& before);
  /// The same, for what was typed only. Emitted first.
  void Edited(const QString& before);

 private:
  void Start();
  /// What the box shows of a content.
  QString Shorten(const std::string& content);
  void TakeValue(const core::Value& value);
  void TakeTyped();
  void Write(const QString& text);

  DataControl& data_;
  std::string field_;
  Kind kind_;
  core::MsgBox& msgBox_;
  std::function<QString()> readBox_;
  std::function<void(const QString&)> writeBox_;
  core::Value taken_;
  QString takenText_;
  QString shown_;
  qsizetype longestShown_ = std::numeric_limits<qsizetype>::max();
  bool isShortened_ = false;
  bool isWritingBox_ = false;
};

}  // namespace tonalith::controls

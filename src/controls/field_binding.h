// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Two-way binding of a text box to a field of a data control: the box shows the value of the current row, and typed or
// set text becomes a pending edit immediately. Changed is emitted for each change of the text, from any source. Text
// equal to the value of the row is not a change. SetText throws core::Failure if the row cannot be changed; typing
// shows the description. Owned by its box; the data control must outlive both.

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
  /// Conversion of text: kNumber stores whole numbers as numbers, empty text as null, and other text unchanged, so that
  /// the database refuses it.
  enum class Kind { kText, kNumber };

  FieldBinding(DataControl& data, std::string field, Kind kind, core::MsgBox& msgBox, QLineEdit* box);
  FieldBinding(DataControl& data, std::string field, Kind kind, core::MsgBox& msgBox, QPlainTextEdit* box);

  [[nodiscard]] QString Text() const { return readBox_(); }
  /// Like typing, but throws a failure.
  void SetText(const QString& text);
  /// Whether the text differs from the value of the row as the box shows it.
  [[nodiscard]] bool IsChanged() const { return Text() != rowText_; }

  /// Limits the shown text to that many UTF-16 units, because the layout of long text is slow.
  void SetLongestShown(qsizetype length) { longestShown_ = length; }
  /// Whether the value of the row is longer than the shown text. Writing the text replaces the whole value.
  [[nodiscard]] bool IsShortened() const { return isShortened_; }

 Q_SIGNALS:
  /// `before` is the previous text.
  void Changed(const QString& before);
  /// Like Changed, but only for typed text. Emitted first.
  void Edited(const QString& before);

 private:
  void Start();
  /// The text that the box shows for a value.
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
  core::Value rowValue_;
  QString rowText_;
  QString shown_;
  qsizetype longestShown_ = std::numeric_limits<qsizetype>::max();
  bool isShortened_ = false;
  bool isWritingBox_ = false;
};

}  // namespace tonalith::controls

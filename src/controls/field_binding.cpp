// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/field_binding.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <utility>

#include "controls/data_control.h"
#include "core/deferred_failure.h"

namespace tonalith::controls {
namespace {

core::Value ValueOf(const QString& text, FieldBinding::Kind kind) {
  if (kind == FieldBinding::Kind::kNumber) {
    if (text.trimmed().isEmpty()) return core::Value::Null();
    bool isNumber = false;
    const qlonglong number = text.toLongLong(&isNumber);
    if (isNumber) return std::int64_t{number};
  }
  return text.toStdString();
}

}  // namespace

FieldBinding::FieldBinding(DataControl& data, std::string field, Kind kind, core::MsgBox& msgBox, QLineEdit* box)
    : QObject(box),
      data_(data),
      field_(std::move(field)),
      kind_(kind),
      msgBox_(msgBox),
      readBox_([box] { return box->text(); }),
      writeBox_([box](const QString& text) { box->setText(text); }) {
  connect(box, &QLineEdit::textChanged, this, &FieldBinding::TakeTyped);
  Start();
}

FieldBinding::FieldBinding(DataControl& data, std::string field, Kind kind, core::MsgBox& msgBox, QPlainTextEdit* box)
    : QObject(box),
      data_(data),
      field_(std::move(field)),
      kind_(kind),
      msgBox_(msgBox),
      readBox_([box] { return box->toPlainText(); }),
      writeBox_([box](const QString& text) { box->setPlainText(text); }) {
  connect(box, &QPlainTextEdit::textChanged, this, &FieldBinding::TakeTyped);
  Start();
}

void FieldBinding::Start() {
  data_.Bind(field_, [this](const core::Value& value) { TakeValue(value); });
}

QString FieldBinding::Shorten(const std::string& content) {
  // A UTF-8 character has at most four bytes, so no shown character is truncated.
  constexpr std::size_t kMostBytes = 4;
  const auto longest = static_cast<std::size_t>(longestShown_);
  const bool isLong = content.size() / kMostBytes > longest;
  QString text = QString::fromStdString(isLong ? content.substr(0, longest * kMostBytes) : content);
  isShortened_ = isLong || text.size() > longestShown_;
  if (text.size() <= longestShown_) return text;
  text.truncate(longestShown_);
  if (text.back().isHighSurrogate()) text.chop(1);
  return text;
}

void FieldBinding::TakeValue(const core::Value& value) {
  const QString text = Shorten(value.TextOr({}));
  const QString before = shown_;
  // A box that already shows the value keeps its cursor and its undo stack.
  const bool showsIt = Text() == text || (value == rowValue_ && Text() == rowText_);
  rowValue_ = value;
  if (!showsIt) {
    isWritingBox_ = true;
    writeBox_(text);
    isWritingBox_ = false;
  }
  rowText_ = Text();
  shown_ = rowText_;
  if (shown_ != before) Q_EMIT Changed(before);
}

void FieldBinding::Write(const QString& text) {
  // Unchanged text writes the original value: null differs from empty text, and a box may convert line breaks.
  data_.SetFieldValue(field_, text == rowText_ ? rowValue_ : ValueOf(text, kind_));
}

void FieldBinding::TakeTyped() {
  if (isWritingBox_ || Text() == shown_) return;
  const QString before = std::exchange(shown_, Text());
  core::DeferredFailure failure;
  failure.Try([this] { Write(shown_); });
  Q_EMIT Edited(before);
  Q_EMIT Changed(before);
  failure.ReportDescription(msgBox_);
}

void FieldBinding::SetText(const QString& text) {
  if (text == Text()) return;
  Write(text);
  isWritingBox_ = true;
  writeBox_(text);
  isWritingBox_ = false;
  const QString before = std::exchange(shown_, Text());
  if (shown_ != before) Q_EMIT Changed(before);
}

}  // namespace tonalith::controls

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The editor's text boxes. A line without the focus elides a text that is too long and shows all of it in the tooltip.
// A box of several lines accepts a limited number of characters and cuts a longer text before it is laid out, because
// laying out a million characters takes minutes.

#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

namespace tonalith::editor {

class LineBox : public QLineEdit {
  Q_OBJECT

 public:
  LineBox(const QString& name, QWidget* parent);

  /// Whether the text is elided now.
  [[nodiscard]] bool IsElided() const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QRect TextRect() const;
};

class TextBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  /// As high as `lines` lines of text; accepts `longest` UTF-16 units.
  TextBox(const QString& name, int lines, int longest, QWidget* parent);

 Q_SIGNALS:
  /// A text was cut to the limit. Has the name of QLineEdit's signal so that both are connected by the same code.
  void inputRejected();  // NOLINT(readability-identifier-naming)

 protected:
  void insertFromMimeData(const QMimeData* source) override;

 private:
  [[nodiscard]] int Length() const { return document()->characterCount() - 1; }
  void CutToLimit();

  int longest_;
  /// The end of the text that was inserted last.
  int insertedUpTo_ = 0;
};

}  // namespace tonalith::editor

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The editor's text boxes. A line without the focus that is too long for its box is shown from its beginning, with an
// ellipsis at the end and the whole text as its tooltip. A box of several lines takes a limited number of characters
// and keeps what does not fit from being laid out. Owned by the form; user-interface thread; never fail.

#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

namespace tonalith::editor {

class LineBox : public QLineEdit {
  Q_OBJECT

 public:
  LineBox(const QString& name, QWidget* parent);

  /// Whether the text is shown with an ellipsis now.
  [[nodiscard]] bool IsElided() const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QRect TextPlace() const;
};

class TextBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  /// As high as `lines` lines of text; takes `longest` UTF-16 units.
  TextBox(const QString& name, int lines, int longest, QWidget* parent);

 Q_SIGNALS:
  /// Something did not fit and was left out. Named as QLineEdit's signal, so that both can be connected alike.
  void inputRejected();  // NOLINT(readability-identifier-naming)

 protected:
  void insertFromMimeData(const QMimeData* source) override;

 private:
  [[nodiscard]] int Length() const { return document()->characterCount() - 1; }
  void CutToLimit();

  int longest_;
};

}  // namespace tonalith::editor

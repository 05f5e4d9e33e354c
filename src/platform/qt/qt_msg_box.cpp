// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/qt_msg_box.h"

#include <QApplication>
#include <QCoreApplication>
#include <QMessageBox>
#include <QPointer>

namespace tonalith::platform {
namespace {

using core::MsgBoxAnswer;
using core::MsgBoxStyle;

bool Has(MsgBoxStyle style, int mask, MsgBoxStyle wanted) {
  return (static_cast<int>(style) & mask) == static_cast<int>(wanted);
}

constexpr int kButtonMask = 0x0F;

QMessageBox::Icon IconOf(MsgBoxStyle style) {
  constexpr int kIconMask = 0xF0;
  // A box with Yes and No is a question, whatever icon the style has.
  if (Has(style, kButtonMask, MsgBoxStyle::kYesNo)) return QMessageBox::Question;
  if (Has(style, kIconMask, MsgBoxStyle::kCritical)) return QMessageBox::Critical;
  if (Has(style, kIconMask, MsgBoxStyle::kQuestion)) return QMessageBox::Question;
  if (Has(style, kIconMask, MsgBoxStyle::kExclamation)) return QMessageBox::Warning;
  if (Has(style, kIconMask, MsgBoxStyle::kInformation)) return QMessageBox::Information;
  return QMessageBox::NoIcon;
}

void SetButtons(QMessageBox& box, MsgBoxStyle style) {
  const bool second = Has(style, static_cast<int>(MsgBoxStyle::kDefaultButton2), MsgBoxStyle::kDefaultButton2);
  if (Has(style, kButtonMask, MsgBoxStyle::kOkCancel)) {
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    box.setDefaultButton(second ? QMessageBox::Cancel : QMessageBox::Ok);
  } else if (Has(style, kButtonMask, MsgBoxStyle::kYesNo)) {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(second ? QMessageBox::No : QMessageBox::Yes);
    // Without a Cancel button, Escape and the close button mean No.
    box.setEscapeButton(QMessageBox::No);
  } else {
    box.setStandardButtons(QMessageBox::Ok);
  }
}

MsgBoxAnswer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Cancel:
      return MsgBoxAnswer::kCancel;
    case QMessageBox::Yes:
      return MsgBoxAnswer::kYes;
    case QMessageBox::No:
      return MsgBoxAnswer::kNo;
    default:
      return MsgBoxAnswer::kOk;
  }
}

MsgBoxAnswer AnswerWithoutBox(MsgBoxStyle style) {
  if (Has(style, kButtonMask, MsgBoxStyle::kYesNo)) return MsgBoxAnswer::kNo;
  return Has(style, kButtonMask, MsgBoxStyle::kOkCancel) ? MsgBoxAnswer::kCancel : MsgBoxAnswer::kOk;
}

QString Translated(const core::Message& message) {
  return QString::fromStdString(message.Translated([](const char* context, const char* english) {
    return QCoreApplication::translate(context, english).toStdString();
  }));
}

}  // namespace

MsgBoxAnswer QtMsgBox::Show(const core::Message& text, MsgBoxStyle style, const core::Message& title) {
  // No window is active just after a box has closed; the next box then uses the same parent.
  QWidget* const active = QApplication::activeWindow();
  const bool isLatestThere = !latestWindow_.isNull() && latestWindow_->isVisible();
  if (active != nullptr || !isLatestThere) latestWindow_ = active;
  const QPointer<QMessageBox> box(new QMessageBox(latestWindow_));
  box->setObjectName(QStringLiteral("MsgBox"));
  // The size is fixed, so there is no maximise button.
  box->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                      Qt::WindowCloseButtonHint);
  box->setWindowTitle(title.IsEmpty() ? QString::fromStdString(applicationTitle_) : Translated(title));
  // The name of a scale may look like markup; show it as plain text.
  box->setTextFormat(Qt::PlainText);
  box->setText(Translated(text));
  box->setIcon(IconOf(style));
  SetButtons(*box, style);
  const int button = box->exec();
  // The parent window, and the box with it, may be destroyed while the box is shown; then nothing was confirmed.
  if (box.isNull()) return AnswerWithoutBox(style);
  delete box.data();
  return AnswerOf(button);
}

}  // namespace tonalith::platform

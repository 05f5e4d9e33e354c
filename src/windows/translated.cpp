// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/translated.h"

#include <QCoreApplication>

namespace tonalith::windows {

QString Translated(const core::Message& message) {
  return QString::fromStdString(message.Translated([](const char* context, const char* english) {
    return QCoreApplication::translate(context, english).toStdString();
  }));
}

}  // namespace tonalith::windows

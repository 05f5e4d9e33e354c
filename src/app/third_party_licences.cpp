// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/third_party_licences.h"

#include <QFile>

/// The linker keeps a resource only if it is asked for, and Qt wants that outside every namespace.
static void KeepNotices() { Q_INIT_RESOURCE(notices); }

namespace tonalith::app {

QString NoticesText() {
  KeepNotices();
  QFile file(QStringLiteral(":/notices/third-party.md"));
  const bool isThere = file.open(QIODevice::ReadOnly | QIODevice::Text);
  Q_ASSERT(isThere);
  const QString text = isThere ? QString::fromUtf8(file.readAll()) : QString();
  const QLatin1String commentEnd("-->\n");
  return text.mid(text.indexOf(commentEnd) + commentEnd.size());
}

}  // namespace tonalith::app

// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/third_party_licences.h"

#include <QFile>

/// Makes the linker include the resource. Q_INIT_RESOURCE does not work inside a namespace.
static void LinkResource() { Q_INIT_RESOURCE(notices); }

namespace tonalith::app {

QString NoticesText() {
  LinkResource();
  QFile file(QStringLiteral(":/notices/third-party.md"));
  const bool isThere = file.open(QIODevice::ReadOnly | QIODevice::Text);
  Q_ASSERT(isThere);
  const QString text = isThere ? QString::fromUtf8(file.readAll()) : QString();
  const QLatin1String commentEnd("-->\n");
  return text.mid(text.indexOf(commentEnd) + commentEnd.size());
}

}  // namespace tonalith::app

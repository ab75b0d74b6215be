#include "kit/session/VoidedSessions.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QSaveFile>

using namespace Qt::Literals::StringLiterals;

namespace orv {

Q_LOGGING_CATEGORY(lcSession, "orvella.session")

VoidedSessions::VoidedSessions(const QString& folder)
    : m_path(folder.isEmpty() ? QString() : QDir(folder).filePath(u"sessions-ended"_s)) {}

bool VoidedSessions::contains(const QDateTime& issuedAt) const {
  QFile file(m_path);
  if (m_path.isEmpty() || !file.open(QIODevice::ReadOnly)) return false;
  const auto upTo = QDateTime::fromString(QString::fromLatin1(file.readAll().trimmed()), Qt::ISODateWithMs);
  return upTo.isValid() && issuedAt <= upTo;
}

void VoidedSessions::add(const QDateTime& upTo) {
  if (m_path.isEmpty()) return;
  QDir().mkpath(QFileInfo(m_path).path());
  QSaveFile file(m_path);
  const bool isOpen = file.open(QIODevice::WriteOnly);
  file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  if (!isOpen || file.write(upTo.toUTC().toString(Qt::ISODateWithMs).toLatin1()) < 0 || !file.commit())
    qCWarning(lcSession, "The end of the earlier session is not remembered: %s", qPrintable(file.errorString()));
}

void VoidedSessions::forget() {
  if (!m_path.isEmpty()) QFile::remove(m_path);
}

}  // namespace orv

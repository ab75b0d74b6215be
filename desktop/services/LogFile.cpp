#include "desktop/services/LogFile.h"

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>
#include <QStandardPaths>
#include <cstdio>

#include "kit/api/plainText.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

std::atomic<LogFile*> current = nullptr;
constexpr qsizetype longestMessage = 4096;
constexpr qsizetype unwrittenLines = 500;

const char* levelName(QtMsgType type) {
  switch (type) {
    case QtDebugMsg:
      return "debug";
    case QtInfoMsg:
      return "info";
    case QtWarningMsg:
      return "warning";
    case QtCriticalMsg:
      return "error";
    case QtFatalMsg:
      return "fatal";
  }
  return "";
}

}  // namespace

QString LogFile::defaultFolder() {
  const QString state = qEnvironmentVariable("XDG_STATE_HOME");
  return (QDir::isAbsolutePath(state) ? state : QDir::home().filePath(u".local/state"_s)) + u"/orvella"_s;
}

QString LogFile::redacted(const QString& text) {
  // Each keeps its first group. A quoted value ends at its quote, an unquoted one at white space or a separator.
  static const QRegularExpression patterns[] = {
      QRegularExpression(uR"((orv_[a-z]+_)[\w.~+/=-]+)"_s),
      QRegularExpression(uR"((\b(?:Bearer|Basic)\s+)[\w.~+/=-]+)"_s, QRegularExpression::CaseInsensitiveOption),
      QRegularExpression(uR"((\b(?:set-)?cookie\s*:\s*)[^\r\n]+)"_s, QRegularExpression::CaseInsensitiveOption),
      QRegularExpression(uR"re((\b(?:code|password|token|secret|code_?verifier)"?\s*[=:]\s*")(?:[^"\\]|\\.)+)re"_s,
                         QRegularExpression::CaseInsensitiveOption),
      // JSON quoted inside JSON.
      QRegularExpression(
          uR"re((\b(?:code|password|token|secret|code_?verifier)\\"\s*:\s*\\")(?:[^"\\]|\\\\(?:\\.)?)+)re"_s,
          QRegularExpression::CaseInsensitiveOption),
      QRegularExpression(uR"((\b(?:code|password|token|secret|code_?verifier)\s*=\s*)[^\s"&#;,)]+)"_s,
                         QRegularExpression::CaseInsensitiveOption),
      QRegularExpression(uR"((\bpassword\s*:\s*)[^\s"\[]\S*)"_s, QRegularExpression::CaseInsensitiveOption),
  };
  QString result = text;
  for (const auto& pattern : patterns) result.replace(pattern, u"\\1[redacted]"_s);
  return result;
}

/// Cut before it is looked through: what a stranger sent may be millions of characters. Again at the end, since what is
/// escaped is longer.
QString LogFile::lineOf(const QString& message) { return logLine(redacted(cutTo(message, longestMessage))); }

LogFile::LogFile(const QString& folder) : LogFile(folder, Limits()) {}

LogFile::LogFile(const QString& folder, Limits limits) : m_folder(folder), m_limits(limits) {
  QDir().mkpath(folder);
  open();
  current = this;
  m_previous = qInstallMessageHandler(handle);
}

LogFile::~LogFile() {
  qInstallMessageHandler(m_previous);
  const QMutexLocker lock(&m_mutex);
  current = nullptr;
}

void LogFile::handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  LogFile* const log = current;
  if (!log) return;
  const QByteArray line =
      (QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs) + u' ' + QLatin1StringView(levelName(type)) + u' ' +
       QLatin1StringView(context.category ? context.category : "default") + u": "_s + lineOf(message) + u'\n')
          .toUtf8();
  const QMutexLocker lock(&log->m_mutex);
  std::fwrite(line.constData(), 1, size_t(line.size()), stderr);
  log->write(line);
}

void LogFile::write(const QByteArray& line) {
  if (m_file.isOpen() && m_file.size() + line.size() > m_limits.bytes) rotate();
  // A full disk is no reason to stop working. (A closed file would warn, and the warning come here again.)
  if (m_file.isOpen()) {
    if (m_file.write(line) >= 0) m_file.flush();
    return;
  }
  m_unwritten.append(QString::fromUtf8(line).trimmed());
  if (m_unwritten.size() > unwrittenLines) m_unwritten.removeFirst();
}

void LogFile::open() {
  constexpr auto own = QFile::ReadOwner | QFile::WriteOwner;
  m_file.setFileName(m_folder + u"/orvella.log"_s);
  if (m_file.open(QIODevice::WriteOnly | QIODevice::Append, own)) m_file.setPermissions(own);
}

QStringList LogFile::lines(int atMost) const {
  QStringList lines;
  // What was turned over a moment ago is as new as what came since.
  for (const QString& path : {olderPath(1), m_file.fileName()})
    if (QFile file(path); file.open(QIODevice::ReadOnly))
      lines += QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
  const QMutexLocker lock(&m_mutex);
  lines += m_unwritten;
  return lines.mid(std::max<qsizetype>(0, lines.size() - atMost));
}

QString LogFile::olderPath(int age) const { return m_folder + u"/orvella.%1.log"_s.arg(age); }

void LogFile::rotate() {
  m_file.close();
  QFile::remove(olderPath(m_limits.older));
  for (int age = m_limits.older; age > 1; --age) QFile::rename(olderPath(age - 1), olderPath(age));
  QFile::rename(m_file.fileName(), olderPath(1));
  open();
}

}  // namespace orv

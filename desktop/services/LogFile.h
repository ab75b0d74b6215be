#pragma once

#include <QFile>
#include <QMutex>

#include "app/base/desktop/ActivityLog.h"

namespace orv {

/// While it lives, everything logged goes to a file of the person's own (and to stderr as before), without secrets.
///
/// Nothing should log a secret in the first place; that one which slips through stays readable for nobody is this
/// sink's part. One per process. Where the file cannot be written the newest lines are kept in memory, for the log
/// page.
class LogFile final : public ActivityLog {
 public:
  struct Limits {
    qint64 bytes = 1 << 20;
    /// Older files kept beside the current one.
    int older = 3;
  };

  /// The state folder of the desktop's conventions.
  static QString defaultFolder();
  /// Text with every token, credential and one-time code in it replaced.
  static QString redacted(const QString& text);

  explicit LogFile(const QString& folder);
  LogFile(const QString& folder, Limits limits);
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;
  ~LogFile() override;

  QStringList lines(int atMost) const override;
  QString path() const { return m_file.fileName(); }
  /// The folder takes files.
  bool isKept() const { return m_file.isOpen(); }

 private:
  static QString lineOf(const QString& message);
  static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message);
  void write(const QByteArray& line);
  void open();
  void rotate();
  QString olderPath(int age) const;

  QString m_folder;
  Limits m_limits;
  mutable QMutex m_mutex;
  QFile m_file;
  QStringList m_unwritten;
  QtMessageHandler m_previous = nullptr;
};

}  // namespace orv

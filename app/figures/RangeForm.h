#pragma once

#include <QObject>
#include <functional>

#include "app/figures/DateRange.h"

namespace orv {

/// The dialog for a range of the person's own: two dates, kept as typed until they are two dates.
class RangeForm final : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(QString from READ from WRITE setFrom NOTIFY changed)
  Q_PROPERTY(QString to READ to WRITE setTo NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)

 public:
  /// `take` gets what was typed, trimmed, and says whether these are dates.
  explicit RangeForm(std::function<bool(QString from, QString to)> take, QObject* parent = nullptr);

  /// Opens with the days that are in force.
  void show(const DateRange& days);

  bool shown() const { return m_shown; }
  QString from() const { return m_from; }
  void setFrom(const QString& from) { set(m_from, from); }
  QString to() const { return m_to; }
  void setTo(const QString& to) { set(m_to, to); }
  QString error() const { return m_error; }

  Q_INVOKABLE void submit();
  Q_INVOKABLE void cancel();

 Q_SIGNALS:
  void changed();

 private:
  void set(QString& field, const QString& text);

  std::function<bool(QString, QString)> m_take;
  bool m_shown = false;
  QString m_from;
  QString m_to;
  QString m_error;
};

}  // namespace orv

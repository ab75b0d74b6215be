#pragma once

#include "app/base/Form.h"
#include "app/figures/DateRange.h"

namespace orv {

/// The dialog for a range of the person's own: two dates, kept as typed until they are two dates.
class RangeForm final : public Form {
  Q_OBJECT
  Q_PROPERTY(QString from READ from WRITE setFrom NOTIFY changed)
  Q_PROPERTY(QString to READ to WRITE setTo NOTIFY changed)

 public:
  /// `take` gets what was typed, trimmed, and says whether these are dates.
  explicit RangeForm(std::function<bool(QString from, QString to)> take, QObject* parent = nullptr);

  /// Opens with the days that are in force.
  void show(const DateRange& days);

  QString from() const { return m_from; }
  void setFrom(const QString& from) { set(m_from, from); }
  QString to() const { return m_to; }
  void setTo(const QString& to) { set(m_to, to); }

  Q_INVOKABLE void submit();

 private:
  void set(QString& field, const QString& text);

  std::function<bool(QString, QString)> m_take;
  QString m_from;
  QString m_to;
};

}  // namespace orv

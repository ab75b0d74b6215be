#include "app/figures/RangeForm.h"

#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

RangeForm::RangeForm(std::function<bool(QString, QString)> take, QObject* parent)
    : QObject(parent), m_take(std::move(take)) {}

void RangeForm::show(const DateRange& days) {
  m_shown = true;
  m_from = Format::calendarDay(days.from);
  m_to = Format::calendarDay(days.to);
  m_error.clear();
  Q_EMIT changed();
}

void RangeForm::set(QString& field, const QString& text) {
  if (std::exchange(field, text) == text) return;
  m_error.clear();
  Q_EMIT changed();
}

void RangeForm::submit() {
  if (m_take(m_from.trimmed(), m_to.trimmed())) return cancel();
  m_error = u"Enter both dates as year, month and day, such as 2026-03-31."_s;
  Q_EMIT changed();
}

void RangeForm::cancel() {
  if (std::exchange(m_shown, false)) Q_EMIT changed();
}

}  // namespace orv

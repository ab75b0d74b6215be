#include "app/figures/RangeForm.h"

#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

RangeForm::RangeForm(std::function<bool(QString, QString)> take, QObject* parent)
    : Form(parent), m_take(std::move(take)) {}

void RangeForm::show(const DateRange& days) {
  m_from = Format::calendarDay(days.from);
  m_to = Format::calendarDay(days.to);
  Form::show();
}

void RangeForm::set(QString& field, const QString& text) {
  if (std::exchange(field, text) == text) return;
  clearError();
  Q_EMIT changed();
}

void RangeForm::submit() {
  auto submission = begin();
  m_take(m_from.trimmed(), m_to.trimmed())
      ? submission.succeed()
      : submission.fail(u"Enter both dates as year, month and day, such as 2026-03-31."_s);
}

}  // namespace orv

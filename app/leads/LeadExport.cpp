#include "app/leads/LeadExport.h"

#include "app/base/SaveFile.h"
#include "app/base/shownName.h"
#include "app/leads/HowMany.h"
#include "app/leads/LeadWords.h"
#include "kit/api/Format.h"
#include "kit/models/leads/leadExport.h"
#include "kit/models/leads/leadListRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

LeadExport::LeadExport(WorkspaceContext& context, Store& whole)
    : Store(context, &whole), m_actions(context, m_busy, [] {}) {
  connect(&m_form, &Form::changed, this, &LeadExport::changed);
}

QString LeadExport::about() const { return shownName(m_list.name) + u" · "_s + LeadWords::counted(m_list.leadCount); }

QString LeadExport::howManyLabel() {
  return u"How many (newest first, up to "_s + Format::grouped(HowMany::atMost) + u')';
}

void LeadExport::setHowMany(const QString& text) {
  if (std::exchange(m_howMany, text) == text) return;
  m_form.clearError();
  Q_EMIT changed();
}

std::optional<int> LeadExport::number() const { return HowMany::number(m_howMany); }

QString LeadExport::problem() const { return m_howMany.trimmed().isEmpty() ? QString() : HowMany::problem(m_howMany); }

QString LeadExport::tickedText() const {
  if (m_ticked.isEmpty()) return {};
  return u"Only the "_s + Format::counted(m_ticked.size(), u"ticked lead"_s, u"ticked leads"_s);
}

void LeadExport::setOnlyTicked(bool only) {
  if (std::exchange(m_onlyTicked, only) == only) return;
  m_form.clearError();
  Q_EMIT changed();
}

void LeadExport::open(const LeadList& list, const QStringList& ticked) {
  m_list = list;
  m_ticked = ticked;
  m_onlyTicked = !ticked.isEmpty();
  m_howMany.clear();
  m_form.show();
}

Task<void> LeadExport::submitTask() {
  if (!canSubmit() || !m_form.shown()) co_return;
  auto submission = m_form.begin();
  const LeadList list = m_list;
  const QString failure = u"Couldn’t export "_s + shownName(list.name);
  auto request = m_onlyTicked ? Requests::exportTickedLeads({list.id, QList<QString>(m_ticked)})
                              : Requests::exportLeadList(list.id, number());
  const auto file = co_await m_actions.send(std::move(request), failure, {}, [&submission](const APIError& error) {
    // Who has closed the form wants no file any more.
    return submission.fail(error.message()) || !submission.isShown();
  });
  if (!file || !submission.succeed()) co_return;
  co_await saveCsv(
      context(), list.name + u".csv"_s, [bytes = file->data] { return bytes; }, failure, u"Exported "_s);
}

}  // namespace orv

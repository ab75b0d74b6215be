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

namespace {

struct Wanted {
  LeadList list;
  /// Empty for the list itself.
  QStringList ticked;
  std::optional<int> number;
};

Task<JobOutcome> exportLeads(Job* job, Wanted wanted) {
  const QString failure = u"Couldn’t export "_s + shownName(wanted.list.name);
  job->setStage(u"Reading the leads…"_s);
  RawData file;
  try {
    file = co_await job->context().api().send(
        wanted.ticked.isEmpty() ? Requests::exportLeadList(wanted.list.id, wanted.number)
                                : Requests::exportTickedLeads({wanted.list.id, QList<QString>(wanted.ticked)}));
  } catch (const APIError& error) {
    co_return JobOutcome{.kind = JobOutcome::Kind::failed, .title = failure, .text = error.message()};
  }
  co_return co_await saveCsvOf(job, wanted.list.name + u".csv"_s, file.data, failure, u"Exported "_s);
}

}  // namespace

LeadExport::LeadExport(WorkspaceContext& context, Store& whole) : Store(context, &whole) {
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
  if (m_form.showRunning()) return;
  m_list = list;
  m_ticked = ticked;
  m_onlyTicked = !ticked.isEmpty();
  m_howMany.clear();
  m_form.show();
}

void LeadExport::submit() {
  if (!canSubmit() || !m_form.shown()) return;
  Wanted wanted{.list = m_list, .ticked = {}, .number = number()};
  if (m_onlyTicked) wanted.ticked = m_ticked;
  m_form.run(context(), u"Exporting "_s + shownName(m_list.name), u"Nothing was saved."_s,
             [wanted](Job& job) { return exportLeads(&job, wanted); });
}

void LeadExport::close() {
  m_form.letGo();
  Store::close();
}

}  // namespace orv

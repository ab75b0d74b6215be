#include "app/campaigns/LeadAdding.h"

#include "app/base/EmailAddress.h"
#include "app/base/shownName.h"
#include "app/campaigns/LeadRows.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/leads/leadListRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr int mostAtATime = 100'000;

}  // namespace

LeadAdding::LeadAdding(CampaignContext& context, std::function<void()> added)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_added(std::move(added)),
      m_lists(*this, [&context] { return context.api.send(Requests::leadLists(false)); }, {.loadsByItself = false}),
      m_recovery(context.workspace, Recovery::of(m_draft)),
      m_file(context.services.filePanel) {
  m_draft.setKey(u"campaigns/"_s + context.id + u"/lead-by-hand"_s);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  connect(&m_draft, &FieldDraft::changed, this, &LeadAdding::changed);
  connect(&m_form, &Form::changed, this, &LeadAdding::formChanged);
  connect(&m_lists, &ResourceBase::changed, this, &LeadAdding::listsChanged);
  connect(&m_file, &CsvPick::changed, this, &LeadAdding::changed);
  connect(&m_file, &CsvPick::chosen, this, &LeadAdding::setFile);
  connect(&m_file, &CsvPick::looked, this, &LeadAdding::looked);
  // Of any batch: one may have been sent off before this dialog was made.
  context.workspace.changes().watch<AddedLeads>(this, [this](const Change<AddedLeads>& change) {
    if (change.id == m_context.id) m_added();
  });
}

QString LeadAdding::title() const {
  if (m_way == "list"_L1) return u"Add leads from a list"_s;
  if (m_way == "csv"_L1) return u"Add leads from a CSV file"_s;
  return m_way == "leads"_L1 ? u"Add leads you already have"_s : u"Add a lead"_s;
}

QString LeadAdding::submitLabel() const { return m_way == "manual"_L1 ? u"Add lead"_s : u"Add leads"_s; }

bool LeadAdding::canSubmit() const {
  if (m_form.busy()) return false;
  if (m_way == "manual"_L1) return !m_draft.typed().email.trimmed().isEmpty();
  if (m_way == "list"_L1) return !m_listId.isEmpty();
  if (m_way == "csv"_L1) return m_file.isUsable();
  return ownLimitError().isEmpty();
}

void LeadAdding::setDedupe(const QString& rule) {
  m_dedupe = rule;
  Q_EMIT changed();
}

QList<Choice> LeadAdding::listOptions() const {
  QList<Choice> options;
  if (!m_lists.value()) return options;
  for (const LeadList& list : m_lists.value()->items)
    options.append({.key = list.id, .label = list.name, .detail = countedLeads(list.leadCount)});
  return options;
}

void LeadAdding::setListId(const QString& id) {
  m_listId = id;
  Q_EMIT changed();
}

QString LeadAdding::fileWarning() const {
  const auto isEmail = [](const QString& header) { return header.contains("email"_L1, Qt::CaseInsensitive); };
  if (m_columns.count() == 0 || std::ranges::any_of(m_columns.names(), isEmail)) return {};
  return u"No column is called email. Leads without an address are left out."_s;
}

void LeadAdding::setOwnLimit(const QString& limit) {
  m_ownLimit = limit;
  Q_EMIT changed();
}

/// Nothing when the text is no number from 1 to what goes at a time; that number for an empty one.
std::optional<qint64> LeadAdding::ownCount() const {
  const QString text = m_ownLimit.trimmed();
  if (text.isEmpty()) return mostAtATime;
  return wholeNumber(text, 1, mostAtATime);
}

QString LeadAdding::ownLimitError() const {
  return ownCount() ? QString() : u"A whole number from 1 to "_s + Format::grouped(mostAtATime);
}

void LeadAdding::setAllowOtherCampaigns(bool allowed) {
  m_allowOthers = allowed;
  Q_EMIT changed();
}

void LeadAdding::show(const QString& way) {
  if (m_form.showRunning()) return;
  m_way = way;
  startAnew();
  if (way == "list"_L1) m_lists.load();
  if (way == "manual"_L1) m_recovery.begin(m_draft.key(), {});
  m_form.show();
}

void LeadAdding::startAnew() {
  m_listId.clear();
  m_file.clear();
  m_columns.show({});
  m_ownLimit.clear();
  m_allowOthers = false;
  m_hasAdded = false;
  m_dedupe = u"campaign"_s;
}

void LeadAdding::formChanged() {
  if (!m_form.shown()) m_lists.cancel();
  Q_EMIT changed();
}

void LeadAdding::setFile(const QString& path) {
  if (m_form.busy() || m_way != "csv"_L1) return;
  m_columns.show({});
  m_form.clearError();
  m_file.look(path);
}

void LeadAdding::looked() {
  m_columns.show(m_file.preview());
  if (const QString error = m_file.preview().error; !error.isEmpty()) m_form.begin().fail(error);
}

void LeadAdding::submit() {
  if (!canSubmit()) return;
  if (m_way == "manual"_L1 && !isEmailAddress(m_draft.typed().email.trimmed()))
    return m_draft.setProblems({{u"email"_s, u"Enter a valid email address."_s}});
  m_form.run(
      context(), jobName(), u"Stopped. Leads that were taken by then are in the campaign."_s,
      [batch = batch()](Job& job) { return addLeads(&job, batch); },
      [this](Job& job, bool isShown) { return ended(job, isShown); });
}

LeadBatch LeadAdding::batch() const {
  if (m_way == "csv"_L1) return {m_context.id, LeadBatch::File{{m_file.path(), m_file.preview().file}, m_dedupe}};
  if (m_way == "leads"_L1) return {m_context.id, LeadBatch::Own{ownCount().value_or(0), m_allowOthers}};
  if (m_way == "list"_L1) return {m_context.id, AddLeadsBody{AddLeadsBody::List{m_listId, m_dedupe}}};
  QMap<QString, QString> data;
  for (const auto& [field, value] : m_draft.values().asKeyValueRange())
    if (const QString text = value.toString(); !text.trimmed().isEmpty()) data.insert(field, text);
  const QString email = data.take(u"email"_s).trimmed();
  return {m_context.id, AddLeadsBody{AddLeadsBody::Manual{email, data, m_dedupe}}, m_draft.key()};
}

QString LeadAdding::jobName() const {
  QString whom = u"your leads"_s;
  if (m_way == "manual"_L1) whom = shownName(m_draft.typed().email.trimmed());
  if (m_way == "csv"_L1) whom = u"leads from "_s + fileName();
  if (m_way == "list"_L1) {
    whom = u"leads from a list"_s;
    for (const LeadList& list : m_lists.value() ? m_lists.value()->items : QList<LeadList>())
      if (list.id == m_listId) whom = u"leads from "_s + shownName(list.name);
  }
  const Campaign* campaign = m_context.campaign.value();
  return u"Adding "_s + whom + (campaign ? u" to "_s + shownName(campaign->name) : QString());
}

/// People are added by hand one after another: the form stays for the next, unless there is something to read.
bool LeadAdding::ended(Job& job, bool isShown) {
  if (job.failed()) return false;
  const bool isByHand = m_way == "manual"_L1;
  const QString who = shownName(m_draft.typed().email.trimmed());
  // One filled in before, which the service has not taken, waits behind the other ways.
  if (isByHand) m_draft.discard();
  if (!isShown) return false;
  if (!isByHand || !job.lines().isEmpty()) {
    services().jobs.show(&job);
    return false;
  }
  services().toasts.show({.message = job.title(), .tone = Toasts::Tone::success, .detail = who});
  m_hasAdded = true;
  Q_EMIT cleared();
  return true;
}

void LeadAdding::dismiss() {
  if (!m_form.busy() && m_way == "manual"_L1) m_draft.discard();
  m_form.cancel();
}

void LeadAdding::close() {
  m_form.letGo();
  m_file.clear();
  Store::close();
}

}  // namespace orv

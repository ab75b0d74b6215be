#include "app/campaigns/LeadAdding.h"

#include <QFileInfo>

#include "app/base/EmailAddress.h"
#include "app/campaigns/LeadRows.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/async/background.h"
#include "kit/models/campaigns/campaignLeadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr int mostAtATime = 100'000;

}  // namespace

LeadAdding::LeadAdding(CampaignContext& context, std::function<void()> added)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_added(std::move(added)),
      m_lists(*this, [&context] { return context.api.send(Requests::leadLists(false)); }, {.loadsByItself = false}) {
  connect(&m_lists, &ResourceBase::changed, this, &LeadAdding::listsChanged);
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
  if (busy()) return false;
  if (m_way == "manual"_L1) return !m_email.trimmed().isEmpty();
  if (m_way == "list"_L1) return !m_listId.isEmpty();
  if (m_way == "csv"_L1) return !fileLooking() && !m_preview.headers.isEmpty();
  return ownLimitError().isEmpty();
}

void LeadAdding::setDedupe(const QString& rule) {
  m_dedupe = rule;
  Q_EMIT changed();
}

void LeadAdding::setEmail(const QString& email) {
  m_email = email;
  m_emailError.clear();
  Q_EMIT changed();
}

QVariantList LeadAdding::listOptions() const {
  QVariantList options;
  if (!m_lists.value()) return options;
  for (const LeadList& list : m_lists.value()->items)
    options.append(
        QVariantMap{{u"key"_s, list.id}, {u"label"_s, list.name}, {u"detail"_s, countedLeads(list.leadCount)}});
  return options;
}

void LeadAdding::setListId(const QString& id) {
  m_listId = id;
  Q_EMIT changed();
}

QString LeadAdding::fileName() const { return QFileInfo(m_path).fileName(); }

QString LeadAdding::fileFacts() const {
  if (m_preview.headers.isEmpty()) return {};
  return megabytes(m_preview.bytes) + u" · "_s + Format::counted(m_preview.headers.size(), u"column"_s, u"columns"_s);
}

QString LeadAdding::fileWarning() const {
  const auto isEmail = [](const QString& header) { return header.contains("email"_L1, Qt::CaseInsensitive); };
  if (m_preview.headers.isEmpty() || std::ranges::any_of(m_preview.headers, isEmail)) return {};
  return u"No column is called email. Leads without an address are left out."_s;
}

QVariantList LeadAdding::fileSamples() const {
  QVariantList samples;
  for (const QStringList& row : m_preview.samples) samples.append(QVariant(row));
  return samples;
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
  m_shown = true;
  if (busy()) {
    m_job->attend(this);
  } else {
    m_way = way;
    startAnew();
    if (way == "list"_L1) m_lists.load();
  }
  Q_EMIT changed();
}

void LeadAdding::startAnew() {
  m_error.clear();
  m_emailError.clear();
  m_email.clear();
  m_fields.clear();
  m_listId.clear();
  m_path.clear();
  m_preview = {};
  m_look.cancel();
  m_looking = false;
  m_ownLimit.clear();
  m_allowOthers = false;
  m_dedupe = u"campaign"_s;
  Q_EMIT fileChanged();
}

Task<void> LeadAdding::chooseFileTask() {
  const auto path = co_await m_context.services.filePanel.openFile(u"Comma-separated text"_s, u"csv"_s);
  if (path) setFile(*path);
}

void LeadAdding::setFile(const QString& path) {
  if (busy() || m_way != "csv"_L1) return;
  m_path = path;
  m_preview = {};
  m_error.clear();
  m_looking = true;
  m_look.start(look(path));
  Q_EMIT fileChanged();
  Q_EMIT changed();
}

Task<void> LeadAdding::look(QString path) {
  m_preview = co_await inBackground<LeadFilePreview>([path] { return previewLeadFile(path); });
  m_error = m_preview.error;
  m_looking = false;
  Q_EMIT fileChanged();
  Q_EMIT changed();
}

void LeadAdding::submit() {
  if (!canSubmit()) return;
  if (m_way == "manual"_L1 && !isEmailAddress(m_email.trimmed())) {
    m_emailError = u"Enter a valid email address."_s;
    Q_EMIT changed();
    return;
  }
  m_error.clear();
  Jobs& jobs = services().jobs;
  m_job = jobs.start({.name = jobName(),
                      .stopped = u"Stopped. Leads that were taken by then are in the campaign."_s,
                      .attendant = this},
                     context().shared_from_this(), [batch = batch()](Job& job) { return addLeads(&job, batch); });
  connect(m_job, &Job::changed, this, &LeadAdding::changed);
  connect(m_job, &Job::ended, this, &LeadAdding::jobEnded);
  if (!m_job->running()) jobEnded();
  Q_EMIT changed();
}

LeadBatch LeadAdding::batch() const {
  if (m_way == "csv"_L1) return {m_context.id, LeadBatch::File{m_path, m_dedupe, m_preview.bytes}};
  if (m_way == "leads"_L1) return {m_context.id, LeadBatch::Own{ownCount().value_or(0), m_allowOthers}};
  if (m_way == "list"_L1) return {m_context.id, AddLeadsBody{AddLeadsBody::List{m_listId, m_dedupe}}};
  auto data = m_fields;
  for (auto it = data.begin(); it != data.end();) it = it->trimmed().isEmpty() ? data.erase(it) : std::next(it);
  return {m_context.id, AddLeadsBody{AddLeadsBody::Manual{m_email.trimmed(), data, m_dedupe}}};
}

QString LeadAdding::jobName() const {
  QString whom = u"your leads"_s;
  if (m_way == "manual"_L1) whom = m_email.trimmed();
  if (m_way == "csv"_L1) whom = u"leads from "_s + fileName();
  if (m_way == "list"_L1) {
    whom = u"leads from a list"_s;
    for (const LeadList& list : m_lists.value() ? m_lists.value()->items : QList<LeadList>())
      if (list.id == m_listId) whom = u"leads from "_s + list.name;
  }
  const Campaign* campaign = m_context.campaign.value();
  return u"Adding "_s + whom + (campaign ? u" to "_s + campaign->name : QString());
}

void LeadAdding::jobEnded() {
  if (!m_shown) return;
  if (m_job->outcome().kind == JobOutcome::Kind::done) {
    services().jobs.show(m_job);
    dismiss();
  } else {
    m_error = m_job->text();
  }
  Q_EMIT changed();
}

void LeadAdding::stop() {
  if (busy()) m_job->stop();
}

void LeadAdding::dismiss() {
  if (!std::exchange(m_shown, false)) return;
  if (m_job) m_job->attend(nullptr);
  m_lists.cancel();
  Q_EMIT changed();
}

void LeadAdding::close() {
  dismiss();
  m_look.cancel();
  m_looking = false;
  Store::close();
}

}  // namespace orv

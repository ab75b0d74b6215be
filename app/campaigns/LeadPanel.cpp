#include "app/campaigns/LeadPanel.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "app/base/Actions.h"
#include "app/base/shownName.h"
#include "app/campaigns/LeadRows.h"
#include "kit/api/JSONCoding.h"
#include "kit/models/campaigns/campaignLeadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const ConfirmRequest discardQuestion{.title = u"Discard your changes?"_s,
                                     .text = u"What you typed about this lead is not saved."_s,
                                     .confirm = u"Discard"_s,
                                     .cancel = u"Keep editing"_s,
                                     .destructive = true};

/// A custom field as text; nothing for one that is no single value and cannot be edited as one.
std::optional<QString> textOf(const JSONValue& value) {
  if (const auto* text = std::get_if<QString>(&value.storage())) return *text;
  if (const auto* number = std::get_if<double>(&value.storage()))
    return QString::number(*number, 'g', QLocale::FloatingPointShortest);
  if (const auto* flag = std::get_if<bool>(&value.storage())) return *flag ? u"true"_s : u"false"_s;
  if (value.isNull()) return QString();
  return std::nullopt;
}

QString compact(const QJsonDocument& json) { return QString::fromUtf8(json.toJson(QJsonDocument::Compact)); }

/// The fields that can be edited.
QVariantMap textsOf(const CampaignLead& lead) {
  QVariantMap texts;
  if (!lead.data) return texts;
  for (const auto& [name, value] : lead.data->asKeyValueRange())
    if (const auto text = textOf(value)) texts.insert(name, *text);
  return texts;
}

/// A lead's data goes whole, for the service forgets what is left out: beside what can be edited also what is no single
/// value, as JSON.
QMap<QString, QString> wholeData(const CampaignLead& lead, const QVariantMap& texts) {
  QMap<QString, QString> data;
  const QJsonObject fields = toJSON(lead).value("data"_L1).toObject();
  for (auto field = fields.begin(); field != fields.end(); ++field) {
    if (field.value().isArray()) data.insert(field.key(), compact(QJsonDocument(field.value().toArray())));
    if (field.value().isObject()) data.insert(field.key(), compact(QJsonDocument(field.value().toObject())));
  }
  for (const auto& [field, text] : texts.asKeyValueRange()) data.insert(field, text.toString());
  return data;
}

/// A word of the service as the screen says it: "step_sent" is "Step sent".
QString worded(QString word) {
  word.replace(u'_', u' ');
  if (!word.isEmpty()) word[0] = word[0].toUpper();
  return word;
}

QString activityText(const LeadActivity& item) {
  QStringList parts;
  if (item.step) parts.append(u"Step "_s + QString::number(*item.step) + item.variant.value_or(QString()));
  for (const auto* part : {&item.subject, &item.detail, &item.account})
    if (*part && !(*part)->isEmpty()) parts.append(shownName(**part));
  return parts.join(u" · "_s);
}

}  // namespace

LeadPanel::LeadPanel(CampaignContext& context, std::function<void(const CampaignLead&)> changedLead)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_changedLead(std::move(changedLead)),
      m_detail(*this, [this] { return m_context.api.send(Requests::leadDetail(m_context.id, m_lead.id)); },
               {.loadsByItself = false}),
      m_recovery(context.workspace, Recovery::of(m_draft)) {
  connect(&m_detail, &ResourceBase::changed, this, &LeadPanel::changed);
  connect(&m_form, &Form::changed, this, &LeadPanel::changed);
  connect(&m_draft, &FieldDraft::changed, this, &LeadPanel::changed);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  context.failedSaves.follow(m_draft);
  // Fields show another text than the one typed in them when they are told to.
  connect(&m_recovery, &Recovery::changed, this, [this] {
    ++m_fieldsRevision;
    Q_EMIT fieldTextsChanged();
  });
  connect(&m_detail, &ResourceBase::valueChanged, this, [this] {
    if (!detailed()) return;
    take(m_detail.value()->lead);
    // Not before: a list knows only some of the fields.
    m_recovery.begin(m_draft.key(), {});
  });
}

QString LeadPanel::name() const { return shownName(leadName(m_lead)); }

QString LeadPanel::conflict() const {
  QStringList fields;
  for (const QString& field : m_draft.rivals().keys()) fields.append(shownName(field));
  return rivalsTold(fields);
}

bool LeadPanel::detailed() const { return m_detail.value() && m_detail.value()->lead.id == m_lead.id; }

QString LeadPanel::next() const {
  if (!detailed() || !m_detail.value()->next) return {};
  const LeadDetail& detail = *m_detail.value();
  const QString of = detail.steps ? u" of "_s + QString::number(*detail.steps) : QString();
  const QString step = u"Step "_s + QString::number(detail.next->step) + of;
  return detail.next->at ? step + u" goes out "_s + leadMoment(detail.next->at) : step + u" is next"_s;
}

QList<Choice> LeadPanel::facts() const {
  QList<Choice> facts;
  const auto add = [&facts](const QString& label, const std::optional<QString>& value) {
    if (value && !value->isEmpty()) facts.append({.key = label, .label = label, .detail = *value});
  };
  const auto moment = [](const std::optional<QString>& at) { return at ? std::optional(leadMoment(at)) : at; };
  add(u"Email"_s, m_lead.email);
  add(u"Address check"_s, m_lead.verification ? std::optional(worded(*m_lead.verification)) : std::nullopt);
  add(u"Mail provider"_s, m_lead.esp ? std::optional(worded(*m_lead.esp)) : std::nullopt);
  add(u"Company"_s, m_lead.company);
  add(u"Title"_s, m_lead.title);
  add(u"Website"_s, m_lead.website);
  add(u"Written to by"_s, m_lead.senderAddress);
  add(u"Added from"_s, m_lead.source);
  add(u"Added"_s, moment(m_lead.enrolledAt));
  add(u"First email"_s, moment(m_lead.firstSentAt));
  add(u"Last email"_s, moment(m_lead.lastSentAt));
  add(u"Replied"_s, moment(m_lead.repliedAt));
  add(u"Interest"_s, m_lead.interest ? std::optional(worded(*m_lead.interest)) : std::nullopt);
  add(u"Stopped because"_s, m_lead.stopReason ? std::optional(worded(*m_lead.stopReason)) : std::nullopt);
  add(u"Removed"_s, moment(m_lead.removedAt));
  return facts;
}

QVariantList LeadPanel::activity() const {
  QVariantList lines;
  if (!detailed()) return lines;
  for (const LeadActivity& item : m_detail.value()->activity)
    lines.append(QVariantMap{
        {u"title"_s, shownName(worded(item.kind))}, {u"text"_s, activityText(item)}, {u"when"_s, leadMoment(item.at)}});
  return lines;
}

void LeadPanel::show(const CampaignLead& lead) {
  if (shown() && lead.id == m_lead.id) return refresh();
  m_asking.start(showTask(lead));
}

Task<void> LeadPanel::showTask(CampaignLead lead) {
  if (!co_await mayLeave()) co_return;
  leave();
  m_draft.fill(QVariantMap(), {});
  m_draft.setKey(keyOf(lead.id));
  take(lead);
  m_form.show();
  m_detail.ask();
}

void LeadPanel::refresh() {
  if (shown()) m_detail.load();
}

/// What was typed stays; the rest is as the service has it.
void LeadPanel::take(const CampaignLead& lead) {
  m_lead = lead;
  m_draft.rebase(textsOf(lead), {});
  const QStringList names = m_draft.values().keys();
  if (std::exchange(m_fieldNames, names) != names) Q_EMIT fieldsChanged();
  ++m_fieldsRevision;
  Q_EMIT fieldTextsChanged();
  Q_EMIT leadChanged();
  Q_EMIT changed();
}

Task<void> LeadPanel::saveTask() {
  if (saving() || !dirty()) co_return;
  const QString id = m_lead.id, name = this->name(), key = m_draft.key();
  const QJsonObject typed = m_draft.journal();
  CampaignLead lead = m_lead;
  const QVariantMap sent = m_sent = m_draft.sending();
  auto submission = m_form.begin();
  const QString title = u"Couldn’t save the fields of "_s + name;
  const auto turn = co_await m_context.workspace.turns().next(id);
  if (!turn) {
    if (!submission.fail(deletedMeanwhile()))
      m_context.services.toasts.show({.message = title, .tone = Toasts::Tone::error, .detail = deletedMeanwhile()});
    co_return keep(key, typed);
  }
  if (m_lead.id == id) lead = m_lead;
  WorkspaceContext::Sending sending(m_context.workspace);
  std::optional<APIError> failure;
  try {
    const LeadPatchBody body{wholeData(lead, sent)};
    const CampaignLead saved = co_await m_context.api.send(Requests::editLeadData(m_context.id, id, body));
    if (submission.isShown()) {
      m_draft.taken(textsOf(saved), {});
      m_detail.update([&saved](LeadDetail& detail) {
        if (detail.lead.id == saved.id) detail.lead = saved;
      });
      take(saved);
    } else {
      m_context.services.toasts.success(u"Saved the fields of "_s + name);
    }
    m_changedLead(saved);
  } catch (const APIError& error) {
    failure = error;
  }
  if (!failure) co_return;
  sending.failed();
  // A drawer is no longer seen when the campaign's page has been left. Closed, it holds nothing that could be marked.
  FailedSaves& failed = m_context.failedSaves;
  if (submission.isShown() ? failed.failed(m_draft, title + u'.', *failure) : failed.tell(title + u'.', *failure))
    submission.fail(failure->message());
  else
    submission.fail(m_context.services.toasts, title, *failure);
  if (!submission.isShown()) keep(key, typed);
  // The fields may have been taken although no answer came; a second save of the same text changes nothing more.
  if (submission.isShown() && mayHaveActed(*failure)) refresh();
}

QString LeadPanel::keyOf(const QString& lead) const { return u"campaigns/%1/leads/%2"_s.arg(m_context.id, lead); }

/// The drawer has closed over it: what was typed waits for when it opens on that lead again.
void LeadPanel::keep(const QString& key, const QJsonObject& typed) {
  if (shown() && m_draft.key() == key && !dirty()) {
    m_draft.restore(typed);
    ++m_fieldsRevision;
    Q_EMIT fieldTextsChanged();
    return;
  }
  const QByteArray text = QJsonDocument(typed).toJson(QJsonDocument::Compact);
  services().journal.keep({context().workspace().slug, key}, [text] { return JournalText{std::nullopt, text}; });
}

void LeadPanel::discard() {
  m_form.clearError();
  m_draft.discard();
  ++m_fieldsRevision;
  Q_EMIT fieldTextsChanged();
}

Task<bool> LeadPanel::mayLeave() {
  if (!shown() || !dirty() || (saving() && m_draft.values() == m_sent)) co_return true;
  co_return co_await m_context.services.overlays.confirm(discardQuestion);
}

Task<void> LeadPanel::dismissTask() {
  if (!shown() || !co_await mayLeave()) co_return;
  leave();
}

void LeadPanel::leadsLeft(const QStringList& ids) {
  if (!shown() || !ids.contains(m_lead.id)) return;
  // Before it is discarded here, which would be the end of it there.
  m_recovery.end();
  if (dirty()) keep(m_draft.key(), m_draft.journal());
  leave();
}

void LeadPanel::leadGone(const QString& id) {
  if (shown() && id == m_lead.id) leave();
  services().journal.drop({context().workspace().slug, keyOf(id)});
}

Task<bool> LeadPanel::mayGiveUp(QStringList ids) {
  if (!shown() || !ids.contains(m_lead.id)) co_return true;
  if (!co_await mayLeave()) co_return false;
  if (!saving()) discard();
  co_return true;
}

void LeadPanel::leave() {
  m_detail.cancel();
  m_draft.discard();
  m_recovery.end();
  m_form.cancel();
}

void LeadPanel::close() {
  m_asking.cancel();
  Store::close();
}

}  // namespace orv

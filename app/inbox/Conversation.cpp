#include "app/inbox/Conversation.h"

#include "app/base/shownName.h"
#include "app/inbox/DraftTexts.h"
#include "app/inbox/ThreadRows.h"
#include "app/inbox/addresses.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/inbox/inboxRequests.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/leads/leadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString emailStep(qint64 step) { return u"Email "_s + QString::number(step); }

bool isAmongMessages(const ThreadDetail& detail, const Draft& draft) {
  return std::ranges::any_of(detail.messages,
                             [&draft](const InboxMessage& message) { return message.draftId == draft.id; });
}

/// It has been decided that it goes out, and it has not.
bool isGoingOut(const ThreadDetail& detail, const Draft& draft) {
  const bool isSkipped = draft.reviewOutcome.value_or(QString()).startsWith("skip"_L1);
  const bool hasFailed = draft.error && !draft.error->isEmpty();
  return draft.approvedAt && !draft.isWaiting() && !isSkipped && !hasFailed && !isAmongMessages(detail, draft);
}

void addFact(QList<Choice>& facts, const QString& label, const std::optional<QString>& value) {
  if (value && !value->trimmed().isEmpty())
    facts.append({.key = label, .label = label, .detail = shownName(value->trimmed())});
}

}  // namespace

Conversation::Conversation(WorkspaceContext& context, QString id, Surroundings around)
    : Store(context),
      m_id(std::move(id)),
      m_around(std::move(around)),
      m_detail(*this, [this] { return read(); }, {.failed = u"Couldn’t load this conversation."_s}),
      m_lead(*this, [this] { return api().send(Requests::getLead(thread()->lead->id)); }, {.loadsByItself = false}) {
  m_listed = m_around.listed(m_id);
  connect(&m_detail, &ResourceBase::valueChanged, this, &Conversation::arrived);
  connect(&m_lead, &ResourceBase::changed, this, &Conversation::changed);
  // No view of a resource stands for it.
  connect(&context, &WorkspaceContext::reachable, this, [this] {
    if (m_lead.isAsked() && hasContact()) m_lead.ensureLoaded();
  });
  connect(&m_around.writings, &Writings::changed, this, [this](const QString& threadId) {
    if (threadId != m_id) return;
    const bool isLetGo = !m_heldDraft.isEmpty() && !(m_edit && m_edit->dirty());
    if (isLetGo) return openWritings();
    Q_EMIT writingChanged();
  });
  context.changes().watch<InboxThread>(this, [this](const auto& change) { take(change); });
  context.changes().watch<Draft>(this, [this](const auto& change) { take(change); });
  // In which of the conversations it came nobody says.
  connect(&context, &WorkspaceContext::mailCame, &m_detail, &ResourceBase::markStale);
  connect(this, &Store::left, this, [this] {
    m_tasks.cancel();
    m_followed.clear();
    const ThreadDetail* detail = m_detail.value();
    // Whoever comes back sees what became of it.
    if (detail && std::ranges::any_of(detail->drafts, [&](const Draft& one) { return isGoingOut(*detail, one); }))
      m_detail.markStale();
  });
  openWritings();
}

Task<ThreadDetail> Conversation::read() {
  const Stamp asked = context().changes().stamp();
  ThreadDetail detail = co_await api().send(Requests::getThread(m_id));
  const auto listed = m_around.listed(m_id);
  if (context().changes().publish(detail.thread, asked, false)) {
    if (listed && *listed != detail.thread) Q_EMIT threadRead(*listed, detail.thread);
  } else if (thread()) {
    // Whoever changed it while it was being read knows better.
    detail.thread = *thread();
  }
  co_return detail;
}

void Conversation::take(const ThreadDetail& detail) {
  m_detail.amend([&detail](ThreadDetail& shown) { shown = detail; });
}

const InboxThread* Conversation::thread() const {
  if (m_detail.value()) return &m_detail.value()->thread;
  return m_listed ? &*m_listed : nullptr;
}

void Conversation::ensureLoaded() {
  Store::ensureLoaded();
  if (m_lead.isAsked() && hasContact()) m_lead.ensureLoaded();
  // Texts that said nothing may have been let go of while nobody looked.
  openWritings();
  if (m_tasks.isIdle()) m_followed.clear();
  followSending();
}

void Conversation::followSending() {
  const ThreadDetail* detail = m_detail.value();
  if (!detail || !isShown()) return;
  for (const Draft& one : detail->drafts) {
    // One that was taken back and approved again is due at another time.
    const QString which = one.id + one.dueAt.value_or(QString());
    if (!isGoingOut(*detail, one) || m_followed.contains(which)) continue;
    m_followed.insert(which);
    m_tasks.start(followTask(one.id, parsePlatformDate(one.dueAt)));
  }
}

Task<void> Conversation::followTask(QString draftId, std::optional<QDateTime> due) {
  const qint64 wait = due ? services().clock.now().msecsTo(*due) : 0;
  if (wait > 0) co_await services().clock.sleep(std::chrono::milliseconds(wait));
  co_await poll(services().clock, sendingPace, [this, draftId] { return lookWhetherSent(draftId); });
}

Task<bool> Conversation::lookWhetherSent(QString draftId) {
  const ThreadDetail* detail = m_detail.value();
  const bool isAwaited = detail && std::ranges::any_of(detail->drafts, [&](const Draft& one) {
                           return one.id == draftId && isGoingOut(*detail, one);
                         });
  if (isAwaited) m_detail.markStale();
  co_return !isAwaited;
}

void Conversation::refresh() {
  m_detail.load();
  if (m_lead.isAsked() && hasContact()) m_lead.load();
}

void Conversation::ensureContact() {
  // Asked for at every change, and a failure is one: it would be tried again without end.
  if (!m_lead.isAsked() && hasContact()) m_lead.load();
}

void Conversation::follow(const InboxThread& listed) {
  m_listed = listed;
  if (!m_detail.value()) return Q_EMIT changed();
  const InboxThread shown = m_detail.value()->thread;
  if (shown == listed) return;
  const bool isOther = shown.messageCount != listed.messageCount || shown.lastMessageAt != listed.lastMessageAt ||
                       shown.pendingDrafts != listed.pendingDrafts;
  m_detail.amend([&listed](ThreadDetail& detail) { detail.thread = listed; });
  if (isOther) m_detail.markStale();
}

void Conversation::take(const Change<InboxThread>& change) {
  using Kind = Change<InboxThread>::Kind;
  if (!change.id.isEmpty() && change.id != m_id) return;
  if (change.kind != Kind::is) return m_detail.markStale();
  m_listed = *change.record;
  if (!m_detail.value()) return Q_EMIT changed();
  if (m_detail.value()->thread == *change.record) return;
  const auto amend = [&change](ThreadDetail& detail) { detail.thread = *change.record; };
  change.acted ? m_detail.update(amend) : m_detail.amend(amend);
}

void Conversation::take(const Change<Draft>& change) {
  using Kind = Change<Draft>::Kind;
  if (change.kind == Kind::is && change.record->threadId != m_id) return;
  const ThreadDetail* shown = m_detail.value();
  const bool isHere = shown && std::ranges::find(shown->drafts, change.id, &Draft::id) != shown->drafts.end();
  if (change.kind != Kind::is) {
    if (isHere || change.id.isEmpty()) m_detail.markStale();
    return;
  }
  addDraft(*change.record);
  // What was sent of it, and what it leaves waiting, the thread says.
  if (change.acted) m_detail.markStale();
}

void Conversation::addDraft(const Draft& draft) {
  m_detail.amend([&draft](ThreadDetail& detail) {
    const auto known = std::ranges::find(detail.drafts, draft.id, &Draft::id);
    if (known != detail.drafts.end())
      *known = draft;
    else
      detail.drafts.append(draft);
  });
}

void Conversation::arrived() {
  m_messages.show(*m_detail.value(), services().clock.now());
  openWritings();
  Q_EMIT changed();
  followSending();
}

void Conversation::openWritings() {
  const InboxThread* known = thread();
  if (known && !m_reply) m_reply = m_around.writings.reply(m_id, orv::contactOf(*known));
  const bool isTyped = m_edit && m_edit->dirty();
  const QString before = m_editedDraft;
  m_heldDraft = isTyped ? before : QString();
  const Draft* waiting = draft();
  const QString id = waiting ? waiting->id : QString(), body = waiting ? waiting->body : QString();
  // What was known here already is no news to a text that may have been begun on a newer one since.
  const bool isOther = std::exchange(m_editedDraft, id) != id;
  const bool isNews = std::exchange(m_editedBody, body) != body || isOther;
  const bool isLost = isTyped && isOther && waiting && !m_edit->sending();
  if (isOther) m_heldDraft.clear();
  m_edit = waiting && !isNews ? m_around.writings.findEdit(*waiting) : nullptr;
  if (waiting && !m_edit) m_edit = m_around.writings.edit(*waiting, contact());
  // Another draft is read before it is changed.
  if (isOther) m_editing = false;
  Q_EMIT writingChanged();
  if (isLost) Q_EMIT m_around.writings.lost({{.id = before, .threadId = m_id}, *known});
}

QString Conversation::subject() const { return thread() ? shownName(thread()->subject) : QString(); }

QString Conversation::contact() const { return thread() ? shownName(orv::contactOf(*thread())) : QString(); }

QString Conversation::contactTitle() const {
  return thread() && thread()->lead ? shownName(thread()->lead->title.value_or(QString())) : QString();
}

QString Conversation::contactAddress() const { return thread() ? shownAddress(thread()->contactAddress) : QString(); }

QString Conversation::mailbox() const { return thread() ? shownAddress(thread()->mailboxAddress) : QString(); }

QString Conversation::origin() const {
  const InboxThread* known = thread();
  if (!known) return {};
  QStringList words;
  if (known->campaignId) words.append(shownName(m_around.campaign(*known->campaignId)));
  if (known->campaignStep) words.append(emailStep(*known->campaignStep));
  words.append(mailbox());
  words.removeAll(QString());
  return words.join(u" · "_s);
}

QString Conversation::label() const { return thread() && thread()->label ? thread()->label->rawValue : QString(); }

QString Conversation::labelTitle() const {
  return label().isEmpty() ? QString() : shownName(m_around.label(*thread()->label).title());
}

QString Conversation::labelTone() const {
  return label().isEmpty() ? QString() : m_around.label(*thread()->label).tone.value_or(QString());
}

const Draft* Conversation::draft() const {
  if (!m_detail.value()) return nullptr;
  const Draft* waiting = nullptr;
  for (const Draft& one : m_detail.value()->drafts)
    if (one.isWaiting() && (!waiting || waiting->id != m_heldDraft)) waiting = &one;
  return waiting;
}

QString Conversation::draftText() const {
  if (!draft()) return {};
  return m_edit ? m_edit->body() : draft()->body;
}

QString Conversation::draftTitle() const {
  if (!draft()) return {};
  return draftHeadline(*draft());
}

QString Conversation::draftFacts() const { return draft() ? rulesText(*draft()) : QString(); }

QString Conversation::draftFailures() const {
  QStringList failures;
  if (!draft()) return {};
  for (const QString& reason : holdReasons(*draft())) failures.append(shownName(reason));
  return failures.join(u'\n');
}

QStringList Conversation::outgoing() const {
  QStringList lines;
  if (!m_detail.value()) return lines;
  for (const Draft& one : m_detail.value()->drafts) {
    // What can still be taken back is said where it can.
    const auto due = parsePlatformDate(one.dueAt);
    if (isAmongMessages(*m_detail.value(), one) || (due && *due > services().clock.now())) continue;
    if (one.error && !one.error->isEmpty())
      lines.append(u"Couldn’t send. "_s + shownName(*one.error));
    else if (isGoingOut(*m_detail.value(), one))
      lines.append(u"Sending to "_s + contact());
  }
  return lines;
}

void Conversation::setReplying(bool replying) {
  if (replying) openWritings();
  if (std::exchange(m_replying, replying) != replying) Q_EMIT writingChanged();
}

void Conversation::setEditing(bool editing) {
  if (editing) openWritings();
  if (std::exchange(m_editing, editing) != editing) Q_EMIT writingChanged();
}

QList<Choice> Conversation::facts() const {
  const InboxThread* known = thread();
  if (!known) return {};
  const LeadRecord* lead = m_lead.value();
  QList<Choice> facts;
  addFact(facts, u"Company"_s,
          lead && lead->company ? lead->company
          : known->lead         ? known->lead->company
                                : std::nullopt);
  facts.append({.key = u"email"_s, .label = u"Email"_s, .detail = contactAddress()});
  if (!lead) return facts;
  addFact(facts, u"Phone"_s, lead->phone);
  addFact(facts, u"City"_s, lead->city);
  addFact(facts, u"Country"_s, lead->country);
  return facts;
}

QList<Choice> Conversation::campaigns() const {
  QList<Choice> campaigns;
  if (!m_lead.value()) return campaigns;
  for (const LeadCampaignHistory& one : m_lead.value()->campaigns) {
    QStringList words;
    if (one.currentStep > 0) words.append(emailStep(one.currentStep));
    words.append(
        shortMoment(parsePlatformDate(one.repliedAt ? one.repliedAt : one.lastSentAt), services().clock.now()));
    words.removeAll(QString());
    campaigns.append({.key = shownName(one.status), .label = shownName(one.name), .detail = words.join(u" · "_s)});
  }
  return campaigns;
}

QStringList Conversation::lists() const {
  QStringList lists;
  if (m_lead.value())
    for (const auto& list : m_lead.value()->lists) lists.append(shownName(list.name));
  return lists;
}

QString Conversation::agentMode() const {
  const QString mode = thread() ? thread()->effectiveMode.value_or(QString()) : QString();
  if (mode == words::modeDraft) return u"Drafts for review"_s;
  if (mode == words::modeAuto) return u"Sends by itself"_s;
  if (mode == words::modeOff) return u"Off"_s;
  return shownName(mode);
}

}  // namespace orv

#include "demo/Inbox.h"

#include <algorithm>

#include "demo/Enrolment.h"
#include "demo/Pitches.h"
#include "demo/Rendering.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv::demo {
namespace {

/// Of an answer that the agent sends by itself: somebody can still step in.
constexpr auto autoWait = 120s;
/// A client that comes back after a night does not get the whole night at once.
constexpr qint64 mostAtOnce = 200;

QString filledIn(QString text, const DemoThread& thread) {
  const QString name = thread.record.contactName.value_or(thread.record.contactAddress);
  text.replace(u"{name}"_s, name.section(u' ', 0, 0));
  return text.replace(u"{company}"_s, thread.record.lead ? thread.record.lead->company.value_or(name) : name);
}

/// Unread, as it has just come.
InboxThread threadWith(const CampaignLead& person, const Talk& talk) {
  InboxThread record;
  record.contactAddress = person.email;
  record.contactName = person.firstName.value_or(QString()) + u' ' + person.lastName.value_or(QString());
  record.lead = InboxThread::LeadRef{person.id, record.contactName, person.company, person.title};
  record.kind = talk.kind;
  record.status = orv::words::threadOpen;
  record.unread = true;
  if (!talk.label.isEmpty()) {
    record.label = ThreadLabel(talk.label);
    record.labelSource = u"agent"_s;
  }
  return record;
}

/// One that has been launched and is called so, else any such; null where there is none.
const DemoCampaign* pickCampaign(const DemoWorkspace& workspace, const QString& name, DemoRandom& random) {
  QList<const DemoCampaign*> sending, called;
  for (const DemoCampaign& campaign : workspace.campaigns) {
    if (campaign.archivedAt || !campaign.record.launchedAt || campaign.senders().isEmpty()) continue;
    sending.append(&campaign);
    if (!name.isEmpty() && campaign.record.name.contains(name)) called.append(&campaign);
  }
  if (!called.isEmpty()) return called.first();
  return sending.isEmpty() ? nullptr : random.pick(sending);
}

const Talk& pickTalk(const Pitch& pitch, const Incoming& incoming, DemoRandom& random) {
  QList<const Talk*> possible;
  for (const QList<Talk>* list : {&pitch.questions, &talks()})
    for (const Talk& talk : *list)
      if (incoming.label.isEmpty() || talk.label == incoming.label) possible.append(&talk);
  if (possible.isEmpty()) return pitch.questions.first();
  return incoming.label.isEmpty() ? *random.pick(possible) : *possible[incoming.question % possible.size()];
}

/// What the thread asks: what it was begun with, unless somebody has found another meaning in it.
const Talk& talkIn(const DemoThread& thread) {
  const QString label = thread.record.label ? thread.record.label->rawValue : QString();
  if (thread.talk && thread.talk->label == label) return *thread.talk;
  const auto found = std::ranges::find(talks(), label, &Talk::label);
  return found == talks().end() ? pitchOf({}).questions.first() : *found;
}

/// The emails that are answered now, the last of them so many seconds of sending before.
void addEmails(DemoThread& thread, const DemoCampaign& campaign, const CampaignLead& person, const QDateTime& now,
               qint64 sent) {
  const auto& steps = campaign.steps();
  const qint64 last = *thread.record.campaignStep;
  qint64 opening = last, minutes = 0;
  while (opening > 1 && steps[opening - 1].sameThread) minutes += steps[--opening].delayMinutes;
  const SendingHours hours = hoursOf(campaign);
  const qint64 lastSent = hours.until(now) - sent;
  for (qint64 position = opening; position <= last; ++position) {
    const QDateTime at = hours.at(lastSent - hours.within(minutes));
    if (position < last) minutes -= steps[position].delayMinutes;
    InboxMessage message = messageIn(thread, u"outbound"_s, bodyOf(campaign, person, position), at);
    message.subject = headOf(campaign, person, position).subject;
    // Whoever has emptied the sequence meanwhile finds a thread without it.
    if (!message.body.isEmpty()) thread.messages.append(message);
  }
}

QString quotationOf(const InboxMessage& message) {
  const QDateTime at = parsePlatformDate(message.at).value_or(QDateTime());
  return u"\n\nOn %1, %2 wrote:\n> %3"_s.arg(at.toString(u"d MMM yyyy"_s), message.fromAddress.value_or(QString()),
                                             QString(message.body).replace(u"\n"_s, u"\n> "_s));
}

InboxMessage sentMessage(const DemoThread& thread, const DemoDraft& draft, const QString& at) {
  const bool own = draft.record.source != u"agent"_s;
  InboxMessage message;
  message.id = u"m_"_s + draft.id();
  message.direction = u"outbound"_s;
  message.state = u"sent"_s;
  message.fromAddress = thread.record.mailboxAddress;
  message.toAddress = draft.record.toAddress;
  message.subject = draft.record.subject;
  message.body = draft.record.body;
  message.kind = own ? u"human"_s : draft.record.kind;
  message.draftId = draft.id();
  if (!draft.cc.isEmpty()) message.cc = draft.cc;
  if (!draft.bcc.isEmpty()) message.bcc = draft.bcc;
  message.at = at;
  return message;
}

void sendDue(DemoWorkspace& workspace, const QDateTime& now) {
  for (DemoDraft& draft : workspace.inbox.drafts) {
    const auto due = parsePlatformDate(draft.record.dueAt);
    if (draft.record.status != "approved"_L1 || !due || *due > now) continue;
    DemoThread* const thread = findThread(workspace, draft.record.threadId);
    if (!thread) continue;
    const bool fails = draft.record.toAddress.value_or(QString()).startsWith("gone."_L1);
    InboxMessage message = sentMessage(*thread, draft, formatPlatformDate(*due));
    draft.record.status = fails ? u"failed"_s : u"sent"_s;
    if (fails) {
      draft.record.error = u"The mailbox of this address no longer exists."_s;
      message.state = message.kind.emplace(u"failed"_s);
    }
    thread->messages.append(message);
  }
}

}  // namespace

void settleInbox(DemoWorkspace& workspace, double repliesPerMinute, const QDateTime& now) {
  sendDue(workspace, now);
  DemoInbox& inbox = workspace.inbox;
  if (!inbox.receivedUntil.isValid()) inbox.receivedUntil = now;
  if (repliesPerMinute <= 0 || inbox.threads.isEmpty()) return;
  const auto every = std::chrono::milliseconds(qint64(60'000 / repliesPerMinute));
  const qint64 due = inbox.receivedUntil.msecsTo(now) / std::max<qint64>(1, every.count());
  if (due > mostAtOnce) inbox.receivedUntil = now.addMSecs(-mostAtOnce * every.count());
  for (qint64 left = std::min(due, mostAtOnce); left > 0; --left) {
    inbox.receivedUntil = inbox.receivedUntil.addMSecs(every.count());
    receiveAnother(workspace, {}, inbox.receivedUntil);
  }
}

ShownThreads::ShownThreads(const DemoWorkspace& workspace) : m_workspace(workspace) {
  for (const DemoDraft& draft : workspace.inbox.drafts)
    if (draft.record.isWaiting()) ++m_waiting[draft.record.threadId];
}

InboxThread ShownThreads::of(const DemoThread& thread) const {
  InboxThread shown = thread.record;
  shown.effectiveMode = modeIn(m_workspace, thread);
  shown.messageCount = thread.messages.size();
  shown.pendingDrafts = m_waiting.value(thread.id());
  shown.followupsSent = std::ranges::count(thread.messages, std::optional(u"followup"_s), &InboxMessage::kind);
  for (const InboxMessage& message : thread.messages)
    (message.isInbound() ? shown.lastInboundAt : shown.lastOutboundAt) = message.at;
  shown.lastMessageAt = lastAt(thread);
  if (!thread.messages.isEmpty()) shown.snippet = thread.messages.last().body.left(160).simplified();
  return shown;
}

DemoThread* findThread(DemoWorkspace& workspace, const QString& id) {
  const auto found = std::ranges::find(workspace.inbox.threads, id, &DemoThread::id);
  return found == workspace.inbox.threads.end() ? nullptr : &*found;
}

DemoDraft* findDraft(DemoWorkspace& workspace, const QString& id) {
  const auto found = std::ranges::find(workspace.inbox.drafts, id, &DemoDraft::id);
  return found == workspace.inbox.drafts.end() ? nullptr : &*found;
}

QString lastAt(const DemoThread& thread) {
  return thread.messages.isEmpty() ? thread.record.createdAt : thread.messages.last().at;
}

QString lastInboundAt(const DemoThread& thread) {
  for (auto message = thread.messages.crbegin(); message != thread.messages.crend(); ++message)
    if (message->isInbound()) return message->at;
  return {};
}

bool isPrimary(const DemoThread& thread) { return thread.record.kind == "reply"_L1; }

qint64 unreadIn(const DemoInbox& inbox) {
  return std::ranges::count_if(
      inbox.threads, [](const DemoThread& thread) { return thread.record.unread && !thread.record.isArchived(); });
}

QString modeIn(const DemoWorkspace& workspace, const DemoThread& thread) {
  if (thread.record.setterMode) return *thread.record.setterMode;
  const QString campaign = thread.record.campaignId.value_or(QString());
  return workspace.inbox.modes.value(campaign, workspace.inbox.settings.defaultMode);
}

InboxMessage messageIn(const DemoThread& thread, const QString& direction, const QString& text, const QDateTime& at) {
  const InboxThread& record = thread.record;
  InboxMessage message;
  message.id = u"m_%1_%2"_s.arg(record.id).arg(thread.messages.size());
  message.direction = direction;
  message.state = message.isInbound() ? u"received"_s : u"sent"_s;
  message.fromAddress = message.isInbound() ? record.contactAddress : record.mailboxAddress;
  message.toAddress = message.isInbound() ? record.mailboxAddress : record.contactAddress;
  if (message.isInbound()) message.fromName = record.contactName;
  message.subject = record.subject;
  message.body = filledIn(text, thread);
  message.kind = message.isInbound() ? record.kind : u"campaign"_s;
  message.at = formatPlatformDate(at);
  return message;
}

DemoThread& receiveAnother(DemoWorkspace& workspace, const QString& label, const QDateTime& now) {
  QSet<QString> heard;
  for (const DemoThread& thread : std::as_const(workspace.inbox.threads))
    if (thread.record.lead) heard.insert(thread.record.lead->id);
  const WorkspaceLeads& leads = workspace.leads;
  QList<LeadPlace> known(leads.unlocked().begin(), leads.unlocked().end());
  for (const LeadRecord& lead : leads.own()) known.append(*leads.placeOf(lead.id));
  std::ranges::sort(known);
  const qint64 first = DemoRandom::of(workspace.slug, quint64(workspace.inbox.lastNumber)).below(known.size());
  std::ranges::rotate(known, known.begin() + first);
  const auto isNew = std::ranges::find_if(known, [&](LeadPlace place) {
    const LeadRecord lead = leads.at(place);
    return lead.fullName && !heard.contains(lead.id);
  });
  Incoming incoming{.label = label};
  if (!known.isEmpty()) incoming.person = enrollable(leads, isNew == known.end() ? known.first() : *isNew);
  return receiveReply(workspace, incoming, now);
}

DemoThread& receiveReply(DemoWorkspace& workspace, const Incoming& incoming, const QDateTime& now) {
  DemoInbox& inbox = workspace.inbox;
  const qint64 number = ++inbox.lastNumber;
  DemoRandom random = DemoRandom::of(workspace.slug, quint64(number));
  const DemoCampaign* const campaign = pickCampaign(workspace, incoming.campaign, random);
  const Pitch& pitch = pitchOf(campaign ? campaign->record.name : QString());
  const Talk& talk = pickTalk(pitch, incoming, random);
  CampaignLead person = incoming.person.value_or(makePerson(random, 70'000 + number, pitch));
  DemoThread thread;
  thread.talk = &talk;
  InboxThread& record = thread.record;
  record = threadWith(person, talk);
  record.id = u"th_%1_%2"_s.arg(workspace.slug).arg(number);
  record.number = number;
  if (campaign) {
    const CampaignSender& sender = random.pick(campaign->senders());
    record.campaignId = campaign->record.id;
    record.campaignStep = random.between(1, std::max<qint64>(1, campaign->steps().size()));
    record.mailboxId = sender.mailboxId;
    record.mailboxAddress = sender.address;
    person.senderAddress = sender.address;
    addEmails(thread, *campaign, person, now, random.between(600, 36'000));
  } else if (!workspace.mailboxes.isEmpty()) {
    const DemoMailbox& mailbox = random.pick(workspace.mailboxes);
    record.mailboxId = mailbox.id();
    record.mailboxAddress = mailbox.record.address;
  }
  if (thread.messages.isEmpty()) {
    record.subject = filledIn(u"Our offer for {company}"_s, thread);
    const QDateTime sentAt = now.addSecs(-random.between(3600, 2LL * 86400));
    thread.messages.append(messageIn(thread, u"outbound"_s, u"Hi {name},\n\nmay I send you our offer?"_s, sentAt));
  }
  record.createdAt = thread.messages.first().at;
  record.subject = asReply(thread.messages.last().subject.value_or(QString()));
  // Whoever answers is somebody that the workspace wrote to.
  if (!workspace.leads.placeOf(person.id)) workspace.leads.addOwn(recordOf(person, record.createdAt));

  const QString quoted = isPrimary(thread) ? quotationOf(thread.messages.last()) : QString();
  thread.messages.append(messageIn(thread, u"inbound"_s, talk.said + quoted, now));
  inbox.threads.append(thread);
  DemoThread& added = inbox.threads.last();
  if (!talk.answer.isEmpty() && modeIn(workspace, added) != orv::words::modeOff && inbox.settings.hasOpenAiKey)
    writeDraft(workspace, added, now);
  return added;
}

DemoDraft& writeDraft(DemoWorkspace& workspace, const DemoThread& thread, const QDateTime& now) {
  DemoInbox& inbox = workspace.inbox;
  inbox.drafts.removeIf([&](const DemoDraft& draft) {
    return draft.record.threadId == thread.id() && draft.record.isWaiting() && draft.record.source == u"agent"_s;
  });
  const Talk& talk = talkIn(thread);
  const qint64 number = ++inbox.lastNumber;
  DemoDraft draft;
  Draft& record = draft.record;
  record.id = u"dr_%1_%2"_s.arg(workspace.slug).arg(number);
  record.threadId = thread.id();
  record.kind = orv::words::kindReply;
  record.toAddress = thread.record.contactAddress;
  record.subject = thread.record.subject;
  record.body = filledIn(talk.answer.isEmpty() ? u"Hi {name},\n\nthank you for your answer."_s : talk.answer, thread) +
                u"\n\nBest,\n"_s + inbox.settings.signature.name.value_or(inbox.settings.repName);
  record.source = u"agent"_s;
  record.status = orv::words::draftPending;
  record.createdAt = record.updatedAt = formatPlatformDate(now);
  record.lessonsUsed =
      std::min<qint64>(3, std::ranges::count(inbox.lessons, QString(orv::words::lessonActive), &SetterLesson::status));
  if (!talk.reason.isEmpty()) record.strategy = DraftStrategy{DraftStrategy::Classification{talk.reason}};
  if (!talk.gate.isEmpty()) {
    record.status = orv::words::draftHeld;
    record.holdReason = talk.gate;
    record.gate = DraftGate{QList{DraftGate::Failure{talk.gateCode, talk.gate}}};
  } else if (modeIn(workspace, thread) == orv::words::modeAuto) {
    approve(draft, now, autoWait);
  }
  inbox.drafts.append(draft);
  return inbox.drafts.last();
}

void approve(DemoDraft& draft, const QDateTime& now, std::chrono::seconds wait) {
  draft.record.status = u"approved"_s;
  draft.record.approvedAt = draft.record.updatedAt = formatPlatformDate(now);
  draft.record.dueAt = formatPlatformDate(now.addSecs(wait.count()));
}

void putAside(DemoDraft& draft, const QString& outcome, const QDateTime& now) {
  draft.record.status = orv::words::draftRejected;
  draft.record.reviewOutcome = outcome;
  draft.record.reviewedAt = draft.record.updatedAt = formatPlatformDate(now);
}

void putBack(DemoDraft& draft) {
  Draft& record = draft.record;
  record.status = record.gate ? orv::words::draftHeld : orv::words::draftPending;
  if (record.aiBody) record.body = *record.aiBody;
  for (auto* decided : {&record.dueAt, &record.approvedAt, &record.aiBody, &record.reviewOutcome, &record.reviewedAt,
                        &record.reviewStyle, &record.reviewText, &record.learnedKind, &record.learnedText})
    decided->reset();
  record.edited.reset();
  draft.training.reset();
}

}  // namespace orv::demo

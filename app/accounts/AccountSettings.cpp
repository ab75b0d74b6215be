#include "app/accounts/AccountSettings.h"

#include "app/accounts/AccountTexts.h"
#include "app/base/shownName.h"
#include "app/base/wayTo.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto savingKey = u"saving"_s;
const auto checkingKey = u"checking"_s;

const QHash<QString, QString>& labels() {
  static const QHash<QString, QString> labels{{u"displayName"_s, u"Sender name"_s},
                                              {u"signature"_s, u"Signature"_s},
                                              {u"sendLimit"_s, u"Daily limit"_s},
                                              {u"gap"_s, u"Minimum wait"_s},
                                              {u"trackingDomain"_s, u"Custom tracking domain"_s},
                                              {u"tags"_s, u"Tags"_s}};
  return labels;
}

QList<Choice> choicesOf(const QStringList& tags) {
  QList<Choice> choices;
  for (const QString& tag : tags) choices.append({.key = tag, .label = tag});
  return choices;
}

}  // namespace

AccountSettings::AccountSettings(WorkspaceContext& context, Store* whole, QString id, Resource<Mailbox>& account,
                                 KnownTags knownTags)
    : Store(context, whole),
      m_id(std::move(id)),
      m_account(account),
      m_knownTags(std::move(knownTags)),
      m_actions(context, m_busy,
                [this] {
                  // A conflict is followed by a reading of its own.
                  if (!m_conflicts) m_account.load();
                }),
      m_recovery(context, Recovery::of(m_draft)) {
  m_draft.setKey(u"accounts/"_s + m_id + u"/settings"_s);
  connect(&account, &ResourceBase::valueChanged, this, &AccountSettings::follow);
  connect(&m_busy, &BusySet::changed, this, &AccountSettings::changed);
  connect(&m_draft, &FieldDraft::changed, this, &AccountSettings::changed);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  // Before the page takes it over: what the person did to the account in the list is nobody else's.
  context.changes().watch<Mailbox>(this, [this](const Change<Mailbox>& change) {
    if (change.record && change.id == m_id && change.madeOn && m_account.value())
      m_draft.rebase(accountFieldsOf(*change.record), change.record->version, change.madeOn);
  });
}

bool AccountSettings::saving() const { return m_busy.contains(savingKey); }

bool AccountSettings::checking() const { return m_busy.contains(checkingKey); }

QString AccountSettings::conflict() const {
  QStringList changes;
  for (const auto& [field, value] : m_draft.rivals().asKeyValueRange()) {
    const QString text = value.metaType() == QMetaType::fromType<QStringList>() ? value.toStringList().join(u", "_s)
                                                                                : value.toString().trimmed();
    changes.append(labels().value(field, field) +
                   (text.isEmpty() ? u" is empty"_s : u" is “"_s + shownName(text) + u'”'));
  }
  return rivalsTold(changes);
}

QString AccountSettings::keptSendLimit() const { return kept(u"sendLimit"_s); }
QString AccountSettings::keptGap() const { return kept(u"gap"_s); }

QString AccountSettings::kept(const QString& field) const {
  const QString base = m_draft.saved().value(field).toString();
  const bool emptied = !base.isEmpty() && m_draft.values().value(field).toString().trimmed().isEmpty();
  return emptied ? u"Left empty, it stays at "_s + base + u'.' : QString();
}

QList<Choice> AccountSettings::tags() const { return choicesOf(m_draft.typed().tags); }

QList<Choice> AccountSettings::tagSuggestions() const {
  const QStringList held = m_draft.typed().tags;
  QList<Choice> known = m_knownTags ? m_knownTags() : QList<Choice>();
  known.removeIf([&held](const Choice& tag) { return held.contains(tag.key, Qt::CaseInsensitive); });
  return known;
}

bool AccountSettings::hasTrackingDomain() const { return m_account.value() && m_account.value()->trackingDomain; }

bool AccountSettings::trackingVerified() const {
  return hasTrackingDomain() && m_account.value()->trackingDomainVerifiedAt;
}

QString AccountSettings::trackingHelp() const {
  return u"Links and opens are tracked through this host instead of ours. Point it at "_s + trackingHost +
         u" with a CNAME."_s;
}

QString AccountSettings::trackingExample() const { return exampleHost; }

int AccountSettings::mostLimit() const { return orv::mostSendLimit; }

int AccountSettings::mostGap() const { return orv::mostSendingGap; }

void AccountSettings::follow() {
  const Mailbox* account = m_account.value();
  if (!account) return;
  m_draft.rebase(accountFieldsOf(*account), account->version);
  m_recovery.begin(m_draft.key(), account->version);
  Q_EMIT changed();
}

void AccountSettings::set(const QString& field, const QVariant& value) {
  if (m_draft.set(field, value)) setProblem({});
}

void AccountSettings::addTags(const QStringList& texts) {
  const QStringList tags = normalisedTags(m_draft.typed().tags + texts);
  if (tags.size() > mostTags) {
    QVariantMap problems = m_draft.problems();
    problems.insert(u"tags"_s, tooManyTags());
    m_draft.setProblems(problems);
    return;
  }
  set(u"tags"_s, tags);
}

void AccountSettings::removeTag(const QString& tag) {
  QStringList tags = m_draft.typed().tags;
  tags.removeOne(tag);
  set(u"tags"_s, tags);
}

void AccountSettings::discard() {
  m_draft.discard();
  setProblem({});
}

void AccountSettings::setProblem(const QString& problem) {
  if (std::exchange(m_problem, problem) != problem) Q_EMIT changed();
}

/// Why a save came to nothing: on the page, or to whoever has left it.
void AccountSettings::tell(const QString& problem) {
  setProblem(problem);
  if (context().openedItem(Page::accounts) == m_id) return;
  services().toasts.show({.message = problem,
                          .tone = Toasts::Tone::error,
                          .actionLabel = u"Open"_s,
                          .action = wayTo(context(), Page::accounts, m_id),
                          .detail = shownName(m_account.value()->address)});
}

Task<void> AccountSettings::saveTask() {
  if (!m_account.value() || !canSave()) co_return;
  const AccountFields sent = m_draft.sending(), base = m_draft.base();
  m_draft.setProblems(problemsIn(sent, base));
  setProblem({});
  if (!m_draft.problems().isEmpty()) co_return;
  const MailboxPatch patch = patchOf(sent, base);
  // Blanks around a name, say.
  if (patch == MailboxPatch()) co_return discard();
  m_conflicts = false;
  const auto saved = co_await m_actions.perform<Mailbox>(
      {savingKey, m_id}, [this, patch] { return Requests::updateMailbox(m_id, patch, m_draft.version()); }, {},
      [this](const Mailbox& answer) { m_draft.taken(accountFieldsOf(answer), answer.version); },
      [this](const APIError& error) {
        m_draft.failed(error);
        m_conflicts = isVersionConflict(error);
        const bool isMute = error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized);
        if (!m_conflicts && !isMute) tell(u"Couldn’t save. "_s + error.message());
        return true;
      });
  if (std::exchange(m_conflicts, false)) co_await rebuild();
  if (!saved) co_return;
  const bool isUnverified = patch.trackingDomain.value() && !saved->trackingDomainVerifiedAt;
  if (!isUnverified) co_return services().toasts.success(u"Settings saved"_s);
  const auto checked = co_await askTracking();
  QString hint;
  if (checked && !checked->check.ok)
    hint = u"Point "_s + *patch.trackingDomain.value() + u" at "_s + shownName(checked->check.expected) +
           u" with a CNAME, then check again."_s;
  services().toasts.show({.message = u"Settings saved"_s, .tone = Toasts::Tone::success, .detail = hint});
}

/// Somebody else was quicker: what they made of it is shown in place of what was typed, and it is said.
Task<void> AccountSettings::rebuild() {
  const auto mark = m_busy.mark(savingKey);
  const auto latest = co_await m_actions.send(Requests::getMailbox(m_id), {}, {}, [this](const APIError& error) {
    tell(u"Couldn’t save. "_s + error.message());
    return true;
  });
  if (!latest) co_return;
  m_draft.fill(accountFieldsOf(*latest), latest->version);
  tell(u"Someone changed this account meanwhile. The form shows the latest values; make your change again."_s);
}

Task<std::optional<TrackingDomainCheck>> AccountSettings::askTracking() {
  Stamp asked{};
  co_return co_await m_actions.perform<TrackingDomainCheck>(
      {checkingKey, m_id},
      [this, &asked] {
        asked = context().changes().stamp();
        return Requests::checkTrackingDomain(m_id);
      },
      u"Couldn’t check the tracking domain."_s,
      [this, &asked](const TrackingDomainCheck& answer) { context().changes().publish(answer.mailbox, asked, true); });
}

Task<void> AccountSettings::checkTrackingTask() {
  if (!hasTrackingDomain() || !canWrite()) co_return;
  const QString host = *m_account.value()->trackingDomain;
  const auto checked = co_await askTracking();
  if (!checked) co_return;
  if (checked->check.ok)
    co_return services().toasts.success(u"The tracking domain "_s + shownName(host) + u" is verified"_s);
  services().toasts.show(
      {.message = u"No CNAME "_s + shownName(host) + u" to "_s + shownName(checked->check.expected) + u" yet."_s});
}

}  // namespace orv
